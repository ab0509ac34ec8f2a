// Records as texts that are different for different records.

#pragma once

#include <string>

#include "classificator/Classificator.h"
#include "domen/DomenStore.h"
#include "naive/ClassificatorFile.h"

// What stands in the file of the record.
std::wstring Describe(const TolvenLibs::RevitMappingEditorDll::Classificator& classificator);
std::wstring Describe(const TolvenLibs::RevitMappingEditorDll::Naive::ClassificatorFile& file);

std::wstring Describe(const TolvenLibs::RevitMappingEditorDll::DomenStore& store);
