// Operations on texts that the naive forms share.
//
// A naive form follows the rules of its operation step by step, as simply as possible and without
// regard to cost, so that a mistake in the library shows as a difference. Its results are the
// library's records of domains, properties, value fields, items and colours, or its own records. It
// uses from the library
//   - those records, with their constructors, initial values and containers;
//   - the kinds of JSON5 values, and how deep they may be nested;
//   - the table of identifier characters, which a test compares with the Unicode data;
//   - in the functions that convert the library's results (`CopyOf` of Records.h, `Describe` of a
//     `Json5Tree`), what reads these results.
// It uses no implementation of a rule.

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

// Converts unit by unit, by the `ctype` facet of the global locale.
std::wstring ToUpper(std::wstring text);

}  // namespace TolvenLibs::RevitMappingEditorDll::Naive
