// Which known name was probably meant by an unknown one.

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace TolvenLibs::RevitMappingEditorDll {

// The known names. Each unknown name is looked for in time that is bounded, and that grows much
// more slowly than the number of known ones.
//
//   const NearNames names({L"Wall", L"Window"});
//   names.NearestName(L"Windw")  returns  L"Window"
class NearNames {
 public:
  // Takes the names in any order. Equal ones count once. REQUIRES: the texts that the views show
  // outlive this object and what it returns.
  explicit NearNames(std::vector<std::wstring_view> names);

  // Returns the known name that is nearest to an unknown one, or none if none is near. A known name
  // is near if it differs from the unknown one
  //
  //   1. only in the case of letters, of Latin, Greek and Cyrillic ones, whatever the locale; or
  //   2. only in letters and digits that look alike, such as the Latin A and the Cyrillic one; or
  //   3. by one edit if the unknown name has at least 2 units, by at most two if it has at least 5,
  //      and both have at most 64. An edit inserts, deletes or replaces a unit, or swaps two that
  //      are side by side; what was swapped is not edited again.
  //
  // Of several near names, the one whose kind of difference comes first here is the nearest, then
  // one edit is nearer than two, then the first name in the order of units is. An equal name is
  // never returned. The search for the third kind ends after a bounded number of steps, with the
  // nearest name that it has found: many ten thousands of known names that are nearly near can hide
  // one that is near.
  std::optional<std::wstring_view> NearestName(std::wstring_view unknown) const;

 private:
  // A node of a radix tree of the names. The labels on its path spell the beginning of all names of
  // its subtree.
  struct Node {
    std::size_t label;  // where its label is in `units_`
    std::size_t begin;  // the length of the path to its label
    std::size_t end;    // the length of the path with it
    std::size_t next;   // the node after its subtree
    std::size_t name;   // the place in `names_` of the name that ends here, or `noName`
  };

  static constexpr std::size_t noName = static_cast<std::size_t>(-1);

  // The names that have some ending: those of a range in `byEnding_`.
  struct Ending {
    std::size_t length;
    std::size_t begin;
    std::size_t end;
  };

  void AddNodes(std::size_t begin, std::size_t end, std::size_t depth);
  std::optional<std::wstring_view> FewestEdits(std::wstring_view unknown) const;
  std::optional<Ending> RareEnding(std::wstring_view unknown) const;

  std::vector<std::wstring_view> names_;     // sorted; those that edits are counted for
  std::vector<std::wstring_view> byCase_;    // all, sorted by their texts in small letters
  std::vector<std::wstring_view> byLooks_;   // all, sorted by one letter for all that are alike
  std::vector<std::wstring_view> byEnding_;  // `names_`, sorted by their units from the last on
  std::wstring units_;                       // the labels
  std::vector<Node> nodes_;                  // each before its subtree
};

}  // namespace TolvenLibs::RevitMappingEditorDll
