#include "mapping/CodeIndex.h"

#include <algorithm>
#include <array>
#include <memory_resource>
#include <new>
#include <stdexcept>

#include "mapping/CapitalWords.h"
#include "mapping/CodeLookup.h"

namespace TolvenLibs::RevitMappingEditorDll {

// Builds the tree from the root down. The patterns of a node, which share its path, are a range of
// `keys_`.
class CodeIndex::Builder {
 public:
  Builder(CodeIndex& index, const std::vector<MapTextRecord>& records)
      : index_(index), records_(records) {}

  void Build() {
    std::size_t unitCount = 0;
    keys_.reserve(records_.size());
    for (const MapTextRecord& record : records_) {
      keys_.push_back({0, static_cast<Place>(keys_.size())});
      unitCount += record.tokens.size();
    }
    if (unitCount >= none) throw std::length_error("too many units");
    index_.units_.reserve(unitCount);
    index_.nodes_.reserve(3 * keys_.size() + 1);
    AddNode(0, {none, 0, keys_.size(), 0});
    while (!open_.empty()) {
      const Range range = open_.back();
      open_.pop_back();
      if (range.begin != range.end) MakeNode(range);
    }
  }

 private:
  struct Key {
    Unit unit;  // of the pattern, after those that its range shares
    Place record;
  };

  struct Range {
    Place node;
    std::size_t begin;
    std::size_t end;
    std::size_t depth;  // the length of the path to the node
  };

  std::wstring_view Words(Place record) const { return records_[record].tokens; }

  // Blanks separate words: none is within a word.
  wchar_t Capital(wchar_t unit) const {
    if (unit == L' ') return unit;
    const wchar_t capital = index_.upper_.Upper(unit);
    if (capital == L' ') throw std::domain_error("a blank for a capital");
    return capital;
  }

  // Adds a node whose subtree is still to be built from a range.
  Place AddNode(Unit first, Range range) {
    range.node = static_cast<Place>(index_.nodes_.size());
    index_.nodes_.emplace_back().first = first;
    open_.push_back(range);
    return range.node;
  }

  void MakeNode(Range range) {
    Node node = index_.nodes_[range.node];
    const std::wstring_view units = SharedUnits(range);
    node.units = static_cast<Place>(index_.units_.size());
    node.unitCount = static_cast<Place>(units.size());
    for (const wchar_t unit : units) index_.units_ += Capital(unit);
    range.depth += units.size();
    SortByNextUnit(range, node);
    node.children = static_cast<Place>(index_.nodes_.size());
    Range blanks{};
    for (std::size_t begin = range.begin, end = begin; begin != range.end; begin = end) {
      const Unit unit = keys_[begin].unit;
      while (end != range.end && keys_[end].unit == unit) ++end;
      if (unit == L' ') {
        blanks = {none, begin, end, range.depth + 1};
      } else {
        AddNode(unit, {none, begin, end, range.depth});
        ++node.childCount;
      }
    }
    if (blanks.end != 0) node.nextWord = AddNode(0, blanks);
    index_.nodes_[range.node] = node;
  }

  // Returns the label of a range's node: the longest common prefix of its patterns, up to the end
  // of the word. Found by galloping, so that a long word isn't read again at each node on its path.
  std::wstring_view SharedUnits(const Range& range) const {
    const std::wstring_view words = Words(keys_[range.begin].record).substr(range.depth);
    std::size_t shared = 0;
    for (std::size_t most = 16;; most *= 2) {
      const std::size_t more = SharedOf(words.substr(shared, most), range, range.depth + shared);
      shared += more;
      if (more < most) return words.substr(0, shared);
    }
  }

  // Returns how many of `units`, which are the first pattern's at `depth`, all patterns of the
  // range share.
  std::size_t SharedOf(std::wstring_view units, const Range& range, std::size_t depth) const {
    units = units.substr(0, units.find(L' '));
    const auto same = [this](wchar_t a, wchar_t b) { return Capital(a) == Capital(b); };
    for (std::size_t i = range.begin + 1; i != range.end && !units.empty(); ++i) {
      const std::wstring_view words = Words(keys_[i].record).substr(depth);
      const auto end =
          std::mismatch(units.begin(), units.end(), words.begin(), words.end(), same).first;
      units = {units.begin(), end};
    }
    return units.size();
  }

  // Sorts the patterns by their next units. Those that end at the node leave the range.
  void SortByNextUnit(Range& range, Node& node) {
    const auto begin = keys_.begin() + static_cast<std::ptrdiff_t>(range.begin);
    auto end = begin;
    for (auto key = begin; key != keys_.begin() + static_cast<std::ptrdiff_t>(range.end); ++key) {
      const Place record = key->record;
      const std::wstring_view words = Words(record);
      node.least = std::min(node.least, record);
      if (words.size() == range.depth) {
        node.record = std::min(node.record, record);
      } else {
        *end++ = {static_cast<Unit>(Capital(words[range.depth])), record};
      }
    }
    range.end = static_cast<std::size_t>(end - keys_.begin());
    std::sort(begin, end, [](const Key& left, const Key& right) { return left.unit < right.unit; });
  }

  CodeIndex& index_;
  const std::vector<MapTextRecord>& records_;
  std::vector<Key> keys_;
  std::vector<Range> open_;  // those whose nodes are still to be built
};

CodeIndex::CodeIndex(const std::vector<MapTextRecord>& records) {
  try {
    Builder(*this, records).Build();
  } catch (const std::bad_alloc&) {
    throw;
  } catch (...) {
    // An index that can't answer needs no memory.
    std::vector<Node>().swap(nodes_);
    std::wstring().swap(units_);
  }
}

int CodeIndex::Find(std::wstring_view text) const {
  std::array<std::byte, 512> stack;
  std::pmr::monotonic_buffer_resource memory(stack.data(), stack.size());
  std::pmr::vector<Place> places(1, 0, &memory);
  std::pmr::vector<Place> next(&memory);
  Place best = none;
  CapitalWords words(text, upper_);
  for (std::wstring_view word; !places.empty() && words.Next(word); places.swap(next)) {
    next.clear();
    for (const Place place : places) Descend(place, word, best, next);
  }
  return best == none ? noCodeId : static_cast<int>(best);
}

// Descends from a node with one word of a text. Appends to `next` the nodes at which the next word
// goes on.
template <class Places>
void CodeIndex::Descend(Place place, std::wstring_view word, Place& best, Places& next) const {
  for (const Node* node = &nodes_[place]; node && node->least < best;) {
    if (node->unitCount > word.size()) return;
    const wchar_t* const units = units_.data() + node->units;
    for (Place i = 0; i < node->unitCount; ++i) {
      if (upper_.UpperTwice(word[i]) != units[i]) return;
    }
    word.remove_prefix(node->unitCount);
    best = std::min(best, node->record);
    if (node->nextWord != none) next.push_back(node->nextWord);
    if (word.empty()) return;
    node = Child(*node, static_cast<Unit>(upper_.UpperTwice(word.front())));
  }
}

const CodeIndex::Node* CodeIndex::Child(const Node& node, Unit unit) const {
  const auto begin = nodes_.begin() + node.children;
  const auto end = begin + node.childCount;
  const auto child =
      std::partition_point(begin, end, [unit](const Node& other) { return other.first < unit; });
  return child != end && child->first == unit ? &*child : nullptr;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
