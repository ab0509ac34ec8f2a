#include "domen/DomenStore.h"

#include "base/PathParts.h"
#include "base/Status.h"
#include "base/Text.h"
#include "domen/DomenSection.h"
#include "domen/FieldAdder.h"
#include "textfile/Account.h"
#include "textfile/TextFile.h"

namespace TolvenLibs::RevitMappingEditorDll {

int DomenStore::LoadDomen(const std::wstring& path, const std::wstring& configText,
                          const std::shared_ptr<const TextFile>& file, Account* account,
                          JsonAccount* jsonAccount) {
  if (Extension(path) == L".json") return LoadDomenJson(path, configText, jsonAccount);
  if (Extension(path) == L".txt") return LoadDomenText(path, file, account);
  return statusAbsent;
}

int DomenStore::LoadDomenText(const std::wstring& path, const std::shared_ptr<const TextFile>& file,
                              Account* account) {
  try {
    const std::shared_ptr<const TextFile> read = file ? file : ReadTextFile(path, account);
    if (!read) return statusNotOpened;
    FieldAdder fields;
    for (const TextSection& section : read->sections) {
      if (!StartsWith(section.heading, L"==DOMEN")) continue;
      Note(account, Outcome::domenHeading, section.heading);
      ParseDomenSection(*this, fields, section.body, account);
    }
    return statusDone;
  } catch (...) {
    return statusException;
  }
}

std::pair<Domens::const_iterator, bool> DomenStore::AddDomen(const std::wstring& key,
                                                             Domen&& domen) {
  return domens.Edit([&](Domens::Map& map) -> std::pair<Domens::const_iterator, bool> {
    return map.try_emplace(key, std::move(domen));
  });
}

DomenProperties DomenStore::CollectProperties(const std::vector<std::wstring>& domenIds,
                                              const std::vector<std::wstring>& propertyIds) const {
  DomenProperties collected;
  for (const std::wstring& domenId : domenIds) {
    const auto domen = domens.find(domenId);
    if (domen == domens.end()) continue;
    const DomenProperties& properties = domen->second.properties;
    for (const std::wstring& propertyId : propertyIds) {
      const auto property = properties.find(propertyId);
      if (property != properties.end()) collected.try_emplace(propertyId, property->second);
    }
  }
  return collected;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
