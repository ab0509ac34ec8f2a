#include "naive/Records.h"

#include "support/MapTextByHand.h"

namespace TolvenLibs::RevitMappingEditorDll::Naive {

ParamSection CopyOf(const TolvenLibs::RevitMappingEditorDll::ParamSection& section) {
  ParamSection copy;
  for (const auto& record : section.records) {
    copy.records.push_back({std::wstring(record.code), record.itemLists});
  }
  copy.domenIds = section.domenIds;
  return copy;
}

MapTextRecord CopyOf(const TolvenLibs::RevitMappingEditorDll::MapTextRecord& record) {
  MapTextRecord copy;
  copy.code = record.code;
  copy.itemLists = ReadItemLists(record);
  copy.text = record.text;
  copy.tokens = SplitTokens(record.tokens);
  return copy;
}

MapTextSection CopyOf(const TolvenLibs::RevitMappingEditorDll::MapTextSection& section) {
  MapTextSection copy;
  copy.defaultCode = section.defaultCode;
  for (const auto& record : section.records) copy.records.push_back(CopyOf(record));
  copy.domenIds = section.domenIds;
  return copy;
}

Classificator CopyOf(const TolvenLibs::RevitMappingEditorDll::Classificator& classificator) {
  return {classificator.paramName, CopyOf(classificator.mapTextSection),
          CopyOf(classificator.paramSection)};
}

}  // namespace TolvenLibs::RevitMappingEditorDll::Naive
