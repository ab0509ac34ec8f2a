// One property of a domain.

#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "PropertyParameter.h"

namespace TolvenLibs::RevitMappingEditorDll {

// A property owns its value fields. A copy makes its own from the texts that `GetValue` returns: a
// value passes through its text form on every copy.
struct DomenProperty {
  // The blank property, returned for unknown domains.
  DomenProperty() = default;

  DomenProperty(std::wstring propertyId, std::wstring propertyName, std::vector<std::wstring> types,
                bool isUnique, int index);

  DomenProperty(const DomenProperty& other);
  DomenProperty& operator=(const DomenProperty& other);
  DomenProperty(DomenProperty&& other) noexcept = default;
  DomenProperty& operator=(DomenProperty&& other) noexcept = default;
  ~DomenProperty() = default;

  // Returns whether the property may be set on objects of this type; always if it has no types.
  bool AppliesToObjectType(std::wstring_view objectType) const;

  // Appends a field of type `valueType` and returns 0. Adds nothing and returns -1 if the name is
  // taken, -2 if there is no such type. A default text that the field refuses isn't an error: the
  // field keeps the initial value of its class.
  int AddValueField(std::wstring fieldName, std::wstring title, int valueType, bool fieldFlag,
                    std::wstring defaultText);

  std::wstring id;
  std::wstring name;
  std::vector<std::wstring> objectTypes;  // in the order of the file; empty means all types
  bool unique = false;
  int sortIndex = -1;  // the position in the user interface; the library doesn't sort by it
  std::vector<std::unique_ptr<Properties::PropertyParameter>> fields;

 private:
  friend class FieldAdder;

  bool HasField(std::wstring_view fieldName) const;

  // The same as `AddValueField`. REQUIRES: !HasField(fieldName).
  int AppendField(std::wstring fieldName, std::wstring title, int valueType, bool fieldFlag,
                  std::wstring defaultText);
};

// Returns the text of the value that the field would have in a copy of its property; empty if the
// copy would lack the field. Cheaper than the copy, above all if the text stays the same.
std::wstring CopiedValue(Properties::PropertyParameter& field);

}  // namespace TolvenLibs::RevitMappingEditorDll
