// The frame that classificator files and text domain files share: lines, sections, entries.
//
// A file is decoded once into one text, and all that follows are views into it.

#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "editor/Text.h"

namespace TolvenLibs::RevitMappingEditorDll {

// A line that begins with "==" and the lines behind it, up to the next such line. The body's lines
// have one line feed between them and none behind the last.
struct TextSection {
  std::wstring_view heading;
  std::wstring_view body;
};

// The lines of `text`, trimmed, without the blank ones, with one line feed between them.
std::wstring JoinTrimmedLines(std::wstring text);

// A text that lives as long as anything refers to it.
using SharedText = std::shared_ptr<const std::wstring>;

// What `JoinTrimmedLines` makes of the file, or null if it can't be opened. Bytes that cannot be
// decoded end the file.
SharedText ReadTextFile(const std::wstring& path);

// The sections of a text as `JoinTrimmedLines` gives it, in order, as views into it. Lines ahead of
// the first heading belong to none.
std::vector<TextSection> CutSections(std::wstring_view lines);

// The reader of a section's entries: its pieces at line feeds or its pieces at semicolons, never at
// both. Whichever are more count for the whole section, and on a tie it is the semicolons, on
// purpose.
PieceReader CutEntries(std::wstring_view body, bool keepEmpty);

}  // namespace TolvenLibs::RevitMappingEditorDll
