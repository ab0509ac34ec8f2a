// The ==PARAM section of a classificator file: property items by code.

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "mapping/ParamItem.h"

namespace TolvenLibs::RevitMappingEditorDll {

// One statement of the section.
struct ParamRecord {
  std::wstring code;
  std::vector<ParamItemList> itemLists;  // out of a file exactly one list, which may be empty
};

struct ParamSection {
  std::vector<ParamRecord> records;  // in the order of the file; of equal codes the first counts
  std::vector<std::wstring>
      domenIds;  // no statement of the section fills it, and so it stays empty
};

// Returns the statements of a section, cut at line feeds or at semicolons, empty ones included.
// They are views into the text.
std::vector<std::wstring_view> SplitStatements(std::wstring_view text);

// Replaces `records` by what the section's text says. A statement that begins with "@" is a comment
// here, unlike in ==MAPTEXT: even a domain list is passed over, and this is not to be mended.
void ParseParamSection(ParamSection& section, std::wstring_view text);

// Returns a copy of the item lists of the first record of this code, compared unit by unit. Empty
// if there is none; an empty code has none.
std::vector<ParamItemList> FindItemLists(const ParamSection& section, std::wstring_view code);

// The property ids in the first record of this code, sorted, each once.
std::vector<std::wstring> GetPropertyIds(const ParamSection& section, std::wstring_view code);

// The property ids of all items of the lists, sorted, each once.
std::vector<std::wstring> SortedPropertyIds(const std::vector<ParamItemList>& itemLists);

}  // namespace TolvenLibs::RevitMappingEditorDll
