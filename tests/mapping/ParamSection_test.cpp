#include "mapping/ParamSection.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "base/Text.h"
#include "support/ItemTexts.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

using namespace std::string_literals;

using Texts = std::vector<std::wstring>;

Texts Statements(std::wstring_view text) {
  const std::vector<std::wstring_view> statements = SplitStatements(text);
  return Texts(statements.begin(), statements.end());
}

ParamSection Parsed(std::wstring_view text) {
  ParamSection section;
  ParseParamSection(section, text);
  return section;
}

Texts CodesOf(const ParamSection& section) {
  Texts codes;
  for (const ParamRecord& record : section.records) codes.push_back(record.code);
  return codes;
}

// Expects that the statement makes one record.
void ExpectRecord(std::wstring_view statement, const std::wstring& code, const ItemTexts& items) {
  const ParamSection section = Parsed(statement);
  ASSERT_EQ(section.records.size(), 1u) << std::wstring(statement);
  EXPECT_EQ(section.records[0].code, code) << std::wstring(statement);
  EXPECT_EQ(TextsOf(section.records[0].itemLists), std::vector<ItemTexts>{items})
      << std::wstring(statement);
}

TEST(SplitStatements, SplitsAtSemicolonsUnlessThereAreMoreLines) {
  struct Case {
    const wchar_t* text;
    Texts statements;
  };
  const Case cases[] = {
      {L"a", {L"a"}},
      {L"a;b", {L"a", L"b"}},
      {L"a\nb", {L"a", L"b"}},
      {L"a;\nb", {L"a", L"b"}},
      {L"a;b\nc", {L"a", L"b\nc"}},
      {L"a\nb;c\nd;e", {L"a\nb", L"c\nd", L"e"}},
      {L"a\nb\nc;d", {L"a", L"b", L"c;d"}},
      {L"a\nb\nc\nd;e;", {L"a", L"b", L"c", L"d;e;"}},
      {L"a;;;\nb\nc", {L"a", L"", L"", L"b\nc"}},
  };
  for (const Case& one : cases) EXPECT_EQ(Statements(one.text), one.statements) << one.text;
}

TEST(SplitStatements, SplitsLinesThatEndInSemicolonsAtTheSemicolons) {
  EXPECT_EQ(Statements(L"a;\nb;\nc;"), (Texts{L"a", L"b", L"c", L""}));
}

TEST(SplitStatements, CountsTheSemicolonsOfCommentsToo) {
  EXPECT_EQ(Statements(L"/ one; two; three\na\nb"), (Texts{L"/ one", L"two", L"three\na\nb"}));
}

TEST(SplitStatements, KeepsEmptyPieces) {
  EXPECT_EQ(Statements(L""), (Texts{L""}));
  EXPECT_EQ(Statements(L";"), (Texts{L"", L""}));
  EXPECT_EQ(Statements(L"\n\n"), (Texts{L"", L"", L""}));
  EXPECT_EQ(Statements(L"a\n \nb\n"), (Texts{L"a", L"", L"b", L""}));
}

TEST(SplitStatements, TrimsThePieces) {
  EXPECT_EQ(Statements(L" a\t\r\n\u00A0b \r\n"), (Texts{L"a", L"b", L""}));
}

TEST(SplitStatements, TakesNoOtherLineEndAsALineFeed) {
  EXPECT_EQ(Statements(L"a\rb\vc\u2028d"), (Texts{L"a\rb\vc\u2028d"}));
}

TEST(SplitStatements, SplitsAtAMillionSeparators) {
  constexpr std::size_t size = 1'000'000;
  EXPECT_EQ(Statements(std::wstring(size, L'\n')).size(), size + 1);
  EXPECT_EQ(Statements(std::wstring(size, L';')).size(), size + 1);
}

TEST(ParseParamSection, MakesNoRecordOutOfAnEmptyText) {
  EXPECT_TRUE(Parsed(L"").records.empty());
  EXPECT_TRUE(Parsed(L" \n\t;;\n").records.empty());
}

TEST(ParseParamSection, TakesTheFirstTokenAsTheCodeAndAsTheFirstItem) {
  ExpectRecord(L"W10", L"W10", {{L"W10", L""}});
  ExpectRecord(L"W10 red green", L"W10", {{L"W10", L" red green"}});
  ExpectRecord(L"W10 x=1", L"W10", {{L"W10", L" x=1"}});
}

TEST(ParseParamSection, TakesAFirstTokenWithAnEqualsSignAsTheCodeAndAsAWholeItem) {
  ExpectRecord(L"A=1 B=2", L"A=1", {{L"A", L"1"}, {L"B", L"2"}});
  ExpectRecord(L"T:a=1,b=2 U=3", L"T:a=1,b=2", {{L"T", L"a=1 b=2"}, {L"U", L"3"}});
}

TEST(ParseParamSection, StripsBracesThatTouchATokenAndClosesTheItem) {
  ExpectRecord(L"W10 {GRADE=60 LEN=2}", L"W10", {{L"W10", L" GRADE=60 LEN=2"}});
}

TEST(ParseParamSection, LosesTheItemThatEndsInABraceOfItsOwn) {
  ExpectRecord(L"W10 { GRADE=60 LEN=2 }", L"W10", {});
}

TEST(ParseParamSection, MakesARecordWithoutACodeOutOfABraceAlone) {
  ExpectRecord(L"{", L"", {});
  ExpectRecord(L"{ A=1", L"", {{L"A", L"1"}});
}

TEST(ParseParamSection, TakesTheCodeAsTheItemsLeftItsToken) {
  ExpectRecord(L"{W10} red", L"W10", {{L"W10", L" red"}});
  ExpectRecord(L"{\tW10\t} red", L"W10", {{L"W10", L" red"}});
  ExpectRecord(L"{\t{W10 red", L"{W10", {{L"{W10", L" red"}});
}

TEST(ParseParamSection, ReadsTheRestOfATokenAfterASemicolonAgain) {
  const ParamSection section = Parsed(L"P q r;s=1\nQ\nR");
  ASSERT_EQ(section.records.size(), 3u);
  EXPECT_EQ(section.records[0].code, L"P");
  EXPECT_EQ(TextsOf(section.records[0].itemLists),
            (std::vector<ItemTexts>{{{L"P", L" q r"}, {L"s", L"1"}}}));
}

TEST(ParseParamSection, SplitsTheSameStatementAtItsSemicolonIfThereAreNoMoreLines) {
  const ParamSection section = Parsed(L"P q r;s=1");
  ASSERT_EQ(section.records.size(), 2u);
  EXPECT_EQ(TextsOf(section.records[0].itemLists), (std::vector<ItemTexts>{{{L"P", L" q r"}}}));
  EXPECT_EQ(section.records[1].code, L"s=1");
}

TEST(ParseParamSection, TakesALineFeedInAStatementAsPartOfItsToken) {
  ExpectRecord(L"A x\ny z;", L"A", {{L"A", L" x\ny z"}});
}

TEST(ParseParamSection, SkipsStatementsThatBeginWithACommentMark) {
  for (const wchar_t* text : {L"/ comment", L"! comment", L"@ comment", L"/", L"!", L"@", L"//A",
                              L"@W10 {A=1}", L"  / indented"}) {
    EXPECT_TRUE(Parsed(text).records.empty()) << text;
  }
}

TEST(ParseParamSection, KnowsACommentMarkOnlyAsTheFirstCharacter) {
  ExpectRecord(L"A / !b", L"A", {{L"A", L" / !b"}});
  ExpectRecord(L"{/", L"/", {{L"/", L""}});
  ExpectRecord(L"$ Z99", L"$", {{L"$", L" Z99"}});
}

TEST(ParseParamSection, SkipsADomainListAndLeavesDomenIds) {
  ParamSection section = Parsed(L"@@(D1 D2)");
  EXPECT_TRUE(section.records.empty());
  EXPECT_TRUE(section.domenIds.empty());
  section.domenIds = {L"D3"};
  ParseParamSection(section, L"@@(D1 D2)\nW10");
  EXPECT_EQ(section.domenIds, (Texts{L"D3"}));
}

TEST(ParseParamSection, SeparatesTokensAtBlanksAlone) {
  ExpectRecord(L"W10   red    green", L"W10", {{L"W10", L" red green"}});
  ExpectRecord(L"W10\tred A=1", L"W10\tred", {{L"W10\tred", L" A=1"}});
  ExpectRecord(L"W10\u00A0red", L"W10\u00A0red", {{L"W10\u00A0red", L""}});
  ExpectRecord(L"W10 \t red", L"W10", {{L"W10", L" red"}});
}

TEST(ParseParamSection, KeepsTheRecordsInTheOrderOfTheStatements) {
  EXPECT_EQ(CodesOf(Parsed(L"B one\nA two three\nB\n! C\nД")), (Texts{L"B", L"A", L"B", L"Д"}));
}

TEST(ParseParamSection, ReplacesTheRecordsOfAnEarlierSection) {
  ParamSection section = Parsed(L"A\nB");
  ParseParamSection(section, L"C");
  EXPECT_EQ(CodesOf(section), (Texts{L"C"}));
  ParseParamSection(section, L"");
  EXPECT_TRUE(section.records.empty());
}

TEST(ParseParamSection, KeepsCharactersOfAnyKind) {
  ExpectRecord(L"К\0од x\0=1"s, L"К\0од"s, {{L"К\0од"s, L" x\0=1"s}});
  ExpectRecord(L"\U0001F6AA \U0001F6AA", L"\U0001F6AA", {{L"\U0001F6AA", L" \U0001F6AA"}});
  ExpectRecord(L"\uFEFFA", L"\uFEFFA", {{L"\uFEFFA", L""}});
}

TEST(ParseParamSection, TakesALineOfFiveMillionCharacters) {
  const std::wstring word(5'000'000, L'w');
  ExpectRecord(L"A " + word, L"A", {{L"A", L" " + word}});
}

TEST(ParseParamSection, TakesAMillionEmptyStatements) {
  EXPECT_TRUE(Parsed(std::wstring(1'000'000, L';')).records.empty());
}

TEST(FindItemLists, ReturnsTheListsOfTheFirstRecordOfTheCode) {
  const ParamSection section = Parsed(L"A one\nB\nA two");
  EXPECT_EQ(section.records.size(), 3u);
  EXPECT_EQ(TextsOf(FindItemLists(section, L"A")), (std::vector<ItemTexts>{{{L"A", L" one"}}}));
}

TEST(FindItemLists, ReturnsNothingForAnUnknownCode) {
  const ParamSection section = Parsed(L"W10 red");
  for (const wchar_t* code : {L"W1", L"W100", L"w10", L" W10", L"W10 "}) {
    EXPECT_TRUE(FindItemLists(section, code).empty()) << code;
  }
  EXPECT_TRUE(FindItemLists(section, L"W10\0"s).empty());
  EXPECT_TRUE(FindItemLists(ParamSection(), L"W10").empty());
}

TEST(FindItemLists, ReturnsNothingForAnEmptyCodeThoughARecordMayHaveIt) {
  const ParamSection section = Parsed(L"{ A=1");
  ASSERT_EQ(section.records.at(0).code, L"");
  EXPECT_TRUE(FindItemLists(section, L"").empty());
}

TEST(FindItemLists, ReturnsAllListsOfARecordEmptyOnesIncluded) {
  ParamSection section;
  section.records.push_back({L"A", {{{L"1", L"P"}}, {}, {{L"2", L"Q"}, {L"3", L"R"}}}});
  EXPECT_EQ(TextsOf(FindItemLists(section, L"A")),
            (std::vector<ItemTexts>{{{L"P", L"1"}}, {}, {{L"Q", L"2"}, {L"R", L"3"}}}));
}

TEST(GetPropertyIds, ReturnsEachIdOfTheFirstRecordOnceInTheOrderOfCodeUnits) {
  const ParamSection section = Parsed(L"b=1 C=2 a=3 C=4 ab=5 Ж=6 a=7 a0=8\nb=1 Z=9");
  EXPECT_EQ(GetPropertyIds(section, L"b=1"), (Texts{L"C", L"a", L"a0", L"ab", L"b", L"Ж"}));
}

TEST(GetPropertyIds, GathersTheIdsOfAllLists) {
  ParamSection section;
  section.records.push_back({L"A", {{{L"", L"Q"}}, {}, {{L"", L"P"}, {L"", L"Q"}, {L"", L""}}}});
  EXPECT_EQ(GetPropertyIds(section, L"A"), (Texts{L"", L"P", L"Q"}));
}

TEST(GetPropertyIds, ReturnsNothingForAnEmptyOrUnknownCode) {
  const ParamSection section = Parsed(L"{ A=1\nW10 red");
  for (const wchar_t* code : {L"", L"w10", L"W1"}) {
    EXPECT_TRUE(GetPropertyIds(section, code).empty()) << code;
  }
  EXPECT_TRUE(GetPropertyIds(Parsed(L"W10 {"), L"W10").empty());
}

TEST(ParamSection, SharesNothingWithItsCopy) {
  ParamSection section = Parsed(L"B red\nA green");
  const ParamSection copy = section;
  ParseParamSection(section, L"C");
  EXPECT_EQ(CodesOf(copy), (Texts{L"B", L"A"}));
  EXPECT_EQ(TextsOf(FindItemLists(copy, L"A")), (std::vector<ItemTexts>{{{L"A", L" green"}}}));
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
