// Domain files, of either kind, and the export of a domain.

#pragma once

#include <string>

#include "domen/DomenStore.h"
#include "naive/Json5.h"

namespace TolvenLibs::RevitMappingEditorDll::Naive {

void ParseDomenSection(DomenStore& store, std::wstring body);

// What the readers of a store make of a file of these bytes.
void LoadDomenText(DomenStore& store, std::string bytes);
void LoadDomenJson(DomenStore& store, std::wstring id, std::string bytes);

// What the export of the domain writes, comments aside.
Json5 ExportedTree(const Domen& domen);

}  // namespace TolvenLibs::RevitMappingEditorDll::Naive
