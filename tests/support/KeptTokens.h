#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "mapping/MapTextRecords.h"

// Tokens for records that are filled by hand. Their texts live as long as the program.
inline TolvenLibs::RevitMappingEditorDll::Tokens KeptTokens(std::vector<std::wstring> texts) {
  static std::deque<std::vector<std::wstring>> keptTexts;
  static std::deque<std::vector<std::wstring_view>> keptViews;
  const auto& kept = keptTexts.emplace_back(std::move(texts));
  const auto& views = keptViews.emplace_back(kept.begin(), kept.end());
  return {views.data(), views.size()};
}
