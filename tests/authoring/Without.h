// Text files without one of their statements.

#pragma once

#include <map>
#include <optional>
#include <string>

#include "authoring/LoadedFiles.h"
#include "authoring/Report.h"

namespace TolvenLibs::RevitMappingEditorDll {

// Whether the statement is what follows the end of the reading.
bool IsRestOfFile(const LoadedFile& file, const Statement& statement);

// What the readers say of each statement, by its place.
std::map<Place, const AccountEntry*> EntriesOf(const LoadedFile& file, std::size_t number);

// The bytes of the file without the statement: a line with its line feed, a piece with its
// semicolon. Nothing if it can't be told from its surroundings, as the last of empty pieces.
std::optional<std::string> LeftOut(const std::string& bytes, const LoadedFile& file,
                                   const Statement& statement);

// Whether the line that begins at the place is a heading, of whatever section.
bool IsHeadingAt(const std::string& bytes, const Place& place);

// The bytes with signs of a comment in place of all that the statement has but for white space and
// semicolons. So whatever the section is cut at, it has as many pieces as before.
std::string Masked(std::string bytes, const Place& place);

// What a file is cut at: its headings, and how many of its texts are cut at semicolons.
struct Cut {
  std::vector<std::wstring> headings;
  std::size_t atSemicolons = 0;

  bool operator==(const Cut&) const = default;
};

Cut CutOf(const LoadedFile& file);

}  // namespace TolvenLibs::RevitMappingEditorDll
