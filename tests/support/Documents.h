// Reads the project's documents, for tests that check them.

#pragma once

#include <string>
#include <vector>

// A fenced block of a document.
struct Block {
  std::string kind;  // the text after the opening fence
  int line;          // of the opening fence
  std::string text;
};

// Returns the blocks of a document, whose path is relative to the source folder.
std::vector<Block> ReadBlocks(const std::string& document);

// Returns the texts of all blocks of this kind, joined. The test fails if there is none.
std::string BlocksOfKind(const std::string& document, const std::string& kind);

// Returns the lines of a text, without their line feeds.
std::vector<std::string> Lines(const std::string& text);
