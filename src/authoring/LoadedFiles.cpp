#include "authoring/LoadedFiles.h"

#include "base/Files.h"
#include "base/PathParts.h"
#include "base/Status.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

// They return whether the file was read.

bool LoadDomens(const std::wstring& path, LoadedFile& file, DomenStore& domens) {
  const int status = domens.LoadDomen(path, L"", file.text, &file.account, &file.jsonAccount);
  file.readForDomens = status != statusAbsent;
  if (status == statusDone && Extension(path) == L".json") file.json = ReadFile(path);
  return status == statusDone || status == statusAbsent;
}

bool LoadClassificator(const std::wstring& path, LoadedFiles& loaded) {
  LoadedFile& file = loaded.files.back();
  Classificator& classificator = loaded.classificators.emplace_back(file.name);
  if (classificator.Load(path, &file.text, &file.account) != statusDone) return false;
  file.classificator = &classificator;
  return LoadDomens(path, file, loaded.domens);
}

bool LoadDomen(const std::wstring& path, LoadedFiles& loaded) {
  LoadedFile& file = loaded.files.back();
  if (Extension(path) == L".txt") {
    file.text = ReadTextFile(path, &file.account);
    if (!file.text) return false;
  }
  return LoadDomens(path, file, loaded.domens);
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
