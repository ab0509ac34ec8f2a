#pragma once

namespace TolvenLibs::RevitMappingEditorDll {

// The name of the C runtime's locale, where it decides what the facets of all C++ locales give, and
// no name where each of those keeps to its own. Good until the C runtime's locale is set anew.
const char* LocaleBehindFacets();

}  // namespace TolvenLibs::RevitMappingEditorDll
