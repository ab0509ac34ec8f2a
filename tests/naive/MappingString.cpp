#include "naive/MappingString.h"

#include <cstddef>
#include <stdexcept>

#include "naive/CodeLookup.h"
#include "naive/Fields.h"
#include "naive/ParamSection.h"

namespace TolvenLibs::RevitMappingEditorDll::Naive {
namespace {

bool IsCodeId(const Classificator& classificator, int codeId) {
  return codeId >= 0 && codeId < static_cast<int>(classificator.mapTextSection.records.size());
}

const MapTextRecord& RecordAt(const Classificator& classificator, int codeId) {
  if (!IsCodeId(classificator, codeId)) throw std::out_of_range("invalid vector subscript");
  return classificator.mapTextSection.records[static_cast<std::size_t>(codeId)];
}

std::wstring CodeOf(const Classificator& classificator, int codeId) {
  if (codeId == -1) return classificator.mapTextSection.defaultCode;
  return RecordAt(classificator, codeId).code;
}

ItemLists ListsOf(const Classificator& classificator, int codeId, int sourceKind) {
  if (sourceKind == 1) {
    if (codeId == -1) return {};
    return RecordAt(classificator, codeId).itemLists;
  }
  if (sourceKind == 2) {
    return FindItemLists(classificator.paramSection, CodeOf(classificator, codeId));
  }
  return {};
}

// Returns the value for one field by the words of an item in named form. `at` throws if a word has
// no second piece, which drops the whole item.
std::wstring NamedValue(const Texts& words, const std::wstring& fieldName) {
  std::wstring fieldValue;
  for (const std::wstring& word : words) {
    const Texts parts = SplitTrimmed(word, L"=", true);
    if (parts[0] == fieldName) return parts.at(1);
    if (!StartsWith(parts[0], fieldName)) continue;
    if (!fieldValue.empty()) fieldValue += L" ";
    fieldValue += parts.at(1);
  }
  return fieldValue;
}

std::wstring ComposeItem(const ParamItem& item, std::wstring nameSuffix,
                         const DomenProperties& properties) {
  if (properties.count(item.propertyId) == 0) return L"";
  const DomenProperty copy = Naive::CopyOf(properties.at(item.propertyId));
  const Texts words = SplitTrimmed(item.valueText, L" ", false);
  const bool named = !words.empty() && words[0].find(L'=') != std::wstring::npos;
  std::wstring fieldTexts;
  for (std::size_t i = 0; i < copy.fields.size(); ++i) {
    Field& field = *copy.fields[i];
    if (named) {
      Naive::SetValue(field, TrimChars(NamedValue(words, field.name), L";"));
    } else if (i < words.size()) {
      Naive::SetValue(field, TrimChars(words[i], L";"));
    }
    if (!fieldTexts.empty()) fieldTexts += L" ";
    fieldTexts += Naive::GetValue(field);
  }
  return item.propertyId + nameSuffix + L" " + fieldTexts + L";";
}

}  // namespace

Texts GetCodeDomenIds(const Classificator& classificator, int sourceKind) {
  if (sourceKind == 1) return classificator.mapTextSection.domenIds;
  if (sourceKind == 2) return classificator.paramSection.domenIds;
  return {};
}

Texts GetCodePropertyIds(const Classificator& classificator, int codeId, int sourceKind) {
  if (sourceKind == 1) {
    if (!IsCodeId(classificator, codeId)) return {};
    return Naive::SortedPropertyIds(RecordAt(classificator, codeId).itemLists);
  }
  if (sourceKind == 2) {
    return GetPropertyIds(classificator.paramSection, CodeOf(classificator, codeId));
  }
  return {};
}

std::wstring ComposeCodeParams(const Classificator& classificator, int codeId, int sourceKind,
                               std::wstring nameSuffix, const DomenProperties& properties) {
  std::wstring result;
  for (const ParamItemList& list : ListsOf(classificator, codeId, sourceKind)) {
    for (const ParamItem& item : list) {
      try {
        result += ComposeItem(item, nameSuffix, properties);
      } catch (...) {
        // An item that fails adds nothing.
      }
    }
  }
  return result;
}

DomenProperties CollectProperties(const DomenStore& store, Texts domenIds, Texts propertyIds) {
  DomenProperties collected;
  for (const std::wstring& domenId : domenIds) {
    const auto domen = store.domens.find(domenId);
    if (domen == store.domens.end()) continue;
    for (const std::wstring& propertyId : propertyIds) {
      const auto property = domen->second.properties.find(propertyId);
      if (property == domen->second.properties.end()) continue;
      if (collected.count(propertyId) != 0) continue;
      collected.emplace(propertyId, Naive::CopyOf(property->second));
    }
  }
  return collected;
}

std::wstring GetClaccificatorCodeParams(const Classificator& classificator, const DomenStore& store,
                                        int codeId, int sourceKind, std::wstring nameSuffix) {
  const Texts domenIds = GetCodeDomenIds(classificator, sourceKind);
  const Texts propertyIds = GetCodePropertyIds(classificator, codeId, sourceKind);
  const DomenProperties properties = CollectProperties(store, domenIds, propertyIds);
  return ComposeCodeParams(classificator, codeId, sourceKind, nameSuffix, properties);
}

std::wstring GetMappingStr(const Classificator& classificator, const DomenStore& store,
                           std::wstring startMark, std::wstring endMark, std::wstring text,
                           int sourceKind, std::wstring nameSuffix) {
  const int codeId = FindCodeId(classificator.mapTextSection, text);
  const std::wstring code = CodeOf(classificator, codeId);
  const std::wstring items =
      GetClaccificatorCodeParams(classificator, store, codeId, sourceKind, nameSuffix);
  return startMark + classificator.paramName + L" " + code + L";" + items + endMark;
}

}  // namespace TolvenLibs::RevitMappingEditorDll::Naive
