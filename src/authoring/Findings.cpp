#include "authoring/Findings.h"

#include <optional>
#include <utility>

#include "base/Utf8.h"

namespace TolvenLibs::RevitMappingEditorDll {

Finding& AddFinding(Report& report, int number, const Place& place, Fate fate,
                    std::initializer_list<std::wstring_view> arguments) {
  Finding finding{number, place, fate, {}, {}};
  for (const std::wstring_view argument : arguments) finding.arguments.push_back(Utf8Of(argument));
  return report.findings.emplace_back(std::move(finding));
}

std::string Utf8Of(std::wstring_view text) {
  return EncodeUtf8(text).value_or(std::string());
}

}  // namespace TolvenLibs::RevitMappingEditorDll
