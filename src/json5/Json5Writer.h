// From the record of the requests to the bytes of a JSON5 file.

#pragma once

#include "base/Files.h"

namespace TolvenLibs::RevitMappingEditorDll {

class Json5Record;

// Writes the record as a file, piece by piece, in UTF-8: one object with the sections, each an
// object with its items, in JSON with comments. Sections, items and keys are in the order of the
// first request for each; a key has the value and the comment of the last. Equal records have equal
// bytes.
void WriteJson5(const Json5Record& record, const TakeBytes& take);

}  // namespace TolvenLibs::RevitMappingEditorDll
