// Texts of classificator files.

#pragma once

#include <cstddef>
#include <string>
#include <vector>

enum class Headers { codes, codesAndItems };

// The four items that the code of this number fills in, as the header in a file has them and as a
// mapping string has them. Each fills the three fields of a property.
std::string HeaderItems(std::size_t code);
std::wstring MappedItems(std::size_t code);

// A ==MAPTEXT section without its heading: eight of the patterns below each header, the codes being
// C0, C1 and so on.
std::string MakeMapText(const std::vector<std::wstring>& patterns, Headers headers);

// A file with this section, and with the domain that the items are from.
std::string MakeScheme(const std::vector<std::wstring>& patterns, Headers headers);

struct SchemeFile {
  std::string text;
  int patternCount = 0;
  int colorCount = 0;
};

// A file of `size` bytes or a line more: eight tenths patterns, one tenth property items in
// ==PARAM, one tenth colours.
SchemeFile MakeSchemeFile(std::size_t size);
