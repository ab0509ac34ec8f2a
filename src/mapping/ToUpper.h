#pragma once

#include <string>
#include <string_view>

namespace TolvenLibs::RevitMappingEditorDll {

// The text in capitals, unit by unit, by the wide-character `ctype` facet of the global locale as
// it stands at the moment of the call. The library itself never sets a locale.
std::wstring ToUpper(std::wstring_view text);

}  // namespace TolvenLibs::RevitMappingEditorDll
