#include "authoring/UseCheck.h"

#include <cstddef>
#include <string>
#include <vector>

#include "authoring/Findings.h"
#include "authoring/Places.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

std::set<std::wstring> ListedDomens(const LoadedFiles& loaded) {
  std::set<std::wstring> listed;
  for (const Classificator& classificator : loaded.classificators) {
    const std::vector<std::wstring>& ids = classificator.mapTextSection.domenIds;
    listed.insert(ids.begin(), ids.end());
  }
  return listed;
}

// The parts of a file that reads as an empty one are no definitions.
void CheckUsesOfJson(const JsonAccount& account, const std::set<std::wstring>& listed,
                     const PropertyUses& uses, const Definitions& definitions, Report& report) {
  if (account.entries.empty() || account.entries.back().outcome != JsonOutcome::domen) return;
  const std::wstring& id = account.entries.back().texts[0];
  const auto tell = [&](int number, const std::vector<std::wstring>& ids) {
    const auto definition = definitions.find(ids);
    if (definition == definitions.end()) return;
    AddFinding(report, number, definition->second, Fate::used, {ids.back()});
  };
  if (!listed.contains(id)) return tell(412, {id});
  for (const JsonEntry& entry : account.entries) {
    const bool isProperty = entry.outcome == JsonOutcome::property;
    if (isProperty && !uses.contains(entry.item)) tell(413, {id, entry.item});
  }
}

}  // namespace

void CheckUses(const LoadedFiles& loaded, const PropertyUses& uses, const Definitions& definitions,
               Report& report) {
  if (loaded.classificators.empty()) return;
  const std::set<std::wstring> listed = ListedDomens(loaded);
  for (std::size_t i = 0; i < loaded.files.size(); ++i) {
    const LoadedFile& file = loaded.files[i];
    const Places places(file, i);
    CheckUsesOfJson(file.jsonAccount, listed, uses, definitions, report);
    for (const AccountEntry& entry : file.account.entries) {
      if (entry.outcome == Outcome::domen && !listed.contains(entry.names[0])) {
        AddFinding(report, 412, places.Of(entry.piece), Fate::used, {entry.names[0]});
      } else if (entry.outcome == Outcome::property && listed.contains(entry.names[0]) &&
                 !uses.contains(entry.names[1])) {
        AddFinding(report, 413, places.Of(entry.piece), Fate::used, {entry.names[1]});
      }
    }
  }
}

}  // namespace TolvenLibs::RevitMappingEditorDll
