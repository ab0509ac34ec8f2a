// The types of value fields, by their numbers and by the keywords of a text domain file.

#pragma once

#include <string_view>

namespace TolvenLibs::RevitMappingEditorDll {

constexpr int typeInt = 0;
constexpr int typeReal = 1;
constexpr int typeStr = 2;
constexpr int typeIList = 3;
constexpr int typeRList = 4;
constexpr int typeSList = 5;

// The number of the keyword "int", "real", "str", "ilist", "rlist" or "slist", or -1 for any other
// text, also one in other letters.
int ParsePropertyType(std::wstring_view keyword);

}  // namespace TolvenLibs::RevitMappingEditorDll
