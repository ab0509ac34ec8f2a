// Symbolic links, for tests that are skipped if there are none.

#pragma once

#include <filesystem>
#include <system_error>

inline bool IsLink(const std::filesystem::path& path) {
  std::error_code error;
  return std::filesystem::is_symlink(std::filesystem::symlink_status(path, error));
}

// Makes a symbolic link to a file. Returns whether it exists: some systems report success without
// making one.
inline bool MakeLink(const std::filesystem::path& to, const std::filesystem::path& link) {
  std::error_code error;
  std::filesystem::create_symlink(to, link, error);
  return IsLink(link);
}

// The same for a link to a folder, which Windows distinguishes from one to a file.
inline bool MakeFolderLink(const std::filesystem::path& to, const std::filesystem::path& link) {
  std::error_code error;
  std::filesystem::create_directory_symlink(to, link, error);
  return IsLink(link);
}
