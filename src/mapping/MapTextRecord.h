// One pattern line of a ==MAPTEXT section, and the code header above it.

#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "mapping/ParamItem.h"

namespace TolvenLibs::RevitMappingEditorDll {

// The views point into `texts`, the texts of the whole section.
struct CodeHeader {
  std::shared_ptr<const void> texts;
  std::wstring_view code;
  std::wstring_view blocks;  // the header's text from the first mark that opens an item block
  std::wstring_view openMark;
  std::wstring_view closeMark;
};

// To make loads fast, the texts are views instead of strings, and items are parsed on demand. The
// header keeps the texts alive, so that a record can be copied and can outlive its section. Without
// a header, whoever fills the record keeps its texts alive.
struct MapTextRecord {
  std::wstring_view code;    // of the header; empty before any header
  std::wstring_view text;    // the line, in its own case
  std::wstring_view tokens;  // its words, upper-cased and separated by one blank
  std::shared_ptr<const CodeHeader> header;
};

// The item blocks of a header, each from after the first unit of its opening mark to its closing
// mark. The rest of a longer opening mark is part of the block. This is required.
struct ItemBlocks {
  std::vector<std::wstring_view> closed;
  std::wstring_view open;  // the rest from an opening mark on that no mark closes
};

ItemBlocks CutItemBlocks(const CodeHeader& header);

// Returns the item lists of the record's header, one for each item block.
// `lostValues` is that of `ParseParamItems`.
std::vector<ParamItemList> ReadItemLists(const MapTextRecord& record,
                                         std::vector<std::wstring>* lostValues = nullptr);

}  // namespace TolvenLibs::RevitMappingEditorDll
