#include "classificator/TextFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/TempFolder.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

using namespace std::string_literals;

using Sections = std::vector<std::pair<std::wstring, std::wstring>>;  // heading and body

Sections Cut(std::wstring_view lines) {
  Sections sections;
  for (const TextSection& section : CutSections(lines)) {
    sections.emplace_back(section.heading, section.body);
  }
  return sections;
}

TEST(JoinTrimmedLines, TrimsEachLineAndDropsTheBlankOnes) {
  struct Case {
    std::wstring text;
    std::wstring lines;
  };
  const Case cases[] = {
      {L"", L""},
      {L"\n", L""},
      {L"\r\n \t\n\v\f\x00A0\x3000\n", L""},
      {L"a", L"a"},
      {L"a\n", L"a"},
      {L"a\nb", L"a\nb"},
      {L"a\r\nb\r\n", L"a\nb"},
      {L"\n\n a \n\n\t b\tc \r\n\n", L"a\nb\tc"},
      {L"a\r\r\nb", L"a\nb"},
      // Only a line feed ends a line.
      {L"a\rb", L"a\rb"},
      {L"a\x0085 b\x2028 c\x2029 d\v\fe", L"a\x0085 b\x2028 c\x2029 d\v\fe"},
      // A NUL and a byte order mark are no white space.
      {L" \0 \n a\0b \n"s, L"\0\na\0b"s},
      {L"\xFEFF== A\n \xFEFF \n", L"\xFEFF== A\n\xFEFF"},
      {L" Стена \n \U0001F600 ", L"Стена\n\U0001F600"},
  };
  for (const Case& one : cases) EXPECT_EQ(JoinTrimmedLines(one.text), one.lines) << one.text;
}

TEST(JoinTrimmedLines, TakesALineOfFiveMillionUnitsAndAMillionLines) {
  const std::wstring line(5'000'000, L'a');
  EXPECT_TRUE(JoinTrimmedLines(L"  " + line + L"  \nb") == line + L"\nb");

  std::wstring text;
  std::wstring lines;
  for (int i = 0; i < 1'000'000; ++i) {
    text += L" a\r\n\n";
    lines += L"a\n";
  }
  lines.pop_back();
  EXPECT_TRUE(JoinTrimmedLines(text) == lines);
}

TEST(ReadTextFile, GivesTheTrimmedLinesOfTheFile) {
  const TempFolder folder;
  EXPECT_EQ(*ReadTextFile(folder.Write("a.txt", "  ==Схема \r\n\r\n a\tb\r\n")), L"==Схема\na\tb");
  EXPECT_EQ(*ReadTextFile(folder.Write("a.txt", "")), L"");
}

TEST(ReadTextFile, GivesNothingForWhatCannotBeOpened) {
  const TempFolder folder;
  EXPECT_EQ(ReadTextFile(folder.Wide() + L"/a.txt"), nullptr);
  EXPECT_EQ(ReadTextFile(folder.Wide()), nullptr);
}

TEST(ReadTextFile, EndsAtBytesThatCannotBeDecodedAndKeepsThePartOfALineAheadOfThem) {
  const TempFolder folder;
  EXPECT_EQ(*ReadTextFile(folder.Write("a.txt",
                                       "==A\nab \xFF"
                                       "cd\nef")),
            L"==A\nab");
  EXPECT_EQ(*ReadTextFile(folder.Write("a.txt", "==A\nab\xD1")), L"==A\nab");
  EXPECT_EQ(*ReadTextFile(folder.Write("a.txt", "==A\n\xD1\nab")), L"==A");
  EXPECT_EQ(*ReadTextFile(folder.Write("a.txt", "\xCF\xF0")), L"");  // Cyrillic in one byte each
}

TEST(ReadTextFile, KeepsAByteOrderMarkAtTheHeadOfTheFirstLine) {
  const TempFolder folder;
  EXPECT_EQ(*ReadTextFile(folder.Write("a.txt", "\xEF\xBB\xBF==A\n==B")), L"\xFEFF==A\n==B");
}

TEST(CutSections, RunFromEachHeadingToTheNext) {
  struct Case {
    std::wstring lines;
    Sections sections;
  };
  const Case cases[] = {
      {L"", {}},
      {L"a\nb", {}},
      {L"==A", {{L"==A", L""}}},
      {L"==A\na", {{L"==A", L"a"}}},
      {L"==A\na\nb\nc", {{L"==A", L"a\nb\nc"}}},
      {L"ahead\nof\n==A\na", {{L"==A", L"a"}}},
      {L"==A\na\n==B\nb\nc", {{L"==A", L"a"}, {L"==B", L"b\nc"}}},
      // An empty body: a heading in front of a heading, or on the last line.
      {L"==A\n==B\nb\n==C", {{L"==A", L""}, {L"==B", L"b"}, {L"==C", L""}}},
      {L"==A\na\n==A\nb", {{L"==A", L"a"}, {L"==A", L"b"}}},
      // Any line that begins with "==" is a heading, and no other line.
      {L"==", {{L"==", L""}}},
      {L"===A\n== B\nb", {{L"===A", L""}, {L"== B", L"b"}}},
      {L"==A\n=a\na==\n= =\na ==B", {{L"==A", L"=a\na==\n= =\na ==B"}}},
      {L"\xFEFF==A\na\n==B\nb", {{L"==B", L"b"}}},
      {L"==A\na\n\xFEFF==B\nb", {{L"==A", L"a\n\xFEFF==B\nb"}}},
      {L"==A\0\n\0\n=\0="s, {{L"==A\0"s, L"\0\n=\0="s}}},
      {L"==Стены и двери\nСтена;Дверь", {{L"==Стены и двери", L"Стена;Дверь"}}},
  };
  for (const Case& one : cases) EXPECT_EQ(Cut(one.lines), one.sections) << one.lines;
}

TEST(CutSections, GivesViewsIntoTheLines) {
  const std::wstring lines = L"a\n==B\nb\nc";
  const std::vector<TextSection> sections = CutSections(lines);
  ASSERT_EQ(sections.size(), 1u);
  EXPECT_EQ(sections[0].heading.data(), lines.data() + 2);
  EXPECT_EQ(sections[0].body.data(), lines.data() + 6);
}

TEST(CutSections, TakesALineOfFiveMillionUnitsAndAMillionLines) {
  const std::wstring line(5'000'000, L'a');
  EXPECT_TRUE(Cut(L"==A\n" + line) == (Sections{{L"==A", line}}));

  std::wstring body;
  for (int i = 0; i < 1'000'000; ++i) body += L"a\n";
  body.pop_back();
  EXPECT_TRUE(Cut(L"==A\n" + body) == (Sections{{L"==A", body}}));

  std::wstring headings;
  for (int i = 0; i < 1'000'000; ++i) headings += L"==\n";
  headings.pop_back();
  EXPECT_EQ(CutSections(headings).size(), 1'000'000u);
}

std::vector<std::wstring_view> EntriesOf(std::wstring_view body, bool keepEmpty) {
  std::vector<std::wstring_view> entries;
  PieceReader reader = CutEntries(body, keepEmpty);
  for (std::wstring_view entry; reader.Next(entry);) entries.push_back(entry);
  return entries;
}

TEST(CutEntries, CutsAtLineFeedsOnlyIfTheyGiveMorePieces) {
  using Entries = std::vector<std::wstring_view>;
  struct Case {
    const wchar_t* body;
    Entries withEmpty;
    Entries withoutEmpty;
  };
  const Case cases[] = {
      {L"", {L""}, {}},
      {L"a", {L"a"}, {L"a"}},
      {L"a;b", {L"a", L"b"}, {L"a", L"b"}},
      {L"a\nb", {L"a", L"b"}, {L"a", L"b"}},
      {L"a;b\nc", {L"a", L"b\nc"}, {L"a", L"b\nc"}},  // a tie
      {L"a;b\nc\nd", {L"a;b", L"c", L"d"}, {L"a;b", L"c", L"d"}},
      {L"a;\nb;\nc;", {L"a", L"b", L"c", L""}, {L"a", L"b", L"c"}},
      {L"a;\nb", {L"a", L"b"}, {L"a", L"b"}},
      {L"a\nb;", {L"a\nb", L""}, {L"a", L"b;"}},  // an empty piece may decide it
      {L"a;;b", {L"a", L"", L"b"}, {L"a", L"b"}},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(EntriesOf(one.body, true), one.withEmpty) << one.body;
    EXPECT_EQ(EntriesOf(one.body, false), one.withoutEmpty) << one.body;
  }
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
