// Patterns and descriptions to look up among them, generated and real.

#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "support/Random.h"
#include "support/Vocabulary.h"
#include "support/Words.h"

// A scheme and the texts to look up in it.
struct LookupData {
  std::string name;                    // the number of patterns, or their source
  std::vector<std::wstring> patterns;  // in the order of the file
  std::vector<Tokens> records;         // sorted by their number of words, as by code ids
  std::vector<std::wstring> texts;
};

// Returns a pattern of one to four words.
std::wstring MakePattern(const Vocabulary& vocabulary, Random& random);

// Returns `count` different patterns, and different descriptions of 20 to 80 characters, half of
// which match.
LookupData MakeLookupData(std::size_t count, std::size_t textCount);

// Returns the second columns of the tables in `folder`/classifications as patterns, and of those in
// `folder`/models as descriptions. Throws `filesystem_error` if one of the folders is missing.
LookupData ReadLookupData(const std::filesystem::path& folder);
