#include "naive/CodeLookup.h"

#include <cstddef>

#include "naive/Text.h"

namespace TolvenLibs::RevitMappingEditorDll::Naive {

bool Matches(const MapTextRecord& record, std::wstring text) {
  const Texts inputTokens = SplitTrimmed(ToUpper(text), L" ", true);
  if (record.tokens.size() > inputTokens.size()) return false;
  for (std::size_t i = 0; i < record.tokens.size(); ++i) {
    const std::wstring pattern = ToUpper(record.tokens[i]);
    const std::wstring input = ToUpper(inputTokens[i]);
    if (pattern.size() > input.size()) return false;
    if (input.substr(0, pattern.size()) != pattern) return false;
  }
  return true;
}

int FindCodeId(const MapTextSection& section, std::wstring text) {
  for (std::size_t i = 0; i < section.records.size(); ++i) {
    if (Matches(section.records[i], text)) return static_cast<int>(i);
  }
  return -1;
}

}  // namespace TolvenLibs::RevitMappingEditorDll::Naive
