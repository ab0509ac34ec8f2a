#pragma once

#include <string>

#include "classificator/Classificator.h"

namespace TolvenLibs::RevitMappingEditorDll::Naive {

bool Matches(const MapTextRecord& record, std::wstring text);

// The walk over the records, from the first to the one that matches.
int FindCodeId(const Classificator& classificator, std::wstring text);

}  // namespace TolvenLibs::RevitMappingEditorDll::Naive
