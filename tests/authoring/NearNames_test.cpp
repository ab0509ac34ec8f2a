#include "authoring/NearNames.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/AtOnce.h"
#include "support/GlobalLocale.h"
#include "support/Random.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

using Found = std::optional<std::wstring_view>;

struct Case {
  std::vector<std::wstring_view> known;
  std::wstring unknown;
  Found nearest;
};

void ExpectNearest(const std::vector<Case>& cases) {
  for (const Case& one : cases) {
    EXPECT_EQ(NearNames(one.known).NearestName(one.unknown), one.nearest)
        << testing::PrintToString(one.unknown);
  }
}

TEST(NearestName, DiffersOnlyInCase) {
  ExpectNearest({
      {{L"OUTERWALL"}, L"outerwall", L"OUTERWALL"},
      {{L"OuterWall"}, L"oUTERwALL", L"OuterWall"},
      {{L"ÀÉÖØÞŁŻĲĽ"}, L"àéöøþłżĳľ", L"ÀÉÖØÞŁŻĲĽ"},
      {{L"\u0391\u0392\u03A9\u0386\u038F"},
       L"\u03B1\u03B2\u03C9\u03AC\u03CE",
       L"\u0391\u0392\u03A9\u0386\u038F"},
      {{L"\u03C3\u03C3\u03C3"}, L"\u03C2\u03A3\u03C2", L"\u03C3\u03C3\u03C3"},
      {{L"НАРУЖНАЯ СТЕНА"}, L"наружная стена", L"НАРУЖНАЯ СТЕНА"},
      {{L"ёЁЂџЯя"}, L"ЁёђЏяЯ", L"ёЁЂџЯя"},
      {{L"\u0492\u04D8\u04B0\u04C0\u04C1"},
       L"\u0493\u04D9\u04B1\u04CF\u04C2",
       L"\u0492\u04D8\u04B0\u04C0\u04C1"},
      {{L"\u00D7\u00D7\u00D7"}, L"\u00F7\u00F7\u00F7", std::nullopt},  // signs, no letters
      {{L"\u0130\u0130\u0130"}, L"\u0131\u0131\u0131", std::nullopt},
  });
}

TEST(NearestName, DiffersOnlyInLettersThatLookAlike) {
  ExpectNearest({
      {{L"ABCEHIJKMOPSTXY"}, L"АВСЕНІЈКМОРЅТХУ", L"ABCEHIJKMOPSTXY"},
      {{L"АВСЕНІЈКМОРЅТХУ"}, L"ABCEHIJKMOPSTXY", L"АВСЕНІЈКМОРЅТХУ"},
      {{L"aceijkopsxy"}, L"асеіјкорѕху", L"aceijkopsxy"},
      {{L"O0O0"}, L"0O0\u041E", L"O0O0"},
      {{L"1lI\u0406"}, L"lI\u04061", L"1lI\u0406"},
      {{L"\u0417\u0417\u0417"}, L"333", L"\u0417\u0417\u0417"},
      {{L"ace"}, L"\u0410\u0421\u0415", std::nullopt},  // in case, too
  });
}

TEST(NearestName, IsOneEditAway) {
  ExpectNearest({
      {{L"wall"}, L"wal", L"wall"},
      {{L"wall"}, L"wwall", L"wall"},
      {{L"wall"}, L"ball", L"wall"},
      {{L"wall"}, L"awll", L"wall"},
      {{L"ab"}, L"ba", L"ab"},
      {{L"b"}, L"ab", L"b"},
      {{L"Стена"}, L"Стенка", L"Стена"},
      {{L"wall"}, L"wa", std::nullopt},
      {{L"wall"}, L"bell", std::nullopt},
  });
}

TEST(NearestName, IsTwoEditsAwayFromOneOfFiveUnits) {
  ExpectNearest({
      {{L"window"}, L"wnidwo", L"window"},
      {{L"window"}, L"windowed", L"window"},
      {{L"winds"}, L"wander", std::nullopt},
      {{L"winds"}, L"wendy", L"winds"},
      {{L"wen"}, L"wendy", L"wen"},
      {{L"wendys"}, L"wend", std::nullopt},
  });
}

// Otherwise `ca` would be two edits away from `abc`, by a swap and an insertion into it.
TEST(NearestName, IsNotReachedByAnEditOfWhatWasSwapped) {
  ExpectNearest({
      {{L"--abc"}, L"--ca-", std::nullopt},
      {{L"wall abc"}, L"wall ca", std::nullopt},
      {{L"wall acb"}, L"wall ca", L"wall acb"},
  });
}

// Every name of one unit is one edit away from every other.
TEST(NearestName, IsNotLookedForByEditsOfASingleUnit) {
  ExpectNearest({
      {{L"a", L"ab", L""}, L"b", std::nullopt},
      {{L"a", L"ab", L""}, L"", std::nullopt},
      {{L"a", L"B"}, L"b", L"B"},
  });
}

TEST(NearestName, IsThatOfTheFirstKindThenOfTheFewestEditsThenTheFirst) {
  ExpectNearest({
      {{L"coat", L"COATS", L"\u0441oats", L"coatz"}, L"coats", L"COATS"},
      {{L"coat", L"\u0441oats", L"coatz"}, L"coats", L"\u0441oats"},
      {{L"coa", L"cobts", L"coat"}, L"coats", L"coat"},
      {{L"goats", L"boats"}, L"coats", L"boats"},
      {{L"boats", L"goats"}, L"coats", L"boats"},
      {{L"coatS", L"Coats"}, L"coats", L"Coats"},
      {{L"\u0441oats", L"co\u0430ts"}, L"coats", L"co\u0430ts"},
  });
}

TEST(NearestName, IsNeverTheNameItself) {
  ExpectNearest({
      {{}, L"wall", std::nullopt},
      {{L"wall"}, L"wall", std::nullopt},
      {{L"wall", L"wall"}, L"wall", std::nullopt},
      {{L"Wall", L"wall", L"WALL"}, L"WALL", L"Wall"},
      {{L"wall", L"walls"}, L"wall", L"walls"},
  });
}

TEST(NearestName, FollowsNoLocale) {
  const GlobalLocale locale(UpperOfNothing);
  ExpectNearest({{{L"СТЕНА I"}, L"стена i", L"СТЕНА I"}});
}

TEST(NearestName, IsLookedForByEditsUpToALengthOf64) {
  const std::wstring name(64, L'x');
  const std::wstring longer(65, L'x');
  ExpectNearest({
      {{name}, name.substr(2), name},
      {{name.substr(2)}, name, name.substr(2)},
      {{name}, longer, std::nullopt},
      {{longer}, name, std::nullopt},
  });
  const std::wstring capitals(100'000, L'X');
  ExpectNearest({{{capitals}, std::wstring(100'000, L'x'), capitals}});
}

// The distance by the full table.
std::size_t Edits(std::wstring_view left, std::wstring_view right) {
  std::vector<std::vector<std::size_t>> edits(left.size() + 1,
                                              std::vector<std::size_t>(right.size() + 1));
  for (std::size_t i = 0; i <= left.size(); ++i) {
    for (std::size_t j = 0; j <= right.size(); ++j) {
      std::size_t& here = edits[i][j];
      here = i + j;
      if (i == 0 || j == 0) continue;
      here = std::min({edits[i - 1][j] + 1, edits[i][j - 1] + 1,
                       edits[i - 1][j - 1] + (left[i - 1] == right[j - 1] ? 0 : 1)});
      if (i < 2 || j < 2 || left[i - 1] != right[j - 2] || left[i - 2] != right[j - 1]) continue;
      here = std::min(here, edits[i - 2][j - 2] + 1);
    }
  }
  return edits[left.size()][right.size()];
}

// Those of the letters that the random names have.
std::wstring WithoutCase(std::wstring_view name) {
  std::wstring folded(name);
  std::replace(folded.begin(), folded.end(), L'A', L'a');
  return folded;
}

std::wstring WithoutLooks(std::wstring_view name) {
  std::wstring folded(name);
  std::replace(folded.begin(), folded.end(), L'\u0430', L'a');
  return folded;
}

// What is the nearer the less it is; 5 if it is not near.
std::size_t Rank(std::wstring_view unknown, std::wstring_view known) {
  if (known == unknown) return 5;
  if (WithoutCase(known) == WithoutCase(unknown)) return 1;
  if (WithoutLooks(known) == WithoutLooks(unknown)) return 2;
  const std::size_t most = unknown.size() < 2 ? 0 : unknown.size() < 5 ? 1 : 2;
  const std::size_t edits = Edits(unknown, known);
  return edits <= most && known.size() <= 64 && unknown.size() <= 64 ? 2 + edits : 5;
}

Found NearestOfAll(std::wstring_view unknown, const std::vector<std::wstring>& known) {
  Found nearest;
  std::size_t least = 5;
  for (const std::wstring& name : known) {
    const std::size_t rank = Rank(unknown, name);
    if (rank > least || rank == 5 || (rank == least && *nearest < name)) continue;
    least = rank;
    nearest = name;
  }
  return nearest;
}

struct Shape {
  const char* what;
  std::wstring_view letters;
  std::size_t least;  // units of a name
  std::size_t most;
  std::wstring_view begin;  // of all names
  std::wstring_view end;
};

std::wstring NameOf(const Shape& shape, Random& random) {
  std::wstring name(shape.begin);
  for (std::size_t i = random.Between(shape.least, shape.most); i != 0; --i) {
    name += random.OneOf(shape.letters);
  }
  return name.append(shape.end);
}

void Edit(std::wstring& name, std::wstring_view letters, Random& random) {
  const std::size_t place = random.Below(name.size() + 1);
  const std::wstring unit(1, random.OneOf(letters));
  if (place == name.size() || random.OneIn(4)) {
    name.insert(place, unit);
  } else if (random.OneIn(3)) {
    name.erase(place, 1);
  } else if (place + 1 == name.size() || random.OneIn(2)) {
    name.replace(place, 1, unit);
  } else {
    std::swap(name[place], name[place + 1]);
  }
}

TEST(NearestName, IsThatOfAComparisonWithAllNames) {
  const Shape shapes[] = {
      {"short", L"ab", 0, 5, L"", L""},
      {"of few letters", L"abc", 3, 9, L"", L""},
      {"of many letters", L"abcdefghijklmnopqrstuvwxyz", 4, 12, L"", L""},
      {"of letters that are alike", L"aA\u0430b", 1, 6, L"", L""},
      {"with one beginning", L"abcd", 3, 6, L"Common_beginning_", L""},
      {"with one ending", L"abcd", 3, 6, L"", L"_common_ending"},
      {"of nearly the greatest length", L"abc", 3, 7, L"", std::wstring_view()},
  };
  const std::wstring filling(58, L'-');
  Random random(1);
  std::size_t near = 0;
  std::size_t notNear = 0;
  for (Shape shape : shapes) {
    if (!shape.end.data()) shape.end = filling;
    for (int round = 0; round < (SLOW_BUILD ? 1 : 15); ++round) {
      std::vector<std::wstring> known(random.Between(1, 300));
      for (std::wstring& name : known) name = NameOf(shape, random);
      const NearNames names({known.begin(), known.end()});
      for (int i = 0; i < (SLOW_BUILD ? 20 : 50); ++i) {
        std::wstring unknown = random.OneOf(known);
        for (std::size_t edits = random.Below(4); edits != 0; --edits) {
          Edit(unknown, shape.letters, random);
        }
        const Found nearest = NearestOfAll(unknown, known);
        ASSERT_EQ(names.NearestName(unknown), nearest)
            << "names " << shape.what << ": " << testing::PrintToString(unknown);
        ++(nearest ? near : notNear);
      }
    }
  }
  EXPECT_GT(near, notNear / 10);
  EXPECT_GT(notNear, near / 10);
}

// A surrogate pair is two units, of which an edit can take one.
TEST(NearestName, CountsUnits) {
  ExpectNearest({
      {{L"door\U0001F6AA"}, L"door", sizeof(wchar_t) == 2 ? Found() : Found(L"door\U0001F6AA")},
      {{L"door\U0001F6AA\U0001F6AA"},
       L"doors",
       sizeof(wchar_t) == 2 ? Found() : Found(L"door\U0001F6AA\U0001F6AA")},
  });
}

TEST(NearestName, IsFoundAtOnceAmongManyNames) {
  const std::wstring hundred(100, L'-');
  const Shape shapes[] = {
      {"random", L"abcdefghijklmnopqrstuvwxyz", 6, 20, L"", L""},
      {"with one beginning", L"abcdefghijklmnopqrstuvwxyz", 8, 8, L"Common_beginning_", L""},
      {"with one ending", L"abcdefghijklmnopqrstuvwxyz", 8, 8, L"", L"_common_ending"},
      {"with both", L"abcdefghijklmnopqrstuvwxyz", 8, 8, L"Common_", L"_ending"},
      {"of two letters", L"ab", 64, 64, L"", L""},
      {"numbers", L"0123456789", 7, 7, L"", L""},
      {"too long", L"ab", 40, 40, L"", hundred},
  };
  for (const Shape& shape : shapes) {
    SCOPED_TRACE(shape.what);
    ExpectDoneAtOnce(SLOW_BUILD ? 10'000 : 100'000, [&](std::size_t size) {
      Random random(1);
      std::vector<std::wstring> known(size);
      for (std::wstring& name : known) name = NameOf(shape, random);
      const NearNames names({known.begin(), known.end()});
      for (std::size_t i = 0; i < 1000; ++i) {
        std::wstring unknown = random.OneOf(known);
        for (std::size_t edits = 1 + i % 4; edits != 0; --edits) {
          Edit(unknown, shape.letters, random);
        }
        names.NearestName(unknown);
      }
    });
  }
}

// Names of two edits to a text of one letter, each with an ending that is too far from it.
TEST(NearestName, IsGivenUpAtOnceAmongNamesMadeToBeHard) {
  ExpectDoneAtOnce(SLOW_BUILD ? 10'000 : 100'000, [](std::size_t size) {
    Random random(1);
    std::vector<std::wstring> known;
    while (known.size() < size) {
      std::wstring& name = known.emplace_back(61, L'a');
      for (int i = 0; i < 2; ++i) name[random.Below(60)] = random.Between(L'a', L'z');
      name += L"xyz";
    }
    const NearNames names({known.begin(), known.end()});
    for (int i = 0; i < 20; ++i) names.NearestName(std::wstring(64, L'a'));
  });
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
