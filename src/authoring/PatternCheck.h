// What is wrong with patterns: characters that fit hardly any text, and patterns that no text can
// reach.

#pragma once

#include <string_view>

#include "authoring/LoadedFiles.h"
#include "authoring/Places.h"
#include "authoring/Report.h"

namespace TolvenLibs::RevitMappingEditorDll {

// Adds findings for characters of a pattern. REQUIRES: the pattern is a view into the file.
void CheckPatternText(std::wstring_view pattern, const Places& places, Report& report);

// Adds a finding for each pattern of the classificator whose own words the lookup answers with
// another record: any text that it fits, that record fits too, and comes first. REQUIRES: the
// statements of the report are in the order of their places.
void CheckPatterns(const LoadedFile& file, const Places& places, Report& report);

}  // namespace TolvenLibs::RevitMappingEditorDll
