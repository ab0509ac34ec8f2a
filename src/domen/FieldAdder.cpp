#include "domen/FieldAdder.h"

#include <utility>

namespace TolvenLibs::RevitMappingEditorDll {

int FieldAdder::Add(DomenProperty& property, std::wstring fieldName, std::wstring title,
                    int valueType, bool fieldFlag, std::wstring defaultText) {
  if (IsTaken(property, fieldName)) return -1;
  return property.AppendField(std::move(fieldName), std::move(title), valueType, fieldFlag,
                              std::move(defaultText));
}

// Since the last call fields have only been appended, so that the new ones are at the end.
bool FieldAdder::IsTaken(const DomenProperty& property, std::wstring_view fieldName) {
  constexpr std::size_t few = 32;
  const auto& fields = property.fields;
  if (fields.size() < few) return property.HasField(fieldName);
  Names& known = known_[&property];
  for (; known.fieldCount < fields.size(); ++known.fieldCount) {
    known.names.insert(fields[known.fieldCount]->name);
  }
  return known.names.contains(fieldName);
}

}  // namespace TolvenLibs::RevitMappingEditorDll
