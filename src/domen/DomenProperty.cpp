#include "domen/DomenProperty.h"

#include <algorithm>
#include <utility>

#include "domen/PropertyType.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

using Field = std::unique_ptr<Properties::PropertyParameter>;

// A new field with the starting value of its class, or null if there is no such type.
Field MakeField(const std::wstring& name, const std::wstring& title, int valueType, bool flag) {
  using namespace Properties;
  switch (valueType) {
    case typeInt:
      return std::make_unique<PropertyIntParameter>(name, title, flag);
    case typeReal:
      return std::make_unique<PropertyRealParameter>(name, title, flag);
    case typeStr:
      return std::make_unique<PropertyStrParameter>(name, title, flag);
    case typeIList:
      return std::make_unique<PropertyIListParameter>(name, title, flag);
    case typeRList:
      return std::make_unique<PropertyRListParameter>(name, title, flag);
    case typeSList:
      return std::make_unique<PropertySListParameter>(name, title, flag);
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
  // As `AddValueField` does, but for the search for the name, which the source has only once.
  for (const Field& field : other.fields) {
    fields.push_back(MakeField(field->name, field->title, field->valueType, field->fieldFlag));
    fields.back()->SetValue(field->GetValue());
  }
}

DomenProperty& DomenProperty::operator=(const DomenProperty& other) {
  return *this = DomenProperty(other);
}

bool DomenProperty::AppliesToObjectType(std::wstring_view objectType) const {
  return objectTypes.empty() ||
         std::find(objectTypes.begin(), objectTypes.end(), objectType) != objectTypes.end();
}

int DomenProperty::AddValueField(const std::wstring& fieldName, const std::wstring& title,
                                 int valueType, bool fieldFlag, const std::wstring& defaultText) {
  const bool taken = std::any_of(fields.begin(), fields.end(), [&fieldName](const Field& field) {
    return field->name == fieldName;
  });
  if (taken) return -1;
  Field field = MakeField(fieldName, title, valueType, fieldFlag);
  if (!field) return -2;
  fields.push_back(std::move(field));
  fields.back()->SetValue(defaultText);
  return 0;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
