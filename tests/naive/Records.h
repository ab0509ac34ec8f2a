// The records of the naive forms: the members of the library's records, with their own texts.

#pragma once

#include <string>
#include <vector>

#include "classificator/Classificator.h"
#include "mapping/ParamItem.h"
#include "naive/Text.h"

namespace TolvenLibs::RevitMappingEditorDll::Naive {

using ItemLists = std::vector<ParamItemList>;

struct ParamRecord {
  std::wstring code;
  ItemLists itemLists;
};

struct ParamSection {
  std::vector<ParamRecord> records;
  Texts domenIds;
};

struct MapTextRecord {
  std::wstring code;
  ItemLists itemLists;
  std::wstring text;
  Texts tokens;
};

struct MapTextSection {
  std::wstring defaultCode;
  std::vector<MapTextRecord> records;
  Texts domenIds;
};

// The parts of a classificator that mapping strings depend on.
struct Classificator {
  std::wstring paramName;
  MapTextSection mapTextSection;
  ParamSection paramSection;
};

// Convert records of the library.
ParamSection CopyOf(const TolvenLibs::RevitMappingEditorDll::ParamSection& section);
MapTextRecord CopyOf(const TolvenLibs::RevitMappingEditorDll::MapTextRecord& record);
MapTextSection CopyOf(const TolvenLibs::RevitMappingEditorDll::MapTextSection& section);
Classificator CopyOf(const TolvenLibs::RevitMappingEditorDll::Classificator& classificator);

}  // namespace TolvenLibs::RevitMappingEditorDll::Naive
