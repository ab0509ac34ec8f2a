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

// Maps units outside ASCII to a character that no number contains. `wchar_t` can be signed.
char ToAscii(wchar_t unit) {
  return static_cast<std::uint32_t>(unit) < 0x80 ? static_cast<char>(unit) : '?';
}

// Returns the text as `from_chars` expects it: in ASCII, without leading white space and plus sign.
// Empty if it doesn't begin with a digit after its sign, or with a point if `allowPoint`.
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
  char chars[32];  // the longest number is shorter
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
