// Global locales for a scope, with case folding by a function.

#pragma once

#include <locale>

using UpperFunction = wchar_t (*)(wchar_t);

inline wchar_t UpperOfNothing(wchar_t unit) {
  return unit;
}

inline wchar_t UpperOfLatin(wchar_t unit) {
  return unit >= L'a' && unit <= L'z' ? static_cast<wchar_t>(unit - L'a' + L'A') : unit;
}

inline wchar_t UpperOfLatinAndCyrillic(wchar_t unit) {
  return unit >= L'а' && unit <= L'я' ? static_cast<wchar_t>(unit - L'а' + L'А')
                                      : UpperOfLatin(unit);
}

class UpperFacet : public std::ctype<wchar_t> {
 public:
  explicit UpperFacet(UpperFunction function) : upper(function) {}

 protected:
  wchar_t do_toupper(wchar_t unit) const override { return upper(unit); }

  const wchar_t* do_toupper(wchar_t* first, const wchar_t* last) const override {
    for (; first != last; ++first) *first = upper(*first);
    return last;
  }

 private:
  UpperFunction upper;
};

// Returns the classic locale with capitals by this function. No two results are equal, even for
// equal functions.
inline std::locale LocaleOf(UpperFunction upper) {
  return std::locale(std::locale::classic(), new UpperFacet(upper));
}

// Sets the global locale for its lifetime.
class GlobalLocale {
 public:
  explicit GlobalLocale(const std::locale& locale) : previous(std::locale::global(locale)) {}
  explicit GlobalLocale(UpperFunction upper) : GlobalLocale(LocaleOf(upper)) {}
  GlobalLocale(const GlobalLocale&) = delete;
  GlobalLocale& operator=(const GlobalLocale&) = delete;
  ~GlobalLocale() { std::locale::global(previous); }

 private:
  std::locale previous;
};
