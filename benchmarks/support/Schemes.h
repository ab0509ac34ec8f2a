// Generates classificator files.

#pragma once

#include <cstddef>
#include <string>
#include <vector>

enum class Headers { codes, codesAndItems };

// Return the four items of the code with this number, as in a header and as in a mapping string.
// Each fills the three fields of a property.
std::string HeaderItems(std::size_t code);
std::wstring MappedItems(std::size_t code);

// Returns a ==MAPTEXT section without its heading: eight of the patterns below each header, with
// the codes C0, C1 and so on.
std::string MakeMapText(const std::vector<std::wstring>& patterns, Headers headers);

// Returns a file with this section and the domain of the items.
std::string MakeScheme(const std::vector<std::wstring>& patterns, Headers headers);

struct SchemeFile {
  std::string text;
  int patternCount = 0;
  int colorCount = 0;
};

// Returns a file of `size` bytes or a line more: eight tenths patterns, one tenth property items in
// ==PARAM, one tenth colours.
SchemeFile MakeSchemeFile(std::size_t size);
