// Tests of the index of patterns. The tests of `FindCodeId` check its answers too.

#include "mapping/CodeIndex.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <locale>
#include <string>
#include <string_view>
#include <vector>

#include "mapping/CodeLookup.h"
#include "mapping/MapTextSection.h"
#include "support/GlobalLocale.h"
#include "support/MapTextByHand.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

MapTextRecords Read(std::wstring_view text) {
  MapTextSection section;
  ParseMapTextSection(section, text);
  return section.records;
}

int Found(std::wstring_view patterns, std::wstring_view text) {
  return Read(patterns).Index()->Find(text);
}

TEST(MapTextRecords, MakeTheirIndexOnce) {
  const MapTextRecords records = Read(L"wall");
  const CodeIndex* const index = records.Index();
  EXPECT_EQ(records.Index(), index);
  const MapTextRecords copy = records;
  EXPECT_EQ(copy.Index(), index);
}

// Otherwise a program that switches between locales would build an index at each lookup.
TEST(MapTextRecords, KeepTheIndexesOfFourLocales) {
  const MapTextRecords records = Read(L"wall");
  std::vector<std::locale> locales;
  std::vector<const CodeIndex*> indexes;
  for (int i = 0; i < 4; ++i) {
    locales.push_back(LocaleOf(UpperOfLatin));
    const GlobalLocale locale(locales.back());
    indexes.push_back(records.Index());
    for (int earlier = 0; earlier < i; ++earlier) EXPECT_NE(indexes[i], indexes[earlier]);
  }
  for (int round = 0; round < 2; ++round) {
    for (std::size_t i = 0; i < locales.size(); ++i) {
      const GlobalLocale locale(locales[i]);
      EXPECT_EQ(records.Index(), indexes[i]);
    }
  }
}

TEST(MapTextRecords, HaveAnIndexInHoweverManyLocales) {
  const MapTextRecords records = Read(L"wall");
  for (int i = 0; i < 20; ++i) {
    const GlobalLocale locale(UpperOfLatin);
    EXPECT_EQ(records.Index()->Find(L"Walls"), 0);
  }
}

TEST(MapTextRecords, KeepNoIndexOfOtherRecords) {
  MapTextRecords records = Read(L"wall\ndoor");
  EXPECT_EQ(records.Index()->Find(L"door"), 1);
  std::vector<MapTextRecord> swapped = {RecordOf({L"DOOR"})};
  records.Swap(swapped);
  EXPECT_EQ(records.Index()->Find(L"door"), 0);
  ASSERT_EQ(swapped.size(), 2u);
  EXPECT_EQ(swapped[1].text, L"door");
  records = Read(L"roof\nwall");
  EXPECT_EQ(records.Index()->Find(L"door"), noCodeId);
  EXPECT_EQ(records.Index()->Find(L"wall"), 1);
}

TEST(CodeIndex, FindsTheFirstRecordThatFits) {
  struct Case {
    const wchar_t* patterns;
    const wchar_t* text;
    int codeId;
  };
  const Case cases[] = {
      {L"", L"wall", -1},
      {L"", L"", -1},
      {L"wall\ndoor\n", L"Walls", 0},
      {L"wall\ndoor\n", L"doors", 1},
      {L"wall\ndoor\n", L"doo", -1},
      {L"wall outer left\nwall inner left\n", L"wall inner left 2", 1},
      {L"wall outer left\nwall inner left\n", L"wall outer left", 0},
      {L"wall outer left\nwall outer right\n", L"wall outer right", 1},
      {L"wall outer left\nwall outer right\n", L"wall outer", -1},
      {L"wall outer left\nwall outer\n", L"wall outer left", 0},
      {L"wall outer left\nwall\nwall outer\n", L"wall outer left", 0},
      {L"wall\nwall\n", L"wall", 0},
      {L"a\nab\nabc\n", L"abc", 0},
      {L"abc\nab\na\n", L"abc", 0},
      {L"abc\nab\na\n", L"abd", 1},
      {L"abc\nabd\nae\n", L"abd", 1},
      {L"abc\nabd\nae\n", L"af", -1},
      {L"a  b\na c\n", L"a c", 0},
      {L"a  b\na c\n", L"a x b", 1},
      {L"a b c\nab c d\n", L"abx cx dx", 1},
      {L"a b c\nab c d\n", L"abx bx cx", 0},
      {L"a\x1 b\na b\n", L"a\x1 b", 0},
      {L"a\x1 b\na b\n", L"a b", 1},
  };
  for (const auto& [patterns, text, codeId] : cases) {
    EXPECT_EQ(Found(patterns, text), codeId) << patterns << text;
  }
}

// Records of an interrupted load are in file order, and records made by hand in any order.
TEST(CodeIndex, FindsTheFirstOfRecordsInAnyOrder) {
  std::vector<MapTextRecord> filled = {RecordOf({L"A", L"B", L"C"}), RecordOf({L"A", L"B"}),
                                       RecordOf({L"A"}), RecordOf({L""}), RecordOf({})};
  const CodeIndex index(filled);
  EXPECT_EQ(index.Find(L"a b c"), 0);
  EXPECT_EQ(index.Find(L"a b d"), 1);
  EXPECT_EQ(index.Find(L"a c"), 2);
  EXPECT_EQ(index.Find(L"b"), 3);
  EXPECT_EQ(index.Find(L""), 3);
}

// Thousands of records that differ after two to five common words.
TEST(CodeIndex, DistinguishesThousandsOfRecords) {
  std::vector<std::wstring> lines;
  for (int pair = 0; pair < 2000; ++pair) {
    std::wstring line =
        L"family" + std::to_wstring(pair / 20) + L" t" + std::to_wstring(pair) + L"x";
    for (int words = pair % 4; words > 0; --words) line += L" of" + std::to_wstring(words);
    lines.push_back(line + L" left");
    lines.push_back(line + L" right");
  }
  std::wstring patterns;
  for (const std::wstring& line : lines) patterns += line + L"\n";
  const MapTextRecords records = Read(patterns);
  const CodeIndex* index = records.Index();
  for (std::size_t i = 0; i < records.size(); ++i) {
    EXPECT_EQ(index->Find(records[i].text), static_cast<int>(i));
  }
  for (const std::wstring& line : lines) {
    EXPECT_EQ(index->Find(L"a " + line), noCodeId);
    EXPECT_EQ(index->Find(line.substr(0, line.find(L'x'))), noCodeId);
  }
}

TEST(CodeIndex, HasRoomForPatternsOfManyWords) {
  std::wstring pattern;
  for (int i = 0; i < 1000; ++i) pattern += L"w" + std::to_wstring(i) + L" ";
  const std::wstring patterns = pattern + L"a\n" + pattern + L"b\n" + pattern + L"c\n";
  EXPECT_EQ(Found(patterns, pattern + L"a"), 0);
  EXPECT_EQ(Found(patterns, pattern + L"c"), 2);
  EXPECT_EQ(Found(patterns, pattern), noCodeId);
}

TEST(CodeIndex, CannotAnswerWhereTheLocaleRefusesALetterOrHasABlankForIt) {
  const MapTextRecords records = Read(L"wall\nqx");
  const UpperFunction uppers[] = {
      [](wchar_t unit) { return unit == L'q' ? throw 1 : unit; },
      [](wchar_t unit) { return unit == L'q' ? L' ' : unit; },
  };
  const MapTextRecords small = [] {
    const GlobalLocale locale(UpperOfNothing);
    return Read(L"wall\nqx");
  }();
  for (const UpperFunction upper : uppers) {
    const GlobalLocale locale(upper);
    const CodeIndex* const index = small.Index();
    ASSERT_NE(index, nullptr);
    EXPECT_FALSE(index->CanAnswer());
    EXPECT_EQ(small.Index(), index);  // and isn't built again
  }
  EXPECT_TRUE(records.Index()->CanAnswer());
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
