// The items of a record in the order in which they are written.

#pragma once

#include <cstddef>
#include <vector>

#include "json5/Json5Record.h"

namespace TolvenLibs::RevitMappingEditorDll {

// An item goes by its place in the record, which must outlive this. Those of one section and name
// are one item of the file.
class Json5Order {
 public:
  explicit Json5Order(const Json5Record& requests);

  // All places, section by section in the order of their first requests, and so the items in them.
  const std::vector<std::size_t>& InOrder() const { return order; }

  bool AreOne(std::size_t left, std::size_t right) const { return first[left] == first[right]; }

  bool AreOfOneSection(std::size_t left, std::size_t right) const {
    return record.Items()[left].section == record.Items()[right].section;
  }

 private:
  bool FindFirstByHash();
  void FindFirstBySorting();
  std::size_t Hash(std::size_t item) const;
  bool AreOfOneName(std::size_t left, std::size_t right) const;
  std::vector<std::size_t> FirstOfSections() const;

  const Json5Record& record;
  std::vector<std::size_t> first;  // of each place, the first of its section and name
  std::vector<std::size_t> order;
};

}  // namespace TolvenLibs::RevitMappingEditorDll
