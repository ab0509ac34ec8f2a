#include "textfile/TextFile.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/Utf8.h"
#include "support/TempFolder.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

using namespace std::string_literals;

using Sections = std::vector<std::pair<std::wstring, std::wstring>>;  // heading and body

Sections SectionsOf(const TextFile& file) {
  Sections sections;
  for (const TextSection& section : file.sections) {
    sections.emplace_back(section.heading, section.body);
  }
  return sections;
}

Sections Cut(std::wstring_view text) {
  return SectionsOf(CutTextFile(EncodeUtf8(text).value()));
}

Sections CutBytes(std::string_view bytes) {
  return SectionsOf(CutTextFile(bytes));
}

// Returns the lines of a text as a section has them.
std::wstring LinesOf(std::wstring_view text) {
  const Sections sections = Cut(L"==A\n" + std::wstring(text));
  return sections.at(0).second;
}

TEST(CutTextFile, TrimsEachLineAndDropsTheBlankOnes) {
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
      // A NUL and a byte order mark are not white space.
      {L" \0 \n a\0b \n"s, L"\0\na\0b"s},
      {L"\xFEFF== A\n \xFEFF \n", L"\xFEFF== A\n\xFEFF"},
      {L" Стена \n \U0001F600 ", L"Стена\n\U0001F600"},
  };
  for (const Case& one : cases) EXPECT_EQ(LinesOf(one.text), one.lines) << one.text;
}

TEST(CutTextFile, SplitsTheFileIntoSectionsAtTheHeadings) {
  struct Case {
    std::wstring text;
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
      // An empty body: a heading before a heading, or on the last line.
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
  for (const Case& one : cases) EXPECT_EQ(Cut(one.text), one.sections) << one.text;
}

TEST(CutTextFile, KnowsAHeadingOnceItsLineIsTrimmed) {
  EXPECT_EQ(Cut(L" \t==A \r\n\n\n b \r\n\x00A0==B\n \n"),
            (Sections{{L"==A", L"b"}, {L"==B", L""}}));
}

TEST(CutTextFile, EndsAtBytesThatCannotBeDecodedAndKeepsThePartOfALineBeforeThem) {
  EXPECT_EQ(CutBytes("==A\nab \xFF"
                     "cd\nef"),
            (Sections{{L"==A", L"ab"}}));
  EXPECT_EQ(CutBytes("==A\nab\xD1"), (Sections{{L"==A", L"ab"}}));
  EXPECT_EQ(CutBytes("==A\nab\xD1\ncd"), (Sections{{L"==A", L"ab"}}));
  EXPECT_EQ(CutBytes("==A\n\xD1\nab"), (Sections{{L"==A", L""}}));
  EXPECT_EQ(CutBytes("==A\xD1\nab"), (Sections{{L"==A", L""}}));
  EXPECT_EQ(CutBytes("\xCF\xF0"), Sections{});  // Cyrillic in one byte each
}

TEST(CutTextFile, EndsAtTheFirstByte1AAndKeepsThePartOfALineBeforeIt) {
  EXPECT_EQ(CutBytes("==A\nab\n\x1A"), (Sections{{L"==A", L"ab"}}));
  EXPECT_EQ(CutBytes("==A\nab\r\n\x1A\r\n"), (Sections{{L"==A", L"ab"}}));
  EXPECT_EQ(CutBytes("==A\nab \x1A cd\nef"), (Sections{{L"==A", L"ab"}}));
  EXPECT_EQ(CutBytes("==A\nab\n\x1A\ncd\n==B\nef\n\x1A"), (Sections{{L"==A", L"ab"}}));
  EXPECT_EQ(CutBytes("==A\x1A B\nab"), (Sections{{L"==A", L""}}));
  EXPECT_EQ(CutBytes("==A\n=\x1A=B\nab"), (Sections{{L"==A", L"="}}));
  EXPECT_EQ(CutBytes("\x1A==A\nab"), Sections{});
  EXPECT_EQ(CutBytes("\x1A"), Sections{});
  // It cuts a letter of two bytes.
  EXPECT_EQ(CutBytes("==A\nab\xD1\x1A\x8F"), (Sections{{L"==A", L"ab"}}));
  // Other characters contain these bits, but not as a byte.
  EXPECT_EQ(Cut(L"==A\na\x1A00\x011A\x9A\U0001F61A"),
            (Sections{{L"==A", L"a\x1A00\x011A\x9A\U0001F61A"}}));
}

TEST(CutTextFile, KeepsAByteOrderMarkAtTheHeadOfTheFirstLine) {
  EXPECT_EQ(CutBytes("\xEF\xBB\xBF==A\n==B"), (Sections{{L"==B", L""}}));
  EXPECT_EQ(CutBytes("==A\n\xEF\xBB\xBFz"), (Sections{{L"==A", L"\xFEFFz"}}));
}

TEST(CutTextFile, TakesALineOfFiveMillionUnitsAndAMillionLines) {
  const std::wstring line(5'000'000, L'a');
  EXPECT_TRUE(Cut(L"==A\n  " + line + L"  \nb") == (Sections{{L"==A", line + L"\nb"}}));

  std::wstring text;
  std::wstring body;
  std::wstring headings;
  for (int i = 0; i < 1'000'000; ++i) {
    text += L" a\r\n\n";
    body += L"a\n";
    headings += L"==\n";
  }
  body.pop_back();
  EXPECT_TRUE(LinesOf(text) == body);
  EXPECT_EQ(Cut(headings).size(), 1'000'000u);
}

TEST(ReadTextFile, ReturnsTheSectionsOfTheFile) {
  const TempFolder folder;
  EXPECT_EQ(SectionsOf(*ReadTextFile(folder.Write("a.txt", "  ==Схема \r\n\r\n a\tb\r\n"))),
            (Sections{{L"==Схема", L"a\tb"}}));
  EXPECT_EQ(SectionsOf(*ReadTextFile(folder.Write("a.txt", ""))), Sections{});
}

TEST(ReadTextFile, ReturnsNothingForWhatCannotBeOpened) {
  const TempFolder folder;
  EXPECT_EQ(ReadTextFile(folder.Wide() + L"/a.txt"), nullptr);
  EXPECT_EQ(ReadTextFile(folder.Wide()), nullptr);
}

std::vector<std::wstring_view> EntriesOf(std::wstring_view body, bool keepEmpty) {
  std::vector<std::wstring_view> entries;
  PieceReader reader = CutEntries(body, keepEmpty);
  for (std::wstring_view entry; reader.Next(entry);) entries.push_back(entry);
  return entries;
}

TEST(CutEntries, SplitsAtLineFeedsOnlyIfTheyYieldMorePieces) {
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
      {L"a\nb;", {L"a\nb", L""}, {L"a", L"b;"}},  // an empty piece may decide
      {L"a;;b", {L"a", L"", L"b"}, {L"a", L"b"}},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(EntriesOf(one.body, true), one.withEmpty) << one.body;
    EXPECT_EQ(EntriesOf(one.body, false), one.withoutEmpty) << one.body;
  }
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
