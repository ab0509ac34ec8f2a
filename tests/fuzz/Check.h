// Checks for harnesses. A failed check ends the process, which the fuzzer reports.

#pragma once

#include <string>

// Ends the process with the message unless `holds`.
void Check(bool holds, const char* message);

// Ends the process with the first difference unless the texts are equal.
void CheckSame(const char* what, const std::wstring& actual, const std::wstring& expected);
