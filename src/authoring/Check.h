// The check of files: what became of each statement, and what its author should know.

#pragma once

#include "authoring/LoadedFiles.h"
#include "authoring/Report.h"

namespace TolvenLibs::RevitMappingEditorDll {

// Returns the report of files that are loaded. The same files have the same report.
Report CheckFiles(const LoadedFiles& loaded);

}  // namespace TolvenLibs::RevitMappingEditorDll
