#pragma once

#include <filesystem>

// Makes a folder the process's current one for its lifetime.
class CurrentFolder {
 public:
  explicit CurrentFolder(const std::filesystem::path& folder) {
    std::filesystem::current_path(folder);
  }
  CurrentFolder(const CurrentFolder&) = delete;
  CurrentFolder& operator=(const CurrentFolder&) = delete;
  ~CurrentFolder() { std::filesystem::current_path(before); }

 private:
  std::filesystem::path before = std::filesystem::current_path();
};
