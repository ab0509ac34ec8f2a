// How a harness says that something is wrong: it ends the process, which the fuzzer takes for a
// find.

#pragma once

#include <string>

// Ends the process with the message unless the condition holds.
void Check(bool holds, const char* message);

// Ends the process with the place where the texts begin to differ, unless they are equal.
void CheckSame(const char* what, const std::wstring& actual, const std::wstring& expected);
