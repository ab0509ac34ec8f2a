// Converts records to texts, different ones for different records.

#pragma once

#include <string>

#include "classificator/Classificator.h"
#include "domen/DomenStore.h"
#include "naive/ClassificatorFile.h"

// Describes what the record has from its file.
std::wstring Describe(const TolvenLibs::RevitMappingEditorDll::Classificator& classificator);
std::wstring Describe(const TolvenLibs::RevitMappingEditorDll::Naive::ClassificatorFile& file);

std::wstring Describe(const TolvenLibs::RevitMappingEditorDll::DomenStore& store);
