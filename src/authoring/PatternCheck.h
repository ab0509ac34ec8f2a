// Patterns that no text can reach.

#pragma once

#include "authoring/LoadedFiles.h"
#include "authoring/Places.h"
#include "authoring/Report.h"

namespace TolvenLibs::RevitMappingEditorDll {

// Adds a finding for each pattern of the classificator whose own words the lookup answers with
// another record: any text that it fits, that record fits too, and comes first. REQUIRES: the
// statements of the report are in the order of their places.
void CheckPatterns(const LoadedFile& file, const Places& places, Report& report);

}  // namespace TolvenLibs::RevitMappingEditorDll
