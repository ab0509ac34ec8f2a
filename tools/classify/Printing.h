#pragma once

#include <string>

// Writes to standard output. Throws a `Failure` if not all of it can be written.
void Print(const std::string& output);
