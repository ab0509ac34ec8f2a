// The documents of the project, as far as tests hold them to their word.

#pragma once

#include <string>
#include <vector>

// A fenced block of a document.
struct Block {
  std::string kind;  // what stands behind the opening fence
  int line;          // of the opening fence
  std::string text;
};

// The blocks of a document, which is named as from the source folder.
std::vector<Block> ReadBlocks(const std::string& document);

// The texts of all blocks of this kind, one behind the other; the test fails if there is none.
std::string BlocksOfKind(const std::string& document, const std::string& kind);

// The lines of a text, without their line feeds.
std::vector<std::string> Lines(const std::string& text);
