#include "mapping/UpperTable.h"

namespace TolvenLibs::RevitMappingEditorDll {

UpperTable::UpperTable() : facet(&std::use_facet<std::ctype<wchar_t>>(locale)) {
  try {
    for (std::size_t unit = 0; unit < behindCyrillic; ++unit) {
      remembered[unit] = facet->toupper(static_cast<wchar_t>(unit));
      rememberedTwice[unit] = facet->toupper(remembered[unit]);
    }
    rememberedCount = behindCyrillic;
  } catch (...) {
    rememberedCount = 0;
  }
}

}  // namespace TolvenLibs::RevitMappingEditorDll
