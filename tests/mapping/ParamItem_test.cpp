#include "mapping/ParamItem.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "support/ItemTexts.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

using namespace std::string_literals;

using Tokens = std::vector<std::wstring>;

struct Case {
  Tokens tokens;
  ItemTexts items;
};

// Parses tokens in which braces are ordinary characters.
void ExpectItems(const std::vector<Case>& cases) {
  for (const Case& one : cases) {
    Tokens tokens = one.tokens;
    EXPECT_EQ(TextsOf(ParseParamItems(tokens, false)), one.items)
        << testing::PrintToString(one.tokens);
  }
}

// The same, with the braces at the ends of tokens removed.
void ExpectItemsWithoutBraces(const std::vector<Case>& cases) {
  for (const Case& one : cases) {
    Tokens tokens = one.tokens;
    EXPECT_EQ(TextsOf(ParseParamItems(tokens, true)), one.items)
        << testing::PrintToString(one.tokens);
  }
}

TEST(ParseParamItems, KnowsSixForms) {
  ExpectItems({
      {{L"GRADE=60,A"}, {{L"GRADE", L"60 A"}}},
      {{L"LEN:a=1,b=2"}, {{L"LEN", L"a=1 b=2"}}},
      {{L"KIND", L"red", L"green;"}, {{L"KIND", L" red green"}}},
      {{L"NOTE", L"x=1", L"y=2"}, {{L"NOTE", L" x=1 y=2"}}},
      {{L"TAIL"}, {{L"TAIL", L""}}},
      {{L"A=1=2"}, {{L"A", L""}}},
  });
}

TEST(ParseParamItems, ReturnsNoItemWithoutAToken) {
  ExpectItems({{{}, {}}, {{L""}, {}}, {{L" \t\n", L"\u00A0"}, {}}});
}

TEST(ParseParamItems, TakesEachTokenWithAnEqualsSignAsAWholeItem) {
  ExpectItems({
      {{L"A=1", L"B=2"}, {{L"A", L"1"}, {L"B", L"2"}}},
      {{L"T:a=1,b=2", L"U=3"}, {{L"T", L"a=1 b=2"}, {L"U", L"3"}}},
      {{L"A=1", L"A=1"}, {{L"A", L"1"}, {L"A", L"1"}}},
  });
}

TEST(ParseParamItems, SplitsAWholeItemAtAColonBeforeAnEqualsSign) {
  ExpectItems({
      {{L"A:b=1"}, {{L"A", L"b=1"}}},
      {{L"A=1:2"}, {{L"A=1", L"2"}}},
      {{L"A:=1"}, {{L"A", L"=1"}}},
      {{L"A=:"}, {{L"A=", L""}}},
      {{L"A:b=1=2"}, {{L"A", L"b=1=2"}}},
  });
}

TEST(ParseParamItems, ReadsNoValuesFromAWholeItemUnlessItHasExactlyTwoPieces) {
  ExpectItems({
      {{L"A:b:c=1"}, {{L"A", L""}}},
      {{L"A=1=2=3"}, {{L"A", L""}}},
      {{L"A==1"}, {{L"A", L""}}},
      {{L"A::b=1"}, {{L"A", L""}}},
  });
}

TEST(ParseParamItems, KeepsEmptyPiecesOfAWholeItem) {
  ExpectItems({
      {{L"A="}, {{L"A", L""}}},
      {{L"=5"}, {{L"", L"5"}}},
      {{L"="}, {{L"", L""}}},
      {{L":="}, {{L"", L"="}}},
  });
}

TEST(ParseParamItems, PutsABlankForEveryCommaOfTheValuesAndForNoneOfTheId) {
  ExpectItems({
      {{L"A=,"}, {{L"A", L" "}}},
      {{L"A=1,"}, {{L"A", L"1 "}}},
      {{L"A=,1,,2"}, {{L"A", L" 1  2"}}},
      {{L"A,B=1,2"}, {{L"A,B", L"1 2"}}},
      {{L"A=1,2;3"}, {{L"A", L"1 2;3"}}},
  });
}

TEST(ParseParamItems, LeavesCommasOfPlainAndNamedWords) {
  ExpectItems({
      {{L"P", L"q,r"}, {{L"P", L" q,r"}}},
      {{L"P", L"x=1,2"}, {{L"P", L" x=1,2"}}},
  });
}

TEST(ParseParamItems, TakesATokenWithoutAnEqualsSignAsANameWhateverElseItHolds) {
  ExpectItems({
      {{L"LEN:a", L"b"}, {{L"LEN:a", L" b"}}},
      {{L"W10;", L"b"}, {{L"W10;", L" b"}}},
      {{L"a;b;c"}, {{L"a;b;c", L""}}},
      {{L"a,b"}, {{L"a,b", L""}}},
      {{L"a＝b"}, {{L"a＝b", L""}}},
  });
}

TEST(ParseParamItems, DecidesBetweenPlainAndNamedByTheFirstTokenAfterTheName) {
  ExpectItems({
      {{L"P", L"q", L"x=1", L"y=1=2"}, {{L"P", L" q x=1 y=1=2"}}},
      {{L"P", L"x=1", L"q"}, {{L"P", L" x=1"}, {L"q", L""}}},
      {{L"P", L"q;x=1"}, {{L"P", L" q;x=1"}}},
  });
}

TEST(ParseParamItems, DecidesAfreshForEachItem) {
  ExpectItems({
      {{L"N", L"x=1", L"M", L"y"}, {{L"N", L" x=1"}, {L"M", L" y"}}},
      {{L"N", L"x=1", L"M", L"y=1"}, {{L"N", L" x=1"}, {L"M", L" y=1"}}},
      {{L"P", L"q;", L"N", L"x=1", L"M"}, {{L"P", L" q"}, {L"N", L" x=1"}, {L"M", L""}}},
      {{L"P", L"q;r", L"x=1"}, {{L"P", L" q"}, {L"r", L" x=1"}}},
  });
}

TEST(ParseParamItems, EndsAPlainItemAtASemicolonAndReadsTheRestOfTheTokenAgain) {
  ExpectItems({
      {{L"P", L"q", L"r;s=1"}, {{L"P", L" q r"}, {L"s", L"1"}}},
      {{L"P", L"r;s", L"t"}, {{L"P", L" r"}, {L"s", L" t"}}},
      {{L"P", L"r;s", L"t", L"u;v=1"}, {{L"P", L" r"}, {L"s", L" t u"}, {L"v", L"1"}}},
      {{L"P", L"q;", L"R", L"s;"}, {{L"P", L" q"}, {L"R", L" s"}}},
      {{L"P", L"q;", L"R=1"}, {{L"P", L" q"}, {L"R", L"1"}}},
      {{L"P", L"q", L"x;y=1", L"z"}, {{L"P", L" q x"}, {L"y", L"1"}, {L"z", L""}}},
  });
}

TEST(ParseParamItems, TakesTheRestOfASplitTokenAsANameOrAWholeItemWithItsSemicolons) {
  ExpectItems({
      {{L"P", L"q;;r"}, {{L"P", L" q"}, {L";r", L""}}},
      {{L"P", L"q;r;s", L"t"}, {{L"P", L" q"}, {L"r;s", L" t"}}},
      {{L"P", L"o", L"q;r;s=1"}, {{L"P", L" o q"}, {L"r;s", L"1"}}},
      {{L"P", L";;"}, {{L"P", L" "}, {L";", L""}}},
  });
}

TEST(ParseParamItems, AddsABlankEvenForAnEmptyWord) {
  ExpectItems({
      {{L"P", L";"}, {{L"P", L" "}}},
      {{L"P", L"q", L";", L"r"}, {{L"P", L" q "}, {L"r", L""}}},
  });
}

TEST(ParseParamItems, MeasuresTheWordThatItCutsOffAfterTrimming) {
  ExpectItems({{{L"P", L"r\t;s"}, {{L"P", L" r"}, {L";s", L""}}}});
}

TEST(ParseParamItems, EndsANamedItemAtAWordWithoutExactlyOneEqualsSignAndReadsItAgain) {
  ExpectItems({
      {{L"NOTE", L"x=1", L"y=2", L"z"}, {{L"NOTE", L" x=1 y=2"}, {L"z", L""}}},
      {{L"NOTE", L"x=1", L"z", L"w"}, {{L"NOTE", L" x=1"}, {L"z", L" w"}}},
      {{L"NOTE", L"x=1", L"a=1=2", L"b=3"}, {{L"NOTE", L" x=1"}, {L"a", L""}, {L"b", L"3"}}},
      {{L"NOTE", L"x=1", L"a:b==2"}, {{L"NOTE", L" x=1"}, {L"a", L"b==2"}}},
      {{L"NOTE", L"a=1=2"}, {{L"NOTE", L""}, {L"a", L""}}},
  });
}

TEST(ParseParamItems, KeepsSemicolonsAndColonsOfNamedWords) {
  ExpectItems({
      {{L"NOTE", L"x=1;", L"y=2;"}, {{L"NOTE", L" x=1; y=2;"}}},
      {{L"NOTE", L"x:1=2"}, {{L"NOTE", L" x:1=2"}}},
      {{L"NOTE", L"=", L"x=", L"=y"}, {{L"NOTE", L" = x= =y"}}},
  });
}

TEST(ParseParamItems, ClosesAnOpenItemAtTheLastToken) {
  ExpectItems({
      {{L"P", L"q"}, {{L"P", L" q"}}},
      {{L"P", L"q;s"}, {{L"P", L" q"}, {L"s", L""}}},
      {{L"N", L"x=1", L"s"}, {{L"N", L" x=1"}, {L"s", L""}}},
  });
}

TEST(ParseParamItems, LosesAnOpenItemFollowedByAnEmptyLastToken) {
  ExpectItems({
      {{L"P", L""}, {}},
      {{L"P", L"q", L" \t"}, {}},
      {{L"A=1", L"N", L"x=1", L""}, {{L"A", L"1"}}},
  });
}

TEST(ParseParamItems, PassesOverEmptyTokensInBetween) {
  ExpectItems({
      {{L"", L"P", L"", L"q"}, {{L"P", L" q"}}},
      {{L"N", L"x=1", L"\t", L"y=2"}, {{L"N", L" x=1 y=2"}}},
  });
}

TEST(ParseParamItems, TrimsTokensAndThePiecesOfWholeItems) {
  ExpectItems({
      {{L"\tTAIL\n"}, {{L"TAIL", L""}}},
      {{L" A = 1 "}, {{L"A", L"1"}}},
      {{L"A\t:\u00A0b = 1 , c\u3000"}, {{L"A", L"b = 1   c"}}},
      {{L"P", L"\tq "}, {{L"P", L" q"}}},
      {{L"N", L" x\t=1\t"}, {{L"N", L" x\t=1"}}},
  });
}

TEST(ParseParamItems, TakesBracesAsOrdinaryCharactersUnlessToldToStripThem) {
  ExpectItems({
      {{L"{A}"}, {{L"{A}", L""}}},
      {{L"{A=1}"}, {{L"{A", L"1}"}}},
      {{L"P", L"{", L"}"}, {{L"P", L" { }"}}},
  });
}

TEST(ParseParamItems, StripsBracesFromTheEndsOfEachToken) {
  ExpectItemsWithoutBraces({
      {{L"W10", L"{GRADE=60", L"LEN=2}"}, {{L"W10", L" GRADE=60 LEN=2"}}},
      {{L"{{A=1}}"}, {{L"A", L"1"}}},
      {{L"}A{"}, {{L"A", L""}}},
      {{L"A}{B"}, {{L"A}{B", L""}}},
      {{L"{A}=1"}, {{L"A}", L"1"}}},
      {{L"A={1}"}, {{L"A", L"{1"}}},
  });
}

TEST(ParseParamItems, LosesAnOpenItemFollowedByBracesAlone) {
  ExpectItemsWithoutBraces({
      {{L"W10", L"{", L"GRADE=60", L"LEN=2", L"}"}, {}},
      {{L"W10", L"{", L"red", L"}"}, {}},
      {{L"W10", L"{}"}, {}},
      {{L"A=1", L"W10", L"}}{{"}, {{L"A", L"1"}}},
  });
}

TEST(ParseParamItems, LosesNoItemToBracesAloneOnceTheItemIsComplete) {
  ExpectItemsWithoutBraces({
      {{L"{", L"A=1", L"}"}, {{L"A", L"1"}}},
      {{L"P", L"q;", L"}"}, {{L"P", L" q"}}},
      {{L"P", L"{", L"q", L"}", L"r"}, {{L"P", L" q r"}}},
  });
}

TEST(ParseParamItems, StripsBracesBeforeWhiteSpaceAndEachOnce) {
  Tokens tokens = {L"{\tA\t}", L"{\t{B"};
  ParseParamItems(tokens, true);
  EXPECT_EQ(tokens, (Tokens{L"A", L"{B"}));
}

TEST(ParseParamItems, StripsATokenAnewWhenItIsReadAgain) {
  ExpectItemsWithoutBraces({
      {{L"N", L"x=1", L"{\t{M", L"y"}, {{L"N", L" x=1"}, {L"M", L" y"}}},
      {{L"P", L"q;{R}", L"s"}, {{L"P", L" q"}, {L"R", L" s"}}},
      {{L"N", L"x=1", L"{\t{\t}"}, {{L"N", L" x=1"}}},
      {{L"P", L"q;{}"}, {{L"P", L" q"}}},
  });
}

TEST(ParseParamItems, LeavesTheTokensAsItReadThemLast) {
  Tokens plain = {L" W10 ", L"{P", L"r;s=1}", L"q;", L"t"};
  ParseParamItems(plain, true);
  EXPECT_EQ(plain, (Tokens{L"W10", L"P", L"s=1", L"q;", L"t"}));
  Tokens cut = {L"P", L"q;"};
  ParseParamItems(cut, false);
  EXPECT_EQ(cut, (Tokens{L"P", L""}));
}

TEST(ParseParamItems, KeepsCharactersOfAnyKind) {
  ExpectItems({
      {{L"Марка=Б,В"}, {{L"Марка", L"Б В"}}},
      {{L"A=\U0001F6AA"}, {{L"A", L"\U0001F6AA"}}},
      {{L"A\0B=1\0,2"s}, {{L"A\0B"s, L"1\0 2"s}}},
      {{L"\0"s}, {{L"\0"s, L""}}},
  });
}

TEST(ParseParamItems, TakesTokensOfMillionsOfCharacters) {
  constexpr std::size_t size = 1'000'000;
  const std::wstring word(size, L'w');
  ExpectItems({
      {{L"A=" + word}, {{L"A", word}}},
      {{L"A=" + std::wstring(size, L',')}, {{L"A", std::wstring(size, L' ')}}},
      {{L"A" + std::wstring(size, L'=')}, {{L"A", L""}}},
      {{L"P", word + L";" + word}, {{L"P", L" " + word}, {word, L""}}},
      {{L"P", std::wstring(size, L';')}, {{L"P", L" "}, {std::wstring(size - 1, L';'), L""}}},
  });
}

TEST(ParseParamItems, TakesAHundredThousandTokens) {
  constexpr std::size_t size = 100'000;
  Tokens plain(size, L"q");
  const ItemTexts one = TextsOf(ParseParamItems(plain, false));
  ASSERT_EQ(one.size(), 1u);
  EXPECT_EQ(one[0].second.size(), 2 * (size - 1));
  Tokens whole(size, L"A=1");
  EXPECT_EQ(ParseParamItems(whole, false).size(), size);
  Tokens cut(size, L"q;r");
  EXPECT_EQ(ParseParamItems(cut, false).size(), size);
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
