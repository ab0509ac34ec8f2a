// The checks: their numbers, and what they say in either language.

#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "authoring/Report.h"

namespace TolvenLibs::RevitMappingEditorDll {

enum class Language { english, russian };

// A sentence in both languages, in UTF-8. "{0}", "{1}", ... are the places of its arguments.
struct Sentence {
  std::string_view english;
  std::string_view russian;
};

// A number never gets another meaning, and is not used again if its check goes.
struct Check {
  int number;
  std::string_view name;
  Severity severity;
  Sentence sentence;
};

// All checks, in the order of their numbers.
std::span<const Check> AllChecks();

// REQUIRES: `number` is that of a check.
const Check& CheckOf(int number);

// The sentence with its arguments in their places.
std::string Fill(const Sentence& sentence, Language language,
                 const std::vector<std::string>& arguments);

// What is said of a related place.
const Sentence& SentenceOf(RelatedKind kind);

}  // namespace TolvenLibs::RevitMappingEditorDll
