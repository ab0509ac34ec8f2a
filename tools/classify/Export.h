#pragma once

#include <string>

#include "RevitMappingEditorDll.h"

// Writes a loaded domain as a JSON5 file. The library reports nothing of an export, so that this
// loads the file again, and throws a `Failure` unless it holds what it should.
void ExportDomen(TolvenLibs::RevitMappingEditorDll::RevitMappingEditorDll& editor,
                 const std::string& domenId, const std::string& target);
