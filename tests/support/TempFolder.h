#pragma once

#include <filesystem>
#include <string>
#include <string_view>

// A folder of its own for each test, empty at first and removed with all its contents.
class TempFolder {
 public:
  TempFolder();
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  ~TempFolder();

  const std::filesystem::path& Path() const { return path; }

  // The folder's path as an argument of the library.
  std::wstring Wide() const;

  // Writes a file of exactly these bytes and gives its path as an argument of the library. The name
  // is UTF-8.
  std::wstring Write(std::string_view name, std::string_view bytes) const;

 private:
  std::filesystem::path path;
};
