// Generates property domains of any size, in the formats that the library reads and writes.

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

// Returns properties with four fields each, of all six types, for one to three of twenty object
// types.
DomainData MakeDomain(std::size_t propertyCount);

// Return the two kinds of domain files. The JSON5 file looks like an export, with a comment after
// each value, but has the correct types and defaults.
std::string MakeDomainText(const DomainData& domain, const std::string& id);
std::string MakeDomainJson(const DomainData& domain, const std::string& name);

// Return the tree of the JSON5 file, and that of an export of the domain.
nlohmann::json MakeFileTree(const DomainData& domain, const std::string& name);
nlohmann::json MakeExportTree(const DomainData& domain, const std::string& name);
