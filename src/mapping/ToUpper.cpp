#include "mapping/ToUpper.h"

#include "mapping/UpperTable.h"

namespace TolvenLibs::RevitMappingEditorDll {

std::wstring ToUpper(std::wstring_view text) {
  const UpperTable upper;
  std::wstring capitals(text);
  for (wchar_t& unit : capitals) unit = upper.Upper(unit);
  return capitals;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
