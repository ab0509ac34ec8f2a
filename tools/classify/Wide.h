// Converts between the program's UTF-8 and the library's wide strings.

#pragma once

#include <string>
#include <string_view>

bool IsUtf8(std::string_view bytes);

// REQUIRES: `bytes` is UTF-8.
std::wstring ToWide(std::string_view bytes);

// Throws a `Failure` for a lone surrogate, which JSON5 can express.
std::string ToUtf8(std::wstring_view text);

// Returns the text as a field of the output, in UTF-8: tabs and line breaks become blanks.
std::string ToField(std::wstring_view text);
