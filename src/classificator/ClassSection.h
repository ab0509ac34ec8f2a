// The ==CLASS section of a classificator file: the title of the scheme.

#pragma once

#include <string>
#include <string_view>

namespace TolvenLibs::RevitMappingEditorDll {

struct Account;

// Reads the entries that begin with "@@@": the rest of the entry is the title, and the first two
// words in its brackets are the two words. Brackets extend from the first opening one to the last
// closing one of the same line.
//
//   @@@ Example scheme (ABC Classification)
//
// What an entry lacks keeps its value; the last entry that has it wins. Always returns 0.
int ParseClassSection(std::wstring& classTitle, std::wstring& classFirstWord,
                      std::wstring& classSecondWord, std::wstring_view text,
                      Account* account = nullptr);

}  // namespace TolvenLibs::RevitMappingEditorDll
