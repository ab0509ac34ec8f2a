// Between the program's UTF-8 and the library's wide strings.

#pragma once

#include <string>
#include <string_view>

bool IsUtf8(std::string_view bytes);

// REQUIRES: `bytes` is UTF-8.
std::wstring ToWide(std::string_view bytes);

// Throws a `Failure` for half a surrogate pair, which JSON5 can write.
std::string ToUtf8(std::wstring_view text);

// The text as a field of the output, in UTF-8: what would end it or its line becomes a blank.
std::string ToField(std::wstring_view text);
