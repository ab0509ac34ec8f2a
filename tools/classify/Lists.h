// What the loaded files gave, as tab-separated tables.

#pragma once

#include <string>
#include <vector>

#include "RevitMappingEditorDll.h"

using TolvenLibs::RevitMappingEditorDll::RevitMappingEditorDll;

// Key text, number, three channels and percentage of each key text of the active Colorat, with a
// swatch in the colour itself behind them if asked for.
std::string ListColors(RevitMappingEditorDll& editor, bool withSwatches);

// Id and name of each domain; "active" behind the one that is.
std::string ListDomens(RevitMappingEditorDll& editor);

// Domain, id, name, sort index and number of fields of each property that may be set on objects of
// all these types.
std::string ListProperties(RevitMappingEditorDll& editor, const std::vector<std::string>& types);

// Domain, property, name, title, type, flag and value of each field of these properties.
std::string ListFields(RevitMappingEditorDll& editor, const std::vector<std::string>& types);
