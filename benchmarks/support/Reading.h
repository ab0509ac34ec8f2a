// The least work of a load, and the standard way to read such a file.

#pragma once

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <string_view>

// A text whose memory was not initialised before the text was written into it.
struct DecodedText {
  std::unique_ptr<wchar_t[]> units;
  std::size_t length;

  std::wstring_view View() const { return {units.get(), length}; }
};

// Returns the whole file, decoded. REQUIRES: it is well-formed UTF-8 and its size doesn't change.
DecodedText ReadAndDecode(const std::filesystem::path& path);

// Returns a wide stream that decodes UTF-8.
std::wifstream OpenWideStream(const std::filesystem::path& path);
