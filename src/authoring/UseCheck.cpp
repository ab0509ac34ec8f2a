#include "authoring/UseCheck.h"

#include <cstddef>

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

}  // namespace

void CheckUses(const LoadedFiles& loaded, const PropertyUses& uses, Report& report) {
  if (loaded.classificators.empty()) return;
  const std::set<std::wstring> listed = ListedDomens(loaded);
  for (std::size_t i = 0; i < loaded.files.size(); ++i) {
    const LoadedFile& file = loaded.files[i];
    const Places places(file, i);
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
