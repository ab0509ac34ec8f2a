// The ==CLASS section of a classificator file: what the file declares itself to be.

#pragma once

#include <string>
#include <string_view>

namespace TolvenLibs::RevitMappingEditorDll {

// Reads the entries that begin with "@@@": the rest of the entry is the title, and the first two
// words in its brackets are the two words. Brackets reach from the first opening one to the last
// closing one of the same line.
//
//   @@@ Example scheme (ABC Classification)
//
// What an entry doesn't have stays as it was, and the last entry that has it wins. Gives 0 always.
int ParseClassSection(std::wstring& classTitle, std::wstring& classFirstWord,
                      std::wstring& classSecondWord, std::wstring_view text);

}  // namespace TolvenLibs::RevitMappingEditorDll
