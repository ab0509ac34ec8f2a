// The queries of `Domen` and `DomenStore`. None depends on the active domain.

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/Checked.h"
#include "base/Status.h"
#include "domen/DomenStore.h"
#include "domen/PropertyType.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

const Domen* FindDomen(const DomenStore& store, const std::wstring& domenId) {
  const auto found = store.domens.find(domenId);
  return found == store.domens.end() ? nullptr : &found->second;
}

bool IsListType(int valueType) {
  return valueType >= typeIList && valueType <= typeSList;
}

// The last field alone decides whether the property is a list.
PropertyCheckInfo CheckInfoOf(const std::wstring& key, const DomenProperty& property) {
  const int fieldCount = static_cast<int>(property.fields.size());
  const auto& last = CheckedAt(property.fields, fieldCount - 1);
  return {IsListType(last->valueType), fieldCount, property.unique, key};
}

}  // namespace

std::vector<const DomenProperty*> Domen::FilterByObjType(const std::wstring& objectType) const {
  return FilterByObjTypes({objectType});
}

std::vector<const DomenProperty*> Domen::FilterByObjTypes(
    const std::vector<std::wstring>& objectTypes) const {
  return properties.ThatApplyTo(objectTypes);
}

std::vector<std::wstring> DomenStore::ListDomenIds() const {
  std::vector<std::wstring> ids;
  for (const auto& [id, domen] : domens) ids.push_back(id);
  return ids;
}

std::vector<std::wstring> DomenStore::ListDomenNames() const {
  std::vector<std::wstring> names;
  for (const auto& [id, domen] : domens) names.push_back(domen.name);
  return names;
}

int DomenStore::SelectDomenById(const std::wstring& domenId) {
  if (!domens.contains(domenId)) return statusAbsent;
  activeDomenId = domenId;
  return statusDone;
}

int DomenStore::SelectDomenByName(const std::wstring& domenName) {
  const auto found = std::find_if(domens.begin(), domens.end(), [&domenName](const auto& entry) {
    return entry.second.name == domenName;
  });
  if (found == domens.end()) return statusAbsent;
  activeDomenId = found->first;
  return statusDone;
}

std::vector<std::pair<std::wstring_view, int>> DomenStore::SortIndexes(
    const std::wstring& domenId) const {
  std::vector<std::pair<std::wstring_view, int>> indexes;
  const Domen* domen = FindDomen(*this, domenId);
  if (!domen) return indexes;
  indexes.reserve(domen->properties.size());
  for (const auto& [key, property] : domen->properties) {
    indexes.emplace_back(key, property.sortIndex);
  }
  return indexes;
}

std::vector<const DomenProperty*> DomenStore::PropertiesOfType(
    const std::wstring& domenId, const std::wstring& objectType) const {
  const Domen* domen = FindDomen(*this, domenId);
  if (!domen) return {};
  return domen->FilterByObjType(objectType);
}

std::vector<const DomenProperty*> DomenStore::PropertiesOfTypes(
    const std::wstring& domenId, const std::vector<std::wstring>& objectTypes) const {
  const Domen* domen = FindDomen(*this, domenId);
  if (!domen) return {};
  return domen->FilterByObjTypes(objectTypes);
}

DomenProperty DomenStore::FindProperty(const std::wstring& domenId, const std::wstring& key) const {
  const DomenProperty* property = FindStoredProperty(domenId, key);
  return property ? *property : DomenProperty();
}

const DomenProperty* DomenStore::FindStoredProperty(const std::wstring& domenId,
                                                    const std::wstring& key) const {
  const Domen* domen = FindDomen(*this, domenId);
  if (!domen) return nullptr;
  return &CheckedAt<DomenProperties>(domen->properties, key);
}

std::vector<PropertyCheckInfo> DomenStore::CheckInfos(const std::wstring& domenId) const {
  std::vector<PropertyCheckInfo> infos;
  const Domen* domen = FindDomen(*this, domenId);
  if (!domen) return infos;
  infos.reserve(domen->properties.size());
  for (const auto& [key, property] : domen->properties) {
    infos.push_back(CheckInfoOf(key, property));
  }
  return infos;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
