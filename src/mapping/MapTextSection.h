// The ==MAPTEXT section of a classificator file: which description leads to which code.

#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "mapping/MapTextRecords.h"

namespace TolvenLibs::RevitMappingEditorDll {

struct TextFile;

struct MapTextSection {
  std::wstring defaultCode;  // for texts that match no record; "N00" once a section is parsed
  MapTextRecords records;    // sorted by the number of tokens; a code id is a position here
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
//
// An exception leaves the records of the lines before it, in the order of the file.
//
// Records keep the texts that they look at: copies, or the file that the text is of, if there is
// one and their lines are a good part of it.
void ParseMapTextSection(MapTextSection& section, std::wstring_view text,
                         std::shared_ptr<const TextFile> file = nullptr);

}  // namespace TolvenLibs::RevitMappingEditorDll
