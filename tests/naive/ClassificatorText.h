#pragma once

#include <string>

#include "naive/Records.h"

namespace TolvenLibs::RevitMappingEditorDll::Naive {

// What the ==MAPTEXT and ==PARAM sections of a classificator file say, in the order of the file.
Classificator ParseClassificator(std::string bytes);

}  // namespace TolvenLibs::RevitMappingEditorDll::Naive
