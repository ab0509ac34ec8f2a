#include "domen/DomenProperty.h"

#include <algorithm>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "base/Text.h"
#include "domen/FieldAdder.h"
#include "domen/PropertyType.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

constexpr wchar_t quotationMark = L'"';

using Field = std::unique_ptr<Properties::PropertyParameter>;

// Returns a new field with the initial value of its class, or null if there is no such type.
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
  const auto isBare = [](wchar_t unit) { return unit != quotationMark && !IsSpace(unit); };
  return isBare(text.front()) && isBare(text.back());
}

bool IsWordWithoutQuotationMarks(std::wstring_view text) {
  return std::none_of(text.begin(), text.end(),
                      [](wchar_t unit) { return unit == quotationMark || IsSpace(unit); });
}

// Returns whether the text, a value of a field, surely survives a round trip through `SetValue` and
// `GetValue`. The reals that don't, "inf" and "nan", contain an n.
bool IsSteady(int valueType, std::wstring_view text) {
  if (text.empty()) return valueType == typeStr;
  switch (valueType) {
    case typeInt:
    case typeIList:
      return true;
    case typeReal:
    case typeRList:
      return text.find(L'n') == text.npos;
    case typeStr:
      return HasBareEnds(text);
    case typeSList:
      return IsWordWithoutQuotationMarks(text);
    default:
      return false;
  }
}

}  // namespace

// Moves must be noexcept: otherwise a growing vector would copy, and so change values.
static_assert(std::is_nothrow_move_constructible_v<std::wstring> &&
              std::is_nothrow_move_assignable_v<std::wstring>);
static_assert(std::is_nothrow_move_constructible_v<decltype(DomenProperty::objectTypes)> &&
              std::is_nothrow_move_assignable_v<decltype(DomenProperty::objectTypes)>);
static_assert(std::is_nothrow_move_constructible_v<decltype(DomenProperty::fields)> &&
              std::is_nothrow_move_assignable_v<decltype(DomenProperty::fields)>);

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
  FieldAdder adder;
  for (const Field& field : other.fields) {
    adder.Add(*this, field->name, field->title, field->valueType, field->fieldFlag,
              field->GetValue());
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

bool DomenProperty::HasField(std::wstring_view fieldName) const {
  return std::any_of(fields.begin(), fields.end(),
                     [fieldName](const Field& field) { return field->name == fieldName; });
}

std::wstring CopiedValue(Properties::PropertyParameter& field) {
  std::wstring text = field.GetValue();
  if (IsSteady(field.valueType, text)) return text;
  DomenProperty copy;
  copy.AddValueField({}, {}, field.valueType, field.fieldFlag, std::move(text));
  return copy.fields.empty() ? std::wstring() : copy.fields.front()->GetValue();
}

}  // namespace TolvenLibs::RevitMappingEditorDll
