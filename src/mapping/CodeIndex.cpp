#include "mapping/CodeIndex.h"

#include <algorithm>
#include <array>
#include <bit>

#include "editor/Text.h"
#include "mapping/CodeLookup.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

// Words are told apart by their first units, as many as a set of lengths can tell.
constexpr std::size_t maxLength = 31;

// The hashes of the beginnings of one word: of none of its units, of one, of two and so on.
using WordHashes = std::array<std::uint64_t, maxLength + 1>;

constexpr std::uint64_t oddNumber = 0x9E3779B97F4A7C15;

// A number without a pattern for each number.
consteval std::uint64_t Scramble(std::uint64_t number) {
  number = (number ^ (number >> 30)) * 0xBF58476D1CE4E5B9;
  number = (number ^ (number >> 27)) * 0x94D049BB133111EB;
  return number ^ (number >> 31);
}

// What the unit at each place of a word is multiplied by. The products don't depend on each other,
// so that a processor works at several at once.
consteval std::array<std::uint64_t, maxLength> MakeFactors() {
  std::array<std::uint64_t, maxLength> numbers{};
  for (std::size_t i = 0; i < maxLength; ++i) numbers[i] = Scramble((i + 1) * oddNumber) | 1;
  return numbers;
}

constexpr std::array<std::uint64_t, maxLength> factors = MakeFactors();

std::uint64_t HashUnit(wchar_t unit, std::size_t place) {
  return factors[place] * static_cast<std::uint64_t>(unit);
}

// First words are many, and of all lengths. What their first few units are says which lengths are
// worth a look.
constexpr std::size_t guideLength = 3;
constexpr int guideBits = 12;

std::size_t GuideOf(std::uint64_t guideHash) {
  return static_cast<std::size_t>(guideHash >> (64 - guideBits));
}

// The hash of the beginning that has one more word.
std::uint64_t Extend(std::uint64_t beginning, std::uint64_t wordHash, std::size_t length) {
  std::uint64_t hash = (beginning + wordHash) * oddNumber + length;
  hash = (hash ^ (hash >> 32)) * 0xD6E8FEB86659FD93;
  return hash == 0 ? 1 : hash;
}

// The words of a text as its capitals are cut, one by one. No more of the text is looked at than
// the words that are asked for.
class CapitalWords {
 public:
  CapitalWords(std::wstring_view wholeText, const UpperTable& capitals)
      : rest(wholeText), upper(capitals) {}

  // Puts the next word into `word`, in its own case, or gives false.
  bool Next(std::wstring_view& word) {
    if (atEnd) return false;
    std::size_t end = 0;
    while (end < rest.size() && upper.Upper(rest[end]) != L' ') ++end;
    word = rest.substr(0, end);
    while (!word.empty() && IsSpace(upper.Upper(word.back()))) word.remove_suffix(1);
    while (!word.empty() && IsSpace(upper.Upper(word.front()))) word.remove_prefix(1);
    atEnd = end == rest.size();
    if (!atEnd) rest.remove_prefix(end + 1);
    return true;
  }

 private:
  std::wstring_view rest;
  const UpperTable& upper;
  bool atEnd = false;
};

// The capitals of a word's unit. Words go through the facet once more after they were cut out of
// capitals, as the tokens of a pattern do: a capital can have a capital of its own.
wchar_t UpperTwice(wchar_t unit, const UpperTable& upper) {
  return upper.Upper(upper.Upper(unit));
}

bool Begins(std::wstring_view token, std::wstring_view word, const UpperTable& upper) {
  if (token.size() > word.size()) return false;
  return std::equal(token.begin(), token.end(), word.begin(),
                    [&upper](wchar_t left, wchar_t right) {
                      return upper.Upper(left) == UpperTwice(right, upper);
                    });
}

bool BeginWords(const Tokens& tokens, std::wstring_view text, const UpperTable& upper) {
  CapitalWords words(text, upper);
  std::wstring_view word;
  return std::all_of(tokens.begin(), tokens.end(), [&](std::wstring_view token) {
    return words.Next(word) && Begins(token, word, upper);
  });
}

}  // namespace

CodeIndex::CodeIndex(const std::vector<MapTextRecord>& records)
    : guides(std::size_t{1} << guideBits) {
  std::size_t tokenCount = 0;
  for (const MapTextRecord& record : records) tokenCount += record.tokens.size();
  entries.resize(2 * tokenCount + 1);
  std::uint32_t position = 0;
  for (const MapTextRecord& record : records) {
    if (!Add(record, position++)) {
      entries.clear();
      return;
    }
  }
}

std::optional<int> CodeIndex::Find(const MapTextRecords& records, std::wstring_view text) const {
  if (entries.empty()) return std::nullopt;
  CapitalWords words(text, upper);
  std::wstring_view word;
  words.Next(word);
  Beginnings steps[2];
  steps[0].all[0] = {0, FirstLengths(word)};
  steps[0].count = steps[0].all[0].nextLengths == 0 ? 0 : 1;
  for (std::size_t from = 0; steps[from].count != 0; from = 1 - from) {
    std::uint32_t record = noRecord;
    if (!Step(steps[from], word, steps[1 - from], record)) return std::nullopt;
    // All patterns of more words stand behind.
    if (record != noRecord) return Checked(records, record, text);
    if (!words.Next(word)) break;
  }
  return noCodeId;
}

bool CodeIndex::Add(const MapTextRecord& record, std::uint32_t position) {
  std::uint64_t hash = 0;
  Entry* entry = nullptr;
  for (const std::wstring_view token : record.tokens) {
    const std::size_t length = std::min(token.size(), maxLength);
    std::uint64_t wordHash = 0;
    std::uint64_t guideHash = 0;
    for (std::size_t i = 0; i < length; ++i) {
      if (i == guideLength) guideHash = wordHash;
      wordHash += HashUnit(upper.Upper(token[i]), i);
    }
    if (length == guideLength) guideHash = wordHash;
    Lengths& first = length < guideLength ? shortLengths : guides[GuideOf(guideHash)];
    (entry ? entry->nextLengths : first) |= Lengths{1} << length;
    hash = Extend(hash, wordHash, length);
    entry = FindOrInsert(hash);
    if (!entry) return false;
  }
  entry->record = std::min(entry->record, position);
  return true;
}

// The lengths that are worth a look in the first word of a text.
CodeIndex::Lengths CodeIndex::FirstLengths(std::wstring_view word) const {
  if (word.size() < guideLength) return shortLengths;
  std::uint64_t guideHash = 0;
  for (std::size_t i = 0; i < guideLength; ++i) {
    guideHash += HashUnit(UpperTwice(word[i], upper), i);
  }
  return shortLengths | guides[GuideOf(guideHash)];
}

// Takes one more word: each beginning goes on by each beginning of the word that a pattern has
// there. `record` becomes the first of the records that end there. False if there are too many.
bool CodeIndex::Step(const Beginnings& from, std::wstring_view word, Beginnings& to,
                     std::uint32_t& record) const {
  Lengths wanted = 0;
  for (std::size_t i = 0; i < from.count; ++i) wanted |= from.all[i].nextLengths;
  const std::size_t longest = std::min<std::size_t>(word.size(), std::bit_width(wanted) - 1U);
  const Lengths possible = ~Lengths{0} >> (maxLength - longest);

  WordHashes hashes;
  hashes[0] = 0;
  for (std::size_t i = 0; i < longest; ++i) {
    hashes[i + 1] = hashes[i] + HashUnit(UpperTwice(word[i], upper), i);
  }

  to.count = 0;
  for (std::size_t i = 0; i < from.count; ++i) {
    const Beginning& beginning = from.all[i];
    for (Lengths rest = beginning.nextLengths & possible; rest != 0; rest &= rest - 1) {
      const auto length = static_cast<std::size_t>(std::countr_zero(rest));
      const std::uint64_t hash = Extend(beginning.hash, hashes[length], length);
      const Entry* entry = FindEntry(hash);
      if (!entry) continue;
      record = std::min(record, entry->record);
      if (entry->nextLengths == 0) continue;
      if (to.count == Beginnings::capacity) return false;
      to.all[to.count++] = {hash, entry->nextLengths};
    }
  }
  return true;
}

std::optional<int> CodeIndex::Checked(const MapTextRecords& records, std::uint32_t record,
                                      std::wstring_view text) const {
  if (!BeginWords(records[record].tokens, text, upper)) return std::nullopt;
  return static_cast<int>(record);
}

// Where an entry stands unless others were there before it.
std::size_t CodeIndex::HomeOf(std::uint64_t hash) const {
  return static_cast<std::size_t>((hash >> 32) * entries.size() >> 32);
}

// The entry of this hash, a new one if there is none. Null if too many others stand in its way:
// that is no chance, and looking through them would cost more than a walk.
CodeIndex::Entry* CodeIndex::FindOrInsert(std::uint64_t hash) {
  constexpr std::size_t maxTries = 1000;
  std::size_t place = HomeOf(hash);
  for (std::size_t tries = 0; tries < maxTries; ++tries) {
    Entry& entry = entries[place];
    if (entry.hash == 0) entry.hash = hash;
    if (entry.hash == hash) return &entry;
    if (++place == entries.size()) place = 0;
  }
  return nullptr;
}

const CodeIndex::Entry* CodeIndex::FindEntry(std::uint64_t hash) const {
  std::size_t place = HomeOf(hash);
  while (entries[place].hash != 0) {
    if (entries[place].hash == hash) return &entries[place];
    if (++place == entries.size()) place = 0;
  }
  return nullptr;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
