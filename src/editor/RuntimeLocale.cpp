#include "editor/RuntimeLocale.h"

#include <clocale>

namespace TolvenLibs::RevitMappingEditorDll {

// The facets of mingw-w64's C++ runtime ask the C runtime each time.
const char* LocaleBehindFacets() {
#if defined(__MINGW32__)
  return std::setlocale(LC_CTYPE, nullptr);
#else
  return "";
#endif
}

}  // namespace TolvenLibs::RevitMappingEditorDll
