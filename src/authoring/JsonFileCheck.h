// What the account of a `.json` domain file comes to: the fate of each member, and the findings
// that the reader's own words justify.

#pragma once

#include <cstddef>

#include "authoring/LoadedFiles.h"
#include "authoring/Report.h"
#include "authoring/TextFileCheck.h"

namespace TolvenLibs::RevitMappingEditorDll {

// Adds the statements and findings of a file. `number` is that of the file in the report. Files are
// added in the order in which they were loaded. REQUIRES: the file is read as JSON5.
void CheckJsonFile(const LoadedFile& file, std::size_t number, Definitions& definitions,
                   Report& report);

}  // namespace TolvenLibs::RevitMappingEditorDll
