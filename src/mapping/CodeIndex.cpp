#include "mapping/CodeIndex.h"

#include <algorithm>
#include <array>
#include <bit>

#include "mapping/CapitalWords.h"
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

// The hash of the beginning that has one more word.
std::uint64_t Extend(std::uint64_t beginning, std::uint64_t wordHash, std::size_t length) {
  std::uint64_t hash = (beginning + wordHash) * oddNumber + length;
  hash = (hash ^ (hash >> 32)) * 0xD6E8FEB86659FD93;
  return hash == 0 ? 1 : hash;
}

// What is known of a pattern's word by its hash.
struct HashedWord {
  std::uint64_t hash = 0;
  std::size_t length = 0;  // as far as it is told apart
};

HashedWord HashWord(std::wstring_view token, const UpperTable& upper) {
  HashedWord word;
  word.length = std::min(token.size(), maxLength);
  for (std::size_t i = 0; i < word.length; ++i) word.hash += HashUnit(upper.Upper(token[i]), i);
  return word;
}

bool IsBeginning(const Tokens& tokens, const Tokens& ofTokens, const UpperTable& upper) {
  return std::equal(tokens.begin(), tokens.end(), ofTokens.begin(),
                    [&upper](std::wstring_view left, std::wstring_view right) {
                      return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                                        [&upper](wchar_t a, wchar_t b) {
                                          return upper.Upper(a) == upper.Upper(b);
                                        });
                    });
}

// The rooms of a table for so many entries.
std::size_t RoomsFor(std::size_t count) {
  return 2 * count + 1;
}

// Whether so many entries are too many for a table of this size.
bool Crowd(std::size_t count, std::size_t rooms) {
  return count > rooms / 2 + rooms / 8;
}

// About eight bits for each pattern, in words of 64; their number is a power of two.
std::size_t FilterSize(std::size_t patternCount) {
  return std::bit_ceil(patternCount / 8);
}

std::uint64_t FilterBit(std::uint64_t hash) {
  return std::uint64_t{1} << (hash & 63);
}

// Looking farther than this from where an entry should be would cost more than a walk.
constexpr std::size_t maxTries = 1000;

// So many patterns, which agree in as many units as words are told apart by, may stand at one
// entry.
constexpr std::size_t maxListed = 32;

}  // namespace

CodeIndex::CodeIndex(const Records& records)
    : entries(RoomsFor(records.size())),
      filter(FilterSize(records.size())),
      filterMask(filter.size() - 1) {
  for (std::uint32_t position = 0; position < records.size(); ++position) {
    if (!Add(records, position)) {
      entries.clear();
      return;
    }
  }
}

std::optional<int> CodeIndex::Find(std::wstring_view text) const {
  if (entries.empty()) return std::nullopt;
  CapitalWords words(text, upper);
  Beginnings steps[2];
  steps[0].all[0] = {0, firstLengths};
  steps[0].count = 1;
  Match match;
  // Patterns that stand at longer beginnings have more words than these.
  for (std::size_t count = 0; steps[count % 2].count != 0 && match.wordCount > count; ++count) {
    std::wstring_view word;
    if (!words.Next(word)) break;
    if (!Step(steps[count % 2], word, text, steps[(count + 1) % 2], match)) return std::nullopt;
  }
  return match.position == noMatch ? noCodeId : static_cast<int>(match.position);
}

// False if the index can't hold it.
bool CodeIndex::Add(const Records& records, std::uint32_t position) {
  const MapTextRecord& record = records[position];
  // One entry for each word, and one for a pattern that is pushed on.
  if (!MakeRoom(record.tokens.size() + 1)) return false;
  std::uint64_t hash = 0;
  Entry* entry = nullptr;
  std::size_t wordCount = 0;
  for (const std::wstring_view token : record.tokens) {
    if (entry && !PushOn(*entry, records, wordCount)) return false;
    const HashedWord word = HashWord(token, upper);
    (entry ? entry->nextLengths : firstLengths) |= Lengths{1} << word.length;
    hash = Extend(hash, word.hash, word.length);
    entry = FindOrInsert(hash);
    if (!entry) return false;
    ++wordCount;
    if (entry->pattern == CapitalPatterns::none && entry->nextLengths == 0) break;
    if (IsCovered(records, record, wordCount, entry->pattern)) return true;
  }
  return AddToList(*entry, record, position);
}

// Whether one of these patterns ends here and fits whatever the record fits.
bool CodeIndex::IsCovered(const Records& records, const MapTextRecord& record,
                          std::size_t wordCount, Place list) const {
  for (Place place = list; place != CapitalPatterns::none;) {
    const CapitalPatterns::Pattern pattern = patterns[place];
    if (pattern.wordCount <= wordCount &&
        IsBeginning(records[pattern.position].tokens, record.tokens, upper)) {
      return true;
    }
    place = pattern.next;
  }
  return false;
}

bool CodeIndex::AddToList(Entry& entry, const MapTextRecord& record, std::uint32_t position) {
  std::size_t listed = 0;
  for (Place place = entry.pattern; place != CapitalPatterns::none; place = patterns[place].next) {
    if (++listed == maxListed) return false;
  }
  entry.pattern = patterns.Add(record, position, entry.pattern, upper);
  return entry.pattern != CapitalPatterns::none;
}

// Makes the beginning one that patterns go on from: a pattern that stands here and has more words
// goes to the entry of its next one. False if that is taken: hashes that are equal by intention are
// more than the index is made for.
bool CodeIndex::PushOn(Entry& entry, const Records& records, std::size_t wordCount) {
  if (entry.pattern == CapitalPatterns::none) return true;
  const CapitalPatterns::Pattern pattern = patterns[entry.pattern];
  if (pattern.wordCount <= wordCount) return true;
  const HashedWord word = HashWord(records[pattern.position].tokens[wordCount], upper);
  Entry* next = FindOrInsert(Extend(entry.hash, word.hash, word.length));
  if (!next || next->pattern != CapitalPatterns::none || next->nextLengths != 0) return false;
  next->pattern = entry.pattern;
  entry.pattern = CapitalPatterns::none;
  entry.nextLengths = Lengths{1} << word.length;
  return true;
}

// Takes one more word: each beginning goes on by each beginning of the word that a pattern has
// there. `match` becomes the first of the patterns found there that fit. False if there are too
// many beginnings.
bool CodeIndex::Step(const Beginnings& from, std::wstring_view word, std::wstring_view text,
                     Beginnings& to, Match& match) const {
  Lengths wanted = 0;
  for (std::size_t i = 0; i < from.count; ++i) wanted |= from.all[i].nextLengths;
  const std::size_t longest = std::min<std::size_t>(word.size(), std::bit_width(wanted | 1) - 1U);
  const Lengths possible = ~Lengths{0} >> (maxLength - longest);

  WordHashes hashes;
  hashes[0] = 0;
  for (std::size_t i = 0; i < longest; ++i) {
    hashes[i + 1] = hashes[i] + HashUnit(upper.UpperTwice(word[i]), i);
  }

  to.count = 0;
  for (std::size_t i = 0; i < from.count; ++i) {
    const Beginning& beginning = from.all[i];
    for (Lengths rest = beginning.nextLengths & possible; rest != 0; rest &= rest - 1) {
      const auto length = static_cast<std::size_t>(std::countr_zero(rest));
      const std::uint64_t hash = Extend(beginning.hash, hashes[length], length);
      const Entry* entry = FindEntry(hash);
      if (!entry) continue;
      Compare(entry->pattern, text, match);
      if (entry->nextLengths == 0) continue;
      if (to.count == Beginnings::capacity) return false;
      to.all[to.count++] = {hash, entry->nextLengths};
    }
  }
  return true;
}

// Looks for a better match among the patterns that stand at one entry.
void CodeIndex::Compare(Place list, std::wstring_view text, Match& match) const {
  for (Place place = list; place != CapitalPatterns::none;) {
    const CapitalPatterns::Pattern pattern = patterns[place];
    if (pattern.position < match.position && Fits(pattern, text, upper)) {
      match = {pattern.position, pattern.wordCount};
    }
    place = pattern.next;
  }
}

// Room for so many more entries. False if there are too many for it.
bool CodeIndex::MakeRoom(std::size_t count) {
  const std::size_t wanted = usedEntries + count;
  if (!Crowd(wanted, entries.size())) return true;
  std::vector<Entry> old(2 * RoomsFor(wanted));
  old.swap(entries);
  usedEntries = 0;
  return std::all_of(old.begin(), old.end(), [this](const Entry& entry) {
    if (entry.hash == 0) return true;
    Entry* moved = FindOrInsert(entry.hash);
    if (moved) *moved = entry;
    return moved != nullptr;
  });
}

// Where an entry stands unless others were there before it.
std::size_t CodeIndex::HomeOf(std::uint64_t hash) const {
  return static_cast<std::size_t>((hash >> 32) * entries.size() >> 32);
}

// The entry of this hash, a new one if there is none. Null if too many others stand in its way.
CodeIndex::Entry* CodeIndex::FindOrInsert(std::uint64_t hash) {
  std::size_t place = HomeOf(hash);
  for (std::size_t tries = 0; tries < maxTries; ++tries) {
    Entry& entry = entries[place];
    if (entry.hash == hash) return &entry;
    if (entry.hash == 0) {
      ++usedEntries;
      entry.hash = hash;
      filter[hash >> 6 & filterMask] |= FilterBit(hash);
      return &entry;
    }
    if (++place == entries.size()) place = 0;
  }
  return nullptr;
}

const CodeIndex::Entry* CodeIndex::FindEntry(std::uint64_t hash) const {
  if ((filter[hash >> 6 & filterMask] & FilterBit(hash)) == 0) return nullptr;
  std::size_t place = HomeOf(hash);
  while (entries[place].hash != 0) {
    if (entries[place].hash == hash) return &entries[place];
    if (++place == entries.size()) place = 0;
  }
  return nullptr;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
