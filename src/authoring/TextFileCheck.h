// What the account of a text file comes to: the fate of each statement, and the findings that the
// readers' own words justify.

#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "authoring/LoadedFiles.h"
#include "authoring/Report.h"

namespace TolvenLibs::RevitMappingEditorDll {

// Where domains, properties and fields are defined, by the ids of domain, property and field.
using Definitions = std::map<std::vector<std::wstring>, Place>;

// Adds the statements and findings of a text file. `number` is that of the file in the report.
// Files are added in the order in which they were loaded.
void CheckTextFile(const LoadedFile& file, std::size_t number, Definitions& definitions,
                   Report& report);

}  // namespace TolvenLibs::RevitMappingEditorDll
