// Composes mapping strings by copying whole properties.

#pragma once

#include <string>

#include "domen/DomenStore.h"
#include "naive/Records.h"
#include "naive/Text.h"

namespace TolvenLibs::RevitMappingEditorDll::Naive {

Texts GetCodeDomenIds(const Classificator& classificator, int sourceKind);

// Both throw `out_of_range`, "invalid vector subscript", for an invalid code id.
Texts GetCodePropertyIds(const Classificator& classificator, int codeId, int sourceKind);
std::wstring ComposeCodeParams(const Classificator& classificator, int codeId, int sourceKind,
                               std::wstring nameSuffix, const DomenProperties& properties);

DomenProperties CollectProperties(const DomenStore& store, Texts domenIds, Texts propertyIds);

// The answers of an editor with this active Classificator, this store and these marks.
std::wstring GetClaccificatorCodeParams(const Classificator& classificator, const DomenStore& store,
                                        int codeId, int sourceKind, std::wstring nameSuffix);
std::wstring GetMappingStr(const Classificator& classificator, const DomenStore& store,
                           std::wstring startMark, std::wstring endMark, std::wstring text,
                           int sourceKind, std::wstring nameSuffix);

}  // namespace TolvenLibs::RevitMappingEditorDll::Naive
