#include "authoring/NearNames.h"

#include <algorithm>
#include <array>
#include <utility>

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

// One unit for all that count as the same.
class FoldTable {
 public:
  constexpr FoldTable() {
    for (std::size_t unit = 0; unit < size; ++unit) folded_[unit] = static_cast<wchar_t>(unit);
  }

  constexpr void Fold(std::size_t unit, std::size_t to) {
    folded_[unit] = static_cast<wchar_t>(to);
  }

  constexpr wchar_t operator()(wchar_t unit) const {
    const auto index = static_cast<std::size_t>(unit);
    return index < size ? folded_[index] : unit;
  }

 private:
  static constexpr std::size_t size = 0x530;  // Latin, Greek and Cyrillic letters are below

  std::array<wchar_t, size> folded_{};
};

// Capitals whose small letters are all as far from them.
struct Capitals {
  std::size_t first;
  std::size_t last;
  std::size_t step;  // 2 where capitals and small letters alternate
  std::size_t toSmall;
};

// Of one unit each, as the simple case folding of Unicode has them. The Turkish I with a dot has no
// such folding.
constexpr Capitals capitals[] = {
    // Latin, of the European languages
    {0x41, 0x5A, 1, 32},
    {0xC0, 0xD6, 1, 32},
    {0xD8, 0xDE, 1, 32},
    {0x100, 0x12E, 2, 1},
    {0x132, 0x136, 2, 1},
    {0x139, 0x147, 2, 1},
    {0x14A, 0x176, 2, 1},
    {0x179, 0x17D, 2, 1},
    // Greek, with the small sigma that ends a word
    {0x386, 0x386, 1, 38},
    {0x388, 0x38A, 1, 37},
    {0x38C, 0x38C, 1, 64},
    {0x38E, 0x38F, 1, 63},
    {0x391, 0x3A1, 1, 32},
    {0x3A3, 0x3AB, 1, 32},
    {0x3C2, 0x3C2, 1, 1},
    // Cyrillic
    {0x400, 0x40F, 1, 80},
    {0x410, 0x42F, 1, 32},
    {0x460, 0x480, 2, 1},
    {0x48A, 0x4BE, 2, 1},
    {0x4C0, 0x4C0, 1, 15},
    {0x4C1, 0x4CD, 2, 1},
    {0x4D0, 0x52E, 2, 1},
};

// Latin letters and digits, and the Cyrillic letters that look like them.
constexpr std::wstring_view lookAlikes[] = {
    L"A\u0410", L"B\u0412", L"C\u0421",  L"E\u0415", L"H\u041D", L"1lI\u0406\u04C0", L"J\u0408",
    L"K\u041A", L"M\u041C", L"0O\u041E", L"P\u0420", L"S\u0405", L"T\u0422",         L"X\u0425",
    L"Y\u0423", L"3\u0417", L"a\u0430",  L"c\u0441", L"e\u0435", L"i\u0456",         L"j\u0458",
    L"k\u043A", L"o\u043E", L"p\u0440",  L"s\u0455", L"x\u0445", L"y\u0443",
};

constexpr FoldTable FoldCase() {
  FoldTable table;
  for (const Capitals& range : capitals) {
    for (std::size_t unit = range.first; unit <= range.last; unit += range.step) {
      table.Fold(unit, unit + range.toSmall);
    }
  }
  return table;
}

constexpr FoldTable FoldLooks() {
  FoldTable table;
  for (const std::wstring_view group : lookAlikes) {
    for (const wchar_t unit : group) {
      table.Fold(static_cast<std::size_t>(unit), static_cast<std::size_t>(group.front()));
    }
  }
  return table;
}

constexpr FoldTable caseFold = FoldCase();
constexpr FoldTable looksFold = FoldLooks();

bool ComesBefore(std::wstring_view left, std::wstring_view right, const FoldTable& fold) {
  return std::lexicographical_compare(left.begin(), left.end(), right.begin(), right.end(),
                                      [&fold](wchar_t a, wchar_t b) { return fold(a) < fold(b); });
}

std::vector<std::wstring_view> SortedOnce(std::vector<std::wstring_view> names) {
  std::sort(names.begin(), names.end());
  names.erase(std::unique(names.begin(), names.end()), names.end());
  return names;
}

// Of sorted names, those that count as the same stay in their order.
std::vector<std::wstring_view> SortedBy(const FoldTable& fold,
                                        std::vector<std::wstring_view> names) {
  std::stable_sort(names.begin(), names.end(),
                   [&fold](std::wstring_view left, std::wstring_view right) {
                     return ComesBefore(left, right, fold);
                   });
  return names;
}

// Returns the first of the sorted names that counts as the same as the unknown one, and is not
// equal to it.
std::optional<std::wstring_view> FirstSame(const std::vector<std::wstring_view>& names,
                                           std::wstring_view unknown, const FoldTable& fold) {
  auto name = std::partition_point(names.begin(), names.end(), [&](std::wstring_view other) {
    return ComesBefore(other, unknown, fold);
  });
  if (name != names.end() && *name == unknown) ++name;
  if (name == names.end() || ComesBefore(unknown, *name, fold)) return std::nullopt;
  return *name;
}

std::size_t SharedUnits(std::wstring_view left, std::wstring_view right) {
  std::size_t shared = 0;
  while (shared < left.size() && shared < right.size() && left[shared] == right[shared]) ++shared;
  return shared;
}

constexpr std::size_t longestEdited = 64;
constexpr std::size_t mostEdits = 2;

// The rows of a search. A hundred thousand random names need a few thousands.
constexpr std::size_t mostSteps = 200'000;

// Names that it takes no longer to compare one by one than to look for in the tree.
constexpr std::ptrdiff_t few = 16;

// The edits between the beginnings of an unknown name and those of a known one: row by row the
// table of the Damerau-Levenshtein distance, of which only a band is kept. A row is made from those
// before it, so that known names with the same beginning share its rows.
class EditTable {
 public:
  // REQUIRES: the name has at most `longestEdited` units.
  explicit EditTable(std::wstring_view unknown) : unknown_(unknown) {
    rows_[0] = {tooMany, tooMany, 0, 1, 2};
  }

  // Leaves out what needs more edits than this for a beginning of the unknown name that has fewer
  // units. One of just as many is not limited: amid a swap across the limit, no other number of the
  // row can be low.
  void Limit(std::size_t length, std::size_t edits) {
    limitedLength_ = length;
    limit_ = edits;
  }

  // Makes the row of the first `length` units of a known name, the last of which is `unit`. Returns
  // its least number. REQUIRES: the rows of fewer units were made for the same name.
  std::size_t MakeRow(std::size_t length, wchar_t unit) {
    known_[length - 1] = unit;
    Row& row = rows_[length];
    row.fill(tooMany);
    std::size_t least = tooMany;
    for (std::size_t place = 0; place < row.size(); ++place) {
      if (length + place < mostEdits || length + place - mostEdits > unknown_.size()) continue;
      const std::size_t unknownLength = length + place - mostEdits;
      const std::size_t edits = EditsAt(length, place, unknownLength);
      if (edits > limit_ && unknownLength < limitedLength_) continue;
      row[place] = edits;
      least = std::min(least, edits);
    }
    return least;
  }

  // Returns the edits between the unknown name and a known one of this length, or more than
  // `mostEdits` if it needs more. REQUIRES: the row was made for the name.
  std::size_t Edits(std::size_t length) const {
    const std::size_t place = unknown_.size() + mostEdits - length;
    return place < rows_[length].size() ? rows_[length][place] : tooMany;
  }

 private:
  // The number at a place is of the first `length + place - mostEdits` units of the unknown name.
  // Beginnings whose lengths differ by more than `mostEdits` need too many edits.
  using Row = std::array<std::size_t, 2 * mostEdits + 1>;

  static constexpr std::size_t tooMany = mostEdits + 1;

  std::size_t EditsAt(std::size_t length, std::size_t place, std::size_t unknownLength) const {
    const Row& row = rows_[length];
    const Row& above = rows_[length - 1];
    std::size_t edits = tooMany;
    if (place > 0) edits = std::min(edits, row[place - 1] + 1);
    if (place + 1 < row.size()) edits = std::min(edits, above[place + 1] + 1);
    if (unknownLength == 0) return edits;
    const wchar_t unit = known_[length - 1];
    const wchar_t unknownUnit = unknown_[unknownLength - 1];
    edits = std::min(edits, above[place] + (unit == unknownUnit ? 0 : 1));
    if (length == 1 || unknownLength == 1) return edits;
    if (unit != unknown_[unknownLength - 2] || unknownUnit != known_[length - 2]) return edits;
    return std::min(edits, rows_[length - 2][place] + 1);
  }

  std::wstring_view unknown_;
  std::size_t limitedLength_ = 0;
  std::size_t limit_ = mostEdits;
  std::array<wchar_t, longestEdited> known_;
  std::array<Row, longestEdited + 1> rows_;
};

std::size_t CountEdits(std::wstring_view unknown, std::wstring_view known) {
  EditTable table(unknown);
  for (std::size_t i = 0; i < known.size(); ++i) table.MakeRow(i + 1, known[i]);
  return table.Edits(known.size());
}

// The nearest name so far.
struct Nearest {
  std::optional<std::wstring_view> name;
  std::size_t edits;  // the most that a name can have that is as near

  void Consider(std::wstring_view other, std::size_t otherEdits) {
    if (otherEdits == 0 || otherEdits > edits) return;
    if (name && otherEdits == edits && *name < other) return;
    name = other;
    edits = otherEdits;
  }
};

}  // namespace

NearNames::NearNames(std::vector<std::wstring_view> names)
    : names_(SortedOnce(std::move(names))),
      byCase_(SortedBy(caseFold, names_)),
      byLooks_(SortedBy(looksFold, names_)) {
  std::erase_if(names_,
                [](std::wstring_view name) { return name.empty() || name.size() > longestEdited; });
  byEnding_.assign(names_.begin(), names_.end());
  std::sort(byEnding_.begin(), byEnding_.end(),
            [](std::wstring_view left, std::wstring_view right) {
              return std::lexicographical_compare(left.rbegin(), left.rend(), right.rbegin(),
                                                  right.rend());
            });
  AddNodes(0, names_.size(), 0);
}

// Adds the nodes of the names from `begin` to `end`, which share `depth` units and are longer.
void NearNames::AddNodes(std::size_t begin, std::size_t end, std::size_t depth) {
  while (begin != end) {
    const std::wstring_view first = names_[begin];
    const auto past =
        std::partition_point(names_.begin() + static_cast<std::ptrdiff_t>(begin),
                             names_.begin() + static_cast<std::ptrdiff_t>(end),
                             [&](std::wstring_view name) { return name[depth] == first[depth]; });
    const std::size_t shared = SharedUnits(first, *(past - 1));
    const bool ends = first.size() == shared;
    const std::size_t node = nodes_.size();
    nodes_.push_back({units_.size(), depth, shared, 0, ends ? begin : noName});
    units_ += first.substr(depth, shared - depth);
    const auto next = static_cast<std::size_t>(past - names_.begin());
    AddNodes(ends ? begin + 1 : begin, next, shared);
    nodes_[node].next = nodes_.size();
    begin = next;
  }
}

std::optional<std::wstring_view> NearNames::NearestName(std::wstring_view unknown) const {
  if (const auto name = FirstSame(byCase_, unknown, caseFold)) return name;
  if (const auto name = FirstSame(byLooks_, unknown, looksFold)) return name;
  return FewestEdits(unknown);
}

// Cuts the unknown name in two so that few known names end with its second part. A near name is one
// of these few, unless an edit is after the cut or across it. Then one edit less than all is left
// before the cut, and under that limit few paths of the tree go on.
std::optional<std::wstring_view> NearNames::FewestEdits(std::wstring_view unknown) const {
  if (unknown.size() < 2 || unknown.size() > longestEdited) return std::nullopt;
  Nearest nearest{std::nullopt, unknown.size() < 5 ? 1 : mostEdits};
  EditTable table(unknown);
  if (const auto ending = RareEnding(unknown)) {
    table.Limit(unknown.size() - ending->length, nearest.edits - 1);
    for (std::size_t i = ending->begin; i != ending->end; ++i) {
      nearest.Consider(byEnding_[i], CountEdits(unknown, byEnding_[i]));
    }
  }

  // A subtree is passed over once its path alone needs too many edits.
  std::size_t steps = 0;
  for (std::size_t at = 0; at != nodes_.size() && steps < mostSteps;) {
    const Node& node = nodes_[at];
    std::size_t least = 0;
    for (std::size_t i = node.begin; i != node.end && least <= nearest.edits; ++i, ++steps) {
      least = table.MakeRow(i + 1, units_[node.label + i - node.begin]);
    }
    const bool goesOn = least <= nearest.edits;
    if (goesOn && node.name != noName) nearest.Consider(names_[node.name], table.Edits(node.end));
    at = goesOn ? at + 1 : node.next;
  }
  return nearest.name;
}

// Returns the shortest ending of the unknown name that few known names have, and these names.
std::optional<NearNames::Ending> NearNames::RareEnding(std::wstring_view unknown) const {
  auto begin = byEnding_.begin();
  auto end = byEnding_.end();
  std::size_t length = 0;
  for (; end - begin > few; ++length) {
    if (length == unknown.size()) return std::nullopt;
    const auto unitOf = [length](std::wstring_view name) { return name[name.size() - length - 1]; };
    const wchar_t unit = unitOf(unknown);
    begin = std::partition_point(begin, end, [&](std::wstring_view name) {
      return name.size() <= length || unitOf(name) < unit;
    });
    end = std::partition_point(begin, end,
                               [&](std::wstring_view name) { return unitOf(name) == unit; });
  }
  return Ending{length, static_cast<std::size_t>(begin - byEnding_.begin()),
                static_cast<std::size_t>(end - byEnding_.begin())};
}

}  // namespace TolvenLibs::RevitMappingEditorDll
