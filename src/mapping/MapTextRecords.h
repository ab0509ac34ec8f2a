// The pattern lines of a ==MAPTEXT section.

#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "mapping/ParamItem.h"

namespace TolvenLibs::RevitMappingEditorDll {

class CodeIndex;
struct PatternTexts;

// The words of one pattern, which stand side by side.
class Tokens {
 public:
  Tokens() = default;
  Tokens(const std::wstring_view* firstToken, std::size_t tokenCount)
      : first(firstToken), count(tokenCount) {}

  const std::wstring_view* begin() const { return first; }
  const std::wstring_view* end() const { return first + count; }
  std::size_t size() const { return count; }
  const std::wstring_view& operator[](std::size_t index) const { return first[index]; }

 private:
  const std::wstring_view* first = nullptr;
  std::size_t count = 0;
};

// One pattern line. Its texts are views: of texts that the records of the section keep together,
// so that a line costs no strings of its own. Whoever fills one by hand keeps its texts himself.
struct MapTextRecord {
  std::wstring_view code;  // of the header above the line; empty ahead of any header
  ItemLists itemLists;     // of that header, one for each of its item blocks
  std::wstring_view text;  // the line, in its own case
  Tokens tokens;           // the line in capitals, cut at blanks; out of a file never empty
};

// The records of a section. They are read as a vector is; a change goes through `Edit`, behind
// which they never have an index again, so that none ever answers for records that it wasn't made
// of. Copies share the texts and the index, neither of which changes.
class MapTextRecords {
 public:
  MapTextRecords() = default;

  // Records as a section has them: sorted by the number of tokens, each of which has one at least.
  // `recordTexts` keeps what their views look at.
  MapTextRecords(std::vector<MapTextRecord> sectionRecords,
                 std::shared_ptr<const PatternTexts> recordTexts)
      : records(std::move(sectionRecords)), texts(std::move(recordTexts)) {}

  bool empty() const { return records.empty(); }
  std::size_t size() const { return records.size(); }
  const MapTextRecord& operator[](std::size_t position) const { return records[position]; }
  auto begin() const { return records.begin(); }
  auto end() const { return records.end(); }

  std::vector<MapTextRecord>& Edit();

  // The index of the records for the global locale as it is now, which the first call makes. Null
  // for records that were changed by hand, and if no index can be made.
  const CodeIndex* Index() const;

 private:
  std::vector<MapTextRecord> records;
  std::shared_ptr<const PatternTexts> texts;
  bool edited = false;
  mutable std::shared_ptr<const CodeIndex> index;
};

}  // namespace TolvenLibs::RevitMappingEditorDll
