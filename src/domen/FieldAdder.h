// Adds many fields to properties.

#pragma once

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <string_view>

#include "domen/DomenProperty.h"

namespace TolvenLibs::RevitMappingEditorDll {

// Adds fields as `AddValueField` does, but in time logarithmic in the number of a property's fields
// instead of linear. Keeps views of the names. REQUIRES: nobody else changes the fields meanwhile.
class FieldAdder {
 public:
  int Add(DomenProperty& property, std::wstring fieldName, std::wstring title, int valueType,
          bool fieldFlag, std::wstring defaultText);

 private:
  // The names of the first `fieldCount` fields of a property.
  struct Names {
    std::size_t fieldCount = 0;
    std::set<std::wstring_view> names;
  };

  bool IsTaken(const DomenProperty& property, std::wstring_view fieldName);

  std::map<const DomenProperty*, Names> known_;
};

}  // namespace TolvenLibs::RevitMappingEditorDll
