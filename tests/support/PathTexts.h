// Between paths and texts, whatever letters they have: a path that is made of plain `char` is in
// the code page of the system on Windows, and a wide one goes by the locale elsewhere.

#pragma once

#include <filesystem>
#include <string>
#include <string_view>

// The path that bytes of UTF-8 name.
inline std::filesystem::path Utf8Path(std::string_view bytes) {
  return std::u8string(bytes.begin(), bytes.end());
}

// A path as an argument of the library.
inline std::wstring WideText(const std::filesystem::path& path) {
  if constexpr (sizeof(wchar_t) == 2) {
    return path.wstring();
  } else {
    const std::u32string text = path.u32string();
    return std::wstring(text.begin(), text.end());
  }
}
