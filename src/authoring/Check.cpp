#include "authoring/Check.h"

#include <algorithm>
#include <cstddef>

#include "authoring/ColoratCheck.h"
#include "authoring/FieldNameCheck.h"
#include "authoring/Findings.h"
#include "authoring/ItemCheck.h"
#include "authoring/JsonFileCheck.h"
#include "authoring/PatternCheck.h"
#include "authoring/Places.h"
#include "authoring/TextFileCheck.h"
#include "authoring/UseCheck.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

void SortStatements(Report& report) {
  std::stable_sort(
      report.statements.begin(), report.statements.end(),
      [](const Statement& left, const Statement& right) { return left.place < right.place; });
}

// In the order of places, and in that of numbers at one place.
void SortFindings(Report& report) {
  std::stable_sort(report.findings.begin(), report.findings.end(),
                   [](const Finding& left, const Finding& right) {
                     if (left.place != right.place) return left.place < right.place;
                     return left.number < right.number;
                   });
}

}  // namespace

Report CheckFiles(const LoadedFiles& loaded) {
  Report report;
  report.sections.emplace_back();
  Definitions definitions;
  for (std::size_t i = 0; i < loaded.files.size(); ++i) {
    const LoadedFile& file = loaded.files[i];
    report.files.push_back(Utf8Of(file.name));
    if (file.text) CheckTextFile(file, i, definitions, report);
    if (file.json) CheckJsonFile(file, i, definitions, report);
    if (!file.text && !file.readForDomens) AddFinding(report, 111, {i, 1, 1, 1, 1}, Fate::ignored);
  }
  SortStatements(report);
  PropertyUses uses;
  for (std::size_t i = 0; i < loaded.files.size(); ++i) {
    const LoadedFile& file = loaded.files[i];
    if (!file.classificator) continue;
    const Places places(file, i);
    CheckPatterns(file, places, report);
    CheckItems(file, loaded.domens, places, uses, report);
    CheckColorats(file, places, report);
  }
  CheckUses(loaded, uses, definitions, report);
  CheckFieldNames(loaded.domens, definitions, report);
  SortFindings(report);
  return report;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
