// Finds the record of a text in time nearly independent of the number of records.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "mapping/MapTextRecords.h"
#include "mapping/UpperTable.h"

namespace TolvenLibs::RevitMappingEditorDll {

// A radix tree of the patterns for one locale. The path from the root to a node spells the
// upper-cased words of patterns. Where a word of a pattern ends, the node says which record ends
// there, and at which node the next words of longer patterns begin.
//
// A lookup descends with each word of the text: the ends of words on its path are exactly the
// patterns' words that are prefixes of it, and the text's next word goes on from all of them. A
// subtree whose records all come after one already found is pruned. Each node is visited at most
// once, so that a lookup never costs more than a walk over all records. Nothing is hashed: a match
// has been compared unit by unit.
class CodeIndex {
 public:
  // Indexes the records, which can be in any order, for the current global locale. Raises
  // `bad_alloc`.
  explicit CodeIndex(const std::vector<MapTextRecord>& records);

  // Returns false if the locale raises for a letter of a pattern, or upper-cases it to a blank:
  // then only the walk over the records can answer.
  bool CanAnswer() const { return !nodes_.empty(); }

  // Returns whether the global locale is still that of the index.
  bool IsCurrent() const { return upper_.IsCurrent(); }

  // Returns the position of the first record that matches the text, or `noCodeId`. Raises
  // `bad_alloc`, and what the locale raises for a letter of the text, even one that the walk over
  // the records doesn't reach. REQUIRES: CanAnswer().
  int Find(std::wstring_view text) const;

 private:
  using Place = std::uint32_t;  // in `nodes_`, in `units_`, or of a record
  using Unit = std::uint32_t;

  static constexpr Place none = 0xFFFFFFFF;

  struct Node {
    Place units = 0;  // the label of the edge from the parent
    Place unitCount = 0;
    Unit first = 0;      // the label's first unit
    Place children = 0;  // the nodes that go on within the word, sorted by `first`
    Place childCount = 0;
    Place nextWord = none;  // the node at which the next words begin
    Place record = none;    // the first record that ends here
    Place least = none;     // the first record of the whole subtree
  };

  class Builder;

  template <class Places>
  void Descend(Place place, std::wstring_view word, Place& best, Places& next) const;
  const Node* Child(const Node& node, Unit unit) const;

  UpperTable upper_;
  std::wstring units_;
  std::vector<Node> nodes_;  // the root first; each before its descendants
};

}  // namespace TolvenLibs::RevitMappingEditorDll
