// Converts between paths and texts with any letters. The conversions of the standard library don't
// suffice: plain `char` is in the code page of the system on Windows, and wide characters depend on
// the locale elsewhere.

#pragma once

#include <filesystem>
#include <string>
#include <string_view>

// Returns the path with this name in UTF-8.
inline std::filesystem::path Utf8Path(std::string_view bytes) {
  return std::u8string(bytes.begin(), bytes.end());
}

// Returns the path as an argument of the library.
inline std::wstring WideText(const std::filesystem::path& path) {
  if constexpr (sizeof(wchar_t) == 2) {
    return path.wstring();
  } else {
    const std::u32string text = path.u32string();
    return std::wstring(text.begin(), text.end());
  }
}
