// How the checks add to a report.

#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "authoring/Report.h"

namespace TolvenLibs::RevitMappingEditorDll {

// The arguments are those of the check's sentence, in their order.
Finding& AddFinding(Report& report, int number, const Place& place, Fate fate,
                    std::initializer_list<std::wstring_view> arguments = {});

// Returns the text in UTF-8. REQUIRES: it is of a file, and so can be encoded.
std::string Utf8Of(std::wstring_view text);

}  // namespace TolvenLibs::RevitMappingEditorDll
