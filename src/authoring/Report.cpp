#include "authoring/Report.h"

namespace TolvenLibs::RevitMappingEditorDll {

std::string_view NameOf(Severity severity) {
  switch (severity) {
    case Severity::hint:
      return "hint";
    case Severity::warning:
      return "warning";
    case Severity::error:
      return "error";
  }
  return {};
}

std::string_view NameOf(Fate fate) {
  switch (fate) {
    case Fate::used:
      return "used";
    case Fate::comment:
      return "comment";
    case Fate::blank:
      return "blank";
    case Fate::ignored:
      return "ignored";
    case Fate::lost:
      return "lost";
    case Fate::unreachable:
      return "unreachable";
    case Fate::shadowed:
      return "shadowed";
  }
  return {};
}

}  // namespace TolvenLibs::RevitMappingEditorDll
