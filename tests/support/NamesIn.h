#pragma once

#include <filesystem>
#include <set>
#include <string>

// Returns the names, in UTF-8, of all entries of a folder.
inline std::set<std::string> NamesIn(const std::filesystem::path& folder) {
  std::set<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    const std::u8string name = entry.path().filename().u8string();
    names.emplace(name.begin(), name.end());
  }
  return names;
}
