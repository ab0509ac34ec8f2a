// What a check of files has to say: the fate of each statement, and findings.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace TolvenLibs::RevitMappingEditorDll {

enum class Severity { hint, warning, error };

// What became of a statement: a line or piece of a text file, a member of a `.json` file.
enum class Fate {
  used,
  comment,
  blank,
  ignored,      // outside all sections that are read
  lost,         // comes to nothing
  unreachable,  // a pattern that no text can reach
  shadowed,     // an earlier definition stays
};

// A part of a file. Lines and columns are from 1, columns in code points; the end is after the last
// character.
struct Place {
  std::size_t file = 0;  // among the files of the report
  std::size_t line = 0;
  std::size_t column = 0;
  std::size_t endLine = 0;
  std::size_t endColumn = 0;

  auto operator<=>(const Place&) const = default;
};

struct Statement {
  Place place;
  std::size_t section;  // among the sections of the report
  Fate fate;
};

// What another place is to a finding.
enum class RelatedKind {
  winner,   // the pattern that comes first
  earlier,  // the definition that stays
  later,    // the statement that takes the place of this one
  alike,    // the line whose colour looks alike
  listed,   // the list that names the same
};

struct Related {
  Place place;
  RelatedKind kind;
};

struct Finding {
  int number;  // see `CheckOf`
  Place place;
  Fate fate;                           // of the statement
  std::vector<std::string> arguments;  // of the sentence, in UTF-8
  std::vector<Related> related;
};

// Findings are in the order of their places, statements too.
struct Report {
  std::vector<std::string> files;     // as they were named
  std::vector<std::string> sections;  // their headings; the first is "", outside all sections
  std::vector<Statement> statements;
  std::vector<Finding> findings;
};

// As they are written in the formats: "error", "used".
std::string_view NameOf(Severity severity);
std::string_view NameOf(Fate fate);

}  // namespace TolvenLibs::RevitMappingEditorDll
