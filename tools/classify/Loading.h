#pragma once

#include "Options.h"
#include "RevitMappingEditorDll.h"

// Loads the classificator, if there is one, makes it the active one, and then loads the domain
// files. Throws a `Failure` for the first file that can't be loaded, and for a malformed JSON5
// file, which the library would treat as an empty one.
void LoadAll(TolvenLibs::RevitMappingEditorDll::RevitMappingEditorDll& editor,
             const Options& options);
