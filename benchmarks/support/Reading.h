// What a load does at least, and what a user would read such a file with.

#pragma once

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <string_view>

// A text whose memory was not filled with anything before the text was written into it.
struct DecodedText {
  std::unique_ptr<wchar_t[]> units;
  std::size_t length;

  std::wstring_view View() const { return {units.get(), length}; }
};

// The whole file, decoded. It must be well-formed UTF-8, and not change its size meanwhile.
DecodedText ReadAndDecode(const std::filesystem::path& path);

// A wide stream that decodes UTF-8.
std::wifstream OpenWideStream(const std::filesystem::path& path);
