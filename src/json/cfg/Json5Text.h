// Strings and keys of JSON5. They are kept in UTF-8, in which a surrogate without its partner,
// which only an escape can bring into a text, has the three bytes that its number would have.

#pragma once

#include <string>
#include <string_view>

namespace TolvenLibs::RevitMappingEditorDll {

// Adds the bytes of a code point, or of a surrogate.
void AppendJson5Code(std::string& bytes, char32_t code);

// The bytes of a wide text. A unit that stands for nothing becomes a byte that no string has.
std::string ToJson5Text(std::wstring_view text);

// The same, in the place of what `bytes` holds.
void ToJson5Text(std::wstring_view text, std::string& bytes);

// Writes the wide form of `bytes` to `out`, which has room for as many units as there are bytes.
// Gives the place behind it.
wchar_t* PutWideText(std::string_view bytes, wchar_t* out);

// The wide form of `bytes`.
std::wstring ToWideText(std::string_view bytes);

}  // namespace TolvenLibs::RevitMappingEditorDll
