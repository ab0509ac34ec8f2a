// The order in which the items of a record are written.

#pragma once

#include <cstddef>
#include <vector>

#include "json5/Json5Record.h"

namespace TolvenLibs::RevitMappingEditorDll {

// Groups the items of a record: those of the same section and name are one item of the file. Items
// are identified by their places in the record. REQUIRES: the record outlives this.
class Json5Order {
 public:
  explicit Json5Order(const Json5Record& record);

  // All places. Sections are in the order of their first requests, and so are the items in each.
  const std::vector<std::size_t>& InOrder() const { return order_; }

  bool AreSameItem(std::size_t left, std::size_t right) const {
    return first_[left] == first_[right];
  }

  bool HaveSameSection(std::size_t left, std::size_t right) const {
    return record_.Items()[left].section == record_.Items()[right].section;
  }

 private:
  bool FindFirstByHash();
  void FindFirstBySorting();
  std::size_t Hash(std::size_t item) const;
  bool HaveSameName(std::size_t left, std::size_t right) const;
  std::vector<std::size_t> FirstOfSections() const;

  const Json5Record& record_;
  std::vector<std::size_t> first_;  // for each place, the first of the same section and name
  std::vector<std::size_t> order_;
};

}  // namespace TolvenLibs::RevitMappingEditorDll
