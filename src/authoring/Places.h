// From the text of a loaded file to lines and columns.

#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "authoring/LoadedFiles.h"
#include "authoring/Report.h"

namespace TolvenLibs::RevitMappingEditorDll {

// Finds places in a text file, which must outlive this, in time logarithmic in its lines.
class Places {
 public:
  // `number` is that of the file in the report.
  Places(const LoadedFile& file, std::size_t number);

  // REQUIRES: `piece` is a view into the text of the file, and the file has a line.
  Place Of(std::wstring_view piece) const;

  std::size_t Number() const { return number_; }

  // The trimmed text of a line.
  std::wstring_view TextOf(const AccountLine& line) const;

 private:
  struct Point {
    std::size_t line;
    std::size_t column;
  };

  Point At(const wchar_t* unit) const;

  const LoadedFile& file_;
  std::size_t number_;
  std::vector<std::size_t> secondUnits_;  // the positions of units that begin no code point
};

}  // namespace TolvenLibs::RevitMappingEditorDll
