#pragma once

#include <string>
#include <vector>

// Returns the descriptions of the elements in a UTF-8 text file, or in the standard input if `file`
// is "-": one per line, or, if `column` is not 0, the text of that column (from 1) of a
// tab-separated table. An empty line is an element without a description. A leading byte order mark
// and carriage returns at the ends of lines are ignored. Throws a `Failure` if the file can't be
// read, is not UTF-8, contains a NUL or has a line with too few columns.
std::vector<std::wstring> ReadElements(const std::string& file, int column);
