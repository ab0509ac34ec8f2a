// From the bytes of a `.json` file to lines and columns.

#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "authoring/Report.h"

namespace TolvenLibs::RevitMappingEditorDll {

// Finds places in the bytes of a file, which must outlive this, in time logarithmic in their
// number. A line ends where the parser of JSON5 says so. A byte order mark at the beginning is no
// column.
class JsonPlaces {
 public:
  // `number` is that of the file in the report.
  JsonPlaces(std::string_view bytes, std::size_t number);

  // The place of the bytes from `begin` to `end`.
  Place Of(std::size_t begin, std::size_t end) const;

  // The bytes of a line, without its end.
  std::string_view TextOfLine(std::size_t line) const;

 private:
  struct Point {
    std::size_t line = 1;
    std::size_t column = 1;
  };

  void Pass(std::size_t position, Point& point) const;
  Point At(std::size_t position) const;

  std::string_view bytes_;
  std::size_t number_;
  std::vector<Point> known_;  // at equal distances
};

}  // namespace TolvenLibs::RevitMappingEditorDll
