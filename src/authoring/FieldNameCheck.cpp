#include "authoring/FieldNameCheck.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "authoring/Findings.h"
#include "base/Text.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

// In order, all names that begin with a name follow it at once, so that those that begin the
// current one are a stack.
template <class Tell>
void ForEachThatBeginsAnother(std::vector<std::wstring_view> names, const Tell& tell) {
  std::sort(names.begin(), names.end());
  std::vector<std::wstring_view> beginnings;
  for (const std::wstring_view name : names) {
    while (!beginnings.empty() && !StartsWith(name, beginnings.back())) beginnings.pop_back();
    if (!beginnings.empty()) tell(name, beginnings.back());
    if (!name.empty()) beginnings.push_back(name);
  }
}

}  // namespace

void CheckFieldNames(const DomenStore& domens, const Definitions& definitions, Report& report) {
  for (const auto& [domenId, domen] : domens.domens) {
    for (const auto& [propertyId, property] : domen.properties) {
      std::vector<std::wstring_view> names;
      for (const auto& field : property.fields) names.push_back(field->name);
      const auto tell = [&](std::wstring_view name, std::wstring_view beginning) {
        const auto definition = definitions.find({domenId, propertyId, std::wstring(name)});
        if (definition == definitions.end()) return;
        AddFinding(report, 416, definition->second, Fate::used, {name, beginning});
      };
      ForEachThatBeginsAnother(std::move(names), tell);
    }
  }
}

}  // namespace TolvenLibs::RevitMappingEditorDll
