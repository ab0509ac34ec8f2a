#include "mapping/MapTextSection.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "classificator/Classificator.h"
#include "support/GlobalLocale.h"
#include "support/ItemTexts.h"
#include "support/MapTextByHand.h"
#include "support/TempFolder.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

using namespace std::string_literals;

using Texts = std::vector<std::wstring>;
using Lists = std::vector<ItemTexts>;

MapTextSection Parsed(std::wstring_view text) {
  MapTextSection section;
  ParseMapTextSection(section, text);
  return section;
}

Texts PatternsOf(const MapTextSection& section) {
  Texts patterns;
  for (const MapTextRecord& record : section.records) patterns.emplace_back(record.text);
  return patterns;
}

// Adds lines, so that a section is split at lines in spite of a few semicolons.
std::wstring CutAtLines(std::wstring_view text) {
  return std::wstring(text) + L"\n!\n!\n!\n!\n!\n!";
}

// Checks what the pattern line under a header gets from it.
void ExpectHeader(std::wstring_view lines, const std::wstring& code, const Lists& lists) {
  const MapTextSection section = Parsed(CutAtLines(std::wstring(lines) + L"\nwall"));
  ASSERT_FALSE(section.records.empty()) << std::wstring(lines);
  EXPECT_EQ(section.records[section.records.size() - 1].text, L"wall") << std::wstring(lines);
  EXPECT_EQ(section.records[section.records.size() - 1].code, code) << std::wstring(lines);
  EXPECT_EQ(ItemsOf(section.records[section.records.size() - 1]), lists) << std::wstring(lines);
}

TEST(ParseMapTextSection, ReadsAWholeSection) {
  const MapTextSection section = Parsed(
      L"@@ (D1 D2)\n"
      L"$ Z99\n"
      L"! walls\n"
      L"@W10 {GRADE=60,A LEN:a=1,b=2}\n"
      L"basic wall\n"
      L"@D20 {KIND red green; NOTE x=1 y=2 z} {TAIL}\n"
      L"door");
  EXPECT_EQ(section.domenIds, (Texts{L"D1", L"D2"}));
  EXPECT_EQ(section.defaultCode, L"Z99");
  ASSERT_EQ(section.records.size(), 2u);
  const MapTextRecord& door = section.records[0];
  EXPECT_EQ(door.code, L"D20");
  EXPECT_EQ(ItemsOf(door), (Lists{{{L"KIND", L" red green"}, {L"NOTE", L" x=1 y=2"}, {L"z", L""}},
                                  {{L"TAIL", L""}}}));
  EXPECT_EQ(door.text, L"door");
  EXPECT_EQ(SplitTokens(door.tokens), (Texts{L"DOOR"}));
  const MapTextRecord& wall = section.records[1];
  EXPECT_EQ(wall.code, L"W10");
  EXPECT_EQ(ItemsOf(wall), (Lists{{{L"GRADE", L"60 A"}, {L"LEN", L"a=1 b=2"}}}));
  EXPECT_EQ(wall.text, L"basic wall");
  EXPECT_EQ(SplitTokens(wall.tokens), (Texts{L"BASIC", L"WALL"}));
}

TEST(ParseMapTextSection, ReadsOnlyTheDefaultCodeFromAnEmptyText) {
  EXPECT_EQ(MapTextSection().defaultCode, L"");
  for (const wchar_t* text : {L"", L"\n \n", L";;", L"! comment\n/ comment"}) {
    const MapTextSection section = Parsed(text);
    EXPECT_EQ(section.defaultCode, L"N00") << text;
    EXPECT_TRUE(section.records.empty()) << text;
    EXPECT_TRUE(section.domenIds.empty()) << text;
  }
}

TEST(ParseMapTextSection, DistinguishesStatementsByTheirPrefix) {
  struct Case {
    const wchar_t* statement;
    Texts patterns;
    const wchar_t* defaultCode;
    Texts domenIds;
  };
  const Case cases[] = {
      {L"/ wall", {}, L"N00", {L"D"}},
      {L"! wall", {}, L"N00", {L"D"}},
      {L"/@@ (A)", {}, L"N00", {L"D"}},
      {L"!$ Z", {}, L"N00", {L"D"}},
      {L"@@ (A)", {}, L"N00", {L"A"}},
      {L"@@$ (A)", {}, L"N00", {L"A"}},
      {L"@@@ (A)", {}, L"N00", {L"A"}},
      {L"@ @ (A)", {}, L"N00", {L"D"}},
      {L"@$ (A)", {}, L"N00", {L"D"}},
      {L"@W10", {}, L"N00", {L"D"}},
      {L"$ Z", {}, L"Z", {L"D"}},
      {L"$@ Z", {}, L"@", {L"D"}},
      {L"wall", {L"wall"}, L"N00", {L"D"}},
      {L"wall / brick", {L"wall / brick"}, L"N00", {L"D"}},
      {L"wall @ $", {L"wall @ $"}, L"N00", {L"D"}},
      {L"{@}", {L"{@}"}, L"N00", {L"D"}},
      {L"(D2)", {L"(D2)"}, L"N00", {L"D"}},
      {L"=wall", {L"=wall"}, L"N00", {L"D"}},
      {L" \t\u00A0@@ (A)", {}, L"N00", {L"A"}},
  };
  for (const Case& one : cases) {
    MapTextSection section;
    section.domenIds = {L"D"};
    ParseMapTextSection(section, one.statement);
    EXPECT_EQ(PatternsOf(section), one.patterns) << one.statement;
    EXPECT_EQ(section.defaultCode, one.defaultCode) << one.statement;
    EXPECT_EQ(section.domenIds, one.domenIds) << one.statement;
  }
}

TEST(ParseMapTextSection, TakesTheDomainIdsBetweenTheFirstBrackets) {
  struct Case {
    const wchar_t* statement;
    Texts ids;
  };
  const Case cases[] = {
      {L"@@(D1 D2)", {L"D1", L"D2"}},
      {L"@@ ( D2  D1 )", {L"D2", L"D1"}},
      {L"@@ domains (D1) and more (D2)", {L"D1"}},
      {L"@@ (a (b) c)", {L"a", L"(b"}},
      {L"@@ (D1 D1)", {L"D1", L"D1"}},
      {L"@@ (D1\tD2)", {L"D1\tD2"}},
      {L"@@ (D1, D2)", {L"D1,", L"D2"}},
      {L"@@ (Стены)", {L"Стены"}},
      {L"@@()", {}},
      {L"@@ ( )", {}},
  };
  for (const Case& one : cases) {
    MapTextSection section;
    section.domenIds = {L"D"};
    ParseMapTextSection(section, one.statement);
    EXPECT_EQ(section.domenIds, one.ids) << one.statement;
  }
}

TEST(ParseMapTextSection, RunsADomainListToTheEndWhenItsBracketClosesBeforeItOpens) {
  MapTextSection section;
  section.domenIds = {L"D"};
  ParseMapTextSection(section, L"@@ )a b(");
  EXPECT_TRUE(section.domenIds.empty());
  ParseMapTextSection(section, L"@@ ) a (b c) d");
  EXPECT_EQ(section.domenIds, (Texts{L"b", L"c)", L"d"}));
}

TEST(ParseMapTextSection, PassesOverADomainListThatLacksABracket) {
  for (const wchar_t* text : {L"@@ no brackets", L"@@", L"@@ (a b", L"@@ a b)", L"@@ {a} [b]"}) {
    MapTextSection section;
    section.domenIds = {L"D"};
    ParseMapTextSection(section, text);
    EXPECT_EQ(section.domenIds, (Texts{L"D"})) << text;
  }
}

TEST(ParseMapTextSection, ReplacesADomainListByTheNextOne) {
  EXPECT_EQ(Parsed(L"@@ (A B)\nwall\n@@ (C)").domenIds, (Texts{L"C"}));
  EXPECT_EQ(Parsed(L"@@ (A B)\n@@ none").domenIds, (Texts{L"A", L"B"}));
  EXPECT_TRUE(Parsed(L"@@ (A B)\n@@()").domenIds.empty());
}

TEST(ParseMapTextSection, TakesTheFirstWordAfterADollarSignAsTheDefaultCode) {
  struct Case {
    const wchar_t* statement;
    const wchar_t* code;
  };
  const Case cases[] = {
      {L"$ Z99", L"Z99"},   {L"$Z99", L"Z99"},        {L"$  Z99  others", L"Z99"},
      {L"$", L""},          {L"$ \t", L""},           {L"$\tZ99", L"Z99"},
      {L"$ Z\t9", L"Z\t9"}, {L"$ Прочее", L"Прочее"}, {L"$$ Z99", L"$"},
      {L"$ {A}", L"{A}"},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(Parsed(one.statement).defaultCode, one.code) << one.statement;
  }
  EXPECT_EQ(Parsed(L"$ A\n$ B").defaultCode, L"B");
}

TEST(ParseMapTextSection, TakesTheFirstWordOfAHeaderAsTheCode) {
  ExpectHeader(L"@W10", L"W10", {});
  ExpectHeader(L"@ W10 further words", L"W10", {});
  ExpectHeader(L"@\t\u00A0W10", L"W10", {});
  ExpectHeader(L"@W\t10 x", L"W\t10", {});
  ExpectHeader(L"@Стена-1", L"Стена-1", {});
  ExpectHeader(L"@/W10", L"/W10", {});
}

TEST(ParseMapTextSection, ReadsOneListFromEachBlockOfAHeader) {
  ExpectHeader(L"@W10 {A=1}", L"W10", {{{L"A", L"1"}}});
  ExpectHeader(L"@W10 {A=1 B=2} {C=3}", L"W10", {{{L"A", L"1"}, {L"B", L"2"}}, {{L"C", L"3"}}});
  ExpectHeader(L"@W10{A=1}{B=2}", L"W10", {{{L"A", L"1"}}, {{L"B", L"2"}}});
  ExpectHeader(L"@W10 {KIND red; X=1}", L"W10", {{{L"KIND", L" red"}, {L"X", L"1"}}});
}

TEST(ParseMapTextSection, ReadsAnEmptyListFromAnEmptyBlock) {
  ExpectHeader(L"@W10 {}", L"W10", {{}});
  ExpectHeader(L"@W10 { } {A=1} {}", L"W10", {{}, {{L"A", L"1"}}, {}});
}

TEST(ParseMapTextSection, IgnoresWhatIsBetweenAndAfterTheBlocks) {
  ExpectHeader(L"@W10 {A=1} junk {B=2}", L"W10", {{{L"A", L"1"}}, {{L"B", L"2"}}});
  ExpectHeader(L"@W10 {A=1} } {B=2} junk", L"W10", {{{L"A", L"1"}}, {{L"B", L"2"}}});
}

TEST(ParseMapTextSection, OpensNoBlockThatIsNotClosed) {
  ExpectHeader(L"@W10 {A=1", L"W10", {});
  ExpectHeader(L"@W10{A=1", L"W10", {});
  ExpectHeader(L"@W10 {A=1} {B=2", L"W10", {{{L"A", L"1"}}});
  ExpectHeader(L"@W10 } {A=1", L"W10", {});
}

TEST(ParseMapTextSection, ClosesABlockAtTheFirstClosingMark) {
  ExpectHeader(L"@W10 {P {B=1} }", L"W10", {{{L"P", L" {B=1"}}});
  ExpectHeader(L"@W10 {{A=1}}", L"W10", {{{L"{A", L"1"}}});
}

TEST(ParseMapTextSection, EndsTheCodeAtTheFirstOpeningMark) {
  ExpectHeader(L"@{A=1} W10", L"", {{{L"A", L"1"}}});
  ExpectHeader(L"@{", L"", {});
  ExpectHeader(L"@W10} x", L"W10}", {});
}

TEST(ParseMapTextSection, ReadsAnEmptyHeaderAsAnEmptyCodeWithoutLists) {
  ExpectHeader(L"@W10 {A=1}\n@", L"", {});
}

TEST(ParseMapTextSection, ReplacesCodeAndListsByTheNextHeader) {
  ExpectHeader(L"@W10 {A=1}\n@W20", L"W20", {});
  ExpectHeader(L"@W10 {A=1}\n@W20 {B=2}", L"W20", {{{L"B", L"2"}}});
}

TEST(ParseMapTextSection, KeepsTheHeaderThroughOtherStatements) {
  ExpectHeader(L"@W10 {A=1}\n! x\n$ Z\n@@ (D)\n@$ [ ]\nroof", L"W10", {{{L"A", L"1"}}});
}

TEST(ParseMapTextSection, AssignsTheListsOfAHeaderToEachOfItsPatternLines) {
  const MapTextSection section = Parsed(L"@W10 {A=1}\nwall\nroof\n@W20 {B=2}\ndoor");
  EXPECT_EQ(ItemsOf(section.records[0]), (Lists{{{L"A", L"1"}}}));
  EXPECT_EQ(ItemsOf(section.records[1]), (Lists{{{L"A", L"1"}}}));
  EXPECT_EQ(ItemsOf(section.records[2]), (Lists{{{L"B", L"2"}}}));
}

TEST(ParseMapTextSection, AssignsNeitherCodeNorListsToPatternLinesAboveAllHeaders) {
  const MapTextSection section = Parsed(L"wall\n@W10 {A=1}\nroof");
  ASSERT_EQ(section.records.size(), 2u);
  EXPECT_EQ(section.records[0].text, L"wall");
  EXPECT_EQ(section.records[0].code, L"");
  EXPECT_TRUE(ReadItemLists(section.records[0]).empty());
  EXPECT_EQ(section.records[1].code, L"W10");
}

TEST(ParseMapTextSection, TakesOtherMarksForTheBlocksAfterThem) {
  ExpectHeader(L"@$ [ ]\n@W10 [A=1]", L"W10", {{{L"A", L"1"}}});
  ExpectHeader(L"@$[ ]\n@W10 [A=1]", L"W10", {{{L"A", L"1"}}});
  ExpectHeader(L"@$   [   ]   ignored\n@W10 [A=1]", L"W10", {{{L"A", L"1"}}});
  ExpectHeader(L"@$ | |\n@W10 |A=1| |B=2| |C", L"W10", {{{L"A", L"1"}}, {{L"B", L"2"}}});
  ExpectHeader(L"@$ [ ]\n@$ < >\n@W10 [A=1] <B=2>", L"W10", {{{L"B", L"2"}}});
}

TEST(ParseMapTextSection, TakesBracesAsOrdinaryCharactersOnceTheMarksDiffer) {
  ExpectHeader(L"@$ [ ]\n@W{10} [{A=1}]", L"W{10}", {{{L"{A", L"1}"}}});
  ExpectHeader(L"@$ [ ]\n@W10 {A=1}", L"W10", {});
}

TEST(ParseMapTextSection, LeavesTheBlocksAboveOtherMarksUnchanged) {
  ExpectHeader(L"@W10 {A=1}\n@$ [ ]", L"W10", {{{L"A", L"1"}}});
}

TEST(ParseMapTextSection, PassesOverMarksThatAreFewerThanTwo) {
  ExpectHeader(L"@$ [\n@W10 {A=1}", L"W10", {{{L"A", L"1"}}});
  ExpectHeader(L"@$\n@W10 {A=1}", L"W10", {{{L"A", L"1"}}});
  ExpectHeader(L"@$ [\t]\n@W10 {A=1}", L"W10", {{{L"A", L"1"}}});
}

TEST(ParseMapTextSection, LeavesAllButTheFirstCharacterOfALongMarkInTheBlock) {
  ExpectHeader(L"@$ [[ ]]\n@W10 [[A=1]]", L"W10", {{{L"[A", L"1"}}});
  ExpectHeader(L"@$ <<< >>>\n@W10 <<<A=1>>><<<B=2>>>", L"W10",
               {{{L"<<A", L"1"}}, {{L"<<B", L"2"}}});
  ExpectHeader(L"@$ begin end\n@W10 begin A=1 end", L"W10", {{{L"egin", L" A=1"}}});
}

TEST(ParseMapTextSection, SearchesForEachMarkAfterTheEndOfThePreviousOne) {
  ExpectHeader(L"@$ || ||\n@W10 |||A=1||", L"W10", {{{L"||A", L"1"}}});
  ExpectHeader(L"@$ ab ba\n@W10 aba A=1 ba", L"W10", {{{L"ba", L" A=1"}}});
  ExpectHeader(L"@$ ab ba\n@W10 ab A=1 bab B=2 ba", L"W10", {{{L"b", L" A=1"}}});
}

TEST(ParseMapTextSection, StartsEverySectionWithBraces) {
  MapTextSection section = Parsed(L"@$ [ ]\n@W10 [A=1]\nwall");
  ParseMapTextSection(section, L"@W20 {B=2}\nroof");
  ASSERT_EQ(section.records.size(), 1u);
  EXPECT_EQ(ItemsOf(section.records[0]), (Lists{{{L"B", L"2"}}}));
}

TEST(ParseMapTextSection, KeepsALineInItsOwnCaseAndItsWordsInCapitals) {
  const MapTextSection section = Parsed(L"  Basic wall ");
  EXPECT_EQ(section.records[0].text, L"Basic wall");
  EXPECT_EQ(SplitTokens(section.records[0].tokens), (Texts{L"BASIC", L"WALL"}));
}

TEST(ParseMapTextSection, SplitsPatternLinesAtEveryBlankAndNowhereElse) {
  struct Case {
    const wchar_t* line;
    Texts tokens;
  };
  const Case cases[] = {
      {L"Wall  basic", {L"WALL", L"", L"BASIC"}},
      {L"wall   basic", {L"WALL", L"", L"", L"BASIC"}},
      {L"wall\tbasic", {L"WALL\tBASIC"}},
      {L"wall \t basic", {L"WALL", L"", L"BASIC"}},
      {L"wall\t basic", {L"WALL", L"BASIC"}},
      {L"wall\u00A0basic \u00A0brick", {L"WALL\u00A0BASIC", L"BRICK"}},
      {L"wall / brick", {L"WALL", L"/", L"BRICK"}},
      {L"wall:brick,{x}", {L"WALL:BRICK,{X}"}},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(SplitTokens(Parsed(one.line).records[0].tokens), one.tokens) << one.line;
  }
}

TEST(ParseMapTextSection, MakesCapitalsByTheGlobalLocaleOfTheMoment) {
  {
    const GlobalLocale locale(UpperOfLatinAndCyrillic);
    EXPECT_EQ(SplitTokens(Parsed(L"стена wall").records[0].tokens), (Texts{L"СТЕНА", L"WALL"}));
  }
  const GlobalLocale locale(UpperOfLatin);
  EXPECT_EQ(SplitTokens(Parsed(L"стена wall").records[0].tokens), (Texts{L"стена", L"WALL"}));
}

TEST(ParseMapTextSection, SplitsALineAfterItIsConvertedToCapitals) {
  const GlobalLocale locale([](wchar_t unit) { return unit == L'_' ? L' ' : unit; });
  const MapTextSection section = Parsed(L"wall_basic");
  EXPECT_EQ(section.records[0].text, L"wall_basic");
  EXPECT_EQ(SplitTokens(section.records[0].tokens), (Texts{L"wall", L"basic"}));
}

TEST(ParseMapTextSection, LeavesCodesAndItemsInTheirOwnCase) {
  ExpectHeader(L"@w10 {grade=a}", L"w10", {{{L"grade", L"a"}}});
}

TEST(ParseMapTextSection, PutsPatternsOfFewerWordsFirst) {
  EXPECT_EQ(PatternsOf(Parsed(L"a b c\na\na b\nb c d e\nb")),
            (Texts{L"a", L"b", L"a b", L"a b c", L"b c d e"}));
}

TEST(ParseMapTextSection, CountsAnEmptyWordAsAWord) {
  EXPECT_EQ(PatternsOf(Parsed(L"wall  basic\na b\na b c")),
            (Texts{L"a b", L"wall  basic", L"a b c"}));
}

TEST(ParseMapTextSection, KeepsTheOrderOfTheFileAmongHundredsOfEqualLength) {
  std::wstring text;
  Texts byLength[3];
  for (std::size_t line = 0; line < 900; ++line) {
    std::wstring pattern = L"n" + std::to_wstring(line);
    for (std::size_t word = 0; word < line % 3; ++word) pattern += L" w";
    text += pattern + L"\n";
    byLength[line % 3].push_back(pattern);
  }
  Texts expected = byLength[0];
  expected.insert(expected.end(), byLength[1].begin(), byLength[1].end());
  expected.insert(expected.end(), byLength[2].begin(), byLength[2].end());
  EXPECT_EQ(PatternsOf(Parsed(text)), expected);
}

TEST(ParseMapTextSection, KeepsCodeAndItemsWithTheirPatternWhenItSorts) {
  const MapTextSection section = Parsed(L"@A {P=1}\na b c\n@B {P=2}\na\n@C\na b");
  ASSERT_EQ(section.records.size(), 3u);
  EXPECT_EQ(section.records[0].code, L"B");
  EXPECT_EQ(ItemsOf(section.records[0]), (Lists{{{L"P", L"2"}}}));
  EXPECT_EQ(SplitTokens(section.records[0].tokens), (Texts{L"A"}));
  EXPECT_EQ(section.records[1].code, L"C");
  EXPECT_EQ(section.records[2].code, L"A");
  EXPECT_EQ(ItemsOf(section.records[2]), (Lists{{{L"P", L"1"}}}));
}

TEST(ParseMapTextSection, KeepsEqualPatternsSideBySide) {
  const MapTextSection section = Parsed(L"@A\nwall\n@B\nwall");
  ASSERT_EQ(section.records.size(), 2u);
  EXPECT_EQ(section.records[0].code, L"A");
  EXPECT_EQ(section.records[1].code, L"B");
}

TEST(ParseMapTextSection, SplitsAHeaderAtItsSemicolonIfThereAreNoMoreLines) {
  const MapTextSection section = Parsed(L"@W10 {KIND red; X=1}\nwall");
  ASSERT_EQ(section.records.size(), 1u);
  EXPECT_EQ(section.records[0].code, L"W10");
  EXPECT_TRUE(ReadItemLists(section.records[0]).empty());
  EXPECT_EQ(section.records[0].text, L"X=1}\nwall");
  EXPECT_EQ(SplitTokens(section.records[0].tokens), (Texts{L"X=1}\nWALL"}));
}

TEST(ParseMapTextSection, ReadsASectionOnOneLineSplitAtSemicolons) {
  const MapTextSection section = Parsed(L"@@(D1); $ Z99; @W10 {A=1}; wall; basic wall");
  EXPECT_EQ(section.domenIds, (Texts{L"D1"}));
  EXPECT_EQ(section.defaultCode, L"Z99");
  EXPECT_EQ(PatternsOf(section), (Texts{L"wall", L"basic wall"}));
  EXPECT_EQ(ItemsOf(section.records[1]), (Lists{{{L"A", L"1"}}}));
}

TEST(ParseMapTextSection, ReplacesRecordsAndDefaultCodeOfAnEarlierSection) {
  MapTextSection section = Parsed(L"@@ (D1)\n$ Z99\n@W10\nwall\nroof");
  ParseMapTextSection(section, L"door");
  EXPECT_EQ(PatternsOf(section), (Texts{L"door"}));
  EXPECT_EQ(section.records[0].code, L"");
  EXPECT_EQ(section.defaultCode, L"N00");
  EXPECT_EQ(section.domenIds, (Texts{L"D1"}));
  ParseMapTextSection(section, L"@@ (D2)");
  EXPECT_TRUE(section.records.empty());
  EXPECT_EQ(section.domenIds, (Texts{L"D2"}));
}

TEST(ParseMapTextSection, KeepsCharactersOfAnyKind) {
  const MapTextSection section = Parsed(L"@W\0\U0001F6AA {A=\0}\nwa\0ll\n\uFEFF@X"s);
  ASSERT_EQ(section.records.size(), 2u);
  EXPECT_EQ(section.records[0].code, L"W\0\U0001F6AA"s);
  EXPECT_EQ(ItemsOf(section.records[0]), (Lists{{{L"A", L"\0"s}}}));
  EXPECT_EQ(SplitTokens(section.records[0].tokens), (Texts{L"WA\0LL"s}));
  EXPECT_EQ(section.records[1].text, L"\uFEFF@X");
}

TEST(ParseMapTextSection, TakesALineOfFiveMillionCharacters) {
  const std::wstring word(5'000'000, L'W');
  const MapTextSection section = Parsed(L"@A\n" + word);
  ASSERT_EQ(section.records.size(), 1u);
  EXPECT_EQ(section.records[0].text, word);
  EXPECT_EQ(SplitTokens(section.records[0].tokens), (Texts{word}));
}

TEST(ParseMapTextSection, TakesALineOfAMillionBlanks) {
  const MapTextSection section = Parsed(L"a" + std::wstring(1'000'000, L' ') + L"b");
  ASSERT_EQ(section.records.size(), 1u);
  EXPECT_EQ(SplitTokens(section.records[0].tokens).size(), 1'000'001u);
}

TEST(ParseMapTextSection, TakesAMillionEmptyStatements) {
  EXPECT_TRUE(Parsed(std::wstring(1'000'000, L'\n')).records.empty());
}

TEST(ParseMapTextSection, TakesAHeaderOfAHundredThousandMarks) {
  constexpr std::size_t size = 100'000;
  std::wstring blocks;
  for (std::size_t i = 0; i < size; ++i) blocks += L"{}";
  EXPECT_EQ(ReadItemLists(Parsed(L"@A " + blocks + L"\nwall").records[0]).size(), size);
  ExpectHeader(L"@A " + std::wstring(size, L'{'), L"A", {});
  ExpectHeader(L"@A " + std::wstring(size, L'{') + L"}", L"A",
               {{{std::wstring(size - 1, L'{'), L""}}});
}

TEST(MapTextSection, SharesNothingWithItsCopy) {
  MapTextSection section = Parsed(L"@@ (D1)\n$ Z99\n@W10 {A=1}\nbasic wall\nwall");
  const MapTextSection copy = section;
  ParseMapTextSection(section, L"@@ (D2)\ndoor");
  EXPECT_EQ(PatternsOf(copy), (Texts{L"wall", L"basic wall"}));
  EXPECT_EQ(ItemsOf(copy.records[1]), (Lists{{{L"A", L"1"}}}));
  EXPECT_EQ(copy.defaultCode, L"Z99");
  EXPECT_EQ(copy.domenIds, (Texts{L"D1"}));
}

TEST(MapTextRecord, OutlivesItsSection) {
  MapTextRecord record;
  {
    const MapTextSection section = Parsed(L"@W10 {A=1}\nwall\nbasic wall");
    record = section.records[1];
  }
  EXPECT_EQ(record.code, L"W10");
  EXPECT_EQ(record.text, L"basic wall");
  EXPECT_EQ(SplitTokens(record.tokens), (Texts{L"BASIC", L"WALL"}));
  EXPECT_EQ(ItemsOf(record), (Lists{{{L"A", L"1"}}}));
}

TEST(MapTextRecord, OutlivesItsSectionAboveAllHeaders) {
  const MapTextRecord record = Parsed(L"wall").records[0];
  EXPECT_EQ(record.code, L"");
  EXPECT_EQ(record.text, L"wall");
  EXPECT_EQ(SplitTokens(record.tokens), (Texts{L"WALL"}));
  EXPECT_EQ(ItemsOf(record), Lists());
}

TEST(MapTextRecord, HasNoItemsWithoutAHeader) {
  EXPECT_TRUE(ReadItemLists(MapTextRecord()).empty());
}

// If the file is nearly all patterns, they keep it; otherwise it has much else.
TEST(MapTextRecord, OutlivesTheClassificatorOfItsFile) {
  const TempFolder folder;
  const std::string section = "==MAPTEXT\n@W10 {A=1}\nbasic wall\n";
  for (const std::string& rest : {std::string(), "==NOTES\n" + std::string(1000, 'x')}) {
    auto classificator = std::make_unique<Classificator>(L"S");
    ASSERT_EQ(classificator->Load(folder.Write("a.txt", section + rest)), 0);
    const MapTextRecord record = classificator->mapTextSection.records[0];
    classificator.reset();
    EXPECT_EQ(record.code, L"W10");
    EXPECT_EQ(record.text, L"basic wall");
    EXPECT_EQ(SplitTokens(record.tokens), (Texts{L"BASIC", L"WALL"}));
    EXPECT_EQ(ItemsOf(record), (Lists{{{L"A", L"1"}}}));
  }
}

// Otherwise a small file of many items and patterns would take memory for their product.
TEST(ParseMapTextSection, SharesTheItemsOfAHeaderAmongItsPatterns) {
  std::wstring text = L"@A {";
  for (int i = 0; i < 20'000; ++i) text += L"P=1 ";
  text += L"}";
  for (int i = 0; i < 2'000; ++i) text += L"\nw";
  MapTextSection section;
  ParseMapTextSection(section, text);
  ASSERT_EQ(section.records.size(), 2'000u);
  EXPECT_EQ(ReadItemLists(section.records[0]).at(0).size(), 20'000u);
  EXPECT_EQ(ReadItemLists(section.records[1'999]).at(0).size(), 20'000u);
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
