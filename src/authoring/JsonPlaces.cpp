#include "authoring/JsonPlaces.h"

#include <algorithm>

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

constexpr std::size_t distance = 256;
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

bool IsContinuation(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80;
}

// A carriage return and a line feed are one line end.
bool EndsLine(std::string_view bytes, std::size_t position) {
  const auto endsIn = [&](std::string_view code) {
    return bytes.substr(0, position + 1).ends_with(code);
  };
  switch (bytes[position]) {
    case '\n':
      return true;
    case '\r':
      return bytes.substr(position + 1, 1) != "\n";
    default:
      return endsIn("\xE2\x80\xA8") || endsIn("\xE2\x80\xA9");
  }
}

}  // namespace

JsonPlaces::JsonPlaces(std::string_view bytes, std::size_t number)
    : bytes_(bytes), number_(number) {
  Point point;
  for (std::size_t i = 0; i < bytes_.size(); ++i) {
    if (i % distance == 0) known_.push_back(point);
    Pass(i, point);
  }
  if (bytes_.size() % distance == 0) known_.push_back(point);
}

Place JsonPlaces::Of(std::size_t begin, std::size_t end) const {
  const Point first = At(begin);
  const Point last = At(end);
  return {number_, first.line, first.column, last.line, last.column};
}

std::string_view JsonPlaces::TextOfLine(std::size_t line) const {
  const auto startsLater = [](std::size_t number, const Point& point) {
    return number <= point.line;
  };
  const auto later = std::upper_bound(known_.begin(), known_.end(), line, startsLater);
  const auto from = later == known_.begin() ? later : later - 1;
  Point point = *from;
  std::size_t position = static_cast<std::size_t>(from - known_.begin()) * distance;
  if (position == 0 && bytes_.starts_with(byteOrderMark)) position = byteOrderMark.size();
  while (position < bytes_.size() && point.line < line) Pass(position++, point);
  const std::size_t begin = position;
  while (position < bytes_.size() && !EndsLine(bytes_, position)) ++position;
  return bytes_.substr(begin, position - begin);
}

// Moves the point of the byte at `position` to that of the next.
void JsonPlaces::Pass(std::size_t position, Point& point) const {
  if (position < byteOrderMark.size() && bytes_.starts_with(byteOrderMark)) return;
  if (EndsLine(bytes_, position)) {
    point = {point.line + 1, 1};
  } else if (!IsContinuation(bytes_[position])) {
    ++point.column;
  }
}

JsonPlaces::Point JsonPlaces::At(std::size_t position) const {
  Point point = known_[position / distance];
  for (std::size_t i = position / distance * distance; i < position; ++i) Pass(i, point);
  return point;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
