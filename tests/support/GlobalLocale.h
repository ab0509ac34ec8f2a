// Global locales that last for a scope, with letters of a test's own choosing.

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

// While it lives, the global locale is the classic one, but for the capitals, which a function
// gives.
class GlobalLocale {
 public:
  explicit GlobalLocale(UpperFunction upper)
      : previous(std::locale::global(std::locale(std::locale::classic(), new UpperFacet(upper)))) {}
  GlobalLocale(const GlobalLocale&) = delete;
  GlobalLocale& operator=(const GlobalLocale&) = delete;
  ~GlobalLocale() { std::locale::global(previous); }

 private:
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

  std::locale previous;
};
