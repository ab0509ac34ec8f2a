#pragma once

#include <string>

#include "naive/ColoratSection.h"
#include "naive/Records.h"

namespace TolvenLibs::RevitMappingEditorDll::Naive {

// The contents of a classificator file.
struct ClassificatorFile {
  std::wstring classTitle;
  std::wstring classFirstWord;
  std::wstring classSecondWord;
  MapTextSection mapTextSection;
  ParamSection paramSection;
  Colorats colorats;
  std::wstring activeColoratId;
};

void ParseClassSection(ClassificatorFile& file, std::wstring text);

ClassificatorFile ReadClassificator(std::string bytes);

}  // namespace TolvenLibs::RevitMappingEditorDll::Naive
