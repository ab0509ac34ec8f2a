// What a text file has outside the sections that are read.

#pragma once

#include "authoring/LoadedFiles.h"
#include "authoring/Places.h"
#include "authoring/Report.h"

namespace TolvenLibs::RevitMappingEditorDll {

// Adds the lines that no reader read, the blank lines, and what follows the end of the reading,
// with findings: headings that are not seen, a byte order mark, where and why the reading ended.
void CheckFrame(const LoadedFile& file, const Places& places, Report& report);

}  // namespace TolvenLibs::RevitMappingEditorDll
