#include "naive/TextFile.h"

#include <cstddef>
#include <cstdint>

namespace TolvenLibs::RevitMappingEditorDll::Naive {
namespace {

std::string Encode(std::uint32_t code) {
  std::uint32_t bytes[4] = {code};
  std::size_t length = 1;
  if (code >= 0x80) {
    length = code < 0x800 ? 2 : code < 0x10000 ? 3 : 4;
    const std::uint32_t marks[] = {0, 0, 0xC0, 0xE0, 0xF0};
    for (std::size_t i = length; i-- > 1; code /= 64) bytes[i] = 0x80 + code % 64;
    bytes[0] = marks[length] + code;
  }
  std::string text;
  for (std::size_t i = 0; i < length; ++i) text.push_back(static_cast<char>(bytes[i]));
  return text;
}

// Returns the code point that `bytes` encode, or -1 if they are not exactly its encoding.
long CodePointOf(std::string bytes) {
  std::uint32_t code = 0;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const std::uint32_t byte = static_cast<unsigned char>(bytes[i]);
    const std::size_t bits = i > 0 ? 6 : bytes.size() == 1 ? 7 : 7 - bytes.size();
    code = code * 64 + (byte & ((1u << bits) - 1));
  }
  const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
  if (surrogate || code > 0x10FFFF || Encode(code) != bytes) return -1;
  return static_cast<long>(code);
}

std::wstring UnitsOf(long code) {
  if (sizeof(wchar_t) == 4 || code < 0x10000) return {static_cast<wchar_t>(code)};
  code -= 0x10000;
  return {static_cast<wchar_t>(0xD800 + code / 0x400), static_cast<wchar_t>(0xDC00 + code % 0x400)};
}

}  // namespace

std::wstring DecodeUtf8(std::string bytes) {
  std::wstring text;
  for (std::size_t at = 0; at < bytes.size();) {
    std::size_t length = 1;
    while (length <= 4 && CodePointOf(bytes.substr(at, length)) < 0) ++length;
    if (length > 4) break;
    text += UnitsOf(CodePointOf(bytes.substr(at, length)));
    at += length;
  }
  return text;
}

Texts ReadLines(std::string bytes) {
  return SplitTrimmed(DecodeUtf8(bytes), L"\n", false);
}

std::vector<Section> ReadSections(std::string bytes) {
  std::vector<Section> sections;
  bool firstOfBody = false;
  for (const std::wstring& line : ReadLines(bytes.substr(0, bytes.find('\x1A')))) {
    if (StartsWith(line, L"==")) {
      sections.push_back({line, L""});
      firstOfBody = true;
    } else if (!sections.empty()) {
      sections.back().body += (firstOfBody ? L"" : L"\n") + line;
      firstOfBody = false;
    }
  }
  return sections;
}

}  // namespace TolvenLibs::RevitMappingEditorDll::Naive
