// Domain files of both kinds, and the export of a domain.

#pragma once

#include <string>

#include "domen/DomenStore.h"
#include "naive/Json5.h"

namespace TolvenLibs::RevitMappingEditorDll::Naive {

void ParseDomenSection(DomenStore& store, std::wstring body);

// Load a file of these bytes into a store.
void LoadDomenText(DomenStore& store, std::string bytes);
void LoadDomenJson(DomenStore& store, std::wstring id, std::string bytes);

// Returns the tree of the domain's export, without comments.
Json5 ExportedTree(const Domen& domen);

}  // namespace TolvenLibs::RevitMappingEditorDll::Naive
