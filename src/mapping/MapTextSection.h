// The ==MAPTEXT section of a classificator file: which description leads to which code.

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "mapping/ParamItem.h"

namespace TolvenLibs::RevitMappingEditorDll {

// One pattern line.
struct MapTextRecord {
  std::wstring code;                 // of the header above the line; empty ahead of any header
  ItemLists itemLists;               // of that header, one for each of its item blocks
  std::wstring text;                 // the line, in its own case
  std::vector<std::wstring> tokens;  // the line in capitals, cut at blanks; never empty
};

struct MapTextSection {
  std::wstring defaultCode;  // for texts that match no record; "N00" once a section is parsed
  std::vector<MapTextRecord>
      records;  // sorted by the number of tokens; a code id is a position here
  std::vector<std::wstring> domenIds;  // where the items' properties are looked up, in this order
};

// Replaces `records` and `defaultCode` by what the section's text says, and `domenIds` only if the
// text has a domain list. Each statement is one of these, told by how it begins:
//
//   / or !   comment
//   @@       domain list          @@ (Walls Openings)
//   @$       block marks          @$ [ ]              from here to the end of the section
//   @        code header          @B2010 {GRADE=60,A} {KIND brick}
//   $        default code         $ Z99
//   else     pattern line, for the header above it
//
// The records end up sorted by their number of tokens, fewest first, in the order of the file among
// equals. So the general pattern stands ahead of the special one and wins: this is required.
void ParseMapTextSection(MapTextSection& section, std::wstring_view text);

}  // namespace TolvenLibs::RevitMappingEditorDll
