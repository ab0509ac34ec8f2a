#include "domen/FieldAdder.h"

#include <cstddef>

namespace TolvenLibs::RevitMappingEditorDll {

FieldAdder::FieldAdder(DomenProperty& target) : property(&target) {}

int FieldAdder::Add(std::wstring_view fieldName, std::wstring_view title, int valueType,
                    bool fieldFlag, std::wstring_view defaultText) {
  constexpr std::size_t few = 32;
  if (property->fields.size() < few) {
    return property->AddValueField(fieldName, title, valueType, fieldFlag, defaultText);
  }
  for (std::size_t i = names.size(); i < property->fields.size(); ++i) {
    names.insert(property->fields[i]->name);
  }
  if (names.contains(fieldName)) return -1;
  return property->AppendField(fieldName, title, valueType, fieldFlag, defaultText);
}

}  // namespace TolvenLibs::RevitMappingEditorDll
