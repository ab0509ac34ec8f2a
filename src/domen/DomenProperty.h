#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "PropertyParameter.h"

namespace TolvenLibs::RevitMappingEditorDll {

// One property of a domain. It owns its value fields, and a copy has fields of its own, each made
// anew from the text that `GetValue` gives: a value passes through its text form on every copy.
struct DomenProperty {
  // The blank property, which stands for one of an unknown domain.
  DomenProperty() = default;

  // A property without fields.
  DomenProperty(std::wstring propertyId, std::wstring propertyName, std::vector<std::wstring> types,
                bool isUnique, int index);

  DomenProperty(const DomenProperty& other);
  DomenProperty& operator=(const DomenProperty& other);
  DomenProperty(DomenProperty&& other) noexcept = default;
  DomenProperty& operator=(DomenProperty&& other) noexcept = default;
  ~DomenProperty() = default;

  // Whether the property may be set on objects of this type. One that names no type may be set on
  // all.
  bool AppliesToObjectType(std::wstring_view objectType) const;

  // Adds a field of type `valueType` behind the others and gives 0, or adds nothing and gives -1 if
  // the name is taken, -2 if there is no such type. A default text that the field refuses is no
  // error: the field then keeps the starting value of its class.
  int AddValueField(std::wstring fieldName, std::wstring title, int valueType, bool fieldFlag,
                    std::wstring defaultText);

  std::wstring id;
  std::wstring name;
  std::vector<std::wstring> objectTypes;  // in the order of the file; empty means every type
  bool unique = false;
  int sortIndex = -1;  // the place in the interface's display; nothing here sorts by it
  std::vector<std::unique_ptr<Properties::PropertyParameter>> fields;

 private:
  friend class FieldAdder;

  bool HasField(std::wstring_view fieldName) const;

  // `AddValueField` for a name that is known to be free.
  int AppendField(std::wstring fieldName, std::wstring title, int valueType, bool fieldFlag,
                  std::wstring defaultText);
};

// The text of the value that a field would have in a copy of its property, and none if the copy
// would lack the field. It takes less than the copy, most of all for a text that stays as it is.
std::wstring CopiedValue(Properties::PropertyParameter& field);

}  // namespace TolvenLibs::RevitMappingEditorDll
