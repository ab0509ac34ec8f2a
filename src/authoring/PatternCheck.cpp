#include "authoring/PatternCheck.h"

#include <algorithm>
#include <cstddef>

#include "authoring/Findings.h"
#include "mapping/CodeLookup.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

void SetFate(Report& report, const Place& place, Fate fate) {
  const auto statement = std::lower_bound(
      report.statements.begin(), report.statements.end(), place,
      [](const Statement& left, const Place& right) { return left.place < right; });
  statement->fate = fate;
}

}  // namespace

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
