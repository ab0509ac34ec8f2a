#pragma once

#include <string>

#include "naive/Records.h"

namespace TolvenLibs::RevitMappingEditorDll::Naive {

bool Matches(const MapTextRecord& record, std::wstring text);

// The walk over the records, from the first to the one that matches.
int FindCodeId(const MapTextSection& section, std::wstring text);

}  // namespace TolvenLibs::RevitMappingEditorDll::Naive
