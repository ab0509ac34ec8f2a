#include "json5/Json5Order.h"

#include <algorithm>
#include <bit>
#include <functional>
#include <numeric>
#include <string_view>
#include <utility>

namespace TolvenLibs::RevitMappingEditorDll {

Json5Order::Json5Order(const Json5Record& requests)
    : record(requests), first(requests.Items().size()), order(first.size()) {
  if (!FindFirstByHash()) FindFirstBySorting();
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
// half of it is. False if too many others stand in the way: hashes that are alike by intention are
// more than it is made for.
bool Json5Order::FindFirstByHash() {
  constexpr auto none = static_cast<std::size_t>(-1);
  constexpr std::size_t maxTries = 128;
  std::vector<std::size_t> table(std::bit_ceil(2 * first.size() + 1), none);
  for (std::size_t item = 0; item < first.size(); ++item) {
    const std::size_t home = Hash(item);
    std::size_t tries = 0;
    const auto entry = [&]() -> std::size_t& { return table[(home + tries) & (table.size() - 1)]; };
    while (entry() != none && !AreOfOneName(entry(), item)) {
      if (++tries == maxTries) return false;
    }
    if (entry() == none) entry() = item;
    first[item] = entry();
  }
  return true;
}

void Json5Order::FindFirstBySorting() {
  const auto nameOf = [this](std::size_t item) {
    return std::pair(record.Items()[item].section, record.Items()[item].name);
  };
  std::vector<std::size_t> sorted(first.size());
  std::iota(sorted.begin(), sorted.end(), std::size_t{0});
  std::stable_sort(sorted.begin(), sorted.end(), [&](std::size_t left, std::size_t right) {
    return nameOf(left) < nameOf(right);
  });
  std::size_t last = 0;
  for (const std::size_t item : sorted) {
    if (nameOf(last) != nameOf(item)) last = item;
    first[item] = last;
  }
}

std::size_t Json5Order::Hash(std::size_t item) const {
  const Json5RecordItem& opened = record.Items()[item];
  return std::hash<std::string_view>()(opened.name) + opened.section;
}

bool Json5Order::AreOfOneName(std::size_t left, std::size_t right) const {
  return AreOfOneSection(left, right) && record.Items()[left].name == record.Items()[right].name;
}

// By the sections' places among the repeated texts.
std::vector<std::size_t> Json5Order::FirstOfSections() const {
  std::vector<std::size_t> firstOfSections(record.repeated.Count(), first.size());
  for (std::size_t item = first.size(); item-- != 0;) {
    firstOfSections[record.Items()[item].section] = item;
  }
  return firstOfSections;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
