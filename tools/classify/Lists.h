// The contents of the loaded files, as tab-separated tables. Each function returns a row per line.

#pragma once

#include <string>
#include <vector>

#include "RevitMappingEditorDll.h"

using TolvenLibs::RevitMappingEditorDll::RevitMappingEditorDll;

// Key text, number, three channels and percentage of each key text of the active Colorat, followed
// by a swatch of the colour if `withSwatches`.
std::string ListColors(RevitMappingEditorDll& editor, bool withSwatches);

// Id and name of each domain, followed by "active" for the active one.
std::string ListDomens(RevitMappingEditorDll& editor);

// Domain, id, name, sort index and number of fields of each property that applies to all of these
// object types.
std::string ListProperties(RevitMappingEditorDll& editor, const std::vector<std::string>& types);

// Domain, property, name, title, type, flag and value of each field of these properties.
std::string ListFields(RevitMappingEditorDll& editor, const std::vector<std::string>& types);
