// What the readers of a text file make of its pieces, for whoever asks: a reader that is handed an
// account adds an entry for each piece that it meets. A load hands none, and then nothing is added.

#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace TolvenLibs::RevitMappingEditorDll {

// What became of a piece. The names of an entry are given in parentheses.
enum class Outcome {
  // The heading of a section that is read.
  classHeading,
  mapTextHeading,  // its section takes the place of the patterns and default code of an earlier one
  coloratHeading,  // its section takes the place of all Colorats of an earlier one
  paramHeading,    // its section takes the place of all statements of an earlier one
  domenHeading,

  // In any section.
  cutAtSemicolons,  // a text that is cut at semicolons and not at line feeds
  comment,
  blank,

  // ==CLASS
  classTitle,  // the last one counts

  // ==MAPTEXT
  domainList,  // the last one counts
  domainListWithoutBrackets,
  blockMarks,  // (both marks) for the headers after it
  blockMarksMissing,
  defaultCode,  // (the code) the last one counts
  codeHeader,   // (the code) for the patterns after it
  pattern,

  // ==PARAM
  paramStatement,  // (the code) the first of a code counts

  // ==COLORAT
  coloratTitle,              // (the id) opens a Colorat, or goes on with it
  coloratWithoutLines,       // a block that is left out
  coloratTitleWithoutBlank,  // a block that is left out
  colorLine,                 // (the key text) the first of a Colorat's key text counts
  colorValueClamped,         // a value of the line before it
  colorValueRefused,         // a value of the line before it, which is 0
  notFiveWords,

  // ==DOMEN
  domen,       // (the id)
  domenAgain,  // (the id) goes on with a domain that is there
  domenWithoutId,
  objectTypes,    // (the first type, or "") for the properties after it
  property,       // (the ids of domain and property)
  propertyAgain,  // (the same) goes on with a property that is there
  propertyIncomplete,
  propertyNumberRefused,  // (the text)
  propertyOutsideDomen,
  propertyEndedOutsideDomen,  // the same, and the fields after it go to no property either
  field,                      // (domain, property, field, default)
  fieldAgain,                 // (domain, property, field) one that is there
  fieldIncomplete,
  fieldTypeUnknown,  // (the text)
  fieldFlagRefused,  // (the text)
  fieldOutsideProperty,
  defaultRefused,  // (domain, property, field, default) besides `field`, which stays
};

inline bool IsHeading(Outcome outcome) {
  return outcome <= Outcome::domenHeading;
}

struct AccountEntry {
  Outcome outcome;
  std::wstring_view piece;  // of the text of the file
  std::vector<std::wstring> names;
};

// A line of the file that is not blank.
struct AccountLine {
  std::size_t start;   // of its trimmed text among the units of the file
  std::size_t size;    // of that text, in units
  std::size_t number;  // from 1
  std::size_t column;  // of that text, from 1
};

enum class EndOfReading { endOfFile, byte1A, notUtf8 };

// The entries are in the order of the reading; of a file that two readers read, those of the second
// follow. The file must outlive its account.
struct Account {
  std::vector<AccountEntry> entries;
  std::vector<AccountLine> lines;
  std::size_t lineCount = 0;  // with blank lines, and with those that are not read
  EndOfReading end = EndOfReading::endOfFile;
  std::size_t endLine = 0;  // where the reading ended before the end of the file
  std::size_t endColumn = 0;
};

// What a reader calls. It does nothing without an account.
void Note(Account* account, Outcome outcome, std::wstring_view piece,
          std::initializer_list<std::wstring_view> names = {});

}  // namespace TolvenLibs::RevitMappingEditorDll
