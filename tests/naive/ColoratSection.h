#pragma once

#include <string>

#include "classificator/ColoratSection.h"

namespace TolvenLibs::RevitMappingEditorDll::Naive {

int ParseColoratSection(ColoratTable table, std::wstring text);

// `_wtoi` of Windows.
int ReadLeadingInt(std::wstring text);

}  // namespace TolvenLibs::RevitMappingEditorDll::Naive
