// The operations on texts that the naive forms share.
//
// A naive form does what the rules of its operation say, step by step, in the fewest ideas and
// without regard to cost. It shares no code with the library, so that a mistake in one of the two
// shows as a difference between them.

#pragma once

#include <string>
#include <vector>

namespace TolvenLibs::RevitMappingEditorDll::Naive {

using Texts = std::vector<std::wstring>;

bool IsSpace(wchar_t unit);

std::wstring Trim(std::wstring text);

std::wstring TrimChars(std::wstring text, std::wstring set);

bool StartsWith(std::wstring text, std::wstring prefix);

Texts SplitTrimmed(std::wstring text, std::wstring separator, bool keepEmpty, int limit = 0);

// By the `ctype` facet of the global locale, one unit after the other.
std::wstring ToUpper(std::wstring text);

}  // namespace TolvenLibs::RevitMappingEditorDll::Naive
