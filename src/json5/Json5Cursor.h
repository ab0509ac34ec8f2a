// The text of a document while it is being read, for the readers of its parts.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "base/Utf8.h"

namespace TolvenLibs::RevitMappingEditorDll {

// Where a text turned out to be malformed. Goes no further than `ParseJson5`.
struct Json5Malformed {
  std::size_t position;
  const char* message;
};

inline bool IsLineTerminator(std::uint32_t code) {
  return code == '\n' || code == '\r' || code == 0x2028 || code == 0x2029;
}

inline bool IsAscii(char byte) {
  return static_cast<unsigned char>(byte) < 0x80;
}

inline bool IsDigit(char byte) {
  return byte >= '0' && byte <= '9';
}

// The value of a hexadecimal digit, or -1.
inline int HexValue(char byte) {
  if (IsDigit(byte)) return byte - '0';
  if (byte >= 'a' && byte <= 'f') return byte - 'a' + 10;
  if (byte >= 'A' && byte <= 'F') return byte - 'A' + 10;
  return -1;
}

// The text, with the place up to which it has been read.
class Json5Cursor {
 public:
  explicit Json5Cursor(std::string_view whole)
      : start(whole.data()), at(start), end(start + whole.size()) {}

  bool AtEnd() const { return at == end; }
  std::size_t Position() const { return static_cast<std::size_t>(at - start); }

  // The byte `ahead` of the place, or NUL behind the end. A NUL in the text fits no rule that looks
  // at single bytes, so the two need not be told apart.
  char Peek(std::size_t ahead = 0) const {
    return static_cast<std::size_t>(end - at) > ahead ? at[ahead] : '\0';
  }

  // All that follows.
  std::string_view Rest() const { return {at, static_cast<std::size_t>(end - at)}; }

  void Skip(std::size_t count = 1) { at += count; }

  template <class Fits>
  void SkipWhile(Fits fits) {
    while (at != end && fits(*at)) ++at;
  }

  bool SkipIf(char byte) {
    if (at == end || *at != byte) return false;
    ++at;
    return true;
  }

  bool SkipIf(std::string_view word) {
    if (!Rest().starts_with(word)) return false;
    at += word.size();
    return true;
  }

  // The text from `position` to the place.
  std::string_view Since(std::size_t position) const {
    return {start + position, static_cast<std::size_t>(at - start) - position};
  }

  // The code point at the place, where there is one, and how many bytes it has.
  std::uint32_t PeekCode(std::size_t& size) const {
    size = 1;
    if (IsAscii(*at)) return static_cast<unsigned char>(*at);
    std::string_view rest = Rest();
    const std::uint32_t code = TakeCodePoint(rest);
    if (code == noCodePoint) Fail("bytes that are no UTF-8");
    size = static_cast<std::size_t>(rest.data() - at);
    return code;
  }

  std::uint32_t TakeCode() {
    std::size_t size = 0;
    const std::uint32_t code = PeekCode(size);
    at += size;
    return code;
  }

  // Where nothing fits. At the end of the text it is that which is said, whatever the message.
  [[noreturn]] void Fail(const char* message) const {
    throw Json5Malformed{Position(), AtEnd() ? "the text ends too early" : message};
  }

 private:
  const char* start;
  const char* at;
  const char* end;
};

}  // namespace TolvenLibs::RevitMappingEditorDll
