#include "fuzz/Authoring.h"

#include <algorithm>
#include <memory>

#include "authoring/Check.h"
#include "authoring/Checks.h"
#include "fuzz/Check.h"
#include "fuzz/Describe.h"

using namespace TolvenLibs::RevitMappingEditorDll;

namespace {

void CheckLoads(const FileList& files, const LoadedFiles& told) {
  DomenStore store;
  auto classificator = told.classificators.begin();
  for (const std::wstring& path : files.classificators) {
    Classificator plain(path);
    std::shared_ptr<const TextFile> read;
    ::Check(plain.Load(path, &read) == 0, "any file is read to its end");
    CheckSame("the record of a load with an account", Describe(*classificator++), Describe(plain));
    store.LoadDomen(path, L"", read);
  }
  for (const std::wstring& path : files.domens) store.LoadDomen(path, L"");
  CheckSame("the store of a load with an account", Describe(told.domens), Describe(store));
}

// A place is in the file, or after its last character, and does not end before it begins.
void CheckPlace(const Place& place, const LoadedFiles& loaded) {
  ::Check(place.file < loaded.files.size() && place.line >= 1 && place.column >= 1, "a place");
  ::Check(std::pair(place.line, place.column) <= std::pair(place.endLine, place.endColumn),
          "a place ends after its beginning");
  const LoadedFile& file = loaded.files[place.file];
  if (file.text)
    ::Check(place.endLine <= std::max<std::size_t>(1, file.account.lineCount), "a line");
}

void CheckFinding(const Finding& finding, const LoadedFiles& loaded) {
  CheckPlace(finding.place, loaded);
  for (const Related& related : finding.related) CheckPlace(related.place, loaded);
  const TolvenLibs::RevitMappingEditorDll::Check& check = CheckOf(finding.number);
  ::Check(check.number == finding.number, "a check of its number");
  for (const Language language : {Language::english, Language::russian}) {
    ::Check(!Fill(check.sentence, language, finding.arguments).empty(), "a sentence");
  }
}

}  // namespace

void CheckAuthoring(const FileList& files) {
  LoadedFiles loaded;
  ::Check(!LoadFiles(files, loaded), "any file is loaded");
  const Report report = CheckFiles(loaded);
  CheckLoads(files, loaded);
  for (const Statement& statement : report.statements) {
    CheckPlace(statement.place, loaded);
    ::Check(statement.section < report.sections.size(), "a section");
  }
  for (const Finding& finding : report.findings) CheckFinding(finding, loaded);
}
