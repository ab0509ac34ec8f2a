// Formats values in JSON that reads the same as JSON5. Texts are in the form of Json5Text.h.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace TolvenLibs::RevitMappingEditorDll {

// Returns how many bytes at the front of the text need no escape in a string.
std::size_t PlainSize(std::string_view text);

// Removes a character or surrogate that needs an escape from the front of the text, and returns the
// escape.
std::string TakeEscaped(std::string_view& text);

// No number takes more bytes.
constexpr std::size_t maxNumberSize = 32;

// Write a number to `out` and return its end. REQUIRES: `out` has `maxNumberSize` bytes.
char* WriteInt(int number, char* out);

// Writes a point or an exponent, so that the number reads as a real. Infinities and NaN are null.
char* WriteReal(double number, char* out);

}  // namespace TolvenLibs::RevitMappingEditorDll
