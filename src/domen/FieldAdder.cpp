#include "domen/FieldAdder.h"

#include <utility>

namespace TolvenLibs::RevitMappingEditorDll {

int FieldAdder::Add(DomenProperty& property, std::wstring fieldName, std::wstring title,
                    int valueType, bool fieldFlag, std::wstring defaultText) {
  if (IsTaken(property, fieldName)) return -1;
  return property.AppendField(std::move(fieldName), std::move(title), valueType, fieldFlag,
                              std::move(defaultText));
}

// Fields have only been added since the last call, so that those not known yet are the last.
bool FieldAdder::IsTaken(const DomenProperty& property, std::wstring_view fieldName) {
  constexpr std::size_t few = 32;
  const auto& fields = property.fields;
  if (fields.size() < few) return property.HasField(fieldName);
  Names& of = known[&property];
  for (; of.fieldCount < fields.size(); ++of.fieldCount) {
    of.names.insert(fields[of.fieldCount]->name);
  }
  return of.names.contains(fieldName);
}

}  // namespace TolvenLibs::RevitMappingEditorDll
