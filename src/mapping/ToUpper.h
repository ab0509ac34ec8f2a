// Upper-casing of whole texts.

#pragma once

#include <string>
#include <string_view>

namespace TolvenLibs::RevitMappingEditorDll {

// Returns the text upper-cased unit by unit, by the `ctype<wchar_t>` facet of the global locale at
// the time of the call. The library itself never sets a locale.
std::wstring ToUpper(std::wstring_view text);

}  // namespace TolvenLibs::RevitMappingEditorDll
