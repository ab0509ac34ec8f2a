// The configuration library: commented JSON5 files, read and written by the same requests.
//
// Each request names a key, a default and a comment: the sequence of requests is the schema of the
// file. A site with such a library of its own builds with that one instead.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>

#include "JSON5Section.h"
#include "json5/Json5Record.h"
#include "json5/Json5Tree.h"

// A file, and the record of the requests, which alone determines what is written. A section is
// addressed by its name and, where it repeats, by the name of its item: sections are members of the
// file's object, and items are members of their section. The item named "" is the section itself,
// unless it is among others.
class CfgParser {
 public:
  // Reads the file. One that is missing, malformed or not UTF-8 counts as empty; one that exists
  // but can't be read to its end raises an exception. The other two arguments are ignored.
  CfgParser(const wchar_t* file, const wchar_t* second, const wchar_t* language);
  CfgParser(const CfgParser&) = delete;
  CfgParser& operator=(const CfgParser&) = delete;
  ~CfgParser();

  // Returns a new section, never null. The caller frees it with `delete`. `found` tells whether it
  // is in the file; if not, all requests return their defaults. Several may be open at once, even
  // of the same name. `first` and `last` bracket a run of like sections, and don't affect what is
  // read or written. REQUIRES: the parser outlives the section.
  JSON5Section* Section(const wchar_t* sectionName, bool& found, bool first, bool last,
                        const wchar_t* itemName);

  // Writes what was requested, with the comments. The file is replaced atomically; on failure it
  // stays as it was and an exception is raised. The number is ignored.
  void saveCfgParamsToJson5(const wchar_t* file, int kind);

 private:
  const TolvenLibs::RevitMappingEditorDll::Json5Value* Find(std::string_view sectionName,
                                                            std::string_view itemName);

  std::string text_;
  TolvenLibs::RevitMappingEditorDll::Json5Tree tree_;
  // For each section, where the last item was found: the next one tends to follow it.
  std::unordered_map<const TolvenLibs::RevitMappingEditorDll::Json5Value*, std::size_t> places_;
  TolvenLibs::RevitMappingEditorDll::Json5Record record_;
};
