// The frame that classificator files and text domain files share: lines, sections, entries.
//
// A file is decoded once into one text, and all that follows are views into it.

#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/Text.h"

namespace TolvenLibs::RevitMappingEditorDll {

// A line that begins with "==" and the lines behind it, up to the next such line. The body's lines
// have one line feed between them and none behind the last.
struct TextSection {
  std::wstring_view heading;
  std::wstring_view body;
};

// The sections of a file, in order, out of its lines, which are trimmed and none of which is blank.
// Lines ahead of the first heading belong to none. Whoever keeps a view into it keeps the file.
struct TextFile {
  std::unique_ptr<wchar_t[]> units;  // what the sections look at
  std::size_t size = 0;              // how many it has room for
  std::vector<TextSection> sections;
};

// Bytes that cannot be decoded end the file, and so does the first byte 1A.
TextFile CutTextFile(std::string_view bytes);

// Null for a file that can't be opened.
std::shared_ptr<const TextFile> ReadTextFile(const std::wstring& path);

// The reader of a section's entries: its pieces at line feeds or its pieces at semicolons, never at
// both. Whichever are more count for the whole section, and on a tie it is the semicolons, on
// purpose.
PieceReader CutEntries(std::wstring_view body, bool keepEmpty);

}  // namespace TolvenLibs::RevitMappingEditorDll
