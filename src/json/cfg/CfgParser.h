// The configuration library: commented JSON5 files, read and written through the same requests.
//
// Each request names a key, a default and a comment, so that the sequence of requests is itself the
// schema of the file. A site that has such a library of its own builds with that one instead.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>

#include "JSON5Section.h"
#include "json5/Json5Record.h"
#include "json5/Json5Tree.h"

// One file, as it was read and as it was requested. The record of the requests alone is what gets
// written. A section is addressed by its name and, where it repeats, by the name of its item: the
// sections stand in the file's object under their names, the items of one under theirs in it. The
// item named "" is the section itself, unless it stands among others.
class CfgParser {
 public:
  // Reads the file, if there is one. A file that is missing, malformed or not UTF-8 is an empty
  // one; what exists and can't be read to its end as a file raises an exception. The other two
  // arguments are ignored.
  CfgParser(const wchar_t* file, const wchar_t* second, const wchar_t* language);
  CfgParser(const CfgParser&) = delete;
  CfgParser& operator=(const CfgParser&) = delete;
  ~CfgParser();

  // A new section, never null, which the caller ends with `delete` before the parser. `found` tells
  // whether it stands in the file; one that doesn't answers every request with its default. Several
  // may be open at once, also of one name. `first` and `last` bracket a run of like sections, and
  // change nothing in what is read or written.
  JSON5Section* Section(const wchar_t* sectionName, bool& found, bool first, bool last,
                        const wchar_t* itemName);

  // Writes what was requested, each comment beside its key. The file is replaced in one step, or
  // stays as it was, and then an exception says why. The number is ignored.
  void saveCfgParamsToJson5(const wchar_t* file, int kind);

 private:
  const TolvenLibs::RevitMappingEditorDll::Json5Value* Find(std::string_view sectionName,
                                                            std::string_view itemName);

  std::string text;  // of the file
  TolvenLibs::RevitMappingEditorDll::Json5Tree tree;
  // Where the last item of a section was found: the next one tends to stand behind it.
  std::unordered_map<const TolvenLibs::RevitMappingEditorDll::Json5Value*, std::size_t> places;
  TolvenLibs::RevitMappingEditorDll::Json5Record record;
};
