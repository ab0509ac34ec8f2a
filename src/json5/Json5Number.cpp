#include "json5/Json5Number.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <limits>
#include <string_view>
#include <system_error>

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

// Returns the exponent of a decimal number, or one far out of range if it overflows.
double ExponentOf(std::string_view chars) {
  const std::size_t mark = chars.find_first_of("eE");
  if (mark == chars.npos) return 0;
  std::string_view digits = chars.substr(mark + 1);
  if (digits.starts_with('+')) digits.remove_prefix(1);
  long long exponent = 0;
  const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), exponent);
  if (result.ec == std::errc()) return static_cast<double>(exponent);
  return digits.starts_with('-') ? -1e18 : 1e18;
}

// Returns the nearest double of a decimal number that is out of range for `from_chars`.
double BeyondRange(std::string_view chars) {
  const std::string_view mantissa = chars.substr(0, chars.find_first_of("eE"));
  const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
  const std::size_t firstDigit = mantissa.find_first_of("123456789");
  const double magnitude =
      static_cast<double>(point) - static_cast<double>(firstDigit) + ExponentOf(chars);
  return magnitude > 0 ? infinity : 0;
}

// Returns false if the number is out of the range of a double.
bool ToDouble(std::string_view chars, std::chars_format format, double& number) {
  const auto result = std::from_chars(chars.data(), chars.data() + chars.size(), number, format);
  return result.ec != std::errc::result_out_of_range;
}

void SkipDigits(Json5Cursor& cursor) {
  cursor.SkipWhile(IsDigit);
}

double ReadHexadecimal(Json5Cursor& cursor) {
  const std::size_t start = cursor.Position();
  cursor.SkipWhile([](char byte) { return HexValue(byte) >= 0; });
  const std::string_view digits = cursor.Since(start);
  if (digits.empty()) cursor.Fail("a hexadecimal number without digits");
  double number = 0;
  return ToDouble(digits, std::chars_format::hex, number) ? number : infinity;
}

double ReadDecimal(Json5Cursor& cursor) {
  const std::size_t start = cursor.Position();
  if (cursor.SkipIf('0')) {
    if (IsDigit(cursor.Peek())) cursor.Fail("a digit behind a leading 0");
  } else {
    SkipDigits(cursor);
  }
  const bool hasInteger = cursor.Position() != start;
  if (cursor.SkipIf('.')) {
    if (!hasInteger && !IsDigit(cursor.Peek())) cursor.Fail("a point without digits");
    SkipDigits(cursor);
  } else if (!hasInteger) {
    cursor.Fail("a sign without a number");
  }
  if (cursor.SkipIf('e') || cursor.SkipIf('E')) {
    if (cursor.Peek() == '+' || cursor.Peek() == '-') cursor.Skip();
    if (!IsDigit(cursor.Peek())) cursor.Fail("an exponent without digits");
    SkipDigits(cursor);
  }
  const std::string_view chars = cursor.Since(start);
  double number = 0;
  return ToDouble(chars, std::chars_format::general, number) ? number : BeyondRange(chars);
}

double ReadUnsigned(Json5Cursor& cursor) {
  if (cursor.SkipIf("Infinity")) return infinity;
  if (cursor.SkipIf("NaN")) return std::numeric_limits<double>::quiet_NaN();
  if (cursor.SkipIf("0x") || cursor.SkipIf("0X")) return ReadHexadecimal(cursor);
  return ReadDecimal(cursor);
}

}  // namespace

double ReadNumber(Json5Cursor& cursor) {
  if (cursor.SkipIf('-')) return -ReadUnsigned(cursor);
  cursor.SkipIf('+');
  return ReadUnsigned(cursor);
}

}  // namespace TolvenLibs::RevitMappingEditorDll
