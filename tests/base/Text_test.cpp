#include "base/Text.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "support/AtOnce.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

using namespace std::string_literals;

using Pieces = std::vector<std::wstring>;

// All white space.
constexpr std::wstring_view whiteSpace =
    L"\t\n\v\f\r \x0085\x00A0\x1680\x2000\x2001\x2002\x2003\x2004\x2005\x2006\x2007\x2008\x2009"
    L"\x200A\x2028\x2029\x202F\x205F\x3000";

TEST(IsSpace, IsTrueForTheWhiteSpaceOfUnicodeAndNoOtherUnit) {
  for (int unit = 0; unit <= 0xFFFF; ++unit) {
    const auto wide = static_cast<wchar_t>(unit);
    ASSERT_EQ(IsSpace(wide), whiteSpace.find(wide) != whiteSpace.npos) << unit;
  }
  EXPECT_FALSE(IsSpace(std::numeric_limits<wchar_t>::max()));
  EXPECT_FALSE(IsSpace(std::numeric_limits<wchar_t>::min()));
}

TEST(IsSpace, IsFalseForAByteOrderMarkAndAZeroWidthSpace) {
  EXPECT_FALSE(IsSpace(L'\xFEFF'));
  EXPECT_FALSE(IsSpace(L'\x200B'));
}

TEST(TrimRight, RemovesTrailingWhiteSpaceOnly) {
  std::wstring text = L" \ta b \t\r\n";
  EXPECT_EQ(TrimRight(text), L" \ta b");
}

TEST(Trim, RemovesWhiteSpaceAtBothEndsOnly) {
  struct Case {
    std::wstring text;
    std::wstring trimmed;
  };
  const Case cases[] = {
      {L"", L""},
      {L"   ", L""},
      {L"\t\r\n\v\f ", L""},
      {L"a", L"a"},
      {L"  a  b\tc  ", L"a  b\tc"},
      {L"\r\n a\r\n", L"a"},
      {std::wstring(whiteSpace), L""},
      {std::wstring(whiteSpace) + L"Стена" + std::wstring(whiteSpace), L"Стена"},
      {L" \xFEFF ", L"\xFEFF"},
      {L" \U0001F600 ", L"\U0001F600"},
      // Only their low 16 bits are white space.
      {L"\U00012000\U00013000", L"\U00012000\U00013000"},
      {L" \0 a \0 "s, L"\0 a \0"s},  // a NUL is no white space
  };
  for (const Case& one : cases) {
    std::wstring text = one.text;
    EXPECT_EQ(Trim(text), one.trimmed);
    EXPECT_EQ(Trimmed(one.text), one.trimmed);
  }
}

TEST(Trim, HandlesFiveMillionBlanksQuickly) {
  ExpectDoneAtOnce(5'000'000, [](std::size_t size) {
    const std::wstring blanks(size, L' ');
    std::wstring text = blanks;
    EXPECT_EQ(Trim(text), L"");
    text = blanks + L"a" + blanks;
    EXPECT_EQ(Trim(text), L"a");
  });
}

TEST(Trims, ChangeTheTextInPlaceAndReturnIt) {
  std::wstring text = L" ;a; ";
  EXPECT_EQ(&TrimRight(text), &text);
  EXPECT_EQ(text, L" ;a;");
  EXPECT_EQ(&Trim(text), &text);
  EXPECT_EQ(text, L";a;");
  EXPECT_EQ(&TrimChars(text, L";"), &text);
  EXPECT_EQ(text, L"a");
}

TEST(Trimmed, IsAViewIntoTheText) {
  const std::wstring text = L"  ab ";
  EXPECT_EQ(Trimmed(text).data(), text.data() + 2);
}

TEST(TrimChars, RemovesTheUnitsOfTheSetAtBothEndsOnly) {
  struct Case {
    std::wstring text;
    std::wstring set;
    std::wstring trimmed;
  };
  const Case cases[] = {
      {L"60;", L";", L"60"},
      {L";;a;b;;", L";", L"a;b"},
      {L"{A}", L"{}", L"A"},
      {L"}{{A}{B}}{", L"{}", L"A}{B"},
      {L"\"\"a \"b\"\"", L"\"", L"a \"b"},
      {L"\" a \"", L"\"", L" a "},  // white space stays
      {L" ;a; ", L";", L" ;a; "},   // and protects what is after it
      {L"{}{}", L"{}", L""},
      {L";", L";", L""},
      {L"", L";", L""},
      {L" a ", L"", L" a "},
      {L"\0a\0"s, L"\0"s, L"a"},
      {L"\0a\0"s, L";", L"\0a\0"s},
  };
  for (const Case& one : cases) {
    std::wstring text = one.text;
    EXPECT_EQ(TrimChars(text, one.set), one.trimmed) << one.text << " by " << one.set;
  }
}

TEST(TrimChars, HandlesFiveMillionUnitsOfTheSetQuickly) {
  ExpectDoneAtOnce(5'000'000, [](std::size_t size) {
    std::wstring text(size, L';');
    EXPECT_EQ(TrimChars(text, L";"), L"");
    text = std::wstring(size, L';') + L"a" + std::wstring(size, L';');
    EXPECT_EQ(TrimChars(text, L";"), L"a");
  });
}

// Returns all texts of this length over the letters a and b.
std::vector<std::wstring> TextsOfTwoLetters(std::size_t length) {
  std::vector<std::wstring> texts = {L""};
  for (std::size_t i = 0; i < length; ++i) {
    std::vector<std::wstring> longer;
    for (const std::wstring& text : texts) {
      longer.push_back(text + L'a');
      longer.push_back(text + L'b');
    }
    texts = longer;
  }
  return texts;
}

TEST(FindText, FindsWhatThePlainSearchFinds) {
  for (std::size_t length = 0; length <= 7; ++length) {
    for (const std::wstring& what : TextsOfTwoLetters(length)) {
      for (const std::wstring& text : TextsOfTwoLetters(10)) {
        for (const std::size_t from : {0u, 1u, 5u, 10u, 11u}) {
          ASSERT_EQ(FindText(text, what, from), text.find(what, from)) << text << " " << what;
        }
      }
    }
  }
}

TEST(FindText, IsNoSlowerForATextThatRepeatsAPrefixOfThePattern) {
  ExpectDoneAtOnce(1'000'000, [](std::size_t size) {
    const std::wstring text(2 * size, L'a');
    const std::wstring what = std::wstring(size, L'a') + L'b';
    EXPECT_EQ(FindText(text, what, 0), std::wstring::npos);
    EXPECT_EQ(FindText(text + L'b', what, 0), size);
  });
}

TEST(StartsWith, ComparesUnitByUnitAndNeverMatchesAnEmptyPrefix) {
  struct Case {
    std::wstring text;
    std::wstring prefix;
    bool starts;
  };
  const Case cases[] = {
      {L"==CLASS", L"==", true},
      {L"==CLASS", L"==CLASS", true},
      {L"==class", L"==CLASS", false},
      {L"=", L"==", false},
      {L" ==", L"==", false},
      {L"a", L"", false},
      {L"", L"a", false},
      {L"", L"", false},
      {L"Стена", L"Ст", true},
      {L"Стена", L"ст", false},
      {L"\x0439", L"\x0438\x0306", false},  // one letter, composed and decomposed
      {L"\x0438\x0306", L"\x0438", true},   // a base letter is a prefix of its decomposed form
      {L"\0ab"s, L"\0a"s, true},
      {L"\0ab"s, L"\0b"s, false},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(StartsWith(one.text, one.prefix), one.starts) << one.text << ", " << one.prefix;
  }
}

TEST(SplitTrimmed, SplitsAtEachSeparatorAndKeepsOrDropsEmptyPieces) {
  struct Case {
    std::wstring text;
    Pieces withEmpty;
    Pieces withoutEmpty;
  };
  const Case cases[] = {
      {L"a;;b;", {L"a", L"", L"b", L""}, {L"a", L"b"}},
      {L"a ; b", {L"a", L"b"}, {L"a", L"b"}},
      {L";", {L"", L""}, {}},
      {L"", {L""}, {}},
      {L" \t", {L""}, {}},
      {L" a b ", {L"a b"}, {L"a b"}},
      {L";a", {L"", L"a"}, {L"a"}},
      {L" ; \t\r\n;\x3000", {L"", L"", L""}, {}},
      {L"a\n;\tb c\r", {L"a", L"b c"}, {L"a", L"b c"}},
      {L"a\0b;\0"s, {L"a\0b"s, L"\0"s}, {L"a\0b"s, L"\0"s}},
      {L"\U0001F600;Стена ", {L"\U0001F600", L"Стена"}, {L"\U0001F600", L"Стена"}},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(SplitTrimmed(one.text, L";", true), one.withEmpty) << one.text;
    EXPECT_EQ(SplitTrimmed(one.text, L";", false), one.withoutEmpty) << one.text;
  }
}

TEST(SplitTrimmed, TakesTheSeparatorLiterally) {
  struct Case {
    std::wstring text;
    std::wstring separator;
    Pieces pieces;
  };
  const Case cases[] = {
      {L"a.b", L".", {L"a", L"b"}},
      {L"abc", L".*", {L"abc"}},
      {L"a|b", L"|", {L"a", L"b"}},
      {L"a  b\tc", L" ", {L"a", L"", L"b\tc"}},
      {L"a\r\nb", L"\n", {L"a", L"b"}},
      {L"a, b,c", L", ", {L"a", L"b,c"}},
      {L"axXb", L"x", {L"a", L"Xb"}},
      {L"aaa", L"aa", {L"", L"a"}},  // occurrences don't overlap
      {L"=====", L"==", {L"", L"", L"="}},
      {L"ab", L"abc", {L"ab"}},
      {L"a\0b"s, L"\0"s, {L"a", L"b"}},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(SplitTrimmed(one.text, one.separator, true), one.pieces) << one.text;
  }
}

TEST(SplitTrimmed, FindsAnEmptySeparatorNowhere) {
  EXPECT_EQ(SplitTrimmed(L" a b ", L"", true), Pieces{L"a b"});
}

TEST(SplitTrimmed, AddsWhatIsBeyondTheLimitToTheLastPiece) {
  struct Case {
    std::wstring text;
    int limit;
    Pieces pieces;
  };
  const Case cases[] = {
      {L"a b  c d", 2, {L"a", L"b c d"}},  // dropped pieces leave no trace
      {L"a b  c d", 1, {L"a b c d"}},
      {L"a b  c d", 3, {L"a", L"b", L"c d"}},
      {L"a b  c d", 4, {L"a", L"b", L"c", L"d"}},
      {L"a b  c d", 5, {L"a", L"b", L"c", L"d"}},
      {L"a b  c d", 0, {L"a", L"b", L"c", L"d"}},
      {L"  a   b   c   ", 2, {L"a", L"b c"}},
      {L"a \tb \t c", 2, {L"a", L"b c"}},  // each piece is trimmed before it is added
      {L"   ", 2, {}},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(SplitTrimmed(one.text, L" ", false, one.limit), one.pieces)
        << one.text << " to " << one.limit;
  }
}

TEST(SplitTrimmed, FoldsEmptyPiecesTooIfTheyAreKept) {
  EXPECT_EQ(SplitTrimmed(L"a;;b;", L";", true, 2), (Pieces{L"a", L";b;"}));
}

TEST(SplitTrimmed, PutsTheWholeSeparatorBetweenFoldedPieces) {
  EXPECT_EQ(SplitTrimmed(L"a--b-- c", L"--", false, 2), (Pieces{L"a", L"b--c"}));
}

TEST(SplitTrimmed, HasNoLimitUnlessOneIsNamed) {
  const Pieces pieces = SplitTrimmed(L"1 2 3 4 5 6 7 8", L" ", false);
  EXPECT_EQ(pieces.size(), 8u);
}

TEST(SplitTrimmed, KeepsALineOfFiveMillionUnitsWhole) {
  const std::wstring line(5'000'000, L'a');
  const Pieces pieces = SplitTrimmed(line, L";", true);
  ASSERT_EQ(pieces.size(), 1u);
  EXPECT_TRUE(pieces[0] == line);
}

TEST(SplitTrimmed, SplitsAtAMillionSeparators) {
  std::wstring text;
  for (int i = 0; i < 1'000'000; ++i) text += L"a;";
  EXPECT_EQ(SplitTrimmed(text, L";", true).size(), 1'000'001u);
  const Pieces folded = SplitTrimmed(text, L";", false, 2);
  ASSERT_EQ(folded.size(), 2u);
  EXPECT_TRUE(folded[1] == text.substr(2, text.size() - 3));
}

TEST(PieceReader, ReturnsNoPieceAfterTheLast) {
  PieceReader reader(L"a;", L";", true);
  std::wstring_view piece;
  EXPECT_TRUE(reader.Next(piece));
  EXPECT_EQ(piece, L"a");
  EXPECT_TRUE(reader.Next(piece));
  EXPECT_EQ(piece, L"");
  EXPECT_FALSE(reader.Next(piece));
  EXPECT_FALSE(reader.Next(piece));
}

TEST(PieceReader, ReturnsViewsIntoTheText) {
  const std::wstring text = L"a; bc ;";
  PieceReader reader(text, L";", false);
  std::wstring_view piece;
  ASSERT_TRUE(reader.Next(piece));
  ASSERT_TRUE(reader.Next(piece));
  EXPECT_EQ(piece, L"bc");
  EXPECT_EQ(piece.data(), text.data() + 3);
}

TEST(CountPieces, ReturnsTheNumberOfPiecesOfSplitTrimmed) {
  for (const wchar_t* text : {L"", L" ", L";", L"a", L"a;;b;", L" a ; b ", L";;a; ;b c"}) {
    for (const bool keepEmpty : {false, true}) {
      EXPECT_EQ(CountPieces(text, L";", keepEmpty), SplitTrimmed(text, L";", keepEmpty).size())
          << text << ", " << keepEmpty;
    }
  }
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
