// The frame of text files: from bytes to lines, and from lines to sections.

#pragma once

#include <string>
#include <vector>

#include "naive/Text.h"

namespace TolvenLibs::RevitMappingEditorDll::Naive {

struct Section {
  std::wstring heading;
  std::wstring body;
};

// Up to the first byte that can't be decoded.
std::wstring DecodeUtf8(std::string bytes);

// The lines that have anything on them, trimmed.
Texts ReadLines(std::string bytes);

// Of the bytes ahead of the first 1A, which ends a text file.
std::vector<Section> ReadSections(std::string bytes);

}  // namespace TolvenLibs::RevitMappingEditorDll::Naive
