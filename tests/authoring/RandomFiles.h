// Classificators and text domain files out of all statements that there are, good and bad, and
// damage to such files.

#pragma once

#include <string>

#include "support/Random.h"

namespace TolvenLibs::RevitMappingEditorDll {

std::string RandomClassificator(Random& random);
std::string RandomDomens(Random& random);

// A description, of the words that the patterns have.
std::wstring RandomDescription(Random& random);

// The file with a byte changed, a line dropped, doubled or joined to the next, or with other
// separators.
std::string Damaged(std::string bytes, Random& random);

}  // namespace TolvenLibs::RevitMappingEditorDll
