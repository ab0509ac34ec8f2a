// Parsed records as rows of texts and numbers, which GoogleTest compares and prints. A row has
// every member of its record.

#pragma once

#include <array>
#include <functional>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "classificator/ColoratSection.h"
#include "naive/Records.h"
#include "support/ItemTexts.h"

namespace TolvenLibs::RevitMappingEditorDll::Naive {

inline std::vector<ItemTexts> RowsOf(const ItemLists& lists) {
  std::vector<ItemTexts> rows;
  for (const ParamItemList& list : lists) rows.push_back(TextsOf(list));
  return rows;
}

using ParamRows = std::vector<std::tuple<std::wstring, std::vector<ItemTexts>>>;

inline ParamRows RowsOf(const ParamSection& section) {
  ParamRows rows;
  for (const ParamRecord& record : section.records) {
    rows.emplace_back(record.code, RowsOf(record.itemLists));
  }
  return rows;
}

using MapTextRows =
    std::vector<std::tuple<std::wstring, std::vector<ItemTexts>, std::wstring, Texts>>;

inline MapTextRows RowsOf(const MapTextSection& section) {
  MapTextRows rows;
  for (const MapTextRecord& record : section.records) {
    rows.emplace_back(record.code, RowsOf(record.itemLists), record.text, record.tokens);
  }
  return rows;
}

using ColorRows = std::map<std::wstring, std::map<std::wstring, std::array<int, 5>>>;

template <class Colors>
ColorRows RowsOf(const std::map<std::wstring, Colors, std::less<>>& colorats) {
  ColorRows rows;
  for (const auto& [id, colors] : colorats) {
    auto& keys = rows[id];
    for (const auto& [key, entry] : colors) {
      keys[std::wstring(key)] = {entry.number, entry.channel1, entry.channel2, entry.channel3,
                                 entry.percent};
    }
  }
  return rows;
}

}  // namespace TolvenLibs::RevitMappingEditorDll::Naive
