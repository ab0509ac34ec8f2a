// What the reader of a `.json` domain file asks for, and what becomes of what it reads, for whoever
// asks: a reader that is handed an account adds an entry for each. A load hands none.

#pragma once

#include <string>
#include <vector>

namespace TolvenLibs::RevitMappingEditorDll {

// What an entry is about. Its texts are given in parentheses.
enum class JsonOutcome {
  // A request. The first is for the item itself, the others are for a key of it.
  item,
  text,
  wholeNumber,
  number,
  listOfTexts,  // (the texts that were read)
  overridden,   // a text that is passed over

  // What became of an item of a list, after the requests for it.
  property,        // the item is its id
  propertyAgain,   // one that is listed before, which stays
  field,           // (the id of the property) the item is its name
  fieldAgain,      // (the id of the property) one that the property has already, which stays
  typeUnknown,     // (the type) of a field
  defaultRefused,  // (the default) besides `field`, which stays

  // What became of the domain, as the last.
  domen,       // (the id)
  domenAgain,  // (the id) one that is there, so that nothing of the file is taken
};

struct JsonEntry {
  JsonOutcome outcome;
  std::wstring section;
  std::wstring item;  // of the section; empty for the section itself
  std::wstring key;
  bool found = false;  // whether the file's value is the result of the request
  std::vector<std::wstring> texts;
};

struct JsonAccount {
  std::vector<JsonEntry> entries;  // in the order of the reading
};

}  // namespace TolvenLibs::RevitMappingEditorDll
