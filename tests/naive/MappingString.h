// From a description to its mapping string, by copies of whole properties.

#pragma once

#include <string>

#include "domen/DomenStore.h"
#include "naive/Records.h"
#include "naive/Text.h"

namespace TolvenLibs::RevitMappingEditorDll::Naive {

Texts GetCodeDomenIds(const Classificator& classificator, int sourceKind);

// Both raise `out_of_range`, "invalid vector subscript", for a code id that is none.
Texts GetCodePropertyIds(const Classificator& classificator, int codeId, int sourceKind);
std::wstring ComposeCodeParams(const Classificator& classificator, int codeId, int sourceKind,
                               std::wstring nameSuffix, const DomenProperties& properties);

DomenProperties CollectProperties(const DomenStore& store, Texts domenIds, Texts propertyIds);

// What an editor with this active Classificator, this store and these marks answers.
std::wstring GetClaccificatorCodeParams(const Classificator& classificator, const DomenStore& store,
                                        int codeId, int sourceKind, std::wstring nameSuffix);
std::wstring GetMappingStr(const Classificator& classificator, const DomenStore& store,
                           std::wstring startMark, std::wstring endMark, std::wstring text,
                           int sourceKind, std::wstring nameSuffix);

}  // namespace TolvenLibs::RevitMappingEditorDll::Naive
