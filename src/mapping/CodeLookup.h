// Finds the code of an element. Nothing else compares texts with patterns.

#pragma once

#include <string_view>

#include "mapping/MapTextSection.h"

namespace TolvenLibs::RevitMappingEditorDll {

class UpperTable;

// The code id of a text that matches no record. It has the default code.
constexpr int noCodeId = -1;

// Returns whether each token of the record is a prefix of the word at the same position of `text`,
// ignoring case. Only blanks separate words; words of the text after the last token don't matter,
// and an empty token is a prefix of any word.
bool Matches(const MapTextRecord& record, std::wstring_view text);

// The same, with the upper-casing of a given locale.
bool Matches(const MapTextRecord& record, std::wstring_view text, const UpperTable& upper);

// Returns the position of the first record of the section that matches, or `noCodeId`.
int FindCodeId(const MapTextSection& section, std::wstring_view text);

// Returns the code of the record at position `codeId`, or the default code for `noCodeId`. Any
// other position raises `out_of_range`, "invalid vector subscript".
std::wstring_view CodeOf(const MapTextSection& section, int codeId);

}  // namespace TolvenLibs::RevitMappingEditorDll
