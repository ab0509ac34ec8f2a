// Property items as texts that GoogleTest compares and prints.

#pragma once

#include <string>
#include <utility>
#include <vector>

#include "mapping/MapTextRecord.h"
#include "mapping/ParamItem.h"

// The property id and the value text of each item.
using ItemTexts = std::vector<std::pair<std::wstring, std::wstring>>;

inline ItemTexts TextsOf(const TolvenLibs::RevitMappingEditorDll::ParamItemList& items) {
  ItemTexts texts;
  for (const auto& item : items) texts.emplace_back(item.propertyId, item.valueText);
  return texts;
}

inline std::vector<ItemTexts> TextsOf(
    const std::vector<TolvenLibs::RevitMappingEditorDll::ParamItemList>& lists) {
  std::vector<ItemTexts> texts;
  for (const auto& items : lists) texts.push_back(TextsOf(items));
  return texts;
}

inline std::vector<ItemTexts> ItemsOf(
    const TolvenLibs::RevitMappingEditorDll::MapTextRecord& record) {
  return TextsOf(ReadItemLists(record));
}
