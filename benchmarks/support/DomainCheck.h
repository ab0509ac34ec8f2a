#pragma once

#include <string>

#include "RevitMappingEditorDll.h"
#include "support/Domains.h"

// Returns whether the answers of all queries over the editor's domain with this id are the data.
bool HasDomain(TolvenLibs::RevitMappingEditorDll::RevitMappingEditorDll& editor,
               const std::wstring& id, const DomainData& domain);
