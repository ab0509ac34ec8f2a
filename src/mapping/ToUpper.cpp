#include "mapping/ToUpper.h"

#include <locale>

namespace TolvenLibs::RevitMappingEditorDll {

std::wstring ToUpper(std::wstring_view text) {
  const std::locale global;
  const auto& facet = std::use_facet<std::ctype<wchar_t>>(global);
  std::wstring upper(text);
  for (wchar_t& unit : upper) unit = facet.toupper(unit);
  return upper;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
