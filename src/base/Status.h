// The status numbers that the exports return.

#pragma once

namespace TolvenLibs::RevitMappingEditorDll {

constexpr int statusDone = 0;
constexpr int statusAbsent = -1;  // no such file, id or name, or an extension no reader takes
constexpr int statusNothingToChoose = 1;
constexpr int statusNotOpened = 2;  // the file exists but could not be opened
constexpr int statusException = 3;  // in a read; what a text file gave before it stays

}  // namespace TolvenLibs::RevitMappingEditorDll
