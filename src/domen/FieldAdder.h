#pragma once

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <string_view>

#include "domen/DomenProperty.h"

namespace TolvenLibs::RevitMappingEditorDll {

// Adds fields as `AddValueField` does, for whoever adds a great many. Among many fields of a
// property it looks a name up, where that compares it with each. It keeps views of their names, and
// lives no longer than nobody else changes the fields that it has met.
class FieldAdder {
 public:
  int Add(DomenProperty& property, std::wstring fieldName, std::wstring title, int valueType,
          bool fieldFlag, std::wstring defaultText);

 private:
  // Of the first so many fields of a property.
  struct Names {
    std::size_t fieldCount = 0;
    std::set<std::wstring_view> names;
  };

  bool IsTaken(const DomenProperty& property, std::wstring_view fieldName);

  std::map<const DomenProperty*, Names> known;
};

}  // namespace TolvenLibs::RevitMappingEditorDll
