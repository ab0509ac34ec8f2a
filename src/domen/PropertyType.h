// The types of value fields: their numbers, and their keywords in text domain files.

#pragma once

#include <string_view>

namespace TolvenLibs::RevitMappingEditorDll {

constexpr int typeInt = 0;
constexpr int typeReal = 1;
constexpr int typeStr = 2;
constexpr int typeIList = 3;
constexpr int typeRList = 4;
constexpr int typeSList = 5;

// Returns the number of the keyword "int", "real", "str", "ilist", "rlist" or "slist", or -1 for
// any other text. Case matters.
int ParsePropertyType(std::wstring_view keyword);

}  // namespace TolvenLibs::RevitMappingEditorDll
