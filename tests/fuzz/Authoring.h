// What a check makes of a file, whatever its bytes are.

#pragma once

#include "authoring/LoadedFiles.h"

// Loads the files with an account and checks them. What is loaded has to be what a load without an
// account gives, and the report has to be one that can be printed.
void CheckAuthoring(const TolvenLibs::RevitMappingEditorDll::FileList& files);
