#pragma once

#include <functional>
#include <map>
#include <string>

#include "classificator/ColoratSection.h"

namespace TolvenLibs::RevitMappingEditorDll::Naive {

using ColorMap = std::map<std::wstring, ColorEntry, std::less<>>;
using Colorats = std::map<std::wstring, ColorMap, std::less<>>;

struct ColoratTable {
  Colorats& colorats;
  std::wstring& activeColoratId;
};

int ParseColoratSection(ColoratTable table, std::wstring text);

// Behaves as `_wtoi` of Windows.
int ReadLeadingInt(std::wstring text);

}  // namespace TolvenLibs::RevitMappingEditorDll::Naive
