#include "authoring/PatternCheck.h"

#include <algorithm>
#include <cstddef>

#include "authoring/Findings.h"
#include "base/Text.h"
#include "mapping/CodeLookup.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

void SetFate(Report& report, const Place& place, Fate fate) {
  const auto statement = std::lower_bound(
      report.statements.begin(), report.statements.end(), place,
      [](const Statement& left, const Place& right) { return left.place < right; });
  statement->fate = fate;
}

// Latin and Cyrillic, of which many letters look alike.
bool IsOfTwoScripts(std::wstring_view word) {
  const auto isLatin = [](wchar_t unit) {
    return (unit >= L'A' && unit <= L'Z') || (unit >= L'a' && unit <= L'z');
  };
  const auto isCyrillic = [](wchar_t unit) { return unit >= 0x400 && unit <= 0x4FF; };
  return std::any_of(word.begin(), word.end(), isLatin) &&
         std::any_of(word.begin(), word.end(), isCyrillic);
}

}  // namespace

void CheckPatternText(std::wstring_view pattern, const Places& places, Report& report) {
  const Place place = places.Of(pattern);
  const auto isOtherBlank = [](wchar_t unit) { return IsSpace(unit) && unit != L' '; };
  if (pattern.find(L'\n') != pattern.npos) {
    AddFinding(report, 212, place, Fate::used);
  } else if (std::any_of(pattern.begin(), pattern.end(), isOtherBlank)) {
    AddFinding(report, 211, place, Fate::used);
  }
  if (pattern.find(L';') != pattern.npos) AddFinding(report, 210, place, Fate::used);
  if (pattern.find(L"  ") != pattern.npos) AddFinding(report, 213, place, Fate::used);
  WordReader words(pattern);
  for (std::wstring_view word; words.Next(word);) {
    if (IsOfTwoScripts(word)) AddFinding(report, 216, places.Of(word), Fate::used, {word});
  }
}

void CheckPatterns(const LoadedFile& file, const Places& places, Report& report) {
  const MapTextSection& section = file.classificator->mapTextSection;
  for (std::size_t i = 0; i < section.records.size(); ++i) {
    const MapTextRecord& record = section.records[i];
    const int found = FindCodeId(section, record.tokens);
    if (found == static_cast<int>(i)) continue;
    const Place place = places.Of(record.text);
    SetFate(report, place, Fate::unreachable);
    if (found == noCodeId) continue;
    const MapTextRecord& winner = section.records[static_cast<std::size_t>(found)];
    AddFinding(report, 209, place, Fate::unreachable, {winner.text})
        .related.push_back({places.Of(winner.text), RelatedKind::winner});
  }
}

}  // namespace TolvenLibs::RevitMappingEditorDll
