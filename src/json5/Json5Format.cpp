#include "json5/Json5Format.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <string>
#include <string_view>

#include "json5/Json5Text.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

constexpr unsigned char leadOfTerminators = 0xE2;  // of U+2028 and U+2029
constexpr unsigned char leadOfSurrogates = 0xED;

// The bytes that never need an escape.
constexpr std::array<bool, 256> plainBytes = [] {
  std::array<bool, 256> plain = {};
  std::fill(plain.begin() + ' ', plain.end() - 1, true);
  plain['"'] = false;
  plain['\\'] = false;
  plain[leadOfTerminators] = false;
  plain[leadOfSurrogates] = false;
  return plain;
}();

// Returns whether one of these two lead bytes begins a character that needs no escape.
bool BeginsPlain(std::string_view text) {
  const auto byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  if (byte(0) == leadOfTerminators) return byte(1) != 0x80 || (byte(2) | 1) != 0xA9;
  return byte(0) == leadOfSurrogates && byte(1) < 0xA0;
}

}  // namespace

std::size_t PlainSize(std::string_view text) {
  std::size_t size = 0;
  while (size < text.size() &&
         (plainBytes[static_cast<unsigned char>(text[size])] || BeginsPlain(text.substr(size)))) {
    ++size;
  }
  return size;
}

std::string TakeEscaped(std::string_view& text) {
  constexpr std::string_view named = "\"\\\b\f\n\r\t";
  constexpr std::string_view names = "\"\\bfnrt";
  const std::size_t found = named.find(text.front());
  if (found != named.npos) {
    text.remove_prefix(1);
    return {'\\', names[found]};
  }
  char32_t code = static_cast<unsigned char>(text.front());
  if (code < 0x80) {
    text.remove_prefix(1);
  } else {
    code = TakeJson5Code(text);
  }
  std::string escape = "\\u";
  for (int shift = 12; shift >= 0; shift -= 4) escape += "0123456789abcdef"[(code >> shift) & 0xF];
  return escape;
}

char* WriteInt(int number, char* out) {
  return std::to_chars(out, out + maxNumberSize, number).ptr;
}

char* WriteReal(double number, char* out) {
  constexpr std::string_view null = "null";
  if (!std::isfinite(number)) return std::copy(null.begin(), null.end(), out);
  char* end = std::to_chars(out, out + maxNumberSize, number).ptr;
  const std::string_view text(out, static_cast<std::size_t>(end - out));
  if (text.find_first_of(".e") != text.npos) return end;
  *end++ = '.';
  *end++ = '0';
  return end;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
