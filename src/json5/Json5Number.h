#pragma once

#include "json5/Json5Cursor.h"

namespace TolvenLibs::RevitMappingEditorDll {

// Reads a number with its sign. One beyond the range of a double is infinite, or 0.
double ReadNumber(Json5Cursor& cursor);

}  // namespace TolvenLibs::RevitMappingEditorDll
