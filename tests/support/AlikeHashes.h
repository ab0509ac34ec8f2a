// Names that collide in a hash table.

#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// Returns names whose hashes end with `bits` zero bits. Takes about 2^bits attempts for each.
inline std::vector<std::string> NamesOfAlikeHashes(std::size_t count, unsigned bits) {
  const std::size_t mask = (std::size_t{1} << bits) - 1;
  std::vector<std::string> names;
  for (int i = 0; names.size() < count; ++i) {
    std::string name = "n" + std::to_string(i);
    if ((std::hash<std::string_view>()(name) & mask) == 0) names.push_back(std::move(name));
  }
  return names;
}
