// That the index answers, and doesn't leave the answer to the walk over the records: what a lookup
// costs rests on it. Whether its answers are right is asked of `FindCodeId`.

#include "mapping/CodeIndex.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "mapping/CodeLookup.h"
#include "mapping/MapTextRecords.h"
#include "mapping/MapTextSection.h"
#include "support/GlobalLocale.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

MapTextSection Read(std::wstring_view text) {
  MapTextSection section;
  ParseMapTextSection(section, text);
  return section;
}

constexpr std::optional<int> cannotTell;

// What the index of the patterns tells of the text.
std::optional<int> Told(const std::wstring& patterns, std::wstring_view text) {
  return Read(patterns).records.Index()->Find(text);
}

TEST(CodeIndex, IsMadeOnceUntilTheLocaleChanges) {
  const MapTextRecords records = Read(L"wall").records;
  const CodeIndex* const index = records.Index();
  EXPECT_EQ(records.Index(), index);
  const MapTextRecords copy = records;
  EXPECT_EQ(copy.Index(), index);
  const GlobalLocale locale(UpperOfLatin);
  EXPECT_NE(records.Index(), index);
  EXPECT_EQ(copy.Index()->Find(L"walls"), 0);
}

TEST(CodeIndex, TellsThatNoRecordFitsIfThereIsNone) {
  EXPECT_EQ(Told(L"", L"wall"), noCodeId);
  EXPECT_EQ(Told(L"", L""), noCodeId);
}

TEST(CodeIndex, TellsTheFirstRecordThatFits) {
  struct Case {
    const wchar_t* patterns;
    const wchar_t* text;
    int codeId;
  };
  const Case cases[] = {
      {L"wall\ndoor\n", L"Walls", 0},
      {L"wall\ndoor\n", L"doors", 1},
      {L"wall\ndoor\n", L"doo", -1},
      {L"wall outer left\nwall inner left\n", L"wall inner left 2", 1},
      {L"wall outer left\nwall inner left\n", L"wall outer left", 0},
      {L"wall outer left\nwall outer right\n", L"wall outer right", 1},
      {L"wall outer left\nwall outer right\n", L"wall outer", -1},
      {L"wall outer left\nwall outer\n", L"wall outer left", 0},
      {L"wall outer left\nwall\nwall outer\n", L"wall outer left", 0},
      {L"a\nab\nabc\n", L"abc", 0},
      {L"abc\nab\na\n", L"abc", 0},
      {L"a  b\na c\n", L"a c", 0},
      {L"a  b\na c\n", L"a x b", 1},
  };
  for (const auto& [patterns, text, codeId] : cases) {
    EXPECT_EQ(Told(patterns, text), codeId) << patterns << text;
  }
}

// So many, which differ behind two to five words that they share, that the table grows.
TEST(CodeIndex, TellsEachOfThousandsOfRecords) {
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
  const MapTextSection section = Read(patterns);
  const CodeIndex* index = section.records.Index();
  for (std::size_t i = 0; i < section.records.size(); ++i) {
    EXPECT_EQ(index->Find(section.records[i].text), static_cast<int>(i));
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
  EXPECT_EQ(Told(patterns, pattern + L"a"), 0);
  EXPECT_EQ(Told(patterns, pattern + L"c"), 2);
  EXPECT_EQ(Told(patterns, pattern), noCodeId);
}

// They would be too many to stand at one place.
TEST(CodeIndex, LeavesOutWhatBeginsWithAnEarlierPattern) {
  std::wstring same;
  std::wstring longer = L"Wall Outer\n";
  for (int i = 0; i < 100; ++i) {
    same += L"wall outer\n";
    longer += L"wall outer same\n";
  }
  EXPECT_EQ(Told(same, L"wall outer left"), 0);
  EXPECT_EQ(Told(longer, L"wall outer same"), 0);
  EXPECT_EQ(Told(longer, L"wall inner same"), noCodeId);
}

// Words are told apart by 31 units.
TEST(CodeIndex, ComparesUpToThirtyTwoPatternsThatItCannotTellApart) {
  const auto word = [](int i) { return std::wstring(31, L'x') + L"y" + std::to_wstring(100 + i); };
  std::wstring patterns;
  for (int i = 0; i < 32; ++i) patterns += word(i) + L"\n";
  EXPECT_EQ(Told(patterns, word(0)), 0);
  EXPECT_EQ(Told(patterns, word(31)), 31);
  EXPECT_EQ(Told(patterns, word(32)), noCodeId);
  EXPECT_EQ(Told(patterns + word(32) + L"\n", word(0)), cannotTell);
}

// Of the words "aaaaaaaa", "bbbb" each beginning is one of a pattern, and all of these go on.
TEST(CodeIndex, FollowsUpToThirtyTwoBeginningsAtOnce) {
  std::wstring patterns;
  for (std::size_t i = 1; i <= 8; ++i) {
    for (std::size_t j = 1; j <= 4; ++j) {
      const std::wstring beginning = std::wstring(i, L'a') + L" " + std::wstring(j, L'b');
      patterns += beginning + L" c\n" + beginning + L" d\n";
    }
  }
  EXPECT_EQ(Told(patterns, L"aaaaaaaa bbbb d"), 1);
  EXPECT_EQ(Told(patterns, L"aaaaaaaa bbbb e"), noCodeId);
  patterns += L"a bbbbb c\na bbbbb d\n";
  EXPECT_EQ(Told(patterns, L"aaaaaaaa bbbb d"), 1);
  EXPECT_EQ(Told(patterns, L"aaaaaaaa bbbbb d"), cannotTell);
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
