#pragma once

#include <array>
#include <cstddef>
#include <locale>
#include <string>

#include "editor/RuntimeLocale.h"

namespace TolvenLibs::RevitMappingEditorDll {

// The upper-casing of the global locale as it stood when the table was made. What the locale's
// facet gives is remembered for the scripts that most texts are written in, and asked for anew for
// all other units; for every unit if the facet raises an exception for one of these. What it raises
// is raised here too.
class UpperTable {
 public:
  UpperTable();

  wchar_t Upper(wchar_t unit) const {
    const auto index = static_cast<std::size_t>(unit);
    return index < rememberedCount ? remembered[index] : facet->toupper(unit);
  }

  // The capital of the capital, which can be another one.
  wchar_t UpperTwice(wchar_t unit) const {
    const auto index = static_cast<std::size_t>(unit);
    return index < rememberedCount ? rememberedTwice[index] : Upper(facet->toupper(unit));
  }

  // Whether the global locale still is that of the table.
  bool IsCurrent() const {
    return std::locale() == locale && runtimeLocale == LocaleBehindFacets();
  }

 private:
  static constexpr std::size_t behindCyrillic = 0x460;

  std::locale locale;
  const std::ctype<wchar_t>* facet;  // of `locale`
  std::string runtimeLocale = LocaleBehindFacets();
  std::size_t rememberedCount = 0;
  std::array<wchar_t, behindCyrillic> remembered;
  std::array<wchar_t, behindCyrillic> rememberedTwice;
};

}  // namespace TolvenLibs::RevitMappingEditorDll
