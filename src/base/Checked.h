// Checked element access, with the exceptions that reach the add-in.

#pragma once

#include <cstddef>
#include <stdexcept>
#include <string_view>

namespace TolvenLibs::RevitMappingEditorDll {

// Returns the element at `index`, or raises `out_of_range`, "invalid vector subscript".
template <class Vector>
auto& CheckedAt(Vector& elements, int index) {
  if (index < 0 || static_cast<std::size_t>(index) >= elements.size()) {
    throw std::out_of_range("invalid vector subscript");
  }
  return elements[static_cast<std::size_t>(index)];
}

// Returns the value of `key` in a map, or raises `out_of_range`, "invalid map<K, T> key".
template <class Map>
const auto& CheckedAt(const Map& entries, std::wstring_view key) {
  const auto found = entries.find(key);
  if (found == entries.end()) throw std::out_of_range("invalid map<K, T> key");
  return found->second;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
