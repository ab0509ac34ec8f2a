// The platform's console: standard streams, arguments and terminals.

#pragma once

#include <string>
#include <vector>

// Makes the standard streams binary and the console's encoding UTF-8.
void UseUtf8Streams();

// Returns the arguments after the program's name, in UTF-8.
std::vector<std::string> Utf8Arguments(int argc, char** argv);

bool StandardErrorIsTerminal();
bool StandardOutputIsTerminal();

// Returns whether standard output is a terminal that claims to support 24-bit colours.
bool TerminalTakesColours();
