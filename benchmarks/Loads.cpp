// Compares CreateClassificator, and CreateDomen of a text file, with reading and decoding the same
// file, and with a wide stream that reads its lines.
//
//   classificator/WHO/SIZE  a file of SIZE megabytes
//   domain_text/WHO/SIZE    a file of SIZE properties with four fields each

#include <benchmark/benchmark.h>

#include <cstddef>
#include <fstream>
#include <stdexcept>
#include <string>

#include "RevitMappingEditorDll.h"
#include "support/DomainCheck.h"
#include "support/Domains.h"
#include "support/Reading.h"
#include "support/Results.h"
#include "support/Run.h"
#include "support/Schemes.h"
#include "support/TempFolder.h"

namespace {

using Editor = TolvenLibs::RevitMappingEditorDll::RevitMappingEditorDll;

bool LoadScheme(Editor& editor, const std::wstring& file) {
  return editor.CreateClassificator(L"S", L"Scheme", L"ClassCode", file.c_str()) == 0 &&
         editor.SetActiveClassificator(L"S") == 0;
}

bool IsCodeId(Editor& editor, int codeId) {
  try {
    delete[] editor.GetClaccificatorCode(codeId);
    return true;
  } catch (const std::out_of_range&) {
    return false;
  }
}

int CountColors(Editor& editor) {
  int count = 0;
  const wchar_t** keys = nullptr;
  editor.GetColoratsIds(count, keys);
  return static_cast<int>(TakeAll(count, keys).size());
}

void RequireLoaded(const std::wstring& file, const SchemeFile& scheme) {
  Editor editor(L"", L"");
  Require(LoadScheme(editor, file) && IsCodeId(editor, scheme.patternCount - 1) &&
              !IsCodeId(editor, scheme.patternCount) && CountColors(editor) == scheme.colorCount,
          "the load of a classificator");
}

void RequireLoaded(const std::wstring& file, const DomainData& domain) {
  Editor editor(L"", L"");
  Require(editor.CreateDomen(file.c_str()) == 0 && HasDomain(editor, L"Domain", domain),
          "the load of a domain");
}

void RequireSameText(const std::wstring& path) {
  std::wstring lines;
  std::wifstream file = OpenWideStream(path);
  for (std::wstring line; std::getline(file, line);) lines += line + L"\n";
  Require(ReadAndDecode(path).View() == lines, "the floor of a load");
}

std::size_t CountLines(const std::wstring& path) {
  std::size_t count = 0;
  std::wifstream file = OpenWideStream(path);
  for (std::wstring line; std::getline(file, line);) ++count;
  return count;
}

// Only the load is timed, not the destruction.
template <class Load>
void AddOurs(const std::string& row, const std::string& size, Load load) {
  AddTimedCase(CaseName(row, "ours", size), [load] {
    ReturnFreeMemory();
    Editor editor(L"", L"");
    return Seconds([&] { load(editor); });
  })->Unit(benchmark::kMillisecond);
}

void AddOthers(const std::string& row, const std::string& size, const std::wstring& path) {
  AddTimedCase(CaseName(row, "floor", size), [path] {
    ReturnFreeMemory();
    DecodedText text;
    return Seconds([&] { text = ReadAndDecode(path); });
  })->Unit(benchmark::kMillisecond);
  AddCase(CaseName(row, "wide_stream", size), [path] {
    benchmark::DoNotOptimize(CountLines(path));
  })->Unit(benchmark::kMillisecond);
}

void AddScheme(const TempFolder& folder, std::size_t megabytes) {
  const std::string size = std::to_string(megabytes);
  const SchemeFile scheme = MakeSchemeFile(megabytes * 1'000'000);
  const std::wstring path = folder.Write("scheme" + size + ".txt", scheme.text);
  RequireLoaded(path, scheme);
  RequireSameText(path);
  AddOurs("classificator", size, [path](Editor& editor) { LoadScheme(editor, path); });
  AddOthers("classificator", size, path);
}

void AddDomain(const TempFolder& folder, std::size_t properties) {
  const std::string size = std::to_string(properties);
  const DomainData domain = MakeDomain(properties);
  const std::wstring path =
      folder.Write("domain" + size + ".txt", MakeDomainText(domain, "Domain"));
  RequireLoaded(path, domain);
  RequireSameText(path);
  AddOurs("domain_text", size, [path](Editor& editor) { editor.CreateDomen(path.c_str()); });
  AddOthers("domain_text", size, path);
}

}  // namespace

int main(int argumentCount, char** arguments) {
  const bool brief = TakeBrief(argumentCount, arguments);
  const TempFolder folder;
  for (const std::size_t megabytes : {1, 10, 20, 50, 100}) {
    if (brief && megabytes > 1) break;
    AddScheme(folder, megabytes);
  }
  for (const std::size_t properties : {100, 10'000, 20'000}) {
    if (brief == (properties == 100)) AddDomain(folder, properties);
  }
  return RunCases(argumentCount, arguments);
}
