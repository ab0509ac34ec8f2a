#pragma once

#include <array>
#include <cstddef>
#include <locale>

namespace TolvenLibs::RevitMappingEditorDll {

// The upper-casing of the global locale as it stood when the table was made. What the locale's
// facet gives is remembered for the scripts that most texts are written in, and asked for anew for
// all other units. A unit that the facet raises an exception for raises it here too.
class UpperTable {
 public:
  UpperTable();

  wchar_t Upper(wchar_t unit) const {
    const auto index = static_cast<std::size_t>(unit);
    if (index < remembered.size() && remembered[index] != unknown) return remembered[index];
    return facet->toupper(unit);
  }

  // Whether the global locale still is that of the table.
  bool IsCurrent() const { return std::locale() == locale; }

 private:
  static constexpr wchar_t unknown = static_cast<wchar_t>(-1);
  static constexpr std::size_t behindCyrillic = 0x460;

  std::locale locale;
  const std::ctype<wchar_t>* facet;  // of `locale`
  std::array<wchar_t, behindCyrillic> remembered;
};

}  // namespace TolvenLibs::RevitMappingEditorDll
