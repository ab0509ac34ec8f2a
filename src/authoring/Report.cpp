#include "authoring/Report.h"

#include <array>
#include <cstddef>

namespace TolvenLibs::RevitMappingEditorDll {

std::string_view NameOf(Severity severity) {
  static constexpr std::array<std::string_view, 3> names = {"hint", "warning", "error"};
  return names[static_cast<std::size_t>(severity)];
}

std::string_view NameOf(Fate fate) {
  static constexpr std::array<std::string_view, 7> names = {
      "used", "comment", "blank", "ignored", "lost", "unreachable", "shadowed"};
  return names[static_cast<std::size_t>(fate)];
}

}  // namespace TolvenLibs::RevitMappingEditorDll
