#pragma once

#include <string>
#include <vector>

// `classify check`: says what the lines of files come to. The arguments are those after "check".
// Returns the exit status. Throws a `Failure` for arguments that make no sense, and for a file that
// isn't there.
int RunCheckCommand(std::vector<std::string> arguments);
