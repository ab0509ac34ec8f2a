#include "Json5Append.h"

#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <iterator>

#include "editor/Utf8.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

char ToByte(std::uint32_t byte) {
  return static_cast<char>(byte);
}

// Writes an escape of a unit to `out`, and gives the place behind it.
char* PutEscape(std::uint32_t unit, char* out) {
  constexpr std::string_view named = "\"\\\b\f\n\r\t";
  constexpr std::string_view names = "\"\\bfnrt";
  *out++ = '\\';
  const std::size_t found = unit < 0x80 ? named.find(ToByte(unit)) : named.npos;
  if (found != named.npos) {
    *out++ = names[found];
    return out;
  }
  *out++ = 'u';
  for (int shift = 12; shift >= 0; shift -= 4) *out++ = "0123456789abcdef"[(unit >> shift) & 0xF];
  return out;
}

bool IsPlainAscii(std::uint32_t unit) {
  return unit < 0x80 && unit >= ' ' && unit != '"' && unit != '\\';
}

bool IsPlainOutsideAscii(std::uint32_t code) {
  return code >= 0x80 && code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF) && code != 0x2028 &&
         code != 0x2029;
}

// The code point of the pair that two units make. Where units have 32 bits none do, and 0 says so.
std::uint32_t CodeOfPair(std::uint32_t high, std::uint32_t low) {
  if (sizeof(wchar_t) != 2 || high < 0xD800 || high > 0xDBFF || low < 0xDC00 || low > 0xDFFF) {
    return 0;
  }
  return ((high - 0xD7C0) << 10) + (low - 0xDC00);
}

// Writes the text to `out`, which has room for six bytes for each unit.
char* PutString(std::wstring_view text, char* out) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    auto unit = static_cast<std::uint32_t>(text[i]);
    if (IsPlainAscii(unit)) {
      *out++ = ToByte(unit);
      continue;
    }
    const auto next = i + 1 < text.size() ? static_cast<std::uint32_t>(text[i + 1]) : 0;
    if (const std::uint32_t pair = CodeOfPair(unit, next)) {
      unit = pair;
      ++i;
    }
    out = IsPlainOutsideAscii(unit) ? PutUtf8(unit, out) : PutEscape(unit, out);
  }
  return out;
}

}  // namespace

void AppendString(std::string& bytes, std::wstring_view text) {
  constexpr std::size_t longestUnit = 6;
  const std::size_t start = bytes.size();
  bytes.resize(start + 2 + longestUnit * text.size());
  char* out = bytes.data() + start;
  *out++ = '"';
  out = PutString(text, out);
  *out++ = '"';
  bytes.resize(static_cast<std::size_t>(out - bytes.data()));
}

void AppendInt(std::string& bytes, int number) {
  char chars[16];
  bytes.append(chars, std::to_chars(std::begin(chars), std::end(chars), number).ptr);
}

void AppendReal(std::string& bytes, double number) {
  if (!std::isfinite(number)) {
    bytes += "null";
    return;
  }
  char chars[32];
  const char* end = std::to_chars(std::begin(chars), std::end(chars), number).ptr;
  const std::string_view text(chars, static_cast<std::size_t>(end - chars));
  bytes += text;
  if (text.find_first_of(".e") == text.npos) bytes += ".0";
}

}  // namespace TolvenLibs::RevitMappingEditorDll
