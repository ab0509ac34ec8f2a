#pragma once

#include <string>

#include "naive/Records.h"

namespace TolvenLibs::RevitMappingEditorDll::Naive {

void ParseMapTextSection(MapTextSection& section, std::wstring text);

}  // namespace TolvenLibs::RevitMappingEditorDll::Naive
