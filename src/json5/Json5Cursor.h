// The input of the parser of JSON5.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "base/Utf8.h"

namespace TolvenLibs::RevitMappingEditorDll {

// The exception for malformed text. `ParseJson5` catches it.
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

// Returns the value of a hexadecimal digit, or -1.
inline int HexValue(char byte) {
  if (IsDigit(byte)) return byte - '0';
  if (byte >= 'a' && byte <= 'f') return byte - 'a' + 10;
  if (byte >= 'A' && byte <= 'F') return byte - 'A' + 10;
  return -1;
}

// A text, with the position up to which it has been read.
class Json5Cursor {
 public:
  explicit Json5Cursor(std::string_view text)
      : start_(text.data()), at_(start_), end_(start_ + text.size()) {}

  bool AtEnd() const { return at_ == end_; }
  std::size_t Position() const { return static_cast<std::size_t>(at_ - start_); }

  // Returns the byte at `offset` from the position, or NUL after the end. No rule for single bytes
  // accepts a NUL of the text, so the two needn't be told apart.
  char Peek(std::size_t offset = 0) const {
    return static_cast<std::size_t>(end_ - at_) > offset ? at_[offset] : '\0';
  }

  std::string_view Rest() const { return {at_, static_cast<std::size_t>(end_ - at_)}; }

  void Skip(std::size_t count = 1) { at_ += count; }

  template <class Fits>
  void SkipWhile(Fits fits) {
    while (at_ != end_ && fits(*at_)) ++at_;
  }

  bool SkipIf(char byte) {
    if (at_ == end_ || *at_ != byte) return false;
    ++at_;
    return true;
  }

  bool SkipIf(std::string_view word) {
    if (!Rest().starts_with(word)) return false;
    at_ += word.size();
    return true;
  }

  // Returns the text from `position` to the current position.
  std::string_view Since(std::size_t position) const {
    return {start_ + position, static_cast<std::size_t>(at_ - start_) - position};
  }

  // Returns the next code point, and its number of bytes. REQUIRES: !AtEnd().
  std::uint32_t PeekCode(std::size_t& size) const {
    size = 1;
    if (IsAscii(*at_)) return static_cast<unsigned char>(*at_);
    std::string_view rest = Rest();
    const std::uint32_t code = TakeCodePoint(rest);
    if (code == noCodePoint) Fail("bytes that are no UTF-8");
    size = static_cast<std::size_t>(rest.data() - at_);
    return code;
  }

  std::uint32_t TakeCode() {
    std::size_t size = 0;
    const std::uint32_t code = PeekCode(size);
    at_ += size;
    return code;
  }

  // Raises the error. At the end of the text the message is always that it ends too early.
  [[noreturn]] void Fail(const char* message) const {
    throw Json5Malformed{Position(), AtEnd() ? "the text ends too early" : message};
  }

 private:
  const char* start_;
  const char* at_;
  const char* end_;
};

}  // namespace TolvenLibs::RevitMappingEditorDll
