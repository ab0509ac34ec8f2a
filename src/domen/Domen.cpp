#include "domen/Domen.h"

#include <utility>

#include "domen/FieldAdder.h"

namespace TolvenLibs::RevitMappingEditorDll {

Domen::Domen(std::wstring domenId, std::wstring domenName)
    : id(std::move(domenId)), name(std::move(domenName)) {}

// Files tend to have the keys in order, so that the end is the likely position.
void Domen::AddProperty(const std::wstring& key, const DomenProperty& property) {
  properties.Edit([&](DomenProperties& map) { map.try_emplace(map.end(), key, property); });
}

void Domen::AddPropertyField(const std::wstring& key, const std::wstring& fieldName,
                             const std::wstring& title, int valueType, bool fieldFlag,
                             const std::wstring& defaultText) {
  FieldAdder adder;
  AddPropertyField(key, fieldName, title, valueType, fieldFlag, defaultText, adder);
}

void Domen::AddPropertyField(const std::wstring& key, const std::wstring& fieldName,
                             const std::wstring& title, int valueType, bool fieldFlag,
                             const std::wstring& defaultText, FieldAdder& adder) {
  properties.Edit([&](DomenProperties& map) {
    const auto found = map.find(key);
    if (found == map.end()) return;
    adder.Add(found->second, fieldName, title, valueType, fieldFlag, defaultText);
  });
}

}  // namespace TolvenLibs::RevitMappingEditorDll
