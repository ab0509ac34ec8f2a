// Adversarial inputs, which would be the most expensive ones for a reader with superlinear time or
// with recursion. The cost of each may grow linearly with the input.

#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "RevitMappingEditorDll.h"

// An editor that is queried about a case.
struct Subject {
  explicit Subject(std::size_t caseSize);

  TolvenLibs::RevitMappingEditorDll::RevitMappingEditorDll editor;
  std::size_t size;     // of the case
  std::wstring folder;  // for files, with a slash at its end
};

struct HostileCase {
  const char* reader;  // the part of the library under test
  const char* input;   // what the input has many of
  std::size_t size;    // how many, when the cost is measured

  // The file's name, or "" if the case has no file, and its bytes. Text files are loaded as
  // classificators and selected, others are loaded as domains.
  const char* fileName;
  std::function<std::string(std::size_t size)> bytes;

  // Makes queries and requires correct answers.
  std::function<void(Subject& subject)> ask;

  // The rule by which the cost of the answers grows faster than the input, and the factor by which
  // the cost may grow for an input of twice the size.
  const char* rule = "";
  double most = 2.2;
};

using HostileCases = std::vector<HostileCase>;

HostileCases TextFileCases();
HostileCases ClassCases();
HostileCases ColoratCases();
HostileCases ParamCases();
HostileCases MapTextCases();
HostileCases LookupCases();
HostileCases CompositionCases();
HostileCases DomenCases();
HostileCases JsonCases();
HostileCases ExportCases();
HostileCases PathCases();
HostileCases CheckCases();

HostileCases AllHostileCases();

// Throws an exception unless `holds`.
void Require(bool holds, const char* what);

// Makers of inputs

std::string Times(std::size_t count, std::string_view piece);

// Returns the results of the function for 0 to `count` - 1, joined.
std::string Join(std::size_t count, const std::function<std::string(std::size_t)>& piece);

// Returns a number in seven digits, so that texts sort as the numbers.
std::string Seven(std::size_t number);

// A permutation of the numbers below `count` that looks random.
std::size_t Shuffled(std::size_t index, std::size_t count);

// Returns a name. The first 40 letters of all names are equal.
std::string LongName(std::size_t number);

// Queries

int CodeId(Subject& subject, const std::wstring& text);
std::wstring Mapping(Subject& subject, const std::wstring& text, int sourceKind = 1);
int KeyTextCount(Subject& subject);
int PropertyCount(Subject& subject, const wchar_t* domenId);
int FieldCount(Subject& subject, const wchar_t* domenId, const wchar_t* propertyId);
std::vector<std::wstring> DomenIds(Subject& subject);

// For a case that only has to be loaded.
void AskNothing(Subject& subject);
