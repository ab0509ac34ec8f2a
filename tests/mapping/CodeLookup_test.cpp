#include "mapping/CodeLookup.h"

#include <gtest/gtest.h>

#include <climits>
#include <initializer_list>
#include <locale>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "support/GlobalLocale.h"
#include "support/LoadedScheme.h"
#include "support/MapTextByHand.h"
#include "support/OutOfRange.h"
#include "support/Results.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

using namespace std::string_literals;

using Texts = std::vector<std::wstring>;

// Returns the section of this text.
MapTextSection Read(std::wstring_view text) {
  MapTextSection section;
  ParseMapTextSection(section, text);
  return section;
}

// Returns a section with these records, in this order.
MapTextSection WithRecords(const std::vector<Texts>& records) {
  MapTextSection section;
  std::vector<MapTextRecord> filled;
  for (const Texts& tokens : records) filled.push_back(RecordOf(tokens));
  section.records.Swap(filled);
  return section;
}

int FirstMatch(const MapTextSection& section, std::wstring_view text) {
  int position = 0;
  for (const MapTextRecord& record : section.records) {
    if (Matches(record, text)) return position;
    ++position;
  }
  return noCodeId;
}

TEST(GetClaccificatorCodeId, ReturnsTheFirstPatternWhoseWordsBeginTheWordsOfTheText) {
  struct Case {
    const wchar_t* text;
    int codeId;
  };
  const Case cases[] = {
      {L"Door 2", 0},
      {L"doors", 0},
      {L"BASIC WALLS 200", 1},
      {L"basic wall", 1},
      {L"basic", -1},
      {L"basic wal", -1},
      {L"basic  wall", -1},
      {L"wall basic", -1},
      {L"", -1},
      {L"doo", -1},
      {L"the door", -1},
      {L"door", 0},
      {L"basically walled", 1},
      {L"basicwall", -1},
      {L"do or", -1},
  };
  LoadedScheme scheme("==MAPTEXT\n@W\nbasic wall\n@D\ndoor\n");
  for (const Case& one : cases) {
    EXPECT_EQ(scheme.editor.GetClaccificatorCodeId(one.text), one.codeId) << one.text;
  }
}

TEST(GetClaccificatorCodeId, ReturnsTheGeneralPatternBeforeTheSpecialOne) {
  LoadedScheme scheme("==MAPTEXT\n@O\nwall outer\n@W\nwall\n");
  EXPECT_EQ(scheme.editor.GetClaccificatorCodeId(L"wall outer 1"), 0);
  EXPECT_EQ(Take(scheme.editor.GetClaccificatorCode(0)), L"W");
}

TEST(GetClaccificatorCodeId, ReturnsTheFirstInTheFileAmongPatternsOfEqualLength) {
  LoadedScheme scheme("==MAPTEXT\n@A\nwall\n@B\nwa\n@C\nwall\n");
  EXPECT_EQ(scheme.editor.GetClaccificatorCodeId(L"wall"), 0);
  EXPECT_EQ(scheme.editor.GetClaccificatorCodeId(L"water"), 1);
}

TEST(GetClaccificatorCodeId, IsBlindToTheCaseOfPatternAndText) {
  LoadedScheme scheme("==MAPTEXT\nDOOR\nwindow\nRoof\n");
  for (const wchar_t* text : {L"door", L"DOOR", L"dOOr"}) {
    EXPECT_EQ(scheme.editor.GetClaccificatorCodeId(text), 0) << text;
  }
  EXPECT_EQ(scheme.editor.GetClaccificatorCodeId(L"WINDOW"), 1);
  EXPECT_EQ(scheme.editor.GetClaccificatorCodeId(L"rOOF"), 2);
}

TEST(GetClaccificatorCodeId, SeparatesTheWordsOfTheTextAtBlanksAlone) {
  struct Case {
    const wchar_t* text;
    int codeId;
  };
  const Case cases[] = {
      {L"basic\twall", -1},      {L"basic\nwall", -1},     {L"basic\u00A0wall", -1},
      {L"basic\u3000wall", -1},  {L"basic\t wall", 0},     {L"basic \twall", 0},
      {L"basic \u00A0wall", 0},  {L"basic \t wall", -1},   {L"basic \u00A0 wall", -1},
      {L"basic wall\tbrick", 0}, {L"basic\twall wall", 0},
  };
  LoadedScheme scheme("==MAPTEXT\nbasic wall\n");
  for (const Case& one : cases) {
    EXPECT_EQ(scheme.editor.GetClaccificatorCodeId(one.text), one.codeId) << one.text;
  }
}

TEST(GetClaccificatorCodeId, TakesALeadingBlankAsAnEmptyFirstWordAndATrailingOneAsAnEmptyLast) {
  struct Case {
    const wchar_t* text;
    int codeId;
  };
  const Case cases[] = {
      {L" door", -1}, {L"door ", 0},    {L"door  ", 0},       {L" ", -1},
      {L"\tdoor", 0}, {L"\t door", -1}, {L"\u00A0\ndoor", 0}, {L"door\n", 0},
  };
  LoadedScheme scheme("==MAPTEXT\ndoor\n");
  for (const Case& one : cases) {
    EXPECT_EQ(scheme.editor.GetClaccificatorCodeId(one.text), one.codeId) << one.text;
  }
}

TEST(GetClaccificatorCodeId, FitsAnyWordToTheEmptyWordOfADoubleBlankInThePattern) {
  LoadedScheme scheme("==MAPTEXT\nwall  basic\n");
  EXPECT_EQ(scheme.editor.GetClaccificatorCodeId(L"wall outer basic"), 0);
  EXPECT_EQ(scheme.editor.GetClaccificatorCodeId(L"wall  basic"), 0);
  EXPECT_EQ(scheme.editor.GetClaccificatorCodeId(L"wall basic"), -1);
  EXPECT_EQ(scheme.editor.GetClaccificatorCodeId(L"wall basic basic"), 0);
}

TEST(GetClaccificatorCodeId, KnowsNoWildcards) {
  LoadedScheme scheme("==MAPTEXT\nwall*\n.*\nd?or [a-z]\n");
  for (const wchar_t* text : {L"wall", L"walls", L"roof", L"door x", L""}) {
    EXPECT_EQ(scheme.editor.GetClaccificatorCodeId(text), -1) << text;
  }
  EXPECT_EQ(scheme.editor.GetClaccificatorCodeId(L"WALL*s"), 0);
}

TEST(GetClaccificatorCodeId, ReturnsMinusOneWithoutASection) {
  for (const char* text : {"", "==MAPTEXT\n", "==PARAM\nwall\n"}) {
    LoadedScheme scheme(text);
    EXPECT_EQ(scheme.editor.GetClaccificatorCodeId(L"wall"), -1) << text;
    EXPECT_EQ(scheme.editor.GetClaccificatorCodeId(L""), -1) << text;
  }
}

TEST(GetClaccificatorCodeId, MatchesCyrillicTexts) {
  LoadedScheme scheme("==MAPTEXT\nСТЕНА БАЗОВАЯ\nДВЕРЬ\n");
  EXPECT_EQ(scheme.editor.GetClaccificatorCodeId(L"ДВЕРЬ-1"), 0);
  EXPECT_EQ(scheme.editor.GetClaccificatorCodeId(L"СТЕНА БАЗОВАЯ 200"), 1);
  EXPECT_EQ(scheme.editor.GetClaccificatorCodeId(L"СТЕН БАЗОВАЯ"), -1);
}

TEST(GetClaccificatorCodeId, MatchesCharactersAboveTheBasicPlane) {
  LoadedScheme scheme("==MAPTEXT\n\U0001F6AA a\n");
  EXPECT_EQ(scheme.editor.GetClaccificatorCodeId(L"\U0001F6AA\U0001F6AA A"), 0);
  EXPECT_EQ(scheme.editor.GetClaccificatorCodeId(L"\U0001F6AB a"), -1);
}

TEST(GetClaccificatorCodeId, NeverReachesANulInAPattern) {
  LoadedScheme scheme("==MAPTEXT\ndo\0or\n"s);
  EXPECT_EQ(scheme.editor.GetClaccificatorCodeId(L"do"), -1);
  EXPECT_EQ(scheme.editor.GetClaccificatorCodeId(L"door"), -1);
}

TEST(GetClaccificatorCode, ReturnsTheCodeAtAPositionAfterSorting) {
  LoadedScheme scheme("==MAPTEXT\n$ Z\n@W\nbasic wall\n@D\ndoor\n");
  EXPECT_EQ(Take(scheme.editor.GetClaccificatorCode(0)), L"D");
  EXPECT_EQ(Take(scheme.editor.GetClaccificatorCode(1)), L"W");
}

TEST(GetClaccificatorCode, ReturnsTheDefaultCodeForMinusOne) {
  LoadedScheme own("==MAPTEXT\n$ Z\n@W\nwall\n");
  EXPECT_EQ(Take(own.editor.GetClaccificatorCode(-1)), L"Z");
  LoadedScheme none("==MAPTEXT\n@W\nwall\n");
  EXPECT_EQ(Take(none.editor.GetClaccificatorCode(-1)), L"N00");
}

TEST(GetClaccificatorCode, RaisesForAnyOtherNumberOutsideTheRecords) {
  LoadedScheme scheme("==MAPTEXT\n@W\nwall\nroof\n");
  for (const int codeId : {2, 3, INT_MAX, -2, INT_MIN}) {
    EXPECT_EQ(OutOfRangeOf([&] { scheme.editor.GetClaccificatorCode(codeId); }), badSubscript)
        << codeId;
  }
  EXPECT_EQ(Take(scheme.editor.GetClaccificatorCode(1)), L"W");
}

TEST(GetClaccificatorCode, AcceptsOnlyMinusOneAndReturnsAnEmptyCodeWithoutASection) {
  LoadedScheme scheme("==PARAM\nW10\n");
  EXPECT_EQ(Take(scheme.editor.GetClaccificatorCode(-1)), L"");
  EXPECT_EQ(OutOfRangeOf([&] { scheme.editor.GetClaccificatorCode(0); }), badSubscript);
}

TEST(GetClaccificatorCode, ReturnsAnEmptyCodeAboveAllHeaders) {
  LoadedScheme scheme("==MAPTEXT\nwall\n@D\ndoor\n");
  EXPECT_EQ(Take(scheme.editor.GetClaccificatorCode(0)), L"");
}

TEST(GetClaccificatorCode, EndsACodeAtItsFirstNul) {
  LoadedScheme scheme("==MAPTEXT\n@W\0X\nwall\n"s);
  EXPECT_EQ(Take(scheme.editor.GetClaccificatorCode(0)), L"W");
}

TEST(GetClaccificatorCode, FollowsTheActiveClassificator) {
  LoadedScheme scheme("==MAPTEXT\n$ Z1\n@A\nwall\n");
  const std::wstring other = scheme.folder.Write("other.txt", "==MAPTEXT\n$ Z2\n@B\nroof\nwall\n");
  ASSERT_EQ(scheme.editor.CreateClassificator(L"O", L"", L"", other.c_str()), 0);
  EXPECT_EQ(Take(scheme.editor.GetClaccificatorCode(0)), L"A");
  ASSERT_EQ(scheme.editor.SetActiveClassificator(L"O"), 0);
  EXPECT_EQ(Take(scheme.editor.GetClaccificatorCode(0)), L"B");
  EXPECT_EQ(Take(scheme.editor.GetDefaultClaccificatorCode()), L"Z2");
  EXPECT_EQ(scheme.editor.GetClaccificatorCodeId(L"wall"), 1);
}

TEST(GetDefaultClaccificatorCode, IsEmptyWithoutASectionAndN00WithOneThatSetsNone) {
  LoadedScheme without("==PARAM\nW10\n");
  EXPECT_EQ(Take(without.editor.GetDefaultClaccificatorCode()), L"");
  LoadedScheme with("==MAPTEXT\n");
  EXPECT_EQ(Take(with.editor.GetDefaultClaccificatorCode()), L"N00");
  LoadedScheme own("==MAPTEXT\n$ Прочее\n");
  EXPECT_EQ(Take(own.editor.GetDefaultClaccificatorCode()), L"Прочее");
}

TEST(Matches, ComparesWordsPositionByPosition) {
  struct Case {
    Texts tokens;
    const wchar_t* text;
    bool matches;
  };
  const Case cases[] = {
      {{L"BASIC", L"WALL"}, L"basic wall", true}, {{L"BASIC", L"WALL"}, L"basic walls 2", true},
      {{L"BASIC", L"WALL"}, L"basic", false},     {{L"BASIC", L"WALL"}, L"basic wal l", false},
      {{L"BASIC", L"WALL"}, L"basi wall", false}, {{L"WALL"}, L"basic wall", false},
      {{L"basic", L"Wall"}, L"BASIC wALL", true},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(Matches(RecordOf(one.tokens), one.text), one.matches) << one.text;
  }
}

TEST(Matches, FitsAnyTextToNoTokenAtAll) {
  for (const wchar_t* text : {L"", L" ", L"wall", L"basic wall"}) {
    EXPECT_TRUE(Matches(RecordOf({}), text)) << text;
  }
}

TEST(Matches, FitsAnyWordToAnEmptyTokenButNeedsAWord) {
  EXPECT_TRUE(Matches(RecordOf({L""}), L""));
  EXPECT_TRUE(Matches(RecordOf({L""}), L"wall"));
  EXPECT_TRUE(Matches(RecordOf({L"", L"WALL"}), L"any wall"));
  EXPECT_TRUE(Matches(RecordOf({L"", L"WALL"}), L" wall"));
  EXPECT_FALSE(Matches(RecordOf({L"", L""}), L"wall"));
  EXPECT_TRUE(Matches(RecordOf({L"", L""}), L"wall "));
}

TEST(Matches, DoesNotTrimAToken) {
  for (const wchar_t* token : {L"BASIC\t", L"\tBASIC", L"\t"}) {
    EXPECT_FALSE(Matches(RecordOf({token}), L"basic wall")) << token;
  }
}

TEST(Matches, ComparesNulsLikeAnyUnit) {
  EXPECT_TRUE(Matches(RecordOf({L"A\0B"s}), L"a\0bc"s));
  EXPECT_FALSE(Matches(RecordOf({L"A\0B"s}), L"a"));
  EXPECT_FALSE(Matches(RecordOf({L"A\0B"s}), L"a\0c"s));
}

TEST(FindCodeId, ReturnsTheFirstRecordThatMatchesInWhateverOrderTheyAre) {
  const MapTextSection section =
      WithRecords({{L"BASIC", L"WALL", L"X"}, {L"wall"}, {L"BASIC", L"WALL"}, {L"BASIC"}, {L"W"}});
  EXPECT_EQ(FindCodeId(section, L"basic wall x"), 0);
  EXPECT_EQ(FindCodeId(section, L"basic wall"), 2);
  EXPECT_EQ(FindCodeId(section, L"basic"), 3);
  EXPECT_EQ(FindCodeId(section, L"wall"), 1);
  EXPECT_EQ(FindCodeId(section, L"window"), 4);
  EXPECT_EQ(FindCodeId(section, L"roof"), -1);
}

TEST(FindCodeId, StopsAtARecordWithoutTokens) {
  const MapTextSection section = WithRecords({{L"WALL"}, {}, {L"ROOF"}});
  EXPECT_EQ(FindCodeId(section, L"wall"), 0);
  EXPECT_EQ(FindCodeId(section, L"roof"), 1);
  EXPECT_EQ(FindCodeId(section, L""), 1);
}

TEST(FindCodeId, StopsAtARecordOfEmptyTokensOnceTheTextHasWordsEnough) {
  const MapTextSection section = WithRecords({{L"", L""}, {L"ROOF"}, {L""}});
  EXPECT_EQ(FindCodeId(section, L"roof 1"), 0);
  EXPECT_EQ(FindCodeId(section, L"roof"), 1);
  EXPECT_EQ(FindCodeId(section, L""), 2);
}

TEST(FindCodeId, FindsNothingWithoutRecords) {
  EXPECT_EQ(FindCodeId(MapTextSection(), L"wall"), noCodeId);
  EXPECT_EQ(FindCodeId(MapTextSection(), L""), noCodeId);
}

TEST(FindCodeId, LooksAtTheTokensAndNotAtThePatternsText) {
  MapTextSection section = Read(L"wall");
  EditRecords(section, [](auto& records) { records[0].text = L"roof"; });
  EXPECT_EQ(FindCodeId(section, L"wall"), 0);
  EXPECT_EQ(FindCodeId(section, L"roof"), -1);
}

TEST(FindCodeId, FollowsRecordsThatChangeAfterTheReading) {
  MapTextSection section = Read(L"door\nwall\nroof\nbasic wall");
  EXPECT_EQ(FindCodeId(section, L"wall"), 1);
  EditRecords(section, [](auto& records) { records.erase(records.begin()); });
  EXPECT_EQ(FindCodeId(section, L"wall"), 0);
  EXPECT_EQ(FindCodeId(section, L"door"), -1);
  EditRecords(section, [](auto& records) { std::swap(records[0], records[2]); });
  EXPECT_EQ(FindCodeId(section, L"wall"), 2);
  EditRecords(section, [](auto& records) { records[1].tokens = L"WA"; });
  EXPECT_EQ(FindCodeId(section, L"wall"), 1);
  EditRecords(section, [](auto& records) { records[1].tokens = L"BA"; });
  EXPECT_EQ(FindCodeId(section, L"bark"), 1);
  EditRecords(section, [](auto& records) { records.push_back(RecordOf({L"WINDOW"})); });
  EXPECT_EQ(FindCodeId(section, L"window"), 3);
  EditRecords(section, [](auto& records) { records.clear(); });
  EXPECT_EQ(FindCodeId(section, L"window"), -1);
}

// Records can't be changed in place, so an index never disagrees with their texts.
TEST(FindCodeId, FollowsRecordsThatAreAssigned) {
  MapTextSection section = Read(L"door\nwall");
  EXPECT_EQ(FindCodeId(section, L"wall"), 1);
  section.records = Read(L"wall\ndoor").records;
  EXPECT_EQ(FindCodeId(section, L"wall"), 0);
  section.records = {};
  EXPECT_EQ(FindCodeId(section, L"wall"), -1);
}

TEST(FindCodeId, FollowsASectionThatIsReadAgain) {
  MapTextSection section = Read(L"door\nwall");
  ParseMapTextSection(section, L"wall");
  EXPECT_EQ(FindCodeId(section, L"wall"), 0);
  EXPECT_EQ(FindCodeId(section, L"door"), -1);
}

TEST(FindCodeId, AnswersAlikeInACopyWhateverHappensToItsSource) {
  MapTextSection source = Read(L"door\nwall");
  MapTextSection copy = source;
  source = Read(L"roof");
  EXPECT_EQ(FindCodeId(copy, L"wall"), 1);
  EXPECT_EQ(FindCodeId(copy, L"roof"), -1);
  EXPECT_EQ(FindCodeId(source, L"roof"), 0);
  EXPECT_EQ(FindCodeId(source, L"wall"), -1);
  EditRecords(copy, [](auto& records) { records[0].tokens = L"ROOF"; });
  EXPECT_EQ(FindCodeId(copy, L"roof"), 0);
  copy = source;
  EXPECT_EQ(FindCodeId(copy, L"roof"), 0);
  EXPECT_EQ(FindCodeId(copy, L"wall"), -1);
  const MapTextSection moved = std::move(copy);
  EXPECT_EQ(FindCodeId(moved, L"roof"), 0);
}

TEST(FindCodeId, FoldsPatternAndTextByTheLocaleOfTheLookup) {
  MapTextSection section;
  {
    const GlobalLocale latin(UpperOfLatin);
    section = Read(L"стена");
    EXPECT_EQ(FindCodeId(section, L"стена"), 0);
    EXPECT_EQ(FindCodeId(section, L"Стена"), -1);
  }
  const GlobalLocale cyrillic(UpperOfLatinAndCyrillic);
  EXPECT_EQ(FindCodeId(section, L"Стена"), 0);
  EXPECT_EQ(FindCodeId(section, L"СТЕНА 2"), 0);
}

TEST(FindCodeId, KeepsTheCapitalsThatAPatternGotWhenItWasRead) {
  MapTextSection section;
  {
    const GlobalLocale cyrillic(UpperOfLatinAndCyrillic);
    section = Read(L"стена");
    EXPECT_EQ(FindCodeId(section, L"стена"), 0);
  }
  const GlobalLocale latin(UpperOfLatin);
  EXPECT_EQ(FindCodeId(section, L"стена"), -1);
  EXPECT_EQ(FindCodeId(section, L"СТЕНА"), 0);
}

TEST(FindCodeId, MatchesMoreRecordsWhenTheLocaleFoldsMore) {
  MapTextSection section;
  {
    const GlobalLocale latin(UpperOfLatin);
    section = Read(L"дверь\nДверь\nДВЕРЬ");
    EXPECT_EQ(FindCodeId(section, L"ДВЕРЬ"), 2);
    EXPECT_EQ(FindCodeId(section, L"Дверь"), 1);
  }
  const GlobalLocale cyrillic(UpperOfLatinAndCyrillic);
  EXPECT_EQ(FindCodeId(section, L"ДВЕРЬ"), 0);
  EXPECT_EQ(FindCodeId(section, L"Дверь"), 0);
}

TEST(FindCodeId, FoldsWhatTheLocaleFolds) {
  const GlobalLocale locale(
      [](wchar_t unit) { return unit == L'ё' || unit == L'е' ? L'*' : unit; });
  EXPECT_EQ(FindCodeId(Read(L"ёлка"), L"елка"), 0);
  EXPECT_EQ(FindCodeId(Read(L"ёлка"), L"*лка"), 0);
  EXPECT_EQ(FindCodeId(Read(L"a"), L"A"), -1);
}

TEST(FindCodeId, SplitsTheTextAfterItIsConvertedToCapitals) {
  const GlobalLocale locale([](wchar_t unit) { return unit == L'_' ? L' ' : unit; });
  EXPECT_EQ(FindCodeId(Read(L"basic wall"), L"basic_wall"), 0);
  EXPECT_EQ(FindCodeId(Read(L"basic_wall"), L"basic wall"), 0);
}

// Both sides are folded twice, the pattern when it is read and again at the lookup. This shows if
// the capital of a letter has another capital.
TEST(FindCodeId, FoldsTheTextAsOftenAsThePattern) {
  const GlobalLocale locale([](wchar_t unit) {
    return unit >= L'a' && unit < L'z' ? static_cast<wchar_t>(unit + 1) : unit;
  });
  EXPECT_EQ(FindCodeId(Read(L"abc"), L"abc"), 0);
  EXPECT_TRUE(Matches(Read(L"abc").records[0], L"abcd"));
  EXPECT_EQ(FindCodeId(Read(L"abc"), L"bcd"), -1);
}

TEST(FindCodeId, FoldsTheTextAsOftenAsThePatternInScriptsThatAreRare) {
  const GlobalLocale locale([](wchar_t unit) {
    return unit >= 0x4E00 && unit < 0x4E0F ? static_cast<wchar_t>(unit + 1) : unit;
  });
  const MapTextSection section = Read(L"\x4E00\x4E01\x4E02");
  EXPECT_EQ(FindCodeId(section, L"\x4E00\x4E01\x4E02\x4E03"), 0);
  EXPECT_EQ(FindCodeId(section, L"\x4E01\x4E02\x4E03"), -1);
}

// The pattern was read under a locale in which its units were not white space.
TEST(FindCodeId, AgreesWithALinearScanWhereUnitsOfAPatternBecomeWhiteSpace) {
  const MapTextSection section = Read(L"ax\na_b\na*b\nc\nq ax");
  const UpperFunction uppers[] = {
      [](wchar_t unit) { return unit == L'X' ? L'\t' : UpperOfLatin(unit); },
      [](wchar_t unit) { return unit == L'X' ? L' ' : UpperOfLatin(unit); },
      [](wchar_t unit) { return unit == L'_' ? L' ' : UpperOfLatin(unit); },
      [](wchar_t unit) { return unit == L'*' ? L' ' : UpperOfLatin(unit); },
      [](wchar_t unit) { return unit == L' ' ? L'*' : UpperOfLatin(unit); },
  };
  for (const UpperFunction upper : uppers) {
    const GlobalLocale locale(upper);
    for (const wchar_t* text :
         {L"ax", L"aX", L"aXX", L"axx", L"aX b", L"ax b", L"aXb", L"a_b", L"a b", L"a*b", L"a",
          L"a ", L"aX ", L"a__b", L"X c", L"Xc", L"q aX", L"q ax", L"q aX b"}) {
      EXPECT_EQ(FindCodeId(section, text), FirstMatch(section, text)) << text;
    }
  }
}

TEST(FindCodeId, SetsNoLocale) {
  const GlobalLocale locale(UpperOfLatin);
  const std::locale before;
  FindCodeId(Read(L"wall"), L"wall");
  EXPECT_TRUE(std::locale() == before);
}

// Texts and patterns of few letters, so that many match, match in part, or have empty words.
TEST(FindCodeId, ReturnsWhatALinearScanReturns) {
  std::minstd_rand random(7);
  const auto below = [&random](unsigned bound) { return static_cast<unsigned>(random() % bound); };
  const auto word = [&below](unsigned longest) {
    std::wstring made;
    for (unsigned left = below(longest + 1); left > 0; --left) made += L"aAbжЖ"[below(5)];
    return made;
  };
  const GlobalLocale locale(UpperOfLatinAndCyrillic);
  for (int round = 0; round < 20; ++round) {
    MapTextSection section;
    std::wstring lines;
    for (int line = 0; line < 40; ++line) lines += word(3) + L" " + word(3) + L" x\n";
    ParseMapTextSection(section, lines);
    if (round % 2 == 1) {
      for (int added = 0; added < 20; ++added) {
        Texts tokens(below(100) == 0 ? 0 : 1 + below(3));
        for (std::wstring& token : tokens) token = word(2);
        EditRecords(section, [&](auto& records) {
          records.insert(records.begin() + below(static_cast<unsigned>(records.size()) + 1),
                         RecordOf(tokens));
        });
      }
    }
    for (int query = 0; query < 100; ++query) {
      const std::wstring text = word(4) + L" " + word(4) + (below(2) ? L" X" : L"");
      ASSERT_EQ(FindCodeId(section, text), FirstMatch(section, text))
          << "round " << round << ", " << text;
    }
  }
}

// Words with many prefixes, each with as many continuations: more than are tracked at once.
TEST(FindCodeId, FindsAMatchAmongHoweverManyBeginningsThatFit) {
  std::wstring text = L"@C\n";
  for (std::size_t i = 1; i <= 12; ++i) {
    for (std::size_t j = 1; j <= 12; ++j) {
      const std::wstring beginning = std::wstring(i, L'a') + L' ' + std::wstring(j, L'b');
      text += beginning + L" c" + std::to_wstring(j) + L"\n" + beginning + L" e\n";
    }
  }
  const MapTextSection section = Read(text);
  const std::wstring words = std::wstring(12, L'A') + L' ' + std::wstring(12, L'B');
  EXPECT_EQ(FindCodeId(section, words + L" C7"), 12);
  EXPECT_EQ(FindCodeId(section, words + L" C12"), 0);  // by its "c1"
  EXPECT_EQ(FindCodeId(section, words + L" E"), 1);
  EXPECT_EQ(FindCodeId(section, words + L" D"), -1);
  EXPECT_EQ(FindCodeId(section, words), -1);
}

TEST(FindCodeId, NeverReachesAPatternThatBeginsWithAnEarlierOne) {
  const MapTextSection section =
      Read(L"@C\nwall outer left\nwall outer\nwall outer right\nwall inner 1\nwall inner 1\n");
  EXPECT_EQ(FindCodeId(section, L"wall outer left"), 0);
  EXPECT_EQ(FindCodeId(section, L"wall outer right"), 0);
  EXPECT_EQ(FindCodeId(section, L"wall inner 1"), 3);
  EXPECT_EQ(FindCodeId(section, L"wall inner"), -1);
}

// Returns a word of caseless units: a base text plus `times` these differences.
std::wstring WordOf(std::initializer_list<int> differences, int times) {
  std::wstring word;
  for (const int difference : differences) {
    word += static_cast<wchar_t>(0x7000 + times * difference);
  }
  return word;
}

// Prefixes with equal hashes, for one number of words and for several. An index that relied on a
// polynomial hash alone would answer wrongly.

TEST(FindCodeId, DistinguishesWordsWithEqualHashes) {
  const auto word = [](int times) {
    return WordOf({5, -15, -18, -19, 24, -21, -4, 42, -41, 7}, times);
  };
  for (const int count : {2, 32, 33, 40}) {
    std::wstring text = L"@C\n";
    for (int i = 0; i < count; ++i) text += word(i) + L"\n";
    for (int i = 0; i < count; ++i) text += word(count + i) + L" a\n" + word(count + i) + L" b\n";
    const MapTextSection section = Read(text);
    for (int i = 0; i < count; ++i) {
      EXPECT_EQ(FindCodeId(section, word(i) + L" b"), i) << count;
      EXPECT_EQ(FindCodeId(section, word(count + i) + L" b"), count + 2 * i + 1) << count;
    }
    EXPECT_EQ(FindCodeId(section, word(2 * count)), -1) << count;
    EXPECT_EQ(FindCodeId(section, word(2 * count) + L" a"), -1) << count;
  }
}

// "p" and the first word have the same hash as "q" and the second.
TEST(FindCodeId, DistinguishesPrefixesWithEqualHashes) {
  const std::wstring p = L"p " + WordOf({0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}, 1);
  const std::wstring q = L"q " + WordOf({10, -12, -18, -15, 3, -16, 32, -4, 7, 8, -1, -5}, 1);
  const std::vector<Texts> sections = {
      {p, L"p x", q, L"q x"},
      {q, L"q x", p, L"p x"},
      {L"p x", L"p y", p, L"q x", L"q y", q},
      {L"p x", L"q x", p + L" a", q + L" b"},
      {L"p x", L"q x", p + L" a", q + L" a", p + L" b", q + L" c"},
      {p + L" a", q + L" b", p + L" c", q + L" d"},
      {p, L"p x", q + L" a", L"q x a", q + L" b"},
  };
  for (const Texts& lines : sections) {
    std::wstring patterns = L"@C\n";
    for (const std::wstring& line : lines) patterns += line + L"\n";
    const MapTextSection section = Read(patterns);
    for (const wchar_t* end : {L"", L" a", L" b", L" c", L" d"}) {
      for (const std::wstring& beginning : {p, q}) {
        const std::wstring text = beginning + end;
        EXPECT_EQ(FindCodeId(section, text), FirstMatch(section, text)) << text;
      }
    }
  }
}

// "BGBBBDCHBBEBIBHBBC" has the same hash as "q BBGEGBBBCCBGBGBFDB".
TEST(FindCodeId, DistinguishesPrefixesWithEqualHashesByTheirNumberOfWords) {
  const std::wstring one = L"BGBBBDCHBBEBIBHBBC";
  const std::wstring two = L"q BBGEGBBBCCBGBGBFDB";
  const std::vector<Texts> sections = {
      {one + L" x y", L"q c d", two + L" z"},  {two + L" z", L"q c d", one + L" x y"},
      {one + L" x y", one + L" x z", two},     {one, two, one + L" x", two + L" x"},
      {two + L" x", two + L" y", one + L" x"},
  };
  for (const Texts& lines : sections) {
    std::wstring patterns = L"@C\n";
    for (const std::wstring& line : lines) patterns += line + L"\n";
    const MapTextSection section = Read(patterns);
    for (const wchar_t* end : {L"", L" x", L" x y", L" x z", L" y", L" z"}) {
      for (const std::wstring& beginning : {one, two}) {
        const std::wstring text = beginning + end;
        EXPECT_EQ(FindCodeId(section, text), FirstMatch(section, text)) << text;
      }
    }
  }
  EXPECT_EQ(FindCodeId(Read(L"@A\n" + one + L" x y\n@C\nq c d\n@B\n" + two + L" z"), one + L" x y"),
            0);
}

TEST(FindCodeId, DistinguishesLongWordsByAnyOfTheirUnits) {
  for (const std::size_t length : {30, 31, 32, 33, 64}) {
    const std::wstring start(length, L'x');
    const MapTextSection section =
        Read(L"@C\n" + start + L"y\n" + start + L"z\n" + start + L"zz 1\nx" + start + L"x 2\n");
    EXPECT_EQ(FindCodeId(section, start + L"y"), 0) << length;
    EXPECT_EQ(FindCodeId(section, start + L"z"), 1) << length;
    EXPECT_EQ(FindCodeId(section, start + L"zz 1"), 1) << length;
    EXPECT_EQ(FindCodeId(section, start + L"xx 2"), 3) << length;
    EXPECT_EQ(FindCodeId(section, start), -1) << length;
    EXPECT_EQ(FindCodeId(section, start + L"a"), -1) << length;
  }
}

TEST(FindCodeId, TakesATextOfFiveMillionCharacters) {
  const std::wstring word(5'000'000, L'w');
  EXPECT_EQ(FindCodeId(Read(L"www"), word), 0);
  EXPECT_EQ(FindCodeId(Read(L"w x"), word), -1);
  EXPECT_EQ(FindCodeId(Read(L"door"), word), -1);
}

TEST(FindCodeId, TakesATextOfAMillionWords) {
  const std::wstring blanks(1'000'000, L' ');
  EXPECT_EQ(FindCodeId(Read(L"door\na  x"), L"a" + blanks), -1);
  EXPECT_EQ(FindCodeId(Read(L"door\na"), L"a" + blanks), 1);
}

TEST(FindCodeId, TakesAPatternOfAHundredThousandWords) {
  std::wstring pattern;
  for (int i = 0; i < 100'000; ++i) pattern += L"w ";
  const MapTextSection section = Read(pattern);
  EXPECT_EQ(FindCodeId(section, pattern), 0);
  EXPECT_EQ(FindCodeId(section, pattern + L"w"), 0);
  EXPECT_EQ(FindCodeId(section, pattern.substr(2)), -1);
}

TEST(CodeOf, ReturnsTheCodeOfARecordOrTheDefaultCode) {
  MapTextSection section;
  section.defaultCode = L"Z";
  std::vector<MapTextRecord> records(2);
  records[0].code = L"A";
  section.records.Swap(records);
  EXPECT_EQ(CodeOf(section, 0), L"A");
  EXPECT_EQ(CodeOf(section, 1), L"");
  EXPECT_EQ(CodeOf(section, noCodeId), L"Z");
  for (const int codeId : {2, INT_MAX, -2, INT_MIN}) {
    EXPECT_EQ(OutOfRangeOf([&] { CodeOf(section, codeId); }), badSubscript) << codeId;
  }
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
