// Tests that the lookup of codes equals a linear scan, with random classificators that change in
// every way that a caller can change them, and under unusual locales.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "classificator/Classificator.h"
#include "mapping/CodeLookup.h"
#include "mapping/MapTextSection.h"
#include "naive/CodeLookup.h"
#include "naive/Records.h"
#include "support/GlobalLocale.h"
#include "support/MapTextByHand.h"
#include "support/Random.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

using namespace std::string_literals;
using Texts = std::vector<std::wstring>;

template <wchar_t from, wchar_t to>
wchar_t UpperOfOne(wchar_t unit) {
  return unit == from ? to : UpperOfLatin(unit);
}

template <wchar_t one, wchar_t other>
wchar_t UpperExchanges(wchar_t unit) {
  return unit == one ? other : unit == other ? one : unit;
}

// The capital of a letter has another capital.
wchar_t UpperOfUpper(wchar_t unit) {
  return unit >= L'a' && unit < L'z' ? static_cast<wchar_t>(unit + 1) : unit;
}

wchar_t UpperOfAllIsOne(wchar_t unit) {
  return unit == L' ' ? unit : L'a';
}

wchar_t UpperOfWhiteSpaceIsBlank(wchar_t unit) {
  return unit == L'\t' || unit == L'\u00A0' ? L' ' : UpperOfLatin(unit);
}

// Letters that are two units on one platform and one on the other.
wchar_t UpperBeyondTheBasicPlane(wchar_t unit) {
  if (unit >= L'\xDE00' && unit <= L'\xDE0F') return static_cast<wchar_t>(unit + 16);
  const long code = unit;
  if (code >= 0x10428 && code <= 0x1044F) return static_cast<wchar_t>(code - 40);
  return UpperOfLatin(unit);
}

constexpr UpperFunction uppers[] = {
    UpperOfNothing,
    UpperOfLatin,
    UpperOfLatinAndCyrillic,
    UpperOfOne<L'i', L'\u0130'>,
    UpperOfOne<L'\u0131', L'I'>,
    UpperOfOne<L'x', L' '>,
    UpperOfOne<L' ', L'x'>,
    UpperOfOne<L'\t', L'a'>,
    UpperOfOne<L'b', L'\t'>,
    UpperOfOne<L'a', L'\0'>,
    UpperOfOne<L'\0', L'a'>,
    UpperExchanges<L'a', L'A'>,
    UpperExchanges<L'x', L' '>,
    UpperExchanges<L'b', L'\u00A0'>,
    UpperOfUpper,
    UpperOfAllIsOne,
    UpperOfWhiteSpaceIsBlank,
    UpperBeyondTheBasicPlane,
};

// The letters of the words of one round.
const std::wstring letters[] = {
    L"ab",
    L"aAbB",
    L"abcxX",
    L"iI\u0130\u0131",
    L"стСТёЁ",
    L"a\t\u00A0b\u3000",
    L"a\0b"s,
    L"a\xD83D\xDE00\xDE10",
    L"a\U0001F600\U00010428\U00010400",
    L"abcdefghijABCDEFGHIJ",
};

// How rarely records are changed by hand. The first such change discards an index.
constexpr std::size_t editRates[] = {1'000'000, 10, 2};

const std::wstring separators[] = {L" ",   L" ",   L" ",       L" ", L"  ",
                                   L"   ", L" \t", L"\u00A0 ", L"\t"};

// One round: its words, its classificators and its locale.
class Round {
 public:
  explicit Round(unsigned seed) : random(seed), editsOneIn(random.OneOf(editRates)) {
    MakeWords();
    for (int i = 0; i < 3; ++i) texts.push_back(Text());
    ChangeLocale();
    for (int i = 0; i < 3; ++i) classificators.emplace_back(L"S").mapTextSection = Parsed();
  }

  void Run() {
    for (int step = 0; step < 25 && !testing::Test::HasFailure(); ++step) {
      Change();
      for (const Classificator& classificator : classificators) Compare(classificator);
    }
  }

 private:
  void MakeWords() {
    const std::wstring& units = random.OneOf(letters);
    const std::size_t count = 1 + random.Below(12);
    for (std::size_t i = 0; i < count; ++i) {
      words.push_back(Word(units, random.OneIn(20) ? 70 : 5));
    }
    if (random.OneIn(3)) ShareBeginnings(units);
  }

  std::wstring Word(const std::wstring& units, std::size_t bound) {
    std::wstring word;
    for (std::size_t length = random.Below(bound); length > 0; --length) {
      word += random.OneOf(units);
    }
    return word;
  }

  // Makes each word a prefix of the next one.
  void ShareBeginnings(const std::wstring& units) {
    const std::size_t bound = random.OneIn(3) ? 12 : 3;
    std::wstring word;
    for (std::wstring& shared : words) shared = word += Word(units, bound);
  }

  std::wstring Joined(std::size_t count) {
    std::wstring text = random.OneIn(10) ? random.OneOf(separators) : L"";
    for (std::size_t i = 0; i < count; ++i) {
      if (i > 0) text += random.OneOf(separators);
      text += random.OneOf(words);
    }
    if (random.OneIn(10)) text += random.OneOf(separators);
    return text;
  }

  std::wstring Pattern() { return Joined(random.OneIn(20) ? 30 : 1 + random.Below(4)); }

  // Returns a text that a record may match, or any text.
  std::wstring Text() {
    if (classificators.empty() || random.OneIn(2)) return Joined(random.Below(6));
    const auto& records = random.OneOf(classificators).mapTextSection.records;
    std::wstring text;
    if (records.empty()) return text;
    for (const std::wstring& token : SplitTokens(random.OneOf(records).tokens)) {
      if (!text.empty()) text += random.OneOf(separators);
      text += token;
      if (random.OneIn(3)) text += random.OneOf(words);
    }
    return text;
  }

  std::wstring Patterns() {
    std::wstring lines;
    std::size_t count = 1 + random.Below(12);
    if (random.OneIn(10)) count = random.OneIn(40) ? 1000 : 100;
    for (std::size_t i = 0; i < count; ++i) lines += Pattern() + L"\n";
    return lines;
  }

  MapTextSection Parsed() {
    MapTextSection section;
    ParseMapTextSection(section, Patterns());
    return section;
  }

  Texts SomeTokens() {
    Texts tokens;
    for (std::size_t count = random.Below(4); count > 0; --count) {
      tokens.push_back(random.OneIn(8) ? Pattern() : random.OneOf(words));
    }
    return tokens;
  }

  MapTextRecord Record() { return RecordOf(SomeTokens()); }

  void ChangeLocale() { locale.emplace(random.OneOf(uppers)); }

  void Change() {
    if (random.OneIn(4)) return ChangeLocale();
    if (!random.OneIn(editsOneIn)) return ChangeSections();
    EditRecords(random.OneOf(classificators).mapTextSection, [this](auto& records) {
      if (records.empty() || random.OneIn(3)) return ChangeOrder(records);
      ChangeRecord(random.OneOf(records));
    });
  }

  void ChangeSections() {
    Classificator& one = random.OneOf(classificators);
    Classificator& other = random.OneOf(classificators);
    switch (random.Below(11)) {
      case 0:
        one.mapTextSection = Parsed();
        break;
      case 1:
        ParseMapTextSection(one.mapTextSection, Patterns());
        break;
      case 2:
        one = other;
        break;
      case 3:
        one.mapTextSection = other.mapTextSection;
        break;
      case 4:
        one.mapTextSection.records = other.mapTextSection.records;
        break;
      case 5:
        if (&one != &other) one.mapTextSection = std::move(other.mapTextSection);
        break;
      case 6:
        if (&one != &other) one.mapTextSection.records = std::move(other.mapTextSection.records);
        break;
      case 7:
        std::swap(one.mapTextSection, other.mapTextSection);
        break;
      case 8:
        std::swap(one.mapTextSection.records, other.mapTextSection.records);
        break;
      case 9:
        // Replaces the source by a copy of another.
        classificators.push_back(one);
        classificators.erase(classificators.begin());
        break;
      default: {
        Classificator copy(one);
        if (&one != &other) one = std::move(other);
        other = std::move(copy);
      }
    }
  }

  void ChangeOrder(std::vector<MapTextRecord>& records) {
    const auto place = [&] {
      return records.begin() + static_cast<std::ptrdiff_t>(random.Below(records.size() + 1));
    };
    switch (random.Below(8)) {
      case 0:
        records.push_back(Record());
        break;
      case 1: {
        const auto where = place();
        records.insert(where, Record());
        break;
      }
      case 2:
        if (!records.empty()) records.erase(records.begin());
        break;
      case 3:
        if (!records.empty()) records.pop_back();
        break;
      case 4:
        std::reverse(records.begin(), records.end());
        break;
      case 5:
        std::rotate(records.begin(), place(), records.end());
        break;
      case 6:
        if (!records.empty()) std::swap(random.OneOf(records), random.OneOf(records));
        break;
      default:
        // The same number of records in the same memory.
        for (MapTextRecord& record : records) record.tokens = KeptTokens(SomeTokens());
    }
  }

  void ChangeRecord(MapTextRecord& record) {
    Texts tokens = SplitTokens(record.tokens);
    switch (random.Below(6)) {
      case 0:
        tokens = SomeTokens();
        break;
      case 1:
        tokens.push_back(random.OneOf(words));
        break;
      case 2:
        if (!tokens.empty()) tokens.pop_back();
        break;
      case 3:
        if (!tokens.empty()) std::swap(random.OneOf(tokens), tokens.front());
        break;
      case 4:
        for (std::wstring& token : tokens) {
          if (!token.empty()) random.OneOf(token) = random.OneOf(random.OneOf(letters));
        }
        break;
      default:
        record.text = KeptText(random.OneOf(words));
        record.code = KeptText(random.OneOf(words));
    }
    record.tokens = KeptTokens(tokens);
  }

  void Compare(const Classificator& classificator) {
    const Naive::MapTextSection naive = Naive::CopyOf(classificator.mapTextSection);
    random.OneOf(texts) = Text();
    for (const std::wstring& text : texts) {
      EXPECT_EQ(FindCodeId(classificator.mapTextSection, text), Naive::FindCodeId(naive, text))
          << testing::PrintToString(text) << " among " << Describe(naive);
      if (naive.records.empty()) continue;
      const std::size_t i = random.Below(naive.records.size());
      EXPECT_EQ(Matches(classificator.mapTextSection.records[i], text),
                Naive::Matches(naive.records[i], text))
          << testing::PrintToString(text) << " by "
          << testing::PrintToString(naive.records[i].tokens);
    }
  }

  static std::string Describe(const Naive::MapTextSection& section) {
    std::vector<Texts> patterns;
    for (const auto& record : section.records) patterns.push_back(record.tokens);
    return testing::PrintToString(patterns);
  }

  Random random;
  std::size_t editsOneIn;
  Texts words;
  Texts texts;  // looked up repeatedly; some are replaced
  std::vector<Classificator> classificators;
  std::optional<GlobalLocale> locale;
};

TEST(FindCodeId, AgreesWithALinearScanOfChangingRecordsUnderChangingLocales) {
  const unsigned rounds = SLOW_BUILD ? 300 : 1500;
  for (unsigned seed = 0; seed < rounds && !HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Round(seed).Run();
  }
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
