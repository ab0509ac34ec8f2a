#pragma once

#include <string>
#include <string_view>
#include <unordered_set>

#include "domen/DomenProperty.h"

namespace TolvenLibs::RevitMappingEditorDll {

// Adds value fields to a property to which nobody else adds any meanwhile. It gives what
// `AddValueField` gives, but looks a name up among many where that one compares it with each.
class FieldAdder {
 public:
  explicit FieldAdder(DomenProperty& target);

  int Add(std::wstring fieldName, std::wstring title, int valueType, bool fieldFlag,
          std::wstring defaultText);

 private:
  DomenProperty* property;
  std::unordered_set<std::wstring_view> names;  // of all fields, once they are many
};

}  // namespace TolvenLibs::RevitMappingEditorDll
