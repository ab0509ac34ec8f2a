#include "fuzz/Locales.h"

#include <locale>

#include "support/GlobalLocale.h"

namespace {

wchar_t UpperOfChain(wchar_t unit) {
  return unit >= L'a' && unit < L'z' ? static_cast<wchar_t>(unit + 1) : unit;
}

std::locale WithCapitals(UpperFunction upper) {
  const GlobalLocale made(upper);
  return std::locale();
}

}  // namespace

void SetLocale(std::size_t index) {
  static const std::locale locales[localeCount] = {
      WithCapitals(UpperOfNothing), WithCapitals(UpperOfLatin),
      WithCapitals(UpperOfLatinAndCyrillic), WithCapitals(UpperOfChain)};
  std::locale::global(locales[index % localeCount]);
}
