// What a console program meets on its platform.

#pragma once

#include <string>
#include <vector>

// Makes the standard streams carry the program's bytes as they are, as UTF-8.
void UseUtf8Streams();

// The arguments behind the program's name, in UTF-8.
std::vector<std::string> Utf8Arguments(int argc, char** argv);

bool StandardErrorIsTerminal();
bool StandardOutputIsTerminal();

// Whether standard output is a terminal that says of itself that it takes 24-bit colours.
bool TerminalTakesColours();
