#include "classificator/ColoratSection.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <limits>
#include <map>
#include <string>
#include <string_view>

#include "support/AtOnce.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

using namespace std::string_literals;

constexpr int least = std::numeric_limits<int>::min();
constexpr int greatest = std::numeric_limits<int>::max();

// Number, three channels and percentage by key text.
using Colors = std::map<std::wstring, std::array<int, 5>>;
using AllColors = std::map<std::wstring, Colors>;

struct Parsed {
  explicit Parsed(std::wstring_view text) {
    const int count = ParseColoratSection({colorats, active}, text);
    EXPECT_EQ(count, static_cast<int>(colorats.size()));
  }

  AllColors All() const {
    AllColors all;
    for (const auto& [id, colors] : colorats) {
      all[id];
      for (const auto& [key, entry] : colors) {
        all[id][std::wstring(key)] = {entry.number, entry.channel1, entry.channel2, entry.channel3,
                                      entry.percent};
      }
    }
    return all;
  }

  Colorats colorats;
  std::wstring active = L"before";
};

TEST(ParseColoratSection, MakesAColoratOfEachBlock) {
  const Parsed parsed(
      L"@main Main colouring\nA100 255 0 0 50\nA200 0 128 255 0\n"
      L"@second Other colouring\nB1 10 20 30 100");
  EXPECT_EQ(parsed.All(),
            (AllColors{{L"main", {{L"A100", {1, 255, 0, 0, 50}}, {L"A200", {2, 0, 128, 255, 0}}}},
                       {L"second", {{L"B1", {1, 10, 20, 30, 100}}}}}));
  EXPECT_EQ(parsed.active, L"second");
}

TEST(ParseColoratSection, ReplacesWhatWasThereAndKeepsTheActiveIdIfNoBlockIsOne) {
  Parsed parsed(L"@main M\nA 1 2 3 4\n@second S\nA 1 2 3 4");
  EXPECT_EQ(ParseColoratSection({parsed.colorats, parsed.active}, L"@third T\nB 1 2 3 4"), 1);
  EXPECT_EQ(parsed.All(), (AllColors{{L"third", {{L"B", {1, 1, 2, 3, 4}}}}}));
  EXPECT_EQ(parsed.active, L"third");
  EXPECT_EQ(ParseColoratSection({parsed.colorats, parsed.active}, L""), 0);
  EXPECT_EQ(parsed.All(), AllColors{});
  EXPECT_EQ(parsed.active, L"third");
}

TEST(ParseColoratSection, IgnoresWhatIsNoBlock) {
  for (const wchar_t* text : {
           L"", L" \t\n", L"@", L"@@@", L"@;@\n@",
           L"@main Main",                // one line
           L"@main Main\n",              //
           L"@main Main;\n",             // empty lines don't count
           L"main A 1 2 3 4",            //
           L"@main\nA 1 2 3 4",          // no blank after the id
           L"@main \nA 1 2 3 4",         // which is trimmed away at the end of the line
           L"@main\tMain\nA 1 2 3 4",    // a tab is no blank
           L"@main\x00A0M\nA 1 2 3 4",   //
           L"@main\nA 1 2 3 4@second",   //
           L"@main M@main M@A 1 2 3 4",  // blocks of one id, each of one line
       }) {
    const Parsed parsed(text);
    EXPECT_EQ(parsed.All(), AllColors{}) << text;
    EXPECT_EQ(parsed.active, L"before") << text;
  }
}

TEST(ParseColoratSection, BeginsABlockAtEachAtSign) {
  const Colors colors = {{L"A", {1, 1, 2, 3, 4}}};
  struct Case {
    const wchar_t* text;
    AllColors all;
  };
  const Case cases[] = {
      {L"main M\nA 1 2 3 4", {{L"main", colors}}},  // the text before the first one is a block too
      {L"m M\nA 1 2 3 4\n@n N\nA 1 2 3 4", {{L"m", colors}, {L"n", colors}}},
      {L"@m M\nA 1 2 3 4@n N\nA 1 2 3 4", {{L"m", colors}, {L"n", colors}}},
      {L"@m M @n N\nA 1 2 3 4", {{L"n", colors}}},
      {L"@m M\nA 1 2 3 4\nx@A 5 6 7 8\nA 1 2 3 4", {{L"A", colors}, {L"m", colors}}},
      {L"@@ @\n@m M\nA 1 2 3 4\n@@", {{L"m", colors}}},
      {L"@\t m M\nA 1 2 3 4", {{L"m", colors}}},
      {L"@m\n@M\nA 1 2 3 4", {}},
  };
  for (const Case& one : cases) EXPECT_EQ(Parsed(one.text).All(), one.all) << one.text;
}

TEST(ParseColoratSection, TakesTheTitleUpToItsFirstBlankAsTheId) {
  struct Case {
    std::wstring title;
    std::wstring id;
  };
  const Case cases[] = {
      {L"main Main colouring", L"main"},
      {L"main   M", L"main"},
      {L"main\tx M", L"main\tx"},
      {L"Main main", L"Main"},
      {L"1 2 3 4 5", L"1"},
      {L"(a) b", L"(a)"},
      {L"Главный цвет", L"Главный"},
      {L"\U0001F600 x", L"\U0001F600"},
      {L"a\0b c"s, L"a\0b"s},
  };
  for (const Case& one : cases) {
    const Parsed parsed(L"@" + one.title + L"\nA 1 2 3 4");
    EXPECT_EQ(parsed.All(), (AllColors{{one.id, {{L"A", {1, 1, 2, 3, 4}}}}})) << one.title;
    EXPECT_EQ(parsed.active, one.id);
  }
}

TEST(ParseColoratSection, SplitsEachBlockAtSemicolonsUnlessLineFeedsYieldMoreLines) {
  const Colors ab = {{L"A", {1, 1, 2, 3, 4}}, {L"B", {2, 5, 6, 7, 8}}};
  struct Case {
    const wchar_t* text;
    AllColors all;
  };
  const Case cases[] = {
      {L"@m M;A 1 2 3 4;B 5 6 7 8", {{L"m", ab}}},
      {L"@m M;\nA 1 2 3 4;\nB 5 6 7 8;\n", {{L"m", ab}}},  // on a tie semicolons win
      {L"@m M\nA 1 2 3 4\nB 5 6 7 8", {{L"m", ab}}},
      {L"@m M\nA 1 2 3 4;\nB 5 6 7 8;", {{L"m", ab}}},  // line feeds win; "4;" is the number 4
      {L"@m M\n;;;;A 1 2 3 4\n;;B 5 6 7 8;;", {{L"m", ab}}},  // empty lines don't count
      {L"@m M\n\n\nA 1 2 3 4;\n\n", {{L"m", {{L"A", {1, 1, 2, 3, 4}}}}}},  // nor do blank ones
      // If semicolons win, the title extends over the line feed.
      {L"@m M\nA 1 2 3 4;B 5 6 7 8", {{L"m", {{L"B", {1, 5, 6, 7, 8}}}}}},
      {L"@m\nA 1 2 3 4;B 5 6 7 8", {{L"m\nA", {{L"B", {1, 5, 6, 7, 8}}}}}},
      {L"@m M;A 1 2\n3 4;x", {{L"m", {}}}},  // four pieces: a line feed is no separator
      {L"@m M;A 1 2\n 3 4;x", {{L"m", {{L"A", {1, 1, 2, 3, 4}}}}}},
      // Each block is judged by itself.
      {L"@m M;A 1 2 3 4;B 5 6 7 8@n N\nA 1 2 3 4\nB 5 6 7 8", {{L"m", ab}, {L"n", ab}}},
  };
  for (const Case& one : cases) EXPECT_EQ(Parsed(one.text).All(), one.all) << one.text;
}

TEST(ParseColoratSection, TakesALineOfExactlyFivePieces) {
  struct Case {
    std::wstring line;
    Colors colors;
  };
  const Case cases[] = {
      {L"A 1 2 3 4", {{L"A", {1, 1, 2, 3, 4}}}},
      {L"  A   1 2  3    4  ", {{L"A", {1, 1, 2, 3, 4}}}},
      {L"A 1 2 3 4 5", {}},
      {L"A 1 2 3", {}},
      {L"A", {}},
      {L"A 1 2 3 \t", {}},
      {L"A\t1 2 3 4", {}},  // only blanks separate
      {L"A\t1 2 3 4 5", {{L"A\t1", {1, 2, 3, 4, 5}}}},
      {L"A \t1 2\t 3 \t4\t", {{L"A", {1, 1, 2, 3, 4}}}},  // but all white space is trimmed
      {L"A \t 1 2 3 4", {{L"A", {1, 1, 2, 3, 4}}}},
      {L"A,1,2,3,4", {}},
      {L"1 2 3 4 5", {{L"1", {1, 2, 3, 4, 5}}}},
      {L"Дверь 1 2 3 4", {{L"Дверь", {1, 1, 2, 3, 4}}}},
      {L"\U0001F600 1 2 3 4", {{L"\U0001F600", {1, 1, 2, 3, 4}}}},
      // Only their low 16 bits are a blank and a digit.
      {L"\U00012000 \U00010665 2 3 4", {{L"\U00012000", {1, 0, 2, 3, 4}}}},
      {L"a\0b 1 2 3 4"s, {{L"a\0b"s, {1, 1, 2, 3, 4}}}},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(Parsed(L"@m M\n" + one.line).All(), (AllColors{{L"m", one.colors}})) << one.line;
  }
}

TEST(ParseColoratSection, MovesValuesOutOfRangeToItsNearerEnd) {
  struct Case {
    const wchar_t* value;
    int channel;
    int percent;
  };
  const Case cases[] = {
      {L"-1", 0, 0},
      {L"0", 0, 0},
      {L"100", 100, 100},
      {L"101", 101, 100},
      {L"255", 255, 100},
      {L"256", 255, 100},
      {L"-2147483649", 0, 0},
      {L"x", 0, 0},
      {L"2147483648", 255, 100},
      {L"4294967301", 255, 100},  // 5 modulo 2^32, but clamped to the maximum
      {L"-4294967291", 0, 0},     // 5 modulo 2^32 again
      {L"12.9", 12, 12},
      {L"12%", 12, 12},
  };
  for (const Case& one : cases) {
    const std::wstring value = one.value;
    const Parsed parsed(L"@m M\nA " + value + L" " + value + L" " + value + L" " + value);
    EXPECT_EQ(
        parsed.All(),
        (AllColors{{L"m", {{L"A", {1, one.channel, one.channel, one.channel, one.percent}}}}}))
        << value;
  }
}

TEST(ParseColoratSection, CountsTheLinesOfABlockThatItTakes) {
  const Parsed parsed(
      L"@m M\nA 1 1 1 1\nbroken 2 2\nB x 3 3 3\nA 4 4 4 4\nbroken 5 5 5 5 5\nC 6 6 6 6");
  EXPECT_EQ(
      parsed.All(),
      (AllColors{
          {L"m", {{L"A", {1, 1, 1, 1, 1}}, {L"B", {2, 0, 3, 3, 3}}, {L"C", {4, 6, 6, 6, 6}}}}}));
}

TEST(ParseColoratSection, MakesOneColoratOfBlocksOfOneIdAndKeepsTheFirstOfEqualKeys) {
  const Parsed parsed(
      L"@m M\nA 1 1 1 1\nB 2 2 2 2\n@n N\nA 3 3 3 3\n@m other\nB 4 4 4 4\nC 5 5 5 5");
  EXPECT_EQ(parsed.All(),
            (AllColors{
                {L"m", {{L"A", {1, 1, 1, 1, 1}}, {L"B", {2, 2, 2, 2, 2}}, {L"C", {2, 5, 5, 5, 5}}}},
                {L"n", {{L"A", {1, 3, 3, 3, 3}}}}}));
  EXPECT_EQ(parsed.active, L"m");
}

TEST(ParseColoratSection, ActivatesTheLastBlockThatIsOneEvenIfItHasNoColours) {
  EXPECT_EQ(Parsed(L"@m M\nA 1 2 3 4\n@n N\nbroken").active, L"n");
  EXPECT_EQ(Parsed(L"@m M\nA 1 2 3 4\n@n N\n@o\nA 1 2 3 4").active, L"m");
}

TEST(ParseColoratSection, DistinguishesKeysAndIdsUnitByUnit) {
  const Parsed parsed(L"@m M\na 1 1 1 1\nA 2 2 2 2\nAA 3 3 3 3\n@M M\na 4 4 4 4");
  EXPECT_EQ(
      parsed.All(),
      (AllColors{
          {L"M", {{L"a", {1, 4, 4, 4, 4}}}},
          {L"m", {{L"A", {2, 2, 2, 2, 2}}, {L"AA", {3, 3, 3, 3, 3}}, {L"a", {1, 1, 1, 1, 1}}}}}));
}

TEST(ParseColoratSection, HandlesAMillionSeparatorsQuickly) {
  for (const wchar_t separator : {L'@', L';', L'\n', L' '}) {
    ExpectDoneAtOnce(1'000'000, [separator](std::size_t size) {
      const std::wstring separators(size, separator);
      const Parsed parsed(separators + L"@m M\nA 1 2 3 4\n" + separators);
      EXPECT_EQ(parsed.All(), (AllColors{{L"m", {{L"A", {1, 1, 2, 3, 4}}}}})) << int{separator};
    });
  }
}

TEST(ParseColoratSection, TakesAKeyOfMillionsOfUnitsAndManyKeys) {
  const std::wstring key(5'000'000, L'a');
  const Parsed one(L"@m M\n" + key + L" 1 2 3 4");
  ASSERT_EQ(one.colorats.at(L"m").size(), 1u);
  EXPECT_TRUE(one.colorats.at(L"m").begin()->first == key);

  std::wstring text = L"@m M";
  for (int i = 1; i <= 50'000; ++i) text += L"\nA" + std::to_wstring(i) + L" 1 2 3 4";
  const Parsed many(text);
  EXPECT_EQ(many.colorats.at(L"m").size(), 50'000u);
  EXPECT_EQ(many.colorats.at(L"m").find(L"A50000")->second.number, 50'000);
}

TEST(ReadLeadingInt, ReadsAnOptionalSignAndDigitsAsFarAsTheyGo) {
  struct Case {
    std::wstring text;
    int number;
  };
  const Case cases[] = {
      {L"0", 0},
      {L"12", 12},
      {L"007", 7},
      {L"+5", 5},
      {L"-5", -5},
      {L"-0", 0},
      {L"12x", 12},
      {L"12 3", 12},
      {L"12.9", 12},
      {L"1e3", 1},
      {L"0x1F", 0},
      {L"5-3", 5},
      {L"5\0"
       L"6"s,
       5},
      {L"", 0},
      {L"x", 0},
      {L"x5", 0},
      {L"+", 0},
      {L"-", 0},
      {L"+-5", 0},
      {L"--5", 0},
      {L"- 5", 0},
      {L".5", 0},
      {L"\0"
       L"5"s,
       0},
      {L"\x2212"
       L"5",
       0},  // a minus that is no hyphen
      {L"\xFF0D"
       L"5",
       0},
      {L"\xFEFF"
       L"5",
       0},
  };
  for (const Case& one : cases) EXPECT_EQ(ReadLeadingInt(one.text), one.number) << one.text;
}

TEST(ReadLeadingInt, ReturnsTheNearestLimitBeyond32Bits) {
  struct Case {
    std::wstring text;
    int number;
  };
  const Case cases[] = {
      {L"2147483646", greatest - 1},
      {L"2147483647", greatest},
      {L"+2147483647", greatest},
      {L"2147483648", greatest},
      {L"4294967296", greatest},
      {L"4294967301", greatest},
      {L"9223372036854775808", greatest},
      {L"18446744073709551621", greatest},
      {L"2147483648x", greatest},
      {L"-2147483647", least + 1},
      {L"-2147483648", least},
      {L"-2147483649", least},
      {L"-4294967301", least},
      {L"-18446744073709551621", least},
      {L"000000000000000000000000000012", 12},
      {L"-000000000000000000002147483648", least},
  };
  for (const Case& one : cases) EXPECT_EQ(ReadLeadingInt(one.text), one.number) << one.text;
}

TEST(ReadLeadingInt, KnowsTheDigitsOfTheScriptsThatTheRuntimeOfWindowsKnows) {
  constexpr wchar_t zeros[] = {
      L'0',       // Latin
      L'\x0660',  // Arabic
      L'\x06F0',  // Arabic, extended
      L'\x0966',  // Devanagari
      L'\x09E6',  // Bengali
      L'\x0A66',  // Gurmukhi
      L'\x0AE6',  // Gujarati
      L'\x0B66',  // Oriya
      L'\x0C66',  // Telugu
      L'\x0CE6',  // Kannada
      L'\x0D66',  // Malayalam
      L'\x0E50',  // Thai
      L'\x0ED0',  // Lao
      L'\x0F20',  // Tibetan
      L'\x1040',  // Myanmar
      L'\x17E0',  // Khmer
      L'\x1810',  // Mongolian
      L'\xFF10',  // of full width
  };
  // A leading one distinguishes a zero from no digit.
  std::map<wchar_t, int> expected;
  for (const wchar_t zero : zeros) {
    for (int digit = 0; digit < 10; ++digit) {
      expected[static_cast<wchar_t>(zero + digit)] = 10 + digit;
    }
  }
  for (int unit = 0; unit <= 0xFFFF; ++unit) {
    const auto wide = static_cast<wchar_t>(unit);
    const auto found = expected.find(wide);
    const int number = found == expected.end() ? 1 : found->second;
    ASSERT_EQ(ReadLeadingInt(std::wstring{L'1', wide}), number) << unit;
  }
}

TEST(ReadLeadingInt, MixesScriptsAndPassesOverDigitsOfOtherKinds) {
  EXPECT_EQ(ReadLeadingInt(L"-1\x0662\xFF13"), -123);
  EXPECT_EQ(ReadLeadingInt(L"\x0968\x096B\x096B"), 255);
  EXPECT_EQ(ReadLeadingInt(L"\x00B2"), 0);      // superscript
  EXPECT_EQ(ReadLeadingInt(L"\x2463"), 0);      // in a circle
  EXPECT_EQ(ReadLeadingInt(L"\x0BE7"), 0);      // Tamil
  EXPECT_EQ(ReadLeadingInt(L"\U0001D7CF"), 0);  // mathematical, above U+FFFF
  EXPECT_EQ(ReadLeadingInt(L"\U00010665"), 0);  // its low 16 bits are an Arabic digit
  EXPECT_EQ(ReadLeadingInt(L"1\U0001FF15"), 1);
}

TEST(ReadLeadingInt, HandlesMillionsOfDigitsQuickly) {
  ExpectDoneAtOnce(5'000'000, [](std::size_t size) {
    EXPECT_EQ(ReadLeadingInt(std::wstring(size, L'9')), greatest);
    EXPECT_EQ(ReadLeadingInt(L"-" + std::wstring(size, L'9')), least);
    EXPECT_EQ(ReadLeadingInt(std::wstring(size, L'0') + L"7"), 7);
  });
}

TEST(ParseColoratSection, KeepsTheKeyTextsWhateverHappensToTheSection) {
  Colorats colorats;
  std::wstring active;
  {
    std::wstring text = L"@main M\nA long key text 1 2 3 4\nKey-of-many-letters 1 2 3 4";
    ParseColoratSection({colorats, active}, text);
    text.assign(text.size(), L'x');
  }
  const Colorats copy = colorats;
  colorats.clear();
  ASSERT_EQ(copy.at(L"main").size(), 1u);
  EXPECT_EQ(copy.at(L"main").begin()->first, L"Key-of-many-letters");
}

TEST(ColorMap, FindsAndListsWhatWasAddedInBetween) {
  ColorMap colors;
  const auto keys = [&colors] {
    std::wstring all;
    for (const auto& [key, entry] : colors) all += key;
    return all;
  };
  EXPECT_EQ(colors.find(L"b"), colors.end());
  colors.Add(L"c", {1, 0, 0, 0, 0});
  colors.Add(L"a", {2, 0, 0, 0, 0});
  colors.Add(L"c", {3, 0, 0, 0, 0});
  EXPECT_EQ(keys(), L"ac");
  EXPECT_EQ(colors.find(L"c")->second.number, 1);
  colors.Add(L"b", {4, 0, 0, 0, 0});
  colors.Add(L"a", {5, 0, 0, 0, 0});
  EXPECT_EQ(colors.find(L"a")->second.number, 2);
  EXPECT_EQ(colors.find(L"b")->second.number, 4);
  EXPECT_EQ(colors.find(L"d"), colors.end());
  EXPECT_EQ(colors.size(), 3u);
  EXPECT_EQ(keys(), L"abc");
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
