// Strings and keys of JSON5. They are kept in UTF-8, in which a surrogate without its partner has
// the three bytes that its number would have.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace TolvenLibs::RevitMappingEditorDll {

// Adds the bytes of a code point, or of a surrogate.
void AppendJson5Code(std::string& bytes, char32_t code);

// The bytes of a wide text. A unit that stands for nothing becomes a byte that no file has.
std::string ToJson5Text(std::wstring_view text);

// The same, in the place of what `bytes` holds.
void ToJson5Text(std::wstring_view text, std::string& bytes);

// The code above ASCII at the head of `bytes`, which loses it: a code point, a surrogate, or
// U+FFFD for a unit that stood for nothing.
char32_t TakeJson5Code(std::string_view& bytes);

// How many units the wide form of `bytes` has.
std::size_t WideSize(std::string_view bytes);

// Writes the wide form of `bytes` to `out`, which has room for it. Gives the place behind it.
wchar_t* PutWideText(std::string_view bytes, wchar_t* out);

// The wide form of `bytes`.
std::wstring ToWideText(std::string_view bytes);

}  // namespace TolvenLibs::RevitMappingEditorDll
