// Fast upper-casing by a locale.

#pragma once

#include <array>
#include <clocale>
#include <cstddef>
#include <locale>
#include <string>

namespace TolvenLibs::RevitMappingEditorDll {

// The upper-casing of the global locale at the time of construction. A table holds what the
// locale's `ctype` facet returns for Latin, Greek and Cyrillic; for other units the facet is called
// each time, and for all units if it raises an exception for one in the table. Passes on what the
// facet raises.
class UpperTable {
 public:
  UpperTable();

  wchar_t Upper(wchar_t unit) const {
    const auto index = static_cast<std::size_t>(unit);
    return index < rememberedCount_ ? remembered_[index] : facet_->toupper(unit);
  }

  // The capital of the capital, which can differ from it.
  wchar_t UpperTwice(wchar_t unit) const {
    const auto index = static_cast<std::size_t>(unit);
    return index < rememberedCount_ ? rememberedTwice_[index] : Upper(facet_->toupper(unit));
  }

  // Returns whether the global locale is still that of the table.
  bool IsCurrent() const { return std::locale() == locale_ && runtimeLocale_ == RuntimeLocale(); }

 private:
  // The name of the C runtime's locale if it determines what facets return, as with mingw-w64,
  // whose C++ runtime calls the C runtime each time.
  static const char* RuntimeLocale() {
#if defined(__MINGW32__)
    return std::setlocale(LC_CTYPE, nullptr);
#else
    return "";
#endif
  }

  static constexpr std::size_t endOfCyrillic = 0x460;

  std::locale locale_;
  const std::ctype<wchar_t>* facet_;  // of `locale_`
  std::string runtimeLocale_ = RuntimeLocale();
  std::size_t rememberedCount_ = 0;
  std::array<wchar_t, endOfCyrillic> remembered_;
  std::array<wchar_t, endOfCyrillic> rememberedTwice_;
};

}  // namespace TolvenLibs::RevitMappingEditorDll
