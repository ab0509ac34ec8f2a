// Domains and properties that no code uses.

#pragma once

#include <set>
#include <string>

#include "authoring/LoadedFiles.h"
#include "authoring/Report.h"
#include "authoring/TextFileCheck.h"

namespace TolvenLibs::RevitMappingEditorDll {

// The ids of the properties that items fill, in whatever domain.
using PropertyUses = std::set<std::wstring>;

// Adds a finding for each domain that no classificator lists, and for each property of a listed
// domain that no item of theirs fills. Without a classificator nobody could use them, and there is
// nothing to say. REQUIRES: `definitions` has those of all files.
void CheckUses(const LoadedFiles& loaded, const PropertyUses& uses, const Definitions& definitions,
               Report& report);

}  // namespace TolvenLibs::RevitMappingEditorDll
