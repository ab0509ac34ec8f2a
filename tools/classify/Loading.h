#pragma once

#include "Options.h"
#include "RevitMappingEditorDll.h"

// Loads the classificator, if there is one, and makes it the active one, and then the domain files.
// Throws a `Failure` for the first that can't be loaded, and for a JSON5 file that is malformed,
// which the library would take for an empty one.
void LoadAll(TolvenLibs::RevitMappingEditorDll::RevitMappingEditorDll& editor,
             const Options& options);
