#pragma once

#include <cstddef>
#include <cstdint>

#include "json5/Json5Record.h"
#include "json5/Json5Tree.h"

// One open section of a `CfgParser`, which must outlive it.
//
// Without `overriding` a request gives the file's value of the key, or else the default, and with
// it the default whatever the file holds. `found` is always written: whether the file's value is
// the result. A value of another type than requested counts as absent: a string for `ParamString`,
// a number of integral value within 32 bits for `ParamInt`, any number for `ParamDouble`, an array
// for `ParamStringArray`, which passes over elements that are no strings. In any case key, result
// and comment are recorded for writing; of several requests for one key of one item the last
// counts.
class JSON5Section {
 public:
  // For `CfgParser`: what the file has for the section, or null, and where requests are recorded.
  JSON5Section(const TolvenLibs::RevitMappingEditorDll::Json5Tree& fileTree,
               const TolvenLibs::RevitMappingEditorDll::Json5Value* fileSection,
               TolvenLibs::RevitMappingEditorDll::Json5Record& requests, std::size_t requestedItem);

  // The result stays good until the parser ends, or is `defaultValue` itself.
  const wchar_t* ParamString(const wchar_t* key, const wchar_t* defaultValue, bool& found,
                             const wchar_t* comment, bool overriding);

  int ParamInt(const wchar_t* key, int defaultValue, bool& found, const wchar_t* comment,
               bool overriding);

  double ParamDouble(const wchar_t* key, double defaultValue, bool& found, const wchar_t* comment,
                     bool overriding);

  // `count` receives the number of strings. The strings of the defaults, each made with `new[]`,
  // pass to the library in every case, also when it raises an exception, and live until the parser
  // ends, as those of the result do. The result is a new array if `found`, which the caller
  // releases beside its own, and the array of the defaults itself otherwise.
  const wchar_t** ParamStringArray(const wchar_t* key, int& count, const wchar_t** defaultValues,
                                   int defaultCount, bool& found, const wchar_t* comment,
                                   bool overriding);

 private:
  // The file's value of a key, by the key's place in the record.
  const TolvenLibs::RevitMappingEditorDll::Json5Value* FindValue(std::uint32_t key,
                                                                 bool overriding) const;

  const TolvenLibs::RevitMappingEditorDll::Json5Tree& tree;
  const TolvenLibs::RevitMappingEditorDll::Json5Value* section;
  TolvenLibs::RevitMappingEditorDll::Json5Record& record;
  std::size_t item;  // in the record
};
