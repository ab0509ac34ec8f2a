// Numbers of JSON5.

#pragma once

#include "json5/Json5Cursor.h"

namespace TolvenLibs::RevitMappingEditorDll {

// Reads a number with its sign. Out of the range of a double it is infinite or 0.
double ReadNumber(Json5Cursor& cursor);

}  // namespace TolvenLibs::RevitMappingEditorDll
