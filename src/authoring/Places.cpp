#include "authoring/Places.h"

#include <algorithm>

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

// Only UTF-16 has such units.
std::vector<std::size_t> SecondUnits(const LoadedFile& file) {
  std::vector<std::size_t> positions;
  if constexpr (sizeof(wchar_t) == 2) {
    for (const AccountLine& line : file.account.lines) {
      for (std::size_t i = line.start; i < line.start + line.size; ++i) {
        const auto unit = static_cast<unsigned>(file.text->units[i]);
        if (unit >= 0xDC00 && unit <= 0xDFFF) positions.push_back(i);
      }
    }
  }
  return positions;
}

}  // namespace

Places::Places(const LoadedFile& file, std::size_t number)
    : file_(file), number_(number), secondUnits_(SecondUnits(file)) {}

Place Places::Of(std::wstring_view piece) const {
  const Point begin = At(piece.data());
  if (piece.empty()) return {number_, begin.line, begin.column, begin.line, begin.column};
  const Point end = At(piece.data() + piece.size());
  return {number_, begin.line, begin.column, end.line, end.column};
}

std::wstring_view Places::TextOf(const AccountLine& line) const {
  return {file_.text->units.get() + line.start, line.size};
}

// A unit at the end of a line is the line feed after it, and has the place after its last
// character.
Places::Point Places::At(const wchar_t* unit) const {
  const std::vector<AccountLine>& lines = file_.account.lines;
  const auto position = static_cast<std::size_t>(unit - file_.text->units.get());
  auto line = std::upper_bound(
      lines.begin(), lines.end(), position,
      [](std::size_t left, const AccountLine& right) { return left < right.start; });
  if (line != lines.begin()) --line;
  const std::size_t units = std::min(position - line->start, line->size);
  const auto firstOfLine = std::lower_bound(secondUnits_.begin(), secondUnits_.end(), line->start);
  const auto end = std::lower_bound(firstOfLine, secondUnits_.end(), line->start + units);
  const auto seconds = static_cast<std::size_t>(end - firstOfLine);
  return {line->number, line->column + units - seconds};
}

}  // namespace TolvenLibs::RevitMappingEditorDll
