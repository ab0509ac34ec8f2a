// Compares CreateDomen of JSON5 files with nlohmann::json's parser, and ExportJson with its writer,
// on the same tree.
//
//   json_load/WHO/SIZE    a file of SIZE properties, with the comments that an export writes
//   json_plain/WHO/SIZE   the same file without comments and blanks
//   json_export/WHO/SIZE  from memory to a new file
//   json_replace/WHO/SIZE from memory to the file of an earlier export

#include <benchmark/benchmark.h>

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>

#include "RevitMappingEditorDll.h"
#include "support/DomainCheck.h"
#include "support/Domains.h"
#include "support/Run.h"
#include "support/TempFolder.h"

namespace {

namespace fs = std::filesystem;
using Editor = TolvenLibs::RevitMappingEditorDll::RevitMappingEditorDll;
using nlohmann::json;

constexpr const wchar_t* domainId = L"Domain";

json ParseFile(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::string text(fs::file_size(path), '\0');
  file.read(text.data(), static_cast<std::streamsize>(text.size()));
  return json::parse(text, nullptr, true, true);
}

void DumpFile(const json& tree, const fs::path& path) {
  std::ofstream file(path, std::ios::binary);
  file << tree.dump(2) << "\n";
}

void AddLoad(const std::string& row, const std::string& size, const std::wstring& path,
             const DomainData& domain) {
  Editor editor(L"", L"");
  Require(editor.CreateDomen(path.c_str()) == 0 && HasDomain(editor, domainId, domain),
          "the load of a domain in JSON5");
  Require(ParseFile(path) == MakeFileTree(domain, "Domain"), "nlohmann::json's parser");

  AddTimedCase(CaseName(row, "ours", size), [path] {
    ReturnFreeMemory();
    Editor loading(L"", L"");
    return Seconds([&] { loading.CreateDomen(path.c_str()); });
  })->Unit(benchmark::kMillisecond);
  AddTimedCase(CaseName(row, "nlohmann", size), [path] {
    ReturnFreeMemory();
    json tree;
    return Seconds([&] { tree = ParseFile(path); });
  })->Unit(benchmark::kMillisecond);
}

void AddExport(const TempFolder& folder, const std::string& size, const std::wstring& source,
               const DomainData& domain) {
  const auto editor = std::make_shared<Editor>(L"", L"");
  const auto tree = std::make_shared<json>(MakeExportTree(domain, "Domain"));
  const fs::path exported = folder.Path() / ("exported" + size + ".json");
  const fs::path dumped = folder.Path() / ("dumped" + size + ".json");
  editor->CreateDomen(source.c_str());
  editor->ExportJson(domainId, exported.wstring().c_str());
  DumpFile(*tree, dumped);
  Require(ParseFile(exported) == *tree && ParseFile(dumped) == *tree, "an export");

  // To a new file, and to the file of an earlier export. The configuration library always reads
  // that file first, though none of its values is used.
  for (const bool replacing : {false, true}) {
    const std::string row = replacing ? "json_replace" : "json_export";
    AddTimedCase(CaseName(row, "ours", size), [editor, exported, replacing] {
      if (!replacing) fs::remove(exported);
      ReturnFreeMemory();
      return Seconds([&] { editor->ExportJson(domainId, exported.wstring().c_str()); });
    })->Unit(benchmark::kMillisecond);
    AddTimedCase(CaseName(row, "nlohmann", size), [tree, dumped, replacing] {
      if (!replacing) fs::remove(dumped);
      ReturnFreeMemory();
      json old;
      return Seconds([&] {
        if (replacing) old = ParseFile(dumped);
        DumpFile(*tree, dumped);
      });
    })->Unit(benchmark::kMillisecond);
  }
}

void AddCases(const TempFolder& folder, std::size_t properties) {
  const std::string size = std::to_string(properties);
  const DomainData domain = MakeDomain(properties);
  fs::create_directories(folder.Path() / size / "plain");
  const std::wstring file = folder.Write(size + "/Domain.json", MakeDomainJson(domain, "Domain"));
  const std::wstring plain =
      folder.Write(size + "/plain/Domain.json", MakeFileTree(domain, "Domain").dump());
  AddLoad("json_load", size, file, domain);
  AddLoad("json_plain", size, plain, domain);
  AddExport(folder, size, file, domain);
}

}  // namespace

int main(int argumentCount, char** arguments) {
  const bool brief = TakeBrief(argumentCount, arguments);
  const TempFolder folder;
  for (const std::size_t properties : {100, 10'000, 20'000}) {
    if (brief == (properties == 100)) AddCases(folder, properties);
  }
  return RunCases(argumentCount, arguments);
}
