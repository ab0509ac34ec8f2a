#include "classificator/ClassSection.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <optional>
#include <ostream>
#include <random>
#include <regex>
#include <string>
#include <string_view>

#include "classificator/Classificator.h"
#include "support/AtOnce.h"
#include "support/TempFolder.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

using namespace std::string_literals;

struct Declared {
  std::wstring title;
  std::wstring firstWord;
  std::wstring secondWord;

  bool operator==(const Declared&) const = default;
};

void PrintTo(const Declared& declared, std::ostream* out) {
  *out << testing::PrintToString(declared.title) << ", "
       << testing::PrintToString(declared.firstWord) << ", "
       << testing::PrintToString(declared.secondWord);
}

// The members before each parse, so that it shows which of them are unchanged.
const Declared before = {L"title before", L"first before", L"second before"};

// Returns the members after parsing the text.
Declared Parse(std::wstring_view text) {
  Declared declared = before;
  EXPECT_EQ(ParseClassSection(declared.title, declared.firstWord, declared.secondWord, text), 0);
  return declared;
}

// Returns what a file of these bytes declares.
Declared Load(std::string_view bytes) {
  const TempFolder folder;
  Classificator record(L"id");
  EXPECT_EQ(record.Load(folder.Write("a.txt", bytes)), 0);
  return {record.classTitle, record.classFirstWord, record.classSecondWord};
}

std::wstring Repeat(std::wstring_view text, std::size_t times) {
  std::wstring repeated;
  repeated.reserve(text.size() * times);
  for (std::size_t i = 0; i < times; ++i) repeated += text;
  return repeated;
}

TEST(ClassSection, DeclaresTheTitleAndTheWordsOfAFile) {
  EXPECT_EQ(Load("==CLASS\n@@@ Example scheme (ABC Classification)\n"),
            (Declared{L"Example scheme (ABC Classification)", L"ABC", L"Classification"}));
}

TEST(ClassSection, LeavesTheMembersEmptyIfNoEntryIsATitle) {
  EXPECT_EQ(Load("==CLASS\nExample scheme (ABC Classification)\n"), Declared{});
  EXPECT_EQ(Load("==CLASS\n"), Declared{});
  EXPECT_EQ(Load("==MAPTEXT\n@@@ Title (A B)\n"), Declared{});
}

TEST(ClassSection, IsOverwrittenMemberByMemberByALaterSection) {
  EXPECT_EQ(Load("==CLASS\n@@@ T (A B)\n==CLASS\n@@@ U (C)\n==CLASS\n@@@ V\n==CLASS\nremark\n"),
            (Declared{L"V", L"C", L"B"}));
}

TEST(ClassSection, IgnoresTheOrderOfSectionsAndOtherLines) {
  EXPECT_EQ(Load("==NOTES\n@@@ N (X Y)\n==CLASSIFICATION\nremark (P Q)\n@@@ Схема (А Б)\n@@ R\n"),
            (Declared{L"Схема (А Б)", L"А", L"Б"}));
}

TEST(ParseClassSection, TakesTheTitleAfterTheThreeAtSigns) {
  struct Case {
    std::wstring text;
    std::wstring title;
  };
  const Case cases[] = {
      {L"@@@ Title", L"Title"},
      {L"@@@Title", L"Title"},
      {L"@@@\t Long  title \t", L"Long  title"},
      {L"@@@\x00A0Title\x3000", L"Title"},
      {L" \t@@@ Title", L"Title"},  // the entry is trimmed first
      {L"@@@@ Title", L"@ Title"},
      {L"@@@@@@", L"@@@"},
      {L"@@@", L""},
      {L"@@@ \t", L""},
      {L"@@@ Стена \U0001F600", L"Стена \U0001F600"},
      {L"@@@ a\0b"s, L"a\0b"s},
      {L"@@@ \0"s, L"\0"s},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(Parse(one.text), (Declared{one.title, before.firstWord, before.secondWord}))
        << one.text;
  }
}

TEST(ParseClassSection, PassesOverEntriesThatDoNotBeginWithThreeAtSigns) {
  for (const wchar_t* text :
       {L"", L" \t", L"\n", L";", L"Title (A B)", L"@@ Title (A B)", L"@ @@ Title (A B)",
        L"@@ @ Title (A B)", L"x @@@ Title (A B)", L"(A B) @@@ Title", L"\xFEFF@@@ Title (A B)",
        L"＠＠＠ Title (A B)"}) {
    EXPECT_EQ(Parse(text), before) << text;
  }
  EXPECT_EQ(Parse(L"\0@@@ Title (A B)"s), before);
}

TEST(ParseClassSection, TakesTheFirstTwoWordsInTheBrackets) {
  struct Case {
    std::wstring entry;
    std::optional<std::wstring> firstWord;  // none if it is unchanged
    std::optional<std::wstring> secondWord;
  };
  const Case cases[] = {
      {L"@@@ T (A B)", L"A", L"B"},
      {L"@@@ T (A B C)", L"A", L"B"},
      {L"@@@ T (A)", L"A", {}},
      {L"@@@(A B)", L"A", L"B"},
      {L"@@@ T (A B) tail", L"A", L"B"},
      // Empty words count as words.
      {L"@@@ T ()", L"", {}},
      {L"@@@ T (A  B)", L"A", L""},
      {L"@@@ T ( A)", L"", L"A"},
      {L"@@@ T (A )", L"A", L""},
      {L"@@@ T ( )", L"", L""},
      {L"@@@ T ( A B)", L"", L"A"},
      // Only blanks separate words, but all white space at their ends is removed.
      {L"@@@ T (A\tB)", L"A\tB", {}},
      {L"@@@ T (A\x00A0"
       L"B)",
       L"A\x00A0"
       L"B",
       {}},
      {L"@@@ T (\tA\t \tB\t)", L"A", L"B"},
      {L"@@@ T (\t)", L"", {}},
      // From the first opening bracket to the last closing one.
      {L"@@@ T (A) (B)", L"A)", L"(B"},
      {L"@@@ T (A) x (B) y (C)", L"A)", L"x"},
      {L"@@@ T ((A B))", L"(A", L"B)"},
      {L"@@@ T (A (B)", L"A", L"(B"},
      {L"@@@ T (A) B)", L"A)", L"B"},
      {L"@@@ T )(A B)(", L"A", L"B"},
      {L"@@@ T ) (A) ( B) (", L"A)", L"("},
      // No pair of brackets.
      {L"@@@ T", {}, {}},
      {L"@@@ T (", {}, {}},
      {L"@@@ T (A B", {}, {}},
      {L"@@@ T )", {}, {}},
      {L"@@@ T A B)", {}, {}},
      {L"@@@ T ) (", {}, {}},
      {L"@@@ T )A B(", {}, {}},
      {L"@@@ T ))((", {}, {}},
      {L"@@@ T [A B] {C D} （E F）", {}, {}},
      // The brackets may contain any other unit.
      {L"@@@ T (Стена \U0001F600)", L"Стена", L"\U0001F600"},
      {L"@@@ T (A\0b \0c)"s, L"A\0b"s, L"\0c"s},
      {L"@@@ T (.* \\))", L".*", L"\\)"},
      {L"@@@ T (@@@ B)", L"@@@", L"B"},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(Parse(one.entry), (Declared{one.entry.substr(one.entry.find_first_not_of(L"@ ")),
                                          one.firstWord.value_or(before.firstWord),
                                          one.secondWord.value_or(before.secondWord)}))
        << one.entry;
  }
}

TEST(ParseClassSection, SplitsAtSemicolonsUnlessLineFeedsYieldMoreEntries) {
  struct Case {
    std::wstring text;
    Declared declared;
  };
  const Case cases[] = {
      // One line with a semicolon at its end: two pieces against one.
      {L"@@@ T (A B);", {L"T (A B)", L"A", L"B"}},
      {L"@@@ T; (A B)", {L"T", before.firstWord, before.secondWord}},
      {L"remark; @@@ T (A B); remark", {L"T (A B)", L"A", L"B"}},
      // On a tie semicolons win.
      {L"@@@ T; remark\n@@@ U (A B)", {L"T", before.firstWord, before.secondWord}},
      {L"@@@ T\nmore (A B); remark", {L"T\nmore (A B)", L"A", L"B"}},
      // Line feeds win, and the semicolons stay.
      {L"@@@ T; remark\n@@@ U\n", {L"U", before.firstWord, before.secondWord}},
      {L"@@@ T; (A; B)\nx\ny\nz", {L"T; (A; B)", L"A;", L"B"}},
      // Empty entries count.
      {L"@@@ T; (A B)\n\n", {L"T; (A B)", L"A", L"B"}},
      {L"@@@ T (A\n B);;", {L"T (A\n B)", before.firstWord, before.secondWord}},
  };
  for (const Case& one : cases) EXPECT_EQ(Parse(one.text), one.declared) << one.text;
}

TEST(ParseClassSection, LetsTheLastEntryWinMemberByMember) {
  EXPECT_EQ(Parse(L"@@@ T (A B)\n@@@ U (C)\n@@@ V\nremark"), (Declared{L"V", L"C", L"B"}));
  EXPECT_EQ(Parse(L"@@@ T (A B);@@@ U ();@@@"), (Declared{L"", L"", L"B"}));
}

TEST(ParseClassSection, SearchesForThePairOfBracketsInOneLineOfTheEntry) {
  for (const wchar_t* terminator : {L"\n", L"\r", L"\x2028", L"\x2029", L"\r\n"}) {
    struct Case {
      const wchar_t* head;
      const wchar_t* tail;
      std::wstring firstWord;
      std::wstring secondWord;
    };
    const Case cases[] = {
        {L"(A", L"B)", before.firstWord, before.secondWord},
        {L"(", L")", before.firstWord, before.secondWord},
        {L"(A B)", L"(C D)", L"A", L"B"},  // the first line that has one
        {L"(A B) (C", L"D)", L"A", L"B"},
        {L"(A", L"B) (C D)", L"C", L"D"},
        {L"(A", L"(C D)", L"C", L"D"},
        {L"A)", L"(C D)", L"C", L"D"},
        {L") (", L"(C D) )", L"C", L"D)"},
        {L"x", L"(C D)", L"C", L"D"},
        {L"", L"(C D)", L"C", L"D"},
    };
    for (const Case& one : cases) {
      // Three pieces by semicolons, at most two by line feeds.
      const std::wstring title = L"T " + std::wstring(one.head) + terminator + one.tail;
      EXPECT_EQ(Parse(L"@@@ " + title + L";;"), (Declared{title, one.firstWord, one.secondWord}))
          << title;
    }
  }
}

TEST(ParseClassSection, TakesNoOtherUnitAsALineEnd) {
  for (const wchar_t* unit : {L"\v", L"\f", L"\x0085", L"\x001C", L"\x200B", L"\xFEFF"}) {
    const std::wstring word = L"A"s + unit + L"B";
    EXPECT_EQ(Parse(L"@@@ T (" + word + L")").firstWord, word);
  }
}

// The brackets are what the regular expression finds. Line terminators are left out, because
// libraries differ on them.
TEST(ParseClassSection, FindsTheBracketsOfTheRegularExpression) {
  const std::wregex expression(L"\\((.*)\\)");
  constexpr std::wstring_view alphabet = L"()a @";
  std::mt19937 random(20240229);
  int matches = 0;
  for (int i = 0; i < 5000; ++i) {
    std::wstring entry = L"@@@";
    for (auto length = random() % 13; length > 0; --length) {
      entry += alphabet[random() % alphabet.size()];
    }
    Declared expected = before;
    std::wsmatch match;
    if (std::regex_search(entry, match, expression)) {
      ++matches;
      const std::wstring capture = match[1];
      const std::size_t blank = capture.find(L' ');
      expected.firstWord = capture.substr(0, blank);
      if (blank != capture.npos) {
        const std::size_t next = capture.find(L' ', blank + 1);
        expected.secondWord = capture.substr(blank + 1, next - blank - 1);
      }
    }
    const Declared declared = Parse(entry);
    ASSERT_EQ(declared.firstWord, expected.firstWord) << entry;
    ASSERT_EQ(declared.secondWord, expected.secondWord) << entry;
  }
  EXPECT_GT(matches, 1000);
  EXPECT_LT(matches, 4000);
}

TEST(ParseClassSection, HandlesTenMillionOpeningBracketsQuickly) {
  ExpectDoneAtOnce(10'000'000, [](std::size_t size) {
    const std::wstring title(size, L'(');
    const Declared declared = Parse(L"@@@ " + title);
    EXPECT_TRUE(declared.title == title);
    EXPECT_EQ(declared.firstWord, before.firstWord);
    EXPECT_EQ(declared.secondWord, before.secondWord);
  });
}

TEST(ParseClassSection, HandlesFiveMillionPairsOfTurnedBracketsQuickly) {
  ExpectDoneAtOnce(5'000'000, [](std::size_t size) {
    const std::wstring title = Repeat(L")(", size);
    const Declared declared = Parse(L"@@@ " + title);
    EXPECT_TRUE(declared.title == title);
    EXPECT_TRUE(declared.firstWord == std::wstring_view(title).substr(2, title.size() - 4));
    EXPECT_EQ(declared.secondWord, before.secondWord);
  });
}

TEST(ParseClassSection, HandlesMillionsOfLinesOfOneBracketQuickly) {
  ExpectDoneAtOnce(2'500'000, [](std::size_t size) {
    const std::wstring title = Repeat(L"(\r", size) + L"(A B)";
    const Declared declared = Parse(L"@@@ " + title);
    EXPECT_TRUE(declared.title == title);
    EXPECT_EQ(declared.firstWord, L"A");
    EXPECT_EQ(declared.secondWord, L"B");
  });
}

TEST(ParseClassSection, HandlesAMillionWordsAndAMillionEntriesQuickly) {
  ExpectDoneAtOnce(1'000'000, [](std::size_t size) {
    const Declared declared = {L"T (A B)", L"A", L"B"};
    EXPECT_EQ(Parse(L"@@@ (" + Repeat(L"A ", size) + L")").secondWord, L"A");
    EXPECT_EQ(Parse(Repeat(L"@;", size) + L"@@@ T (A B)"), declared);
    EXPECT_EQ(Parse(Repeat(L"@@@\n", size) + L"@@@ T (A B)"), declared);
  });
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
