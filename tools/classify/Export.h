#pragma once

#include <string>

#include "RevitMappingEditorDll.h"

// Writes a loaded domain as a JSON5 file. The library reports no failure of an export, so this
// exports the domain again, to a temporary folder, and throws a `Failure` unless the target has the
// same bytes.
void ExportDomen(TolvenLibs::RevitMappingEditorDll::RevitMappingEditorDll& editor,
                 const std::string& domenId, const std::string& target);
