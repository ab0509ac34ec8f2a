// The operations on texts that the naive forms share.
//
// A naive form does what the rules of its operation say, step by step, in the fewest ideas and
// without regard to cost, so that a mistake in the library shows as a difference between the two.
// Its results are the library's records of domains, properties, value fields, items and colours, or
// records of its own. From the library it takes
//   - those records, with their constructors, starting values and containers;
//   - the kinds of JSON5 values, and how deep they may be nested;
//   - the table of identifier characters, which a test compares with the Unicode data;
//   - in the functions that bring the library's results into its own form (`CopyOf` of Records.h,
//     `Describe` of a `Json5Tree`) what reads these results.
// No rule of an operation is among them.

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
