#pragma once

#include <clocale>

namespace TolvenLibs::RevitMappingEditorDll {

// The name of the C runtime's locale, where it decides what the facets of all C++ locales give:
// with mingw-w64, whose C++ runtime asks the C runtime each time. No name where each locale keeps
// to its own. Good until the C runtime's locale is set anew.
inline const char* LocaleBehindFacets() {
#if defined(__MINGW32__)
  return std::setlocale(LC_CTYPE, nullptr);
#else
  return "";
#endif
}

}  // namespace TolvenLibs::RevitMappingEditorDll
