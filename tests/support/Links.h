// Symbolic links, for tests that skip themselves where there are none.

#pragma once

#include <filesystem>
#include <system_error>

inline bool IsLink(const std::filesystem::path& path) {
  std::error_code error;
  return std::filesystem::is_symlink(std::filesystem::symlink_status(path, error));
}

// Makes a symbolic link to a file; false where none can be made. Some systems say that they have
// made one, and have not.
inline bool MakeLink(const std::filesystem::path& to, const std::filesystem::path& link) {
  std::error_code error;
  std::filesystem::create_symlink(to, link, error);
  return IsLink(link);
}

// The same for a link to a folder, which Windows tells from one to a file.
inline bool MakeFolderLink(const std::filesystem::path& to, const std::filesystem::path& link) {
  std::error_code error;
  std::filesystem::create_directory_symlink(to, link, error);
  return IsLink(link);
}
