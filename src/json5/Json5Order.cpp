#include "json5/Json5Order.h"

#include <algorithm>
#include <bit>
#include <functional>
#include <numeric>
#include <string_view>
#include <utility>

namespace TolvenLibs::RevitMappingEditorDll {

Json5Order::Json5Order(const Json5Record& record)
    : record_(record), first_(record.Items().size()), order_(first_.size()) {
  if (!FindFirstByHash()) FindFirstBySorting();
  const std::vector<std::size_t> firstOfSections = FirstOfSections();
  const auto isBefore = [&](std::size_t left, std::size_t right) {
    const std::size_t leftSection = firstOfSections[record_.Items()[left].section];
    const std::size_t rightSection = firstOfSections[record_.Items()[right].section];
    return std::pair(leftSection, first_[left]) < std::pair(rightSection, first_[right]);
  };
  std::iota(order_.begin(), order_.end(), std::size_t{0});
  if (std::is_sorted(order_.begin(), order_.end(), isBefore)) return;
  std::stable_sort(order_.begin(), order_.end(), isBefore);
}

// Uses a hash table with open addressing and linear probing, at most half full. Returns false if a
// probe sequence gets too long, as with hashes that collide by intention.
bool Json5Order::FindFirstByHash() {
  constexpr auto none = static_cast<std::size_t>(-1);
  constexpr std::size_t maxTries = 128;
  std::vector<std::size_t> table(std::bit_ceil(2 * first_.size() + 1), none);
  for (std::size_t item = 0; item < first_.size(); ++item) {
    const std::size_t home = Hash(item);
    std::size_t tries = 0;
    const auto entry = [&]() -> std::size_t& { return table[(home + tries) & (table.size() - 1)]; };
    while (entry() != none && !HaveSameName(entry(), item)) {
      if (++tries == maxTries) return false;
    }
    if (entry() == none) entry() = item;
    first_[item] = entry();
  }
  return true;
}

void Json5Order::FindFirstBySorting() {
  const auto nameOf = [this](std::size_t item) {
    return std::pair(record_.Items()[item].section, record_.Items()[item].name);
  };
  std::vector<std::size_t> sorted(first_.size());
  std::iota(sorted.begin(), sorted.end(), std::size_t{0});
  std::stable_sort(sorted.begin(), sorted.end(), [&](std::size_t left, std::size_t right) {
    return nameOf(left) < nameOf(right);
  });
  std::size_t last = 0;
  for (const std::size_t item : sorted) {
    if (nameOf(last) != nameOf(item)) last = item;
    first_[item] = last;
  }
}

std::size_t Json5Order::Hash(std::size_t item) const {
  const Json5RecordItem& opened = record_.Items()[item];
  return std::hash<std::string_view>()(opened.name) + opened.section;
}

bool Json5Order::HaveSameName(std::size_t left, std::size_t right) const {
  return HaveSameSection(left, right) && record_.Items()[left].name == record_.Items()[right].name;
}

// For each section, by its place among the repeated texts, the place of its first item.
std::vector<std::size_t> Json5Order::FirstOfSections() const {
  std::vector<std::size_t> firstOfSections(record_.repeated.Count(), first_.size());
  for (std::size_t item = first_.size(); item-- != 0;) {
    firstOfSections[record_.Items()[item].section] = item;
  }
  return firstOfSections;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
