// The bytes of an input as numbers and texts. Behind the last byte all are 0 or empty, so that any
// bytes are a program.

#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

class Input {
 public:
  Input(const std::uint8_t* bytes, std::size_t size) : next(bytes), end(bytes + size) {}

  bool AtEnd() const { return next == end; }

  std::uint8_t Byte() { return AtEnd() ? std::uint8_t{0} : *next++; }

  template <class Number>
  Number Whole() {
    unsigned char bytes[sizeof(Number)];
    for (unsigned char& byte : bytes) byte = Byte();
    Number number;
    std::memcpy(&number, bytes, sizeof number);
    return number;
  }

  // A text of up to 15 units, none of them NUL: bytes, or where the first byte says so, units from
  // all of the first plane, surrogates included.
  std::wstring Text() {
    const std::uint8_t head = Byte();
    std::wstring text;
    for (int length = head % 16; length > 0 && !AtEnd(); --length) {
      const int unit = head >= 0x80 ? 256 * Byte() + Byte() : Byte();
      if (unit != 0) text.push_back(static_cast<wchar_t>(unit));
    }
    return text;
  }

 private:
  const std::uint8_t* next;
  const std::uint8_t* end;
};
