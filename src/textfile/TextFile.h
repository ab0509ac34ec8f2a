// The structure that classificator files and text domain files share: lines, sections, entries.
//
// A file is decoded once into one text. Lines, sections and entries are views into it.

#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/Text.h"

namespace TolvenLibs::RevitMappingEditorDll {

struct Account;

// A line that begins with "==" and the lines after it, up to the next such line. The lines of the
// body are separated by one line feed; there is none after the last.
struct TextSection {
  std::wstring_view heading;
  std::wstring_view body;
};

// The sections of a file, in order. Lines are trimmed, and blank ones dropped; lines before the
// first heading belong to no section. The views are valid as long as the `TextFile`.
struct TextFile {
  std::unique_ptr<wchar_t[]> units;  // the text that the sections are views of
  std::size_t size = 0;              // the capacity of `units`
  std::vector<TextSection> sections;
};

// The file ends at the first byte 1A, or at bytes that can't be decoded.
TextFile CutTextFile(std::string_view bytes, Account* account = nullptr);

// Returns null if the file can't be opened.
std::shared_ptr<const TextFile> ReadTextFile(const std::wstring& path, Account* account = nullptr);

// Returns a reader of the section's entries: its pieces at line feeds or its pieces at semicolons,
// whichever are more. The choice holds for the whole section. On a tie, semicolons win: this is
// required.
PieceReader CutEntries(std::wstring_view body, bool keepEmpty, Account* account = nullptr);

}  // namespace TolvenLibs::RevitMappingEditorDll
