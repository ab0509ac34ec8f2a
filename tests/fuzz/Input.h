// Reads the bytes of an input as numbers and texts. After the last byte all are 0 or empty, so that
// any bytes are a program.

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

  // Returns a text of up to 15 units other than NUL: bytes, or, depending on the first byte, units
  // of the whole first plane, surrogates included.
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
