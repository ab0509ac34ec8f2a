// What becomes of the items of code headers.

#pragma once

#include "authoring/LoadedFiles.h"
#include "authoring/Places.h"
#include "authoring/Report.h"
#include "authoring/UseCheck.h"

namespace TolvenLibs::RevitMappingEditorDll {

// Adds findings for the domain list of the classificator and for the items of each code header that
// has a pattern, as they are composed with the domains.
// Adds the properties that they fill to `uses`.
void CheckItems(const LoadedFile& file, const DomenStore& domens, const Places& places,
                PropertyUses& uses, Report& report);

}  // namespace TolvenLibs::RevitMappingEditorDll
