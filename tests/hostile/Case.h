// Inputs that are made to be dear: those that would cost the most if a reader looked at anything
// more than once, or called itself. What each costs may grow as fast as the input, and no faster.

#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "RevitMappingEditorDll.h"

// An editor that is asked about a case.
struct Subject {
  explicit Subject(std::size_t caseSize);

  TolvenLibs::RevitMappingEditorDll::RevitMappingEditorDll editor;
  std::size_t size;     // of the case
  std::wstring folder;  // for files, with a stroke behind it
};

struct HostileCase {
  const char* reader;  // the part of the library that the input is meant for
  const char* input;   // what it has many of
  std::size_t size;    // how many, where its cost is measured

  // The file's name, or none if the case has no file, and its bytes. Text files are loaded as
  // classificators and the classificator selected, others as domains.
  const char* fileName;
  std::function<std::string(std::size_t size)> bytes;

  // Asks for answers and requires them to be right.
  std::function<void(Subject& subject)> ask;

  // The rule that makes the answers themselves dearer than the input, and what an input of twice
  // the size may cost because of it.
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

HostileCases AllHostileCases();

// Raises an exception unless the condition holds.
void Require(bool holds, const char* what);

// Makers of inputs

std::string Times(std::size_t count, std::string_view piece);

// The pieces that the function gives for 0, 1 and so on, one behind the other.
std::string Join(std::size_t count, const std::function<std::string(std::size_t)>& piece);

// A number in seven digits, so that the order of the numbers is that of their texts.
std::string Seven(std::size_t number);

// The numbers below `count`, each once, in an order that looks like none.
std::size_t Shuffled(std::size_t index, std::size_t count);

// A name that has its first 40 letters in common with all others.
std::string LongName(std::size_t number);

// Questions

int CodeId(Subject& subject, const std::wstring& text);
std::wstring Mapping(Subject& subject, const std::wstring& text, int sourceKind = 1);
int KeyTextCount(Subject& subject);
int PropertyCount(Subject& subject, const wchar_t* domenId);
int FieldCount(Subject& subject, const wchar_t* domenId, const wchar_t* propertyId);
std::vector<std::wstring> DomenIds(Subject& subject);

// For a case about which there is nothing to ask but whether it is loaded.
void AskNothing(Subject& subject);
