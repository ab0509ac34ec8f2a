#include "mapping/UpperTable.h"

namespace TolvenLibs::RevitMappingEditorDll {

UpperTable::UpperTable() : facet_(&std::use_facet<std::ctype<wchar_t>>(locale_)) {
  try {
    for (std::size_t unit = 0; unit < endOfCyrillic; ++unit) {
      remembered_[unit] = facet_->toupper(static_cast<wchar_t>(unit));
      rememberedTwice_[unit] = facet_->toupper(remembered_[unit]);
    }
    rememberedCount_ = endOfCyrillic;
  } catch (...) {
    rememberedCount_ = 0;
  }
}

}  // namespace TolvenLibs::RevitMappingEditorDll
