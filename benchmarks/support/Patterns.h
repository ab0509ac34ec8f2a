// Patterns and the descriptions that are looked up among them: generated ones and real ones.

#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "support/Random.h"
#include "support/Vocabulary.h"
#include "support/Words.h"

// A scheme and the texts that are looked up in it.
struct LookupData {
  std::string name;                    // the number of patterns, or where they are from
  std::vector<std::wstring> patterns;  // in the order of the file
  std::vector<Tokens> records;         // sorted by their number, as code ids count them
  std::vector<std::wstring> texts;
};

// A pattern of one to four words.
std::wstring MakePattern(const Vocabulary& vocabulary, Random& random);

// `count` different patterns, and descriptions of 20 to 80 characters, half of
// which match. No two descriptions are equal.
LookupData MakeLookupData(std::size_t count, std::size_t textCount);

// The second columns of the tables in `folder`/classifications as patterns, and of those in
// `folder`/models as descriptions, as they stand. Raises `filesystem_error` if one of the two
// folders is missing.
LookupData ReadLookupData(const std::filesystem::path& folder);
