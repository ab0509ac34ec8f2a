#pragma once

#include <string>

#include "RevitMappingEditorDll.h"
#include "support/Domains.h"

// Whether the editor's domain of this id answers every query as the data do.
bool HasDomain(TolvenLibs::RevitMappingEditorDll::RevitMappingEditorDll& editor,
               const std::wstring& id, const DomainData& domain);
