#pragma once

#include <filesystem>
#include <string>
#include <string_view>

// The path that bytes of UTF-8 name. A path that is made of plain `char` is in the code page of the
// system on Windows, which need not have all letters.
inline std::filesystem::path Utf8Path(std::string_view bytes) {
  return std::u8string(bytes.begin(), bytes.end());
}
