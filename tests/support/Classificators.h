#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "RevitMappingEditorDll.h"
#include "support/Results.h"

// Id and name of each Classificator.
using ClassificatorNames = std::vector<std::pair<std::wstring, std::wstring>>;

inline ClassificatorNames ListClassificators(
    TolvenLibs::RevitMappingEditorDll::RevitMappingEditorDll& editor) {
  int count = -1;
  const wchar_t** ids = nullptr;
  const wchar_t** names = nullptr;
  editor.GetClassificatorsNames(count, ids, names);
  const std::vector<std::wstring> takenIds = TakeAll(count, ids);
  const std::vector<std::wstring> takenNames = TakeAll(count, names);
  ClassificatorNames listed;
  for (std::size_t i = 0; i < takenIds.size(); ++i) listed.emplace_back(takenIds[i], takenNames[i]);
  return listed;
}
