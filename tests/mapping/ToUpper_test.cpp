#include "mapping/ToUpper.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <locale>
#include <string>

#include "support/GlobalLocale.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

using namespace std::string_literals;

wchar_t NextLetter(wchar_t unit) {
  return unit >= L'a' && unit < L'z' ? static_cast<wchar_t>(unit + 1) : unit;
}

TEST(ToUpper, TurnsSmallLatinLettersIntoCapitals) {
  EXPECT_EQ(ToUpper(L"az AZ 09_{"), L"AZ AZ 09_{");
}

TEST(ToUpper, ReturnsAnEmptyTextForAnEmptyOne) {
  EXPECT_EQ(ToUpper(L""), L"");
}

TEST(ToUpper, FollowsTheFacetOfTheGlobalLocale) {
  const GlobalLocale locale(UpperOfLatinAndCyrillic);
  EXPECT_EQ(ToUpper(L"стена wall Стена"), L"СТЕНА WALL СТЕНА");
}

TEST(ToUpper, FollowsTheGlobalLocaleOfTheMomentOfTheCall) {
  const GlobalLocale latin(UpperOfLatin);
  EXPECT_EQ(ToUpper(L"дверь b"), L"дверь B");
  {
    const GlobalLocale nothing(UpperOfNothing);
    EXPECT_EQ(ToUpper(L"дверь b"), L"дверь b");
    const GlobalLocale cyrillic(UpperOfLatinAndCyrillic);
    EXPECT_EQ(ToUpper(L"дверь b"), L"ДВЕРЬ B");
  }
  EXPECT_EQ(ToUpper(L"дверь b"), L"дверь B");
}

TEST(ToUpper, AppliesTheFacetToEachUnitOnce) {
  const GlobalLocale locale(NextLetter);
  EXPECT_EQ(ToUpper(L"abcz"), L"bcdz");
}

TEST(ToUpper, SetsNoLocale) {
  const GlobalLocale locale(UpperOfLatin);
  const std::locale before;
  ToUpper(L"wall");
  EXPECT_TRUE(std::locale() == before);
}

TEST(ToUpper, KeepsTheLengthOfTheText) {
  const std::wstring text = L"a\0ß\t\u00A0ﬁ\U0001F6AA"s;
  EXPECT_EQ(ToUpper(text).size(), text.size());
}

TEST(ToUpper, GoesOnAfterANul) {
  EXPECT_EQ(ToUpper(L"a\0b"s), L"A\0B"s);
}

TEST(ToUpper, TakesATextOfMillionsOfCharacters) {
  constexpr std::size_t size = 5'000'000;
  EXPECT_EQ(ToUpper(std::wstring(size, L'w')), std::wstring(size, L'W'));
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
