// Compares GetMappingStr with four items of three fields each with the lookup alone, and with one
// allocation and copy of the same result. The time includes releasing each result.
//
//   mapping_warm/WHO/10000   one of 1,000 texts that were all mapped before
//   mapping_first/WHO/10000  one of 10,000 texts, each for the first time since the load

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "RevitMappingEditorDll.h"
#include "support/Patterns.h"
#include "support/Results.h"
#include "support/Run.h"
#include "support/Schemes.h"
#include "support/TempFolder.h"

namespace {

using Editor = TolvenLibs::RevitMappingEditorDll::RevitMappingEditorDll;
using Texts = std::vector<std::wstring>;

constexpr std::size_t warmTextCount = 1'000;

std::unique_ptr<Editor> Load(const std::wstring& file) {
  auto editor = std::make_unique<Editor>(L"", L"");
  Require(editor->CreateClassificator(L"S", L"", L"ClassCode", file.c_str()) == 0, "the load");
  editor->SetActiveClassificator(L"S");
  return editor;
}

void Map(Editor& editor, const std::wstring& text) {
  const wchar_t* mapped = editor.GetMappingStr(text.c_str(), 1, L"=");
  benchmark::DoNotOptimize(mapped);
  delete[] mapped;
}

void LookUpAndCopy(Editor& editor, const std::wstring& text, std::wstring_view result) {
  benchmark::DoNotOptimize(editor.GetClaccificatorCodeId(text.c_str()));
  wchar_t* copy = new wchar_t[result.size() + 1];
  std::copy(result.begin(), result.end(), copy);
  copy[result.size()] = L'\0';
  benchmark::DoNotOptimize(copy);
  delete[] copy;
}

// Returns the mapping string by the numbers of the scheme's headers.
std::wstring MakeExpected(Editor& editor, const std::wstring& text) {
  const int codeId = editor.GetClaccificatorCodeId(text.c_str());
  const std::wstring code = Take(editor.GetClaccificatorCode(codeId));
  const std::wstring mapped = L"ClassCode " + code + L";";
  return codeId < 0 ? mapped : mapped + MappedItems(std::stoul(code.substr(1)));
}

template <class Call>
void AddWarm(const std::string& name, Call call) {
  AddCase(name, [call, next = std::size_t{0}]() mutable {
    call(next);
    next = next + 1 == warmTextCount ? 0 : next + 1;
  });
}

template <class Call>
void AddFirstPass(const std::string& name, const std::wstring& file, std::size_t count, Call call) {
  AddTimedCase(name, [file, count, call] {
    const std::unique_ptr<Editor> editor = Load(file);
    const double seconds = Seconds([&] {
      for (std::size_t i = 0; i < count; ++i) call(*editor, i);
    });
    return seconds / static_cast<double>(count);
  })->Iterations(1);
}

}  // namespace

int main(int argumentCount, char** arguments) {
  const bool brief = TakeBrief(argumentCount, arguments);
  const LookupData data = MakeLookupData(brief ? 1'000 : 10'000, 10'000);
  const TempFolder folder;
  const std::wstring file =
      folder.Write("scheme.txt", MakeScheme(data.patterns, Headers::codesAndItems));
  const std::unique_ptr<Editor> editor = Load(file);
  Texts results;
  for (const std::wstring& text : data.texts) {
    results.push_back(MakeExpected(*editor, text));
    Require(Take(editor->GetMappingStr(text.c_str(), 1, L"=")) == results.back(), "GetMappingStr");
  }

  AddWarm(CaseName("mapping_warm", "ours", data.name),
          [&](std::size_t i) { Map(*editor, data.texts[i]); });
  AddWarm(CaseName("mapping_warm", "floor", data.name),
          [&](std::size_t i) { LookUpAndCopy(*editor, data.texts[i], results[i]); });
  AddFirstPass(CaseName("mapping_first", "ours", data.name), file, data.texts.size(),
               [&](Editor& fresh, std::size_t i) { Map(fresh, data.texts[i]); });
  AddFirstPass(
      CaseName("mapping_first", "floor", data.name), file, data.texts.size(),
      [&](Editor& fresh, std::size_t i) { LookUpAndCopy(fresh, data.texts[i], results[i]); });
  return RunCases(argumentCount, arguments);
}
