// A property domain of any size, in the forms in which it comes and goes.

#pragma once

#include <cstddef>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

struct FieldData {
  std::string name;
  std::string title;
  int valueType;      // 0 to 5
  std::string value;  // as text, both in a file and from the library
};

struct PropertyData {
  std::string id;
  std::string title;
  std::vector<std::string> objectTypes;
  bool unique;
  int sortIndex;
  std::vector<FieldData> fields;
};

// In the order of the ids.
using DomainData = std::vector<PropertyData>;

// This many properties of four fields each, of all six types, for one to three of twenty types of
// objects.
DomainData MakeDomain(std::size_t propertyCount);

// The two kinds of domain files. The one in JSON looks as an export does, with a comment behind
// each value, but has the right types and defaults.
std::string MakeDomainText(const DomainData& domain, const std::string& id);
std::string MakeDomainJson(const DomainData& domain, const std::string& name);

// The tree that the file in JSON holds, and the one that an export of the domain holds.
nlohmann::json MakeFileTree(const DomainData& domain, const std::string& name);
nlohmann::json MakeExportTree(const DomainData& domain, const std::string& name);
