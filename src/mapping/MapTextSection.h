// The ==MAPTEXT section of a classificator file: the patterns of descriptions, and their codes.

#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "mapping/MapTextRecords.h"

namespace TolvenLibs::RevitMappingEditorDll {

struct Account;
struct TextFile;

struct MapTextSection {
  std::wstring defaultCode;  // for texts that match no record; parsing resets it to "N00"
  MapTextRecords records;    // sorted by the number of tokens; a code id is a position here
  std::vector<std::wstring> domenIds;  // where the items' properties are looked up, in this order
};

// Replaces `records` and `defaultCode` by those of the section's text, and `domenIds` if the text
// has a domain list. The first characters of a statement tell its kind:
//
//   / or !   comment
//   @@       domain list          @@ (Walls Openings)
//   @$       block marks          @$ [ ]              from here to the end of the section
//   @        code header          @B2010 {GRADE=60,A} {KIND brick}
//   $        default code         $ Z99
//   else     pattern line, for the header above it
//
// The records are sorted stably by their number of tokens, fewest first. So a general pattern comes
// before a special one and wins: this is required.
//
// An exception leaves the records of the lines before it, in the order of the file.
//
// `file` is the file that contains `text`. If their lines are a good part of it, the records keep
// the file alive; otherwise they keep copies of their lines.
void ParseMapTextSection(MapTextSection& section, std::wstring_view text,
                         std::shared_ptr<const TextFile> file = nullptr,
                         Account* account = nullptr);

}  // namespace TolvenLibs::RevitMappingEditorDll
