#pragma once

#include <string>

#include "authoring/Checks.h"
#include "authoring/Report.h"

// The report as one JSON object, as docs/check.schema.json has it; with `all`, its statements too.
std::string FormatJson(const TolvenLibs::RevitMappingEditorDll::Report& report,
                       TolvenLibs::RevitMappingEditorDll::Language language, bool all);
