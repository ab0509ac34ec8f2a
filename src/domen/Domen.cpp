#include "domen/Domen.h"

#include <utility>

namespace TolvenLibs::RevitMappingEditorDll {

Domen::Domen(std::wstring domenId, std::wstring domenName)
    : id(std::move(domenId)), name(std::move(domenName)) {}

void Domen::AddProperty(const std::wstring& key, const DomenProperty& property) {
  properties.try_emplace(key, property);
}

void Domen::AddProperty(const std::wstring& key, DomenProperty&& property) {
  // Files tend to have the keys in order, so that the end is the place to look first.
  const auto place = properties.lower_bound(key);
  if (place != properties.end() && place->first == key) return;
  property.PassValuesThroughText();
  properties.emplace_hint(place, key, std::move(property));
}

void Domen::AddPropertyField(const std::wstring& key, const std::wstring& fieldName,
                             const std::wstring& title, int valueType, bool fieldFlag,
                             const std::wstring& defaultText) {
  const auto found = properties.find(key);
  if (found == properties.end()) return;
  found->second.AddValueField(fieldName, title, valueType, fieldFlag, defaultText);
}

}  // namespace TolvenLibs::RevitMappingEditorDll
