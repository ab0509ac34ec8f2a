#pragma once

#include <filesystem>
#include <string>
#include <string_view>

// Creates an empty folder and removes it with all its contents at the end of its lifetime.
class TempFolder {
 public:
  TempFolder();
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  ~TempFolder();

  const std::filesystem::path& Path() const { return path; }

  // Returns the folder's path as an argument of the library.
  std::wstring Wide() const;

  // Writes a file of exactly these bytes and returns its path as an argument of the library. The
  // name is UTF-8.
  std::wstring Write(std::string_view name, std::string_view bytes) const;

 private:
  std::filesystem::path path;
};
