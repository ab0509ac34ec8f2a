#pragma once

#include <string>

#include "authoring/Checks.h"
#include "authoring/Report.h"

// The findings of the report as SARIF 2.1.0, which code hosts and editors read.
std::string FormatSarif(const TolvenLibs::RevitMappingEditorDll::Report& report,
                        TolvenLibs::RevitMappingEditorDll::Language language);
