#include "naive/Editor.h"

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "naive/DomenFiles.h"
#include "naive/Fields.h"
#include "naive/MappingString.h"

namespace TolvenLibs::RevitMappingEditorDll::Naive {
namespace {

namespace fs = std::filesystem;

std::string BytesOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

int LoadDomen(DomenStore& store, const fs::path& path) {
  const bool folder = fs::is_directory(path);
  if (path.extension() == ".txt") {
    if (folder) return 2;
    Naive::LoadDomenText(store, BytesOf(path));
    return 0;
  }
  if (path.extension() == ".json") {
    if (folder) return 3;
    Naive::LoadDomenJson(store, path.stem().wstring(), BytesOf(path));
    return 0;
  }
  return -1;
}

fs::path PathOf(const std::wstring& file) {
  return std::string(file.begin(), file.end());
}

}  // namespace

Editor::Editor(const Editor& other)
    : active(other.active),
      schemes(other.schemes),
      domenStore(Naive::CopyOf(other.domenStore)),
      startMark(other.startMark),
      endMark(other.endMark) {}

Editor& Editor::operator=(const Editor& other) {
  if (this == &other) return *this;
  active = other.active;
  schemes = other.schemes;
  domenStore = Naive::CopyOf(other.domenStore);
  startMark = other.startMark;
  endMark = other.endMark;
  return *this;
}

int Editor::CreateClassificator(std::wstring id, std::wstring name, std::wstring paramName,
                                std::wstring file) {
  const fs::path path = PathOf(file);
  if (!fs::exists(path)) return -1;
  Scheme scheme;
  scheme.id = id;
  scheme.name = name;
  scheme.classificator.paramName = paramName;
  const bool opened = !fs::is_directory(path);
  if (opened) {
    const ClassificatorFile read = ReadClassificator(BytesOf(path));
    scheme.classificator.mapTextSection = read.mapTextSection;
    scheme.classificator.paramSection = read.paramSection;
    scheme.colorats = read.colorats;
    scheme.activeColoratId = read.activeColoratId;
  }
  schemes.push_back(scheme);
  return opened ? LoadDomen(domenStore, path) : 2;
}

int Editor::CreateDomen(std::wstring file) {
  const fs::path path = PathOf(file);
  return fs::exists(path) ? LoadDomen(domenStore, path) : -1;
}

int Editor::SetActiveClassificator(std::wstring id) {
  if (schemes.empty()) return 1;
  for (std::size_t i = 0; i < schemes.size(); ++i) {
    if (schemes[i].id != id) continue;
    active = static_cast<int>(i);
    return 0;
  }
  return -1;
}

int Editor::SetActiveColorat(std::wstring id) {
  Scheme& scheme = schemes.at(static_cast<std::size_t>(active));
  if (scheme.colorats.empty()) return 1;
  if (scheme.colorats.count(id) == 0) return -1;
  scheme.activeColoratId = id;
  return 0;
}

int Editor::SetActiveDomenId(std::wstring id) {
  if (!domenStore.domens.contains(id)) return -1;
  domenStore.activeDomenId = id;
  return 0;
}

int Editor::SetActiveDomenByName(std::wstring name) {
  for (const auto& [id, domen] : domenStore.domens) {
    if (domen.name != name) continue;
    domenStore.activeDomenId = id;
    return 0;
  }
  return -1;
}

const Scheme& Editor::Active() const {
  return schemes.at(static_cast<std::size_t>(active));
}

const ColorMap* Editor::ActiveColors() const {
  const auto found = Active().colorats.find(Active().activeColoratId);
  return found == Active().colorats.end() ? nullptr : &found->second;
}

std::wstring Editor::GetMappingStr(std::wstring text, int sourceKind,
                                   std::wstring nameSuffix) const {
  return Naive::GetMappingStr(Active().classificator, domenStore, startMark, endMark, text,
                              sourceKind, nameSuffix);
}

std::wstring Editor::GetClaccificatorCodeParams(int codeId, int sourceKind,
                                                std::wstring nameSuffix) const {
  return Naive::GetClaccificatorCodeParams(Active().classificator, domenStore, codeId, sourceKind,
                                           nameSuffix);
}

const Domen* Editor::FindDomen(std::wstring domenId) const {
  const auto found = domenStore.domens.find(domenId);
  return found == domenStore.domens.end() ? nullptr : &found->second;
}

std::vector<const DomenProperty*> Editor::PropertiesOfTypes(std::wstring domenId,
                                                            const Texts& objectTypes) const {
  std::vector<const DomenProperty*> properties;
  const Domen* domen = FindDomen(domenId);
  if (!domen) return properties;
  for (const auto& [key, property] : domen->properties) {
    bool fits = true;
    for (const std::wstring& wanted : objectTypes) {
      bool named = property.objectTypes.empty();
      for (const std::wstring& type : property.objectTypes) named = named || type == wanted;
      fits = fits && named;
    }
    if (fits) properties.push_back(&property);
  }
  return properties;
}

}  // namespace TolvenLibs::RevitMappingEditorDll::Naive
