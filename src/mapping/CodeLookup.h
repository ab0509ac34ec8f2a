// The search for an element's code, the only place where a text is compared with the patterns.

#pragma once

#include <string_view>

#include "mapping/MapTextSection.h"

namespace TolvenLibs::RevitMappingEditorDll {

class UpperTable;

// The code id of the texts that match no record, for which the default code applies.
constexpr int noCodeId = -1;

// Returns whether each token of the record is the beginning of the word at the same position of
// `text`, whatever the case of either. Only the blank separates words; words of the text after the
// last token don't matter, and an empty token fits any word.
bool Matches(const MapTextRecord& record, std::wstring_view text);

// The same, with the capitals of a locale.
bool Matches(const MapTextRecord& record, std::wstring_view text, const UpperTable& upper);

// Returns the position of the first record of the section that matches, or `noCodeId`.
int FindCodeId(const MapTextSection& section, std::wstring_view text);

// Returns the code of the record at this position, or the default code for `noCodeId`. Any other
// position raises `out_of_range`, "invalid vector subscript".
std::wstring_view CodeOf(const MapTextSection& section, int codeId);

}  // namespace TolvenLibs::RevitMappingEditorDll
