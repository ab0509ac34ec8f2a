// Files as the check of them finds them.

#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "authoring/Check.h"
#include "authoring/LoadedFiles.h"
#include "authoring/Report.h"
#include "base/Utf8.h"
#include "support/TempFolder.h"

// A file that is loaded as one or the other.
struct GivenFile {
  bool isClassificator;
  std::string name;
  std::string bytes;
};

// The files in a folder of their own, loaded by their bare names and checked.
struct CheckedFiles {
  explicit CheckedFiles(const std::vector<GivenFile>& files) {
    using namespace TolvenLibs::RevitMappingEditorDll;
    FileList list;
    list.dataFolder = folder.Wide();
    for (const GivenFile& file : files) {
      folder.Write(file.name, file.bytes);
      (file.isClassificator ? list.classificators : list.domens).push_back(DecodeUtf8(file.name));
    }
    EXPECT_EQ(LoadFiles(list, loaded), std::nullopt);
    report = CheckFiles(loaded);
  }

  TempFolder folder;
  TolvenLibs::RevitMappingEditorDll::LoadedFiles loaded;
  TolvenLibs::RevitMappingEditorDll::Report report;
};

// A file that is named as "classificator c.txt" or "domen d.txt".
inline GivenFile File(std::string_view named, std::string_view bytes) {
  const std::size_t blank = named.find(' ');
  return {named.starts_with("classificator"), std::string(named.substr(blank + 1)),
          std::string(bytes)};
}

inline TolvenLibs::RevitMappingEditorDll::Report ReportOf(const std::vector<GivenFile>& files) {
  return CheckedFiles(files).report;
}

// As "1:2-3:4", from line and column to line and column.
inline std::string TextOf(const TolvenLibs::RevitMappingEditorDll::Place& place) {
  return std::to_string(place.line) + ":" + std::to_string(place.column) + "-" +
         std::to_string(place.endLine) + ":" + std::to_string(place.endColumn);
}
