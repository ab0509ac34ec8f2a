// Conversion of numbers from and to text, as in the classic locale.

#pragma once

#include <string>
#include <string_view>

namespace TolvenLibs::RevitMappingEditorDll {

// Parse a number after optional white space, sign and leading zeros; nothing may follow it, not
// even white space. Return false, and leave `number` alone, if the text isn't such a number or is
// out of the range of the type, which for reals includes underflow to 0. "inf", "nan" and
// hexadecimal digits aren't numbers.
//
//   ParseInt    " 12"  "+5"  "-5"  "007"           but not  "12 "  "0x10"  "2.5"  "2147483648"
//   ParseReal   "2.5"  ".5"  "5."  "1e3"  "12"     but not  "1,5"  "1e"  "1e999"
bool ParseInt(std::wstring_view text, int& number);
bool ParseReal(std::wstring_view text, double& number);

// Return what the format "{}" prints: a plain decimal, and the shortest text that reads back as the
// same real (1.0 is "1", 100000.0 is "1e+05").
std::wstring FormatInt(int number);
std::wstring FormatReal(double number);

}  // namespace TolvenLibs::RevitMappingEditorDll
