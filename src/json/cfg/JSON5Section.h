// One section of a configuration file.

#pragma once

#include <cstddef>
#include <cstdint>

#include "json5/Json5Record.h"
#include "json5/Json5Tree.h"

// An open section of a `CfgParser`, which must outlive it.
//
// A request returns the file's value of the key, or else the default; with `overriding` always the
// default. `found` is set to whether the file's value is the result. A value of another type counts
// as absent: `ParamString` requires a string, `ParamInt` a number of integral value within 32 bits,
// `ParamDouble` a number, `ParamStringArray` an array, whose elements that aren't strings it skips.
// In any case key, result and comment are recorded for writing; an item's last request for a key
// counts.
class JSON5Section {
 public:
  // For `CfgParser`. `section` is null if the file lacks it; `item` is a place in the record.
  JSON5Section(const TolvenLibs::RevitMappingEditorDll::Json5Tree& tree,
               const TolvenLibs::RevitMappingEditorDll::Json5Value* section,
               TolvenLibs::RevitMappingEditorDll::Json5Record& record, std::size_t item);

  // The result is valid as long as the parser, or is `defaultValue` itself.
  const wchar_t* ParamString(const wchar_t* key, const wchar_t* defaultValue, bool& found,
                             const wchar_t* comment, bool overriding);

  int ParamInt(const wchar_t* key, int defaultValue, bool& found, const wchar_t* comment,
               bool overriding);

  double ParamDouble(const wchar_t* key, double defaultValue, bool& found, const wchar_t* comment,
                     bool overriding);

  // `count` receives the number of strings. The library takes ownership of the strings of the
  // defaults, each made with `new[]`, even if it raises an exception. They and those of the result
  // live as long as the parser. The result is a new array, owned by the caller, if `found`, and the
  // array of the defaults itself otherwise.
  const wchar_t** ParamStringArray(const wchar_t* key, int& count, const wchar_t** defaultValues,
                                   int defaultCount, bool& found, const wchar_t* comment,
                                   bool overriding);

 private:
  // Returns the file's value of a key, which is given by its place in the record.
  const TolvenLibs::RevitMappingEditorDll::Json5Value* FindValue(std::uint32_t key,
                                                                 bool overriding) const;

  const TolvenLibs::RevitMappingEditorDll::Json5Tree& tree_;
  const TolvenLibs::RevitMappingEditorDll::Json5Value* section_;
  TolvenLibs::RevitMappingEditorDll::Json5Record& record_;
  std::size_t item_;
};
