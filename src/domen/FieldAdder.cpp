#include "domen/FieldAdder.h"

#include <cstddef>
#include <utility>

namespace TolvenLibs::RevitMappingEditorDll {

FieldAdder::FieldAdder(DomenProperty& target) : property(&target) {}

int FieldAdder::Add(std::wstring fieldName, std::wstring title, int valueType, bool fieldFlag,
                    std::wstring defaultText) {
  constexpr std::size_t usual = 4;
  constexpr std::size_t few = 32;
  if (property->fields.empty()) property->fields.reserve(usual);
  if (property->fields.size() < few) {
    return property->AddValueField(std::move(fieldName), std::move(title), valueType, fieldFlag,
                                   std::move(defaultText));
  }
  for (std::size_t i = names.size(); i < property->fields.size(); ++i) {
    names.insert(property->fields[i]->name);
  }
  if (names.contains(fieldName)) return -1;
  return property->AppendField(std::move(fieldName), std::move(title), valueType, fieldFlag,
                               std::move(defaultText));
}

}  // namespace TolvenLibs::RevitMappingEditorDll
