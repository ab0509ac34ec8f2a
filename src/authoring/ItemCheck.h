// What becomes of the items of code headers.

#pragma once

#include "authoring/LoadedFiles.h"
#include "authoring/Places.h"
#include "authoring/Report.h"

namespace TolvenLibs::RevitMappingEditorDll {

// Adds findings for the domain list of the classificator and for the items of each code header that
// has a pattern, as they are composed with the domains.
void CheckItems(const LoadedFile& file, const DomenStore& domens, const Places& places,
                Report& report);

}  // namespace TolvenLibs::RevitMappingEditorDll
