// The ==PARAM section of a classificator file: property items by code.

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "mapping/ParamItem.h"

namespace TolvenLibs::RevitMappingEditorDll {

struct Account;

// One statement of the section.
struct ParamRecord {
  std::wstring code;
  std::vector<ParamItemList> itemLists;  // from a file exactly one list, which may be empty
};

struct ParamSection {
  std::vector<ParamRecord> records;    // in the order of the file; of equal codes the first counts
  std::vector<std::wstring> domenIds;  // always empty: no statement of the section fills it
};

// Returns the statements of a section, cut at line feeds or at semicolons, empty ones included.
// They are views into the text.
std::vector<std::wstring_view> SplitStatements(std::wstring_view text, Account* account = nullptr);

// Replaces `records` by those of the section's text. Unlike in ==MAPTEXT, a statement that begins
// with "@" is a comment, even a domain list: this is required.
void ParseParamSection(ParamSection& section, std::wstring_view text, Account* account = nullptr);

// Returns the item lists of the first record of this code, compared unit by unit, or none. An empty
// code has no record.
std::vector<ParamItemList> FindItemLists(const ParamSection& section, std::wstring_view code);

// Returns the property ids in the first record of this code, sorted, each once.
std::vector<std::wstring> GetPropertyIds(const ParamSection& section, std::wstring_view code);

// Returns the property ids of all items, sorted, each once.
std::vector<std::wstring> SortedPropertyIds(const std::vector<ParamItemList>& itemLists);

}  // namespace TolvenLibs::RevitMappingEditorDll
