#include "json5/Json5Space.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

bool IsAsciiSpace(char byte) {
  return byte == ' ' || (byte >= '\t' && byte <= '\r');
}

bool IsSpaceOutsideAscii(std::uint32_t code) {
  return code == 0xA0 || code == 0x1680 || (code >= 0x2000 && code <= 0x200A) || code == 0x2028 ||
         code == 0x2029 || code == 0x202F || code == 0x205F || code == 0x3000 || code == 0xFEFF;
}

// Returns these two bytes four times, as a word.
constexpr std::uint64_t Alternating(unsigned char first, unsigned char second) {
  using Bytes = std::array<unsigned char, 8>;
  return std::bit_cast<std::uint64_t>(
      Bytes{first, second, first, second, first, second, first, second});
}

// A fast path for Cyrillic comments: returns the length of the run of letters of two bytes, four at
// a time. Of their lead bytes only the upper half counts, which includes those of Cyrillic.
std::size_t FourLettersLength(std::string_view text) {
  std::size_t length = 0;
  std::uint64_t eight = 0;
  for (; text.size() - length >= sizeof eight; length += sizeof eight) {
    std::memcpy(&eight, text.data() + length, sizeof eight);
    if ((eight & Alternating(0xF0, 0xC0)) != Alternating(0xD0, 0x80)) break;
  }
  return length;
}

void SkipLineComment(Json5Cursor& cursor) {
  while (!cursor.AtEnd()) {
    cursor.SkipWhile([](char byte) { return IsAscii(byte) && byte != '\n' && byte != '\r'; });
    if (cursor.AtEnd() || IsAscii(cursor.Peek())) return;
    cursor.Skip(FourLettersLength(cursor.Rest()));
    if (cursor.AtEnd() || IsAscii(cursor.Peek())) continue;
    std::size_t size = 0;
    if (IsLineTerminator(cursor.PeekCode(size))) return;
    cursor.Skip(size);
  }
}

void SkipComment(Json5Cursor& cursor) {
  if (cursor.SkipIf("//")) return SkipLineComment(cursor);
  if (!cursor.SkipIf("/*")) cursor.Fail("a stroke that begins no comment");
  while (!cursor.SkipIf("*/")) {
    if (cursor.AtEnd()) cursor.Fail("");
    cursor.TakeCode();
  }
}

}  // namespace

void SkipSomeSpace(Json5Cursor& cursor) {
  while (true) {
    cursor.SkipWhile(IsAsciiSpace);
    if (cursor.AtEnd()) return;
    if (cursor.Peek() == '/') {
      SkipComment(cursor);
      continue;
    }
    if (IsAscii(cursor.Peek())) return;
    std::size_t size = 0;
    if (!IsSpaceOutsideAscii(cursor.PeekCode(size))) return;
    cursor.Skip(size);
  }
}

}  // namespace TolvenLibs::RevitMappingEditorDll
