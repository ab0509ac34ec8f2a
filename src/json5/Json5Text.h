// The form of strings and keys of JSON5: UTF-8, in which an unpaired surrogate has the three bytes
// of its number.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace TolvenLibs::RevitMappingEditorDll {

// Appends a code point or a surrogate.
void AppendJson5Code(std::string& bytes, char32_t code);

// Converts a wide text. A unit above U+10FFFF becomes a byte that UTF-8 never contains.
std::string ToJson5Text(std::wstring_view text);

// The same, replacing the contents of `bytes`.
void ToJson5Text(std::wstring_view text, std::string& bytes);

// Removes a code from the front of `bytes` and returns it: a code point, a surrogate, or U+FFFD for
// what was a unit above U+10FFFF. REQUIRES: it isn't ASCII.
char32_t TakeJson5Code(std::string_view& bytes);

// Returns the number of units of the wide form of `bytes`.
std::size_t WideSize(std::string_view bytes);

// Writes the wide form of `bytes` to `out`, and returns its end. REQUIRES: `out` has capacity for
// `WideSize(bytes)` units.
wchar_t* PutWideText(std::string_view bytes, wchar_t* out);

// Returns the wide form of `bytes`.
std::wstring ToWideText(std::string_view bytes);

}  // namespace TolvenLibs::RevitMappingEditorDll
