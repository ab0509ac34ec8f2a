#include "naive/ClassificatorText.h"

#include "naive/MapTextSection.h"
#include "naive/ParamSection.h"
#include "naive/Text.h"
#include "naive/TextFile.h"

namespace TolvenLibs::RevitMappingEditorDll::Naive {

Classificator ParseClassificator(std::string bytes) {
  Classificator classificator;
  for (const Section& section : ReadSections(bytes)) {
    if (StartsWith(section.heading, L"==MAPTEXT")) {
      ParseMapTextSection(classificator.mapTextSection, section.body);
    } else if (StartsWith(section.heading, L"==PARAM")) {
      ParseParamSection(classificator.paramSection, section.body);
    }
  }
  return classificator;
}

}  // namespace TolvenLibs::RevitMappingEditorDll::Naive
