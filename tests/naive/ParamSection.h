// ==PARAM, and what it has in common with ==MAPTEXT.

#pragma once

#include <string>

#include "mapping/ParamItem.h"
#include "naive/Records.h"
#include "naive/Text.h"

namespace TolvenLibs::RevitMappingEditorDll::Naive {

Texts SplitStatements(std::wstring text);

ParamItemList ParseParamItems(Texts& tokens, bool stripBraces);

void ParseParamSection(ParamSection& section, std::wstring text);

ItemLists FindItemLists(const ParamSection& section, std::wstring code);

// Returns the ids, sorted and without duplicates.
Texts GetPropertyIds(const ParamSection& section, std::wstring code);
Texts SortedPropertyIds(const ItemLists& itemLists);

}  // namespace TolvenLibs::RevitMappingEditorDll::Naive
