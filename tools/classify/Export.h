#pragma once

#include <string>

#include "RevitMappingEditorDll.h"

// Writes a loaded domain as a JSON5 file. The library reports nothing of an export, so that this
// exports it once more, to a folder of its own, and throws a `Failure` unless the target has the
// same bytes.
void ExportDomen(TolvenLibs::RevitMappingEditorDll::RevitMappingEditorDll& editor,
                 const std::string& domenId, const std::string& target);
