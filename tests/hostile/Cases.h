// Inputs that are made to be dear, and what an editor answers to them.

#pragma once

#include <cstddef>
#include <ostream>
#include <string>
#include <vector>

#include "RevitMappingEditorDll.h"

namespace Hostile {

using Editor = TolvenLibs::RevitMappingEditorDll::RevitMappingEditorDll;

struct Case {
  std::string name;

  // The file, of about `size` bytes. The extension says which reader takes it.
  const char* file;
  std::string (*make)(std::size_t size);

  // What is asked of an editor that has loaded the file and made its scheme the active one, and
  // what it has to answer.
  std::wstring (*ask)(Editor& editor, std::size_t size);
  std::wstring (*answer)(std::size_t size);

  // Whether the rules themselves ask for more than one look at each byte: at each of these for each
  // of those.
  bool dearByRule = false;
};

// For the messages of tests.
inline void PrintTo(const Case& one, std::ostream* out) {
  *out << one.name;
}

const std::vector<Case>& Cases();

// Loads the file of a case, which is there already, into a new editor.
Editor LoadedEditor(const std::wstring& file);

}  // namespace Hostile
