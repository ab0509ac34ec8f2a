// Writes JSON5 files.

#pragma once

#include "base/Files.h"

namespace TolvenLibs::RevitMappingEditorDll {

class Json5Record;

// Writes the record to `take`, piece by piece, in UTF-8: an object of sections, each an object of
// items, in JSON with comments. Sections, items and keys are in the order of their first requests;
// a key has the value and the comment of its last. Equal records have equal bytes.
void WriteJson5(const Json5Record& record, const TakeBytes& take);

}  // namespace TolvenLibs::RevitMappingEditorDll
