#include "authoring/Places.h"

#include <algorithm>

#include "base/Utf8.h"

namespace TolvenLibs::RevitMappingEditorDll {

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
  std::wstring_view before = TextOf(*line).substr(0, position - line->start);
  std::size_t column = line->column;
  for (; !before.empty(); ++column) TakeUnits(before);
  return {line->number, column};
}

}  // namespace TolvenLibs::RevitMappingEditorDll
