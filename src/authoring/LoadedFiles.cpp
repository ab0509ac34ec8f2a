#include "authoring/LoadedFiles.h"

#include "base/Files.h"
#include "base/PathParts.h"
#include "base/Status.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

// Both return whether the file was read.

bool LoadClassificator(const std::wstring& path, LoadedFiles& loaded) {
  LoadedFile& file = loaded.files.back();
  Classificator& classificator = loaded.classificators.emplace_back(file.name);
  if (classificator.Load(path, &file.text, &file.account) != statusDone) return false;
  file.classificator = &classificator;
  const int status = loaded.domens.LoadDomen(path, L"", file.text, &file.account);
  file.readForDomens = status != statusAbsent;
  return status == statusDone || status == statusAbsent;
}

bool LoadDomen(const std::wstring& path, LoadedFiles& loaded) {
  LoadedFile& file = loaded.files.back();
  if (Extension(path) == L".txt") {
    file.text = ReadTextFile(path, &file.account);
    if (!file.text) return false;
  }
  const int status = loaded.domens.LoadDomen(path, L"", file.text, &file.account);
  file.readForDomens = status != statusAbsent;
  return status == statusDone || status == statusAbsent;
}

}  // namespace

std::optional<std::wstring> LoadFiles(const FileList& list, LoadedFiles& loaded) {
  const auto load = [&](const std::wstring& name,
                        bool (*loadOne)(const std::wstring&, LoadedFiles&)) {
    loaded.files.emplace_back().name = name;
    const std::optional<std::wstring> path = FindFile(list.dataFolder, name);
    return path && loadOne(*path, loaded);
  };
  for (const std::wstring& name : list.classificators) {
    if (!load(name, LoadClassificator)) return name;
  }
  for (const std::wstring& name : list.domens) {
    if (!load(name, LoadDomen)) return name;
  }
  return std::nullopt;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
