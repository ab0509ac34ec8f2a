#include "domen/Domen.h"

#include <utility>

namespace TolvenLibs::RevitMappingEditorDll {

Domen::Domen(std::wstring domenId, std::wstring domenName)
    : id(std::move(domenId)), name(std::move(domenName)) {}

void Domen::AddProperty(const std::wstring& key, const DomenProperty& property) {
  properties.Edit().try_emplace(key, property);
}

void Domen::AddProperty(const std::wstring& key, DomenProperty&& property) {
  // Files tend to have the keys in order, so that the end is the place to look first.
  property.PassValuesThroughText();
  DomenProperties& edited = properties.Edit();
  edited.try_emplace(edited.end(), key, std::move(property));
}

void Domen::AddPropertyField(const std::wstring& key, const std::wstring& fieldName,
                             const std::wstring& title, int valueType, bool fieldFlag,
                             const std::wstring& defaultText) {
  const auto found = properties.Edit().find(key);
  if (found == properties.end()) return;
  found->second.AddValueField(fieldName, title, valueType, fieldFlag, defaultText);
}

}  // namespace TolvenLibs::RevitMappingEditorDll
