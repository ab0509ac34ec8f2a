// Tests that the parsers equal their naive forms on all texts up to a length: texts over the units
// that the grammars use, and texts over whole tokens, which reach states that short texts of single
// units don't.

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "base/Text.h"
#include "classificator/ColoratSection.h"
#include "domen/DomenSection.h"
#include "domen/DomenStore.h"
#include "domen/FieldAdder.h"
#include "mapping/MapTextSection.h"
#include "mapping/ParamItem.h"
#include "mapping/ParamSection.h"
#include "naive/ColoratSection.h"
#include "naive/DomenFiles.h"
#include "naive/MapTextSection.h"
#include "naive/ParamSection.h"
#include "naive/Records.h"
#include "naive/Rows.h"
#include "naive/Text.h"
#include "support/DescribeDomens.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

using testing::PrintToString;
using Texts = std::vector<std::wstring>;

// All texts of at most `length` tokens (one less in slow builds), between a common head and tail.
struct World {
  Texts tokens;
  int length;
  std::wstring head = L"";
  std::wstring tail = L"";
};

const World units = {{L"@", L"{", L"}", L"=", L":", L";", L",", L" ", L"\n", L"a", L"b"}, 6};

template <class Visit>
void VisitFrom(const std::wstring& text, const World& world, int length, const Visit& visit) {
  visit(text + world.tail);
  if (length == 0) return;
  for (const std::wstring& token : world.tokens) {
    if (testing::Test::HasFatalFailure()) return;
    VisitFrom(text + token, world, length - 1, visit);
  }
}

// Visits all texts up to the first failure.
template <class Visit>
void ForEachText(const World& world, const Visit& visit) {
  VisitFrom(world.head, world, SLOW_BUILD ? world.length - 1 : world.length, visit);
}

void SplitsAgree(const std::wstring& text, const std::wstring& separator) {
  for (const bool keepEmpty : {false, true}) {
    for (const int limit : {0, 1, 2, 3}) {
      ASSERT_EQ(SplitTrimmed(text, separator, keepEmpty, limit),
                Naive::SplitTrimmed(text, separator, keepEmpty, limit))
          << PrintToString(text) << " at " << PrintToString(separator) << ", " << keepEmpty << ", "
          << limit;
    }
  }
}

void StatementsAgree(const std::wstring& text) {
  const std::vector<std::wstring_view> statements = SplitStatements(text);
  ASSERT_EQ(Texts(statements.begin(), statements.end()), Naive::SplitStatements(text))
      << PrintToString(text);
}

void ItemsAgree(const Texts& tokens) {
  for (const bool stripBraces : {false, true}) {
    Texts left = tokens;
    Texts right = tokens;
    ASSERT_EQ(TextsOf(ParseParamItems(left, stripBraces)),
              TextsOf(Naive::ParseParamItems(right, stripBraces)))
        << PrintToString(tokens) << ", " << stripBraces;
    ASSERT_EQ(left, right) << "after " << PrintToString(tokens) << ", " << stripBraces;
  }
}

void ParamSectionsAgree(const std::wstring& text) {
  ParamSection section;
  Naive::ParamSection naive;
  section.records.resize(1);
  naive.records.resize(1);
  section.domenIds = naive.domenIds = {L"old"};
  ParseParamSection(section, text);
  Naive::ParseParamSection(naive, text);
  ASSERT_EQ(Naive::RowsOf(Naive::CopyOf(section)), Naive::RowsOf(naive)) << PrintToString(text);
  ASSERT_EQ(section.domenIds, naive.domenIds) << PrintToString(text);
  for (const wchar_t* code : {L"", L"a", L"b"}) {
    ASSERT_EQ(TextsOf(FindItemLists(section, code)),
              Naive::RowsOf(Naive::FindItemLists(naive, code)))
        << code << " of " << PrintToString(text);
    ASSERT_EQ(GetPropertyIds(section, code), Naive::GetPropertyIds(naive, code))
        << code << " of " << PrintToString(text);
  }
}

void MapTextSectionsAgree(const std::wstring& text) {
  MapTextSection section;
  Naive::MapTextSection naive;
  std::vector<MapTextRecord> records(1);
  section.records.Swap(records);
  naive.records.resize(1);
  section.domenIds = naive.domenIds = {L"old"};
  ParseMapTextSection(section, text);
  Naive::ParseMapTextSection(naive, text);
  ASSERT_EQ(Naive::RowsOf(Naive::CopyOf(section)), Naive::RowsOf(naive)) << PrintToString(text);
  ASSERT_EQ(section.defaultCode, naive.defaultCode) << PrintToString(text);
  ASSERT_EQ(section.domenIds, naive.domenIds) << PrintToString(text);
}

void ColoratSectionsAgree(const std::wstring& text) {
  Colorats colorats = {{L"old", {}}};
  Naive::Colorats naive = {{L"old", {}}};
  std::wstring active = L"old";
  std::wstring naiveActive = active;
  ASSERT_EQ(ParseColoratSection({colorats, active}, text),
            Naive::ParseColoratSection({naive, naiveActive}, text))
      << PrintToString(text);
  ASSERT_EQ(Naive::RowsOf(colorats), Naive::RowsOf(naive)) << PrintToString(text);
  ASSERT_EQ(active, naiveActive) << PrintToString(text);
}

// Also if all domains, properties and fields exist already.
void DomenSectionsAgree(const std::wstring& text) {
  DomenStore store;
  DomenStore naive;
  for (int times = 1; times <= 2; ++times) {
    FieldAdder fields;
    ParseDomenSection(store, fields, text);
    Naive::ParseDomenSection(naive, text);
    ASSERT_EQ(Describe(store), Describe(naive)) << PrintToString(text) << ", " << times;
    ASSERT_EQ(store.activeDomenId, naive.activeDomenId) << PrintToString(text) << ", " << times;
  }
}

TEST(SplitTrimmed, AgreesWithItsNaiveFormOnEverySmallText) {
  ForEachText({units.tokens, 5}, [](const std::wstring& text) { SplitsAgree(text, L";"); });
  const World few = {{L";", L" ", L"\n", L"a", L"b"}, 6};
  for (const wchar_t* separator : {L" ", L"\n", L"a", L"ab", L"aa", L"a;a", L"  ", L"; "}) {
    ForEachText(few, [&](const std::wstring& text) { SplitsAgree(text, separator); });
  }
}

TEST(SplitTrimmed, AgreesWithItsNaiveFormOnWhatIsWhiteSpace) {
  for (int unit = 0; unit <= 0xFFFF && !HasFatalFailure(); ++unit) {
    const auto wide = static_cast<wchar_t>(unit);
    SplitsAgree({wide, L'a', wide, L'b', wide, L';', wide}, L";");
  }
}

TEST(WordReader, ReturnsTheWordsOfEverySmallText) {
  ForEachText({{L" ", L"\t", L"\n", L"\x3000", L"a", L"b"}, 6}, [](const std::wstring& text) {
    Naive::Texts words;
    WordReader reader(text);
    for (std::wstring_view word; reader.Next(word);) words.emplace_back(word);
    ASSERT_EQ(words, Naive::SplitTrimmed(text, L" ", false)) << PrintToString(text);
  });
}

TEST(FindText, FindsWhatThePlainSearchFinds) {
  ForEachText({{L"a", L"b"}, 7}, [](const std::wstring& what) {
    ForEachText({{L"a", L"b"}, 8}, [&](const std::wstring& text) {
      for (std::size_t from = 0; from <= text.size() + 1; ++from) {
        ASSERT_EQ(FindText(text, what, from), text.find(what, from))
            << PrintToString(what) << " in " << PrintToString(text) << " from " << from;
      }
    });
  });
}

TEST(SplitStatements, AgreesWithItsNaiveFormOnEverySmallText) {
  ForEachText(units, StatementsAgree);
  ForEachText({{L";", L" ", L"\n", L"a"}, 9}, StatementsAgree);
}

TEST(ParseParamItems, AgreesWithItsNaiveFormOnTheTokensOfEverySmallText) {
  const auto visit = [](const std::wstring& text) {
    ItemsAgree(Naive::SplitTrimmed(text, L" ", false));
  };
  ForEachText({units.tokens, 5}, visit);
  ForEachText({{L"{", L"}", L"=", L":", L";", L",", L" ", L"a"}, 6}, visit);
  // Tokens end at blanks, so each of these can be a token or a part of one.
  const World tokens = {
      {L" ", L" a", L" b=1", L" a=b=c", L":", L"=", L";", L",", L"{", L" }", L"\t", L" ;x;"}, 5};
  ForEachText(tokens, visit);
}

TEST(ParseParamItems, AgreesWithItsNaiveFormOnTokensOfAnyKind) {
  const Texts kinds = {L"", L" ", L"a", L"\ta=1 ", L"{b}", L"{ }", L"x y;z", L"a\t;b", L"=;{"};
  std::vector<Texts> lists = {{}};
  for (std::size_t i = 0; i < lists.size(); ++i) {
    ItemsAgree(lists[i]);
    if (HasFatalFailure() || lists[i].size() == 4) continue;
    for (const std::wstring& kind : kinds) {
      lists.push_back(lists[i]);
      lists.back().push_back(kind);
    }
  }
}

TEST(ParseParamSection, AgreesWithItsNaiveFormOnEverySmallText) {
  ForEachText({units.tokens, 5}, ParamSectionsAgree);
  ForEachText({{L"a", L" b", L"=1", L"{", L"}", L" ", L"\n", L";", L"!", L"@", L"/", L"\t"}, 5},
              ParamSectionsAgree);
}

TEST(ParseMapTextSection, AgreesWithItsNaiveFormOnEverySmallText) {
  ForEachText({units.tokens, 5}, MapTextSectionsAgree);
  ForEachText({{L"@", L"{", L"}", L"=", L";", L" ", L"\n", L"a"}, 6}, MapTextSectionsAgree);
}

TEST(ParseMapTextSection, AgreesWithItsNaiveFormOnEverySmallTextOfTokens) {
  const World worlds[] = {
      // all kinds of statements
      {{L"@", L"@@", L"@$ [ ]\n", L"$", L"/",  L"!",  L"{",  L"}", L"A", L"=",
        L":", L",",  L";",        L" ", L"\n", L"\t", L"@(", L")", L"[", L"]"},
       4},
      // headers and patterns
      {{L"\n@A", L"{", L"}", L" a", L"=1", L";", L"\n", L" ", L"\nB", L"\t"}, 5},
      // domain lists and default codes
      {{L"\n@@", L"\n$", L"(", L")", L"A", L" B", L"\t", L"\n", L";"}, 5},
      // patterns of many lengths, to be sorted
      {{L"a", L" ", L"\n", L"\nb ", L"\n\u00E9\t", L"\n@C"}, 6},
  };
  for (const World& world : worlds) ForEachText(world, MapTextSectionsAgree);
}

// One header, and a pattern that shows its contents, split at line feeds.
TEST(ParseMapTextSection, AgreesWithItsNaiveFormOnEverySmallHeader) {
  const std::wstring tail = L"\nw\n\n\n\n\n\n";
  ForEachText({{L"A", L" B", L"{", L"}", L"=1", L":", L",", L";", L"\t"}, 5, L"@", tail},
              MapTextSectionsAgree);
  for (const wchar_t* marks :
       {L"[ ]", L"[[ ]]", L"[[ ]", L"[] ]", L"[ []", L"| |", L"a ba", L"["}) {
    const std::wstring head = std::wstring(L"@$ ") + marks + L"\n@";
    ForEachText({{L"[", L"]", L"{", L"|", L"a", L"b", L" "}, 5, head, tail}, MapTextSectionsAgree);
  }
}

TEST(ParseColoratSection, AgreesWithItsNaiveFormOnEverySmallText) {
  ForEachText(units, ColoratSectionsAgree);
}

TEST(ParseColoratSection, AgreesWithItsNaiveFormOnEverySmallTextOfTokens) {
  const World blocks = {{L"@", L"m ", L" ", L"\n", L";", L"\t", L"5", L"\nA 1 2 3 4", L"\n@m M\n",
                         L"B 300 -5 x 150;", L"@n N;"},
                        5};
  ForEachText(blocks, ColoratSectionsAgree);
  // Colour lines in a valid block.
  const World lines = {
      {L"\nA", L" 1", L" 20", L" +256x", L" ", L"-7", L"\t", L";"}, 6, L"@m M\nA 1 2 3 4"};
  ForEachText(lines, ColoratSectionsAgree);
}

TEST(ParseDomenSection, AgreesWithItsNaiveFormOnEverySmallTextOfTokens) {
  const World entries = {{L"@", L"@@", L"@@@", L"A", L" ", L"\n", L";", L"\t", L"1", L" 0 1", L"/",
                          L"!", L"==", L"$", L"x int 1 5", L" t", L"\nF int 0 "},
                         4};
  ForEachText(entries, DomenSectionsAgree);
  // Properties and fields of a domain that exists.
  const World fields = {
      {L"\n@P", L"\n@@ T", L" 1", L" 0", L" F", L"\nF", L" ilist", L" 5", L"x", L";", L"\n@@@E"},
      5,
      L"@@@D\n@P 0 1\n"};
  ForEachText(fields, DomenSectionsAgree);
}

TEST(ReadLeadingInt, AgreesWithItsNaiveFormOnEverySmallText) {
  const World world = {{L"-", L"+", L"0", L"7", L"214748364", L"8", L"99999999999999999999", L"x",
                        L".", L"\u0665", L"\uFF19", L"\u0BE7"},
                       5};
  ForEachText(world, [](const std::wstring& text) {
    ASSERT_EQ(ReadLeadingInt(text), Naive::ReadLeadingInt(text)) << PrintToString(text);
  });
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
