#pragma once

#include <string>

#include "naive/Records.h"

namespace TolvenLibs::RevitMappingEditorDll::Naive {

bool Matches(const MapTextRecord& record, std::wstring text);

// A linear scan of the records for the first match.
int FindCodeId(const MapTextSection& section, std::wstring text);

}  // namespace TolvenLibs::RevitMappingEditorDll::Naive
