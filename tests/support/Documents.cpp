#include "support/Documents.h"

#include <gtest/gtest.h>

#include <fstream>

#include "support/PathTexts.h"

std::vector<Block> ReadBlocks(const std::string& document) {
  std::ifstream file(Utf8Path(SOURCE_FOLDER) / document);
  std::vector<Block> blocks;
  bool inside = false;
  int number = 0;
  for (std::string line; std::getline(file, line);) {
    ++number;
    if (line.starts_with("```")) {
      inside = !inside;
      if (inside) blocks.push_back({line.substr(3), number, ""});
    } else if (inside) {
      blocks.back().text += line + "\n";
    }
  }
  EXPECT_FALSE(inside) << document << " ends within a block";
  return blocks;
}

std::string BlocksOfKind(const std::string& document, const std::string& kind) {
  std::string text;
  for (const Block& block : ReadBlocks(document)) {
    if (block.kind == kind) text += block.text;
  }
  EXPECT_NE(text, "") << document << " has no block of the kind " << kind;
  return text;
}

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = text.find('\n', start);
    lines.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  return lines;
}
