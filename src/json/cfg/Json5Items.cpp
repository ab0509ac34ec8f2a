#include "Json5Items.h"

#include <algorithm>
#include <bit>
#include <functional>
#include <numeric>
#include <string_view>
#include <utility>

namespace TolvenLibs::RevitMappingEditorDll {

Json5Items::Json5Items(const Json5Record& requests)
    : record(requests), first(requests.Items().size()), order(first.size()) {
  FindFirst();
  const std::vector<std::size_t> firstOfSections = FirstOfSections();
  const auto isBefore = [&](std::size_t left, std::size_t right) {
    const std::size_t leftSection = firstOfSections[record.Items()[left].section];
    const std::size_t rightSection = firstOfSections[record.Items()[right].section];
    return std::pair(leftSection, first[left]) < std::pair(rightSection, first[right]);
  };
  std::iota(order.begin(), order.end(), std::size_t{0});
  if (std::is_sorted(order.begin(), order.end(), isBefore)) return;
  std::stable_sort(order.begin(), order.end(), isBefore);
}

// By a table in which an item stands at its hash, or else at the next place that is free: at least
// half of it is.
void Json5Items::FindFirst() {
  constexpr auto none = static_cast<std::size_t>(-1);
  std::vector<std::size_t> table(std::bit_ceil(2 * first.size() + 1), none);
  for (std::size_t item = 0; item < first.size(); ++item) {
    std::size_t at = Hash(item) & (table.size() - 1);
    while (table[at] != none && !AreOfOneName(table[at], item)) at = (at + 1) & (table.size() - 1);
    if (table[at] == none) table[at] = item;
    first[item] = table[at];
  }
}

std::size_t Json5Items::Hash(std::size_t item) const {
  const Json5RecordItem& opened = record.Items()[item];
  return std::hash<std::string_view>()(opened.name) + opened.section;
}

bool Json5Items::AreOfOneName(std::size_t left, std::size_t right) const {
  return AreOfOneSection(left, right) && record.Items()[left].name == record.Items()[right].name;
}

// By the sections' places among the repeated texts.
std::vector<std::size_t> Json5Items::FirstOfSections() const {
  std::vector<std::size_t> firstOfSections(record.repeated.Count(), first.size());
  for (std::size_t item = first.size(); item-- != 0;) {
    firstOfSections[record.Items()[item].section] = item;
  }
  return firstOfSections;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
