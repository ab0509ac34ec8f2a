// Values as a written file has them: in JSON that reads the same as JSON5. Texts are as
// `Json5Text.h` has them.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace TolvenLibs::RevitMappingEditorDll {

// How many bytes at the head of the text stand in a string as they are.
std::size_t PlainSize(std::string_view text);

// The escape of what stands at the head of the text, which loses it: of a character that can't
// stand for itself, or of a surrogate.
std::string TakeEscaped(std::string_view& text);

// The most bytes that a number takes.
constexpr std::size_t roomOfNumber = 32;

// These write a number to `out`, which has room for it, and give the place behind it.
char* WriteInt(int number, char* out);

// With a point or an exponent, so that it reads as a real. What JSON has no number for is null.
char* WriteReal(double number, char* out);

}  // namespace TolvenLibs::RevitMappingEditorDll
