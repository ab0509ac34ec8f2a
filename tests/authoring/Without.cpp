#include "authoring/Without.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "authoring/Places.h"

namespace TolvenLibs::RevitMappingEditorDll {

namespace {

bool IsBlank(char byte) {
  return std::string_view(" \t\r\n").find(byte) != std::string_view::npos;
}

std::size_t LineStart(std::string_view bytes, std::size_t line) {
  std::size_t start = 0;
  for (; line > 1; --line) start = bytes.find('\n', start) + 1;
  return start;
}

std::size_t SizeOfCharacter(char first) {
  const auto byte = static_cast<unsigned char>(first);
  return byte < 0xC0 ? 1 : byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
}

// A column is that of a character.
std::size_t At(std::string_view bytes, std::size_t line, std::size_t column) {
  std::size_t at = LineStart(bytes, line);
  for (; column > 1 && at < bytes.size(); --column) at += SizeOfCharacter(bytes[at]);
  return std::min(at, bytes.size());
}

struct Range {
  std::size_t begin;
  std::size_t end;
};

Range RangeOf(std::string_view bytes, const Place& place) {
  return {At(bytes, place.line, place.column), At(bytes, place.endLine, place.endColumn)};
}

std::size_t AfterBlanks(std::string_view bytes, std::size_t at) {
  while (at < bytes.size() && IsBlank(bytes[at])) ++at;
  return at;
}

bool HasText(const LoadedFile& file, std::size_t line) {
  return std::any_of(file.account.lines.begin(), file.account.lines.end(),
                     [line](const AccountLine& read) { return read.number == line; });
}

bool IsBlockOfColorat(Outcome outcome) {
  return outcome == Outcome::coloratWithoutLines || outcome == Outcome::coloratTitleWithoutBlank;
}

bool IsRemark(Outcome outcome) {
  return outcome == Outcome::cutAtSemicolons || outcome == Outcome::defaultRefused ||
         outcome == Outcome::colorValueClamped || outcome == Outcome::colorValueRefused;
}

bool IsCutAtSemicolons(const LoadedFile& file, const Places& places, const Place& place) {
  return std::any_of(
      file.account.entries.begin(), file.account.entries.end(), [&](const AccountEntry& entry) {
        if (entry.outcome != Outcome::cutAtSemicolons) return false;
        const Place text = places.Of(entry.piece);
        return std::pair(text.line, text.column) <= std::pair(place.line, place.column) &&
               std::pair(place.endLine, place.endColumn) <= std::pair(text.endLine, text.endColumn);
      });
}

std::string Without(std::string bytes, Range range) {
  return bytes.erase(range.begin, range.end - range.begin);
}

// With all of its line, if there is nothing else on it.
Range WithLine(std::string_view bytes, Range range) {
  std::size_t begin = range.begin;
  while (begin > 0 && bytes[begin - 1] != '\n' && IsBlank(bytes[begin - 1])) --begin;
  std::size_t end = range.end;
  while (end < bytes.size() && bytes[end] != '\n' && IsBlank(bytes[end])) ++end;
  const bool begins = begin == 0 || bytes[begin - 1] == '\n';
  const bool ends = end == bytes.size() || bytes[end] == '\n';
  if (!begins || !ends) return range;
  return {begin, std::min(end + 1, bytes.size())};
}

}  // namespace

bool IsRestOfFile(const LoadedFile& file, const Statement& statement) {
  const Account& account = file.account;
  return statement.fate == Fate::lost && account.end != EndOfReading::endOfFile &&
         statement.place.line == account.endLine && statement.place.column == account.endColumn;
}

std::map<Place, const AccountEntry*> EntriesOf(const LoadedFile& file, std::size_t number) {
  std::map<Place, const AccountEntry*> entries;
  if (!file.text) return entries;
  const Places places(file, number);
  for (const AccountEntry& entry : file.account.entries) {
    if (IsRemark(entry.outcome) || entry.piece.empty()) continue;
    entries[places.Of(entry.piece)] = &entry;
  }
  return entries;
}

std::optional<std::string> LeftOut(const std::string& bytes, const LoadedFile& file,
                                   const Statement& statement) {
  const Place& place = statement.place;
  Range range = RangeOf(bytes, place);
  if (IsRestOfFile(file, statement)) return bytes.substr(0, range.begin);
  if (!HasText(file, place.line)) return Without(bytes, WithLine(bytes, range));
  const Places places(file, place.file);
  const auto entries = EntriesOf(file, place.file);
  const auto entry = entries.find(place);
  if (entry != entries.end() && IsBlockOfColorat(entry->second->outcome)) {
    if (range.begin > 0 && bytes[range.begin - 1] == '@') --range.begin;
    return Without(bytes, range);
  }
  if (!IsCutAtSemicolons(file, places, place)) return Without(bytes, WithLine(bytes, range));
  const std::size_t next = AfterBlanks(bytes, range.end);
  if (next < bytes.size() && bytes[next] == ';') {
    range.end = next + 1;
  } else if (range.begin == range.end) {
    return std::nullopt;
  }
  return Without(bytes, range);
}

bool IsHeadingAt(const std::string& bytes, const Place& place) {
  return std::string_view(bytes).substr(RangeOf(bytes, place).begin).starts_with("==");
}

std::string Masked(std::string bytes, const Place& place) {
  const Range range = RangeOf(bytes, place);
  for (std::size_t i = range.begin; i < range.end; ++i) {
    if (!IsBlank(bytes[i]) && bytes[i] != ';') bytes[i] = '!';
  }
  return bytes;
}

Cut CutOf(const LoadedFile& file) {
  Cut cut;
  if (!file.text) return cut;
  for (const TextSection& section : file.text->sections) cut.headings.emplace_back(section.heading);
  cut.atSemicolons = static_cast<std::size_t>(std::count_if(
      file.account.entries.begin(), file.account.entries.end(),
      [](const AccountEntry& entry) { return entry.outcome == Outcome::cutAtSemicolons; }));
  return cut;
}

}  // namespace TolvenLibs::RevitMappingEditorDll
