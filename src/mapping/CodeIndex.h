// The index by which the record of a text is found at a cost that their number doesn't change.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "mapping/MapTextRecords.h"
#include "mapping/UpperTable.h"

namespace TolvenLibs::RevitMappingEditorDll {

// A hash table of the patterns' beginnings: the first word of each, the first two, and so on. Each
// entry says which record ends there, and how long the words are that go on behind it, so that of a
// text's word only those beginnings are looked up that can be words of a pattern.
//
// Entries hold hashes and no texts. Two beginnings of one hash count as one, so that what is found
// may be too much, but never too little; the record in the end is compared with the text.
class CodeIndex {
 public:
  // The index of records that are sorted by their number of tokens, each of which has one at least,
  // for the upper-casing of the global locale.
  explicit CodeIndex(const std::vector<MapTextRecord>& records);

  // Whether the global locale still is that of the index.
  bool IsCurrent() const { return upper.IsCurrent(); }

  // The position of the first of those records that matches the text, or `noCodeId`. Nothing if the
  // index can't tell: its hashes crowd, the text fits too many patterns' beginnings at once, or
  // what was found was too much.
  std::optional<int> Find(const MapTextRecords& records, std::wstring_view text) const;

 private:
  using Lengths = std::uint32_t;  // a set of lengths of words, one in each bit

  static constexpr std::uint32_t noRecord = 0xFFFFFFFF;

  struct Entry {
    std::uint64_t hash = 0;  // of a beginning; 0 for an entry that is free
    std::uint32_t record = noRecord;
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

  bool Add(const MapTextRecord& record, std::uint32_t position);
  Lengths FirstLengths(std::wstring_view word) const;
  bool Step(const Beginnings& from, std::wstring_view word, Beginnings& to,
            std::uint32_t& record) const;
  std::optional<int> Checked(const MapTextRecords& records, std::uint32_t record,
                             std::wstring_view text) const;
  std::size_t HomeOf(std::uint64_t hash) const;
  Entry* FindOrInsert(std::uint64_t hash);
  const Entry* FindEntry(std::uint64_t hash) const;

  UpperTable upper;
  std::vector<Entry> entries;   // none if they would crowd
  Lengths shortLengths = 0;     // of the first words that are too short for a guide
  std::vector<Lengths> guides;  // of those that begin alike, by the hash of how they begin
};

}  // namespace TolvenLibs::RevitMappingEditorDll
