// The lookup of codes, held against the walk over the records, over classificators that a seed
// makes and then changes in every way that a caller can, and over locales of the oddest kinds.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "classificator/Classificator.h"
#include "mapping/CodeLookup.h"
#include "mapping/MapTextSection.h"
#include "naive/CodeLookup.h"
#include "naive/Random.h"
#include "support/GlobalLocale.h"

namespace TolvenLibs::RevitMappingEditorDll {
namespace {

using namespace std::string_literals;
using Naive::Random;
using Texts = std::vector<std::wstring>;

template <wchar_t from, wchar_t to>
wchar_t UpperOfOne(wchar_t unit) {
  return unit == from ? to : UpperOfLatin(unit);
}

template <wchar_t one, wchar_t other>
wchar_t UpperExchanges(wchar_t unit) {
  return unit == one ? other : unit == other ? one : unit;
}

// The capital of a letter has a capital of its own.
wchar_t UpperOfUpper(wchar_t unit) {
  return unit >= L'a' && unit < L'z' ? static_cast<wchar_t>(unit + 1) : unit;
}

wchar_t UpperOfAllIsOne(wchar_t unit) {
  return unit == L' ' ? unit : L'a';
}

wchar_t UpperOfWhiteSpaceIsBlank(wchar_t unit) {
  return unit == L'\t' || unit == L'\u00A0' ? L' ' : UpperOfLatin(unit);
}

wchar_t UpperBeyondTheBasicPlane(wchar_t unit) {
  if (unit >= L'\xDE00' && unit <= L'\xDE0F') return static_cast<wchar_t>(unit + 16);
  if constexpr (std::numeric_limits<wchar_t>::max() > 0xFFFF) {
    constexpr int small = 0x10428;
    if (unit >= small && unit < small + 40) return static_cast<wchar_t>(unit - 40);
  }
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

// What the words of one round are made of.
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

const std::wstring separators[] = {L" ",   L" ",   L" ",       L" ", L"  ",
                                   L"   ", L" \t", L"\u00A0 ", L"\t"};

// One round: its words, its classificators and its locale.
class Round {
 public:
  explicit Round(unsigned seed) : random(seed) {
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
      std::wstring word;
      for (std::size_t length = random.Below(5); length > 0; --length) word += random.OneOf(units);
      words.push_back(word);
    }
    if (random.OneIn(3)) ShareBeginnings(units);
  }

  // Each word begins the next one.
  void ShareBeginnings(const std::wstring& units) {
    std::wstring word;
    for (std::wstring& shared : words) shared = word += random.OneOf(units);
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

  // A text that a record may fit, or any.
  std::wstring Text() {
    if (classificators.empty() || random.OneIn(2)) return Joined(random.Below(6));
    const auto& records = random.OneOf(classificators).mapTextSection.records;
    std::wstring text;
    if (records.empty()) return text;
    for (const std::wstring& token : random.OneOf(records).tokens) {
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

  Texts Tokens() {
    Texts tokens;
    for (std::size_t count = random.Below(4); count > 0; --count) {
      tokens.push_back(random.OneIn(8) ? Pattern() : random.OneOf(words));
    }
    return tokens;
  }

  MapTextRecord Record() {
    MapTextRecord record;
    record.tokens = Tokens();
    return record;
  }

  void ChangeLocale() { locale.emplace(random.OneOf(uppers)); }

  void Change() {
    if (random.OneIn(4)) return ChangeLocale();
    if (random.OneIn(3)) return ChangeSections();
    auto& records = random.OneOf(classificators).mapTextSection.records;
    if (records.empty() || random.OneIn(3)) return ChangeOrder(records);
    ChangeRecord(random.OneOf(records));
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
        one.mapTextSection.records.swap(other.mapTextSection.records);
        break;
      case 9:
        // The source is dropped, and its place taken by the copy of another.
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
        // As many as before, in the same memory.
        for (MapTextRecord& record : records) record.tokens = Tokens();
    }
  }

  void ChangeRecord(MapTextRecord& record) {
    if (record.tokens.empty()) {
      record.tokens = Tokens();
      return;
    }
    std::wstring& token = random.OneOf(record.tokens);
    switch (random.Below(6)) {
      case 0:
        token = random.OneOf(words);
        break;
      case 1:
        if (!token.empty()) random.OneOf(token) = random.OneOf(random.OneOf(letters));
        break;
      case 2:
        std::swap(token, record.tokens.front());
        break;
      case 3:
        record.tokens.pop_back();
        break;
      case 4:
        record.tokens.push_back(random.OneOf(words));
        break;
      default:
        record.text = Pattern();
        record.code = Pattern();
    }
  }

  void Compare(const Classificator& classificator) {
    random.OneOf(texts) = Text();
    for (const std::wstring& text : texts) {
      const int codeId = Naive::FindCodeId(classificator, text);
      EXPECT_EQ(FindCodeId(classificator, text), codeId)
          << testing::PrintToString(text) << " among " << Describe(classificator);
      const auto& records = classificator.mapTextSection.records;
      if (records.empty()) continue;
      const MapTextRecord& record = random.OneOf(records);
      EXPECT_EQ(Matches(record, text), Naive::Matches(record, text))
          << testing::PrintToString(text) << " by " << testing::PrintToString(record.tokens);
    }
  }

  static std::string Describe(const Classificator& classificator) {
    std::vector<Texts> patterns;
    for (const auto& record : classificator.mapTextSection.records) {
      patterns.push_back(record.tokens);
    }
    return testing::PrintToString(patterns);
  }

  Random random;
  Texts words;
  Texts texts;  // looked up again and again, some of them anew
  std::vector<Classificator> classificators;
  std::optional<GlobalLocale> locale;
};

TEST(FindCodeId, AgreesWithTheWalkOverRecordsThatChangeUnderLocalesThatChange) {
  const unsigned rounds = SLOW_BUILD ? 300 : 1500;
  for (unsigned seed = 0; seed < rounds && !HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Round(seed).Run();
  }
}

}  // namespace
}  // namespace TolvenLibs::RevitMappingEditorDll
