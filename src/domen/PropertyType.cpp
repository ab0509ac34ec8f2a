#include "domen/PropertyType.h"

namespace TolvenLibs::RevitMappingEditorDll {

int ParsePropertyType(std::wstring_view keyword) {
  if (keyword == L"int") return typeInt;
  if (keyword == L"real") return typeReal;
  if (keyword == L"str") return typeStr;
  if (keyword == L"ilist") return typeIList;
  if (keyword == L"rlist") return typeRList;
  if (keyword == L"slist") return typeSList;
  return -1;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
