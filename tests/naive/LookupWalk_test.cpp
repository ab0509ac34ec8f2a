// Tests that the lookup of codes equals a linear scan by `Matches`, with hundreds of patterns of
// few letters in any order, under locales that refuse letters or turn them into blanks. The lookup
// must throw if and only if the scan throws.

#include <gtest/gtest.h>

#include <cstddef>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "mapping/CodeLookup.h"
#include "mapping/UpperTable.h"
#include "support/GlobalLocale.h"
#include "support/MapTextByHand.h"
#include "support/Random.h"
#include "support/UpperFails.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

using Texts = std::vector<std::wstring>;

constexpr int refused = -2;

template <class Lookup>
int ResultOf(const Lookup& lookup) {
  try {
    return lookup();
  } catch (const UpperCasingFailed&) {
    return refused;
  }
}

int Walk(const MapTextSection& section, std::wstring_view text) {
  const UpperTable upper;
  int position = 0;
  for (const MapTextRecord& record : section.records) {
    if (Matches(record, text, upper)) return position;
    ++position;
  }
  return noCodeId;
}

template <wchar_t one>
wchar_t UpperRefuses(wchar_t unit) {
  return unit == one ? UpperFails(unit) : UpperOfLatin(unit);
}

// Accepts a letter but refuses its capital.
template <wchar_t one>
wchar_t UpperRefusesTheCapital(wchar_t unit) {
  return unit == one ? L'\u2160' : unit == L'\u2160' ? UpperFails(unit) : UpperOfLatin(unit);
}

template <wchar_t from, wchar_t to>
wchar_t UpperOfOne(wchar_t unit) {
  return unit == from ? to : UpperOfLatin(unit);
}

// A capital whose capital is a blank: words can contain it, but patterns can't.
wchar_t UpperOfUpperIsBlank(wchar_t unit) {
  return unit == L'b' ? L'\u2160' : unit == L'\u2160' ? L' ' : UpperOfLatin(unit);
}

constexpr UpperFunction uppers[] = {
    UpperOfNothing,
    UpperOfLatin,
    UpperRefuses<L'c'>,
    UpperRefuses<L'C'>,
    UpperRefuses<L' '>,
    UpperRefusesTheCapital<L'b'>,
    UpperRefusesTheCapital<L'c'>,
    UpperOfOne<L'b', L' '>,
    UpperOfOne<L'B', L' '>,
    UpperOfOne<L'b', L'\t'>,
    UpperOfOne<L'c', L'\0'>,
    UpperOfOne<L' ', L'a'>,
    UpperOfUpperIsBlank,
};

// The texts have one letter more than most patterns, for locales that refuse only that one.
const std::wstring letters = L"abABc";

std::wstring Word(Random& random, std::size_t letterCount) {
  std::wstring word;
  for (std::size_t length = random.Below(4); length > 0; --length) {
    word += letters[random.Below(letterCount)];
  }
  return word;
}

Texts Words(Random& random, std::size_t letterCount) {
  Texts words;
  for (std::size_t count = 1 + random.Below(4); count > 0; --count) {
    words.push_back(Word(random, letterCount));
  }
  return words;
}

std::wstring Text(Random& random) {
  std::wstring text;
  for (const std::wstring& word : Words(random, letters.size())) text += word + L' ';
  if (random.OneIn(2)) text.pop_back();
  return text;
}

MapTextSection Filled(Random& random) {
  const std::size_t letterCount = random.OneIn(3) ? letters.size() : letters.size() - 1;
  std::vector<MapTextRecord> records;
  for (std::size_t count = 1 + random.Below(random.OneIn(2) ? 4 : 400); count > 0; --count) {
    records.push_back(RecordOf(Words(random, letterCount)));
  }
  MapTextSection section;
  section.records.Swap(records);
  return section;
}

TEST(FindCodeId, AgreesWithALinearScanUnderLocalesThatRefuseLetters) {
  const unsigned rounds = SLOW_BUILD ? 50 : 500;
  for (unsigned seed = 0; seed < rounds && !HasFailure(); ++seed) {
    Random random(seed);
    const MapTextSection section = Filled(random);
    for (std::size_t i = 0; i < std::size(uppers); ++i) {
      const GlobalLocale locale(uppers[i]);
      for (int count = 0; count < 40; ++count) {
        const std::wstring text = Text(random);
        EXPECT_EQ(ResultOf([&] { return FindCodeId(section, text); }),
                  ResultOf([&] { return Walk(section, text); }))
            << "seed " << seed << ", locale " << i << ": " << testing::PrintToString(text);
      }
    }
  }
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
