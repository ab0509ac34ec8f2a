// Text to number and back, as in the classic locale.

#pragma once

#include <string>
#include <string_view>

namespace TolvenLibs::RevitMappingEditorDll {

// Both take white space in front, a sign of either kind and leading zeros, and nothing behind the
// number, white space included. They give false, and leave the number alone, for a text that is no
// such number or one beyond the range of its type; for a real that goes for numbers too small to be
// told from 0 as well. "inf", "nan" and hexadecimal digits are no numbers.
//
//   ParseInt    " 12"  "+5"  "-5"  "007"           but not  "12 "  "0x10"  "2.5"  "2147483648"
//   ParseReal   "2.5"  ".5"  "5."  "1e3"  "12"     but not  "1,5"  "1e"  "1e999"
bool ParseInt(std::wstring_view text, int& number);
bool ParseReal(std::wstring_view text, double& number);

// What the format "{}" prints: a plain decimal, and the shortest text that reads back as the same
// real (1.0 is "1", 100000.0 is "1e+05").
std::wstring FormatInt(int number);
std::wstring FormatReal(double number);

}  // namespace TolvenLibs::RevitMappingEditorDll
