// The colours of a classificator, beside each other and beside its codes.

#pragma once

#include "authoring/LoadedFiles.h"
#include "authoring/Places.h"
#include "authoring/Report.h"

namespace TolvenLibs::RevitMappingEditorDll {

// Adds hints: for key texts of one Colorat whose colours look alike, for key texts that begin no
// code of the classificator, and for codes without a colour where most have one.
void CheckColorats(const LoadedFile& file, const Places& places, Report& report);

}  // namespace TolvenLibs::RevitMappingEditorDll
