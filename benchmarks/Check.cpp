// Compares the check of a classificator with a load of it, and with a load after which each pattern
// is looked up and its items are composed, which a check does too. A check loads the file itself,
// with an account of the readers.
//
//   check/WHO/SIZE  a file of SIZE patterns, with four items in each header

#include "authoring/Check.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstddef>
#include <string>

#include "RevitMappingEditorDll.h"
#include "support/Patterns.h"
#include "support/Results.h"
#include "support/Run.h"
#include "support/Schemes.h"
#include "support/TempFolder.h"

namespace {

using namespace TolvenLibs::RevitMappingEditorDll;
using Editor = ::TolvenLibs::RevitMappingEditorDll::RevitMappingEditorDll;

void Load(Editor& editor, const std::wstring& file) {
  editor.CreateClassificator(L"S", L"", L"ClassCode", file.c_str());
  editor.SetActiveClassificator(L"S");
}

void RequireChecked(const FileList& files, std::size_t patternCount) {
  LoadedFiles loaded;
  Require(!LoadFiles(files, loaded), "the load of a check");
  const Report report = CheckFiles(loaded);
  Require(report.statements.size() > patternCount &&
              std::none_of(report.statements.begin(), report.statements.end(),
                           [](const Statement& statement) { return statement.fate == Fate::lost; }),
          "the check of a classificator");
}

}  // namespace

int main(int argumentCount, char** arguments) {
  const bool brief = TakeBrief(argumentCount, arguments);
  const LookupData data = MakeLookupData(brief ? 1'000 : 100'000, 1);
  const TempFolder folder;
  const std::wstring file =
      folder.Write("scheme.txt", MakeScheme(data.patterns, Headers::codesAndItems));
  const FileList files{{file}, {}};
  RequireChecked(files, data.patterns.size());

  // Only the work is timed, and not the end of what was loaded.
  AddTimedCase(CaseName("check", "ours", data.name), [files] {
    ReturnFreeMemory();
    LoadedFiles loaded;
    Report report;
    return Seconds([&] {
      LoadFiles(files, loaded);
      report = CheckFiles(loaded);
    });
  })->Unit(benchmark::kMillisecond);
  AddTimedCase(CaseName("check", "load", data.name), [file] {
    ReturnFreeMemory();
    Editor editor(L"", L"");
    return Seconds([&] { Load(editor, file); });
  })->Unit(benchmark::kMillisecond);
  AddTimedCase(CaseName("check", "mapped", data.name), [file, &data] {
    ReturnFreeMemory();
    Editor editor(L"", L"");
    return Seconds([&] {
      Load(editor, file);
      for (const std::wstring& pattern : data.patterns) {
        Take(editor.GetMappingStr(pattern.c_str(), 1, L"="));
      }
    });
  })->Unit(benchmark::kMillisecond);
  return RunCases(argumentCount, arguments);
}
