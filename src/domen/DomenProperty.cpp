#include "domen/DomenProperty.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "domen/PropertyType.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

using Field = std::unique_ptr<Properties::PropertyParameter>;

// A new field with the starting value of its class, or null if there is no such type.
Field MakeField(std::wstring name, std::wstring title, int valueType, bool flag) {
  using namespace Properties;
  switch (valueType) {
    case typeInt:
      return std::make_unique<PropertyIntParameter>(std::move(name), std::move(title), flag);
    case typeReal:
      return std::make_unique<PropertyRealParameter>(std::move(name), std::move(title), flag);
    case typeStr:
      return std::make_unique<PropertyStrParameter>(std::move(name), std::move(title), flag);
    case typeIList:
      return std::make_unique<PropertyIListParameter>(std::move(name), std::move(title), flag);
    case typeRList:
      return std::make_unique<PropertyRListParameter>(std::move(name), std::move(title), flag);
    case typeSList:
      return std::make_unique<PropertySListParameter>(std::move(name), std::move(title), flag);
    default:
      return nullptr;
  }
}

}  // namespace

DomenProperty::DomenProperty(std::wstring propertyId, std::wstring propertyName,
                             std::vector<std::wstring> types, bool isUnique, int index)
    : id(std::move(propertyId)),
      name(std::move(propertyName)),
      objectTypes(std::move(types)),
      unique(isUnique),
      sortIndex(index) {}

DomenProperty::DomenProperty(const DomenProperty& other)
    : DomenProperty(other.id, other.name, other.objectTypes, other.unique, other.sortIndex) {
  fields.reserve(other.fields.size());
  for (const Field& field : other.fields) {
    AppendField(field->name, field->title, field->valueType, field->fieldFlag, field->GetValue());
  }
}

DomenProperty& DomenProperty::operator=(const DomenProperty& other) {
  return *this = DomenProperty(other);
}

bool DomenProperty::AppliesToObjectType(std::wstring_view objectType) const {
  return objectTypes.empty() ||
         std::find(objectTypes.begin(), objectTypes.end(), objectType) != objectTypes.end();
}

int DomenProperty::AddValueField(std::wstring_view fieldName, std::wstring_view title,
                                 int valueType, bool fieldFlag, std::wstring_view defaultText) {
  const bool taken = std::any_of(fields.begin(), fields.end(), [fieldName](const Field& field) {
    return field->name == fieldName;
  });
  return taken ? -1 : AppendField(fieldName, title, valueType, fieldFlag, defaultText);
}

int DomenProperty::AppendField(std::wstring_view fieldName, std::wstring_view title, int valueType,
                               bool fieldFlag, std::wstring_view defaultText) {
  Field field = MakeField(std::wstring(fieldName), std::wstring(title), valueType, fieldFlag);
  if (!field) return -2;
  fields.push_back(std::move(field));
  fields.back()->SetValue(std::wstring(defaultText));
  return 0;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
