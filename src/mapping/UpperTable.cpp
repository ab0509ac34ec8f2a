#include "mapping/UpperTable.h"

namespace TolvenLibs::RevitMappingEditorDll {

UpperTable::UpperTable() : facet(&std::use_facet<std::ctype<wchar_t>>(locale)) {
  for (std::size_t unit = 0; unit < remembered.size(); ++unit) {
    try {
      remembered[unit] = facet->toupper(static_cast<wchar_t>(unit));
    } catch (...) {
      remembered[unit] = unknown;
    }
  }
}

}  // namespace TolvenLibs::RevitMappingEditorDll
