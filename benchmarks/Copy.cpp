// Compares the copy of an editor with the load that made it.
//
//   copy/WHO/SIZE  an editor with SIZE records, with four items in each header

#include <benchmark/benchmark.h>

#include <cstddef>
#include <optional>
#include <string>

#include "RevitMappingEditorDll.h"
#include "support/Patterns.h"
#include "support/Results.h"
#include "support/Run.h"
#include "support/Schemes.h"
#include "support/TempFolder.h"

namespace {

using Editor = TolvenLibs::RevitMappingEditorDll::RevitMappingEditorDll;

void Load(Editor& editor, const std::wstring& file) {
  editor.CreateClassificator(L"S", L"", L"ClassCode", file.c_str());
  editor.SetActiveClassificator(L"S");
}

void RequireSameAnswers(Editor& editor, const LookupData& data) {
  Editor copy(editor);
  for (const std::wstring& text : data.texts) {
    Require(Take(copy.GetMappingStr(text.c_str(), 1, L"=")) ==
                Take(editor.GetMappingStr(text.c_str(), 1, L"=")),
            "a copy");
  }
}

}  // namespace

int main(int argumentCount, char** arguments) {
  const bool brief = TakeBrief(argumentCount, arguments);
  const LookupData data = MakeLookupData(brief ? 1'000 : 100'000, 1'000);
  const TempFolder folder;
  const std::wstring file =
      folder.Write("scheme.txt", MakeScheme(data.patterns, Headers::codesAndItems));
  Editor editor(L"", L"");
  Load(editor, file);
  RequireSameAnswers(editor, data);

  // Destruction is not timed.
  AddTimedCase(CaseName("copy", "ours", data.name), [&] {
    std::optional<Editor> copy;
    return Seconds([&] { copy.emplace(editor); });
  })->Unit(benchmark::kMillisecond);
  AddTimedCase(CaseName("copy", "load", data.name), [&] {
    Editor loaded(L"", L"");
    return Seconds([&] { Load(loaded, file); });
  })->Unit(benchmark::kMillisecond);
  return RunCases(argumentCount, arguments);
}
