// The index by which the record of a text is found at a cost that their number doesn't change.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "mapping/CapitalPatterns.h"
#include "mapping/MapTextRecords.h"
#include "mapping/UpperTable.h"

namespace TolvenLibs::RevitMappingEditorDll {

// A hash table of the patterns' beginnings: the first word of a pattern, its first two, and so on,
// up to the beginning that no other pattern has. There the pattern stands. An entry also says how
// long the words are that go on behind its beginning, so that of a text's word only those
// beginnings are looked up that can be words of a pattern.
//
// A pattern that begins with all words of an earlier one is left out: wherever it fits, the earlier
// one does.
//
// Entries hold hashes and no texts. Two beginnings of one hash count as one, so that what is found
// may be too much, but never too little; each pattern that is found is compared with the text.
class CodeIndex {
 public:
  using Records = std::vector<MapTextRecord>;

  // The index of records that are sorted by their number of tokens, each of which has one at least,
  // for the upper-casing of the global locale.
  explicit CodeIndex(const Records& records);

  // Whether the global locale still is that of the index.
  bool IsCurrent() const { return upper.IsCurrent(); }

  // The position of the first of those records that matches the text, or `noCodeId`. Nothing if the
  // index can't tell: its hashes crowd, or the text fits too many beginnings at once.
  std::optional<int> Find(std::wstring_view text) const;

 private:
  using Lengths = std::uint32_t;  // a set of lengths of words, one in each bit
  using Place = CapitalPatterns::Place;

  struct Entry {
    std::uint64_t hash = 0;                 // of a beginning; 0 for an entry that is free
    Place pattern = CapitalPatterns::none;  // the first of those that stand here
    Lengths nextLengths = 0;
  };

  struct Beginning {
    std::uint64_t hash;
    Lengths nextLengths;
  };

  // The beginnings that fit the first words of a text.
  struct Beginnings {
    static constexpr std::size_t capacity = 32;
    Beginning all[capacity];
    std::size_t count = 0;
  };

  static constexpr std::uint32_t noMatch = 0xFFFFFFFF;

  // The first of the patterns that were found to fit.
  struct Match {
    std::uint32_t position = noMatch;
    std::uint32_t wordCount = noMatch;
  };

  bool Add(const Records& records, std::uint32_t position);
  bool IsCovered(const Records& records, const MapTextRecord& record, std::size_t wordCount,
                 Place list) const;
  bool AddToList(Entry& entry, const MapTextRecord& record, std::uint32_t position);
  bool PushOn(Entry& entry, const Records& records, std::size_t wordCount);
  bool Step(const Beginnings& from, std::wstring_view word, std::wstring_view text, Beginnings& to,
            Match& match) const;
  void Compare(Place list, std::wstring_view text, Match& match) const;
  bool MakeRoom(std::size_t count);
  std::size_t HomeOf(std::uint64_t hash) const;
  Entry* FindOrInsert(std::uint64_t hash);
  const Entry* FindEntry(std::uint64_t hash) const;

  UpperTable upper;
  CapitalPatterns patterns;
  std::vector<Entry> entries;  // none if they would crowd
  std::size_t usedEntries = 0;
  std::vector<std::uint64_t> filter;  // a bit for each hash, so that most others needn't be sought
  std::uint64_t filterMask;           // turns a hash into the place of a word of it
  Lengths firstLengths = 0;
};

}  // namespace TolvenLibs::RevitMappingEditorDll
