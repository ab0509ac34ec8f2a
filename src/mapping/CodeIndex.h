// The index that finds the record of a text in a time that hardly depends on their number.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "mapping/MapTextRecords.h"
#include "mapping/UpperTable.h"

namespace TolvenLibs::RevitMappingEditorDll {

// A radix tree of the patterns for one locale. The way from the root to a node spells the words of
// patterns in capitals. Where a word of a pattern ends, its node says which record ends there, and
// at which node the next words of longer patterns begin.
//
// A lookup goes down with each word of the text, as far as the word goes: the ends of words on the
// way are the patterns' words that begin it, and there are no others. From all of them the text's
// next word goes on. A node all of whose records stand after one that was found is passed over.
// Each node is visited once at most, so that a lookup never costs more than a walk over all
// records. Nothing is hashed: what is found has been compared, unit by unit.
class CodeIndex {
 public:
  // The index of these records, in whatever order, for the global locale as it is now. Raises
  // `bad_alloc`.
  explicit CodeIndex(const std::vector<MapTextRecord>& records);

  // False if the locale refuses a letter of a pattern, or has a blank for its capital: then only
  // the walk over the records can answer.
  bool CanAnswer() const { return !nodes_.empty(); }

  // Whether the global locale still is that of the index.
  bool IsCurrent() const { return upper_.IsCurrent(); }

  // Returns the position of the first record that matches the text, or `noCodeId`. Raises
  // `bad_alloc`, and what the locale raises for a letter of the text, also where the walk doesn't
  // come to it. REQUIRES: CanAnswer().
  int Find(std::wstring_view text) const;

 private:
  using Place = std::uint32_t;  // in `nodes_`, in `units_`, or of a record
  using Unit = std::uint32_t;

  static constexpr Place none = 0xFFFFFFFF;

  struct Node {
    Place units = 0;  // those that lead here from the node before
    Place unitCount = 0;
    Unit first = 0;      // of these units
    Place children = 0;  // the nodes that go on within the word, sorted by their first units
    Place childCount = 0;
    Place nextWord = none;  // the node at which the next words begin
    Place record = none;    // the first record that ends here
    Place least = none;     // the first that ends here or beyond
  };

  class Builder;

  template <class Places>
  void TakeWord(Place place, std::wstring_view word, Place& best, Places& next) const;
  const Node* Child(const Node& node, Unit unit) const;

  UpperTable upper_;
  std::wstring units_;
  std::vector<Node> nodes_;  // the root first; each before those that it leads to
};

}  // namespace TolvenLibs::RevitMappingEditorDll
