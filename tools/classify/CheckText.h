#pragma once

#include <string>

#include "authoring/Checks.h"
#include "authoring/LoadedFiles.h"
#include "authoring/Report.h"

// How findings are shown to a person.
enum class Markers { none, plain, coloured };

// A line for each finding, in the form that editors and build servers jump to, and a line for each
// place that is related to it. With markers, the line of the file follows, with a marker below it.
// With `all`, a line for each statement tells its fate.
std::string FormatText(const TolvenLibs::RevitMappingEditorDll::Report& report,
                       const TolvenLibs::RevitMappingEditorDll::LoadedFiles& loaded,
                       TolvenLibs::RevitMappingEditorDll::Language language, bool all,
                       Markers markers);
