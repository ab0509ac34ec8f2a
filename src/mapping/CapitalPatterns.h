// The patterns of an index, in capitals.

#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "mapping/MapTextRecords.h"
#include "mapping/UpperTable.h"

namespace TolvenLibs::RevitMappingEditorDll {

// Patterns side by side, each with all that a lookup wants to know of it, and most letters in one
// byte: what a lookup compares is one line of the processor's cache.
class CapitalPatterns {
 public:
  using Place = std::uint32_t;  // of a pattern

  static constexpr Place none = 0xFFFFFFFF;

  struct Pattern {
    std::uint32_t position;  // of its record
    std::uint32_t wordCount;
    Place next;                 // of its list, or `none`
    const std::uint8_t* words;  // each is its length and its capitals
  };

  // Adds the pattern of the record at `position`, ahead of those of a list. Gives `none` if there
  // is no room left.
  Place Add(const MapTextRecord& record, std::uint32_t position, Place list,
            const UpperTable& upper);

  Pattern operator[](Place place) const;

 private:
  // Each number takes a byte for seven of its bits, the low ones first. All bytes but its last have
  // the highest bit set.
  void Append(std::uint32_t number);

  std::vector<std::uint8_t> bytes;
};

// Whether the pattern's words begin the words of the text.
bool Fits(const CapitalPatterns::Pattern& pattern, std::wstring_view text, const UpperTable& upper);

}  // namespace TolvenLibs::RevitMappingEditorDll
