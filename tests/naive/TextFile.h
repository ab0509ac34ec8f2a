// The structure of text files: from bytes to lines, and from lines to sections.

#pragma once

#include <string>
#include <vector>

#include "naive/Text.h"

namespace TolvenLibs::RevitMappingEditorDll::Naive {

struct Section {
  std::wstring heading;
  std::wstring body;
};

// Decodes up to the first byte that can't be decoded.
std::wstring DecodeUtf8(std::string bytes);

// Returns the non-blank lines, trimmed.
Texts ReadLines(std::string bytes);

// Returns the sections of the bytes before the first 1A, which ends a text file.
std::vector<Section> ReadSections(std::string bytes);

}  // namespace TolvenLibs::RevitMappingEditorDll::Naive
