// Names that a table of hashes would find hard to tell apart.

#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// Their hashes have that many of their lowest bits in common. 2^bits are tried for each.
inline std::vector<std::string> NamesOfAlikeHashes(std::size_t count, unsigned bits) {
  const std::size_t mask = (std::size_t{1} << bits) - 1;
  std::vector<std::string> names;
  for (int i = 0; names.size() < count; ++i) {
    std::string name = "n" + std::to_string(i);
    if ((std::hash<std::string_view>()(name) & mask) == 0) names.push_back(std::move(name));
  }
  return names;
}
