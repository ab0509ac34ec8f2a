// One pattern line of a ==MAPTEXT section, and the code header above it.

#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "mapping/ParamItem.h"

namespace TolvenLibs::RevitMappingEditorDll {

// It looks at texts that it keeps: those of its whole section.
struct CodeHeader {
  std::shared_ptr<const void> texts;
  std::wstring_view code;
  std::wstring_view blocks;  // from the first mark that opens an item block
  std::wstring_view openMark;
  std::wstring_view closeMark;
};

// A load has no time for strings of each record's own, nor for items, most of which nobody asks
// for. So the texts are views, of what the header keeps: a record can be copied, and outlives its
// section. Whoever fills one by hand, without a header, keeps its texts himself.
struct MapTextRecord {
  std::wstring_view code;    // of the header; empty before any header
  std::wstring_view text;    // the line, in its own case
  std::wstring_view tokens;  // its words in capitals, with one blank between each two
  std::shared_ptr<const CodeHeader> header;
};

// Returns the item lists of the record's header, one for each of its item blocks. The lists are the
// caller's own.
std::vector<ParamItemList> ReadItemLists(const MapTextRecord& record);

}  // namespace TolvenLibs::RevitMappingEditorDll
