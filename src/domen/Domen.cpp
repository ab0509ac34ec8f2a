#include "domen/Domen.h"

#include <utility>

namespace TolvenLibs::RevitMappingEditorDll {

Domen::Domen(std::wstring domenId, std::wstring domenName)
    : id(std::move(domenId)), name(std::move(domenName)) {}

void Domen::AddProperty(const std::wstring& key, const DomenProperty& property) {
  properties.try_emplace(key, property);
}

void Domen::AddPropertyField(const std::wstring& key, const std::wstring& fieldName,
                             const std::wstring& title, int valueType, bool fieldFlag,
                             const std::wstring& defaultText) {
  const auto found = properties.find(key);
  if (found == properties.end()) return;
  found->second.AddValueField(fieldName, title, valueType, fieldFlag, defaultText);
}

}  // namespace TolvenLibs::RevitMappingEditorDll
