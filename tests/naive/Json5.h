// A recursive descent parser of JSON5, with a function for each rule of the grammar.

#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "json5/Json5Parser.h"

namespace TolvenLibs::RevitMappingEditorDll::Naive {

struct Json5 {
  Json5Value::Kind kind = Json5Value::Kind::null;
  bool boolean = false;
  double number = 0;
  std::wstring text;
  std::vector<Json5> elements;            // of an array
  std::map<std::wstring, Json5> members;  // of an object
};

// Returns nothing if the text is malformed.
std::optional<Json5> ParseJson5(std::wstring text);

// Returns the tree as a text, different for different trees.
std::wstring Describe(const Json5& value);

// The same for a tree of the library.
std::wstring Describe(const Json5Tree& tree, const Json5Value& value);

}  // namespace TolvenLibs::RevitMappingEditorDll::Naive
