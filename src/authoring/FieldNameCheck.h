// Names of fields that begin one another.

#pragma once

#include "authoring/LoadedFiles.h"
#include "authoring/Report.h"
#include "authoring/TextFileCheck.h"

namespace TolvenLibs::RevitMappingEditorDll {

// Adds a hint for each field whose name begins with that of another field of its property: a value
// that is given by name goes to both.
void CheckFieldNames(const DomenStore& domens, const Definitions& definitions, Report& report);

}  // namespace TolvenLibs::RevitMappingEditorDll
