#include "domen/Numbers.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <system_error>

#include "base/Text.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

bool IsDigit(wchar_t unit) {
  return unit >= L'0' && unit <= L'9';
}

// No number goes on behind a character from outside ASCII, which becomes one that none has. Some
// systems' units have a sign.
char ToAscii(wchar_t unit) {
  return static_cast<std::uint32_t>(unit) < 0x80 ? static_cast<char>(unit) : '?';
}

// The text as `from_chars` takes it: without leading white space and a plus sign, in plain
// characters. Empty if it can't begin a number of decimal digits, `allowPoint` telling whether a
// point may stand in for the first digit.
std::string ToNumberChars(std::wstring_view text, bool allowPoint) {
  while (!text.empty() && IsSpace(text.front())) text.remove_prefix(1);
  const bool negative = text.starts_with(L'-');
  if (negative || text.starts_with(L'+')) text.remove_prefix(1);
  if (text.empty()) return {};
  if (!IsDigit(text.front()) && !(allowPoint && text.front() == L'.')) return {};
  std::string chars(text.size() + (negative ? 1 : 0), '-');
  std::transform(text.begin(), text.end(), chars.end() - static_cast<std::ptrdiff_t>(text.size()),
                 ToAscii);
  return chars;
}

template <class Number>
bool ParseChars(const std::string& chars, Number& number) {
  Number parsed{};
  const char* const end = chars.data() + chars.size();
  const auto [stop, error] = std::from_chars(chars.data(), end, parsed);
  if (error != std::errc() || stop != end) return false;
  number = parsed;
  return true;
}

template <class Number>
std::wstring Format(Number number) {
  char chars[32];  // no number is longer
  char* const end = std::to_chars(std::begin(chars), std::end(chars), number).ptr;
  return std::wstring(std::begin(chars), end);
}

}  // namespace

bool ParseInt(std::wstring_view text, int& number) {
  return ParseChars(ToNumberChars(text, false), number);
}

bool ParseReal(std::wstring_view text, double& number) {
  return ParseChars(ToNumberChars(text, true), number);
}

std::wstring FormatInt(int number) {
  return Format(number);
}

std::wstring FormatReal(double number) {
  return Format(number);
}

}  // namespace TolvenLibs::RevitMappingEditorDll
