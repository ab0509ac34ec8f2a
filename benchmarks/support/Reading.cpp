#include "support/Reading.h"

#include <codecvt>
#include <cstdint>
#include <locale>
#include <stdexcept>

namespace {

// Returns the length of a sequence by its first byte.
std::size_t SequenceLength(unsigned char first) {
  return first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
}

std::size_t Decode(std::string_view bytes, wchar_t* units) {
  wchar_t* const start = units;
  for (std::size_t i = 0; i < bytes.size();) {
    const auto first = static_cast<unsigned char>(bytes[i]);
    if (first < 0x80) {
      *units++ = static_cast<wchar_t>(first);
      ++i;
      continue;
    }
    const std::size_t length = SequenceLength(first);
    std::uint32_t code = first & (0xFFu >> (length + 1));
    for (std::size_t k = 1; k < length; ++k) {
      code = code << 6 | (static_cast<unsigned char>(bytes[i + k]) & 0x3Fu);
    }
    *units++ = static_cast<wchar_t>(code);
    i += length;
  }
  return static_cast<std::size_t>(units - start);
}

}  // namespace

DecodedText ReadAndDecode(const std::filesystem::path& path) {
  const std::size_t size = std::filesystem::file_size(path);
  const auto bytes = std::make_unique_for_overwrite<char[]>(size);
  std::ifstream file(path, std::ios::binary);
  if (!file.read(bytes.get(), static_cast<std::streamsize>(size))) {
    throw std::runtime_error("can't read a benchmark's file");
  }
  DecodedText text = {std::make_unique_for_overwrite<wchar_t[]>(size), 0};
  text.length = Decode({bytes.get(), size}, text.units.get());
  return text;
}

std::wifstream OpenWideStream(const std::filesystem::path& path) {
  std::wifstream file(path);
  file.imbue(std::locale(file.getloc(), new std::codecvt_utf8<wchar_t>));
  return file;
}
