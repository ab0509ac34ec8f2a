#include "base/Utf8.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

constexpr std::uint32_t lastCodePoint = 0x10FFFF;

bool IsSurrogate(std::uint32_t code) {
  return code >= 0xD800 && code <= 0xDFFF;
}

// What the first byte of a sequence of several bytes tells.
struct Sequence {
  std::size_t length;          // in bytes; 0 if the byte begins no such sequence
  std::uint32_t leadBits;      // the code point's bits in the first byte
  std::uint32_t firstAllowed;  // the least code point of this length
};

Sequence SequenceOf(std::uint32_t lead) {
  if (lead >= 0xC2 && lead <= 0xDF) return {2, lead & 0x1F, 0x80};
  if (lead >= 0xE0 && lead <= 0xEF) return {3, lead & 0x0F, 0x800};
  if (lead >= 0xF0 && lead <= 0xF4) return {4, lead & 0x07, 0x10000};
  return {0, 0, 0};
}

}  // namespace

std::uint32_t TakeCodePoint(std::string_view& bytes) {
  const Sequence sequence = SequenceOf(static_cast<unsigned char>(bytes.front()));
  if (sequence.length == 0 || bytes.size() < sequence.length) return noCodePoint;
  std::uint32_t code = sequence.leadBits;
  for (std::size_t i = 1; i < sequence.length; ++i) {
    const auto next = static_cast<unsigned char>(bytes[i]);
    if ((next & 0xC0) != 0x80) return noCodePoint;
    code = (code << 6) | (next & 0x3FU);
  }
  if (code < sequence.firstAllowed || code > lastCodePoint || IsSurrogate(code)) return noCodePoint;
  bytes.remove_prefix(sequence.length);
  return code;
}

namespace {

// Most of a file is ASCII, and eight bytes at a time are faster.
bool StartsWithEightAscii(std::string_view bytes) {
  std::uint64_t eight = 0;
  if (bytes.size() < sizeof eight) return false;
  std::memcpy(&eight, bytes.data(), sizeof eight);
  return (eight & 0x8080808080808080) == 0;
}

}  // namespace

wchar_t* TakeUtf8(std::string_view& bytes, wchar_t* out) {
  while (!bytes.empty()) {
    while (StartsWithEightAscii(bytes)) {
      out = std::copy_n(bytes.begin(), 8, out);
      bytes.remove_prefix(8);
    }
    if (bytes.empty()) break;
    const auto first = static_cast<unsigned char>(bytes.front());
    if (first < 0x80) {
      *out++ = static_cast<wchar_t>(first);
      bytes.remove_prefix(1);
      continue;
    }
    const std::uint32_t code = TakeCodePoint(bytes);
    if (code == noCodePoint) break;
    out = PutUnits(code, out);
  }
  return out;
}

std::wstring DecodeUtf8(std::string_view bytes) {
  // A text has at most as many units as bytes.
  std::wstring text(bytes.size(), L'\0');
  text.resize(static_cast<std::size_t>(TakeUtf8(bytes, text.data()) - text.data()));
  return text;
}

std::optional<std::string> EncodeUtf8(std::wstring_view text) {
  std::string bytes;
  if (!AppendUtf8(bytes, text)) return std::nullopt;
  return bytes;
}

bool AppendUtf8(std::string& bytes, std::wstring_view text) {
  while (!text.empty()) {
    if (static_cast<std::uint32_t>(text.front()) < 0x80) {
      bytes.push_back(static_cast<char>(text.front()));
      text.remove_prefix(1);
      continue;
    }
    const std::uint32_t code = TakeUnits(text);
    if (code > lastCodePoint || IsSurrogate(code)) return false;
    char form[4];
    bytes.append(form, PutUtf8(code, form));
  }
  return true;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
