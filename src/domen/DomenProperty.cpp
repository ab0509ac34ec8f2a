#include "domen/DomenProperty.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include "domen/PropertyType.h"
#include "editor/Text.h"

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

bool HasBareEnds(std::wstring_view text) {
  const auto isBare = [](wchar_t unit) { return unit != L'"' && !IsSpace(unit); };
  return !text.empty() && isBare(text.front()) && isBare(text.back());
}

bool IsBare(const std::wstring& text) {
  return text.empty() || HasBareEnds(text);
}

bool IsFinite(double number) {
  return std::isfinite(number);
}

// Whether a value surely passes through its text form unchanged.
bool IsSteady(const Properties::PropertyParameter& field) {
  using namespace Properties;
  const auto isListOf = [](const auto& value, auto isSteady) {
    return !value.empty() && std::all_of(value.begin(), value.end(), isSteady);
  };
  switch (field.valueType) {
    case typeReal:
      return IsFinite(static_cast<const PropertyRealParameter&>(field).value);
    case typeStr:
      return IsBare(static_cast<const PropertyStrParameter&>(field).value);
    case typeIList:
      return !static_cast<const PropertyIListParameter&>(field).value.empty();
    case typeRList:
      return isListOf(static_cast<const PropertyRListParameter&>(field).value, IsFinite);
    case typeSList:
      return isListOf(static_cast<const PropertySListParameter&>(field).value, HasBareEnds);
    default:
      return true;
  }
}

// A field of one of the library's own classes, made anew.
Field CopyOf(Properties::PropertyParameter& field) {
  std::wstring text = field.GetValue();
  Field copy = MakeField(field.name, field.title, field.valueType, field.fieldFlag);
  copy->SetValue(std::move(text));
  return copy;
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

int DomenProperty::AddValueField(std::wstring fieldName, std::wstring title, int valueType,
                                 bool fieldFlag, std::wstring defaultText) {
  if (HasField(fieldName)) return -1;
  return AppendField(std::move(fieldName), std::move(title), valueType, fieldFlag,
                     std::move(defaultText));
}

int DomenProperty::AppendField(std::wstring fieldName, std::wstring title, int valueType,
                               bool fieldFlag, std::wstring defaultText) {
  Field field = MakeField(std::move(fieldName), std::move(title), valueType, fieldFlag);
  if (!field) return -2;
  fields.push_back(std::move(field));
  fields.back()->SetValue(std::move(defaultText));
  return 0;
}

// Among many fields a name is looked up, where it is compared with each of a few. Fields are only
// ever added, so that those whose names are not known yet are the last.
bool DomenProperty::HasField(std::wstring_view fieldName) {
  constexpr std::size_t few = 32;
  if (fields.size() < few) {
    return std::any_of(fields.begin(), fields.end(),
                       [fieldName](const Field& field) { return field->name == fieldName; });
  }
  if (!fieldNames) fieldNames = std::make_unique<Names>();
  for (std::size_t i = fieldNames->size(); i < fields.size(); ++i) {
    fieldNames->insert(fields[i]->name);
  }
  return fieldNames->contains(fieldName);
}

void DomenProperty::PassValuesThroughText() {
  fieldNames.reset();  // of fields that may be made anew
  for (Field& field : fields) {
    if (!IsSteady(*field)) field = CopyOf(*field);
  }
}

std::wstring CopiedValue(Properties::PropertyParameter& field) {
  return IsSteady(field) ? field.GetValue() : CopyOf(field)->GetValue();
}

}  // namespace TolvenLibs::RevitMappingEditorDll
