#pragma once

#include <array>
#include <clocale>
#include <cstddef>
#include <locale>
#include <string>

namespace TolvenLibs::RevitMappingEditorDll {

// The upper-casing of the global locale as it stood when the table was made. What the locale's
// facet returns is remembered for the scripts that most texts are written in, and asked for anew
// for all other units; for every unit if the facet raises an exception for one of these. What it
// raises is raised here too.
class UpperTable {
 public:
  UpperTable();

  wchar_t Upper(wchar_t unit) const {
    const auto index = static_cast<std::size_t>(unit);
    return index < rememberedCount_ ? remembered_[index] : facet_->toupper(unit);
  }

  // The capital of the capital, which can be another one.
  wchar_t UpperTwice(wchar_t unit) const {
    const auto index = static_cast<std::size_t>(unit);
    return index < rememberedCount_ ? rememberedTwice_[index] : Upper(facet_->toupper(unit));
  }

  // Whether the global locale still is that of the table.
  bool IsCurrent() const {
    return std::locale() == locale_ && runtimeLocale_ == LocaleBehindFacets();
  }

 private:
  // The name of the C runtime's locale where it decides what all facets return: with mingw-w64,
  // whose C++ runtime asks the C runtime each time.
  static const char* LocaleBehindFacets() {
#if defined(__MINGW32__)
    return std::setlocale(LC_CTYPE, nullptr);
#else
    return "";
#endif
  }

  static constexpr std::size_t behindCyrillic = 0x460;

  std::locale locale_;
  const std::ctype<wchar_t>* facet_;  // of `locale_`
  std::string runtimeLocale_ = LocaleBehindFacets();
  std::size_t rememberedCount_ = 0;
  std::array<wchar_t, behindCyrillic> remembered_;
  std::array<wchar_t, behindCyrillic> rememberedTwice_;
};

}  // namespace TolvenLibs::RevitMappingEditorDll
