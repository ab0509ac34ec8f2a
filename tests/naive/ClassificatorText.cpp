#include "naive/ClassificatorText.h"

#include <cstddef>

#include "naive/MapTextSection.h"
#include "naive/ParamSection.h"
#include "naive/Text.h"

namespace TolvenLibs::RevitMappingEditorDll::Naive {

Classificator ParseClassificator(std::wstring text) {
  Classificator classificator;
  const Texts lines = SplitTrimmed(text, L"\n", false);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (!StartsWith(lines[i], L"==")) continue;
    std::wstring body;
    for (std::size_t k = i + 1; k < lines.size() && !StartsWith(lines[k], L"=="); ++k) {
      if (k > i + 1) body += L"\n";
      body += lines[k];
    }
    if (StartsWith(lines[i], L"==MAPTEXT")) {
      ParseMapTextSection(classificator.mapTextSection, body);
    } else if (StartsWith(lines[i], L"==PARAM")) {
      ParseParamSection(classificator.paramSection, body);
    }
  }
  return classificator;
}

}  // namespace TolvenLibs::RevitMappingEditorDll::Naive
