#pragma once

#include <string>
#include <vector>

// The descriptions of the elements in a UTF-8 text file, or in the standard input if `file` is "-":
// one a line, or with a `column` from 1 the text of that column of a tab-separated table. An empty
// line is an element without a description. A byte order mark in front and carriage returns at the
// ends of lines are passed over. Throws a `Failure`, with nothing read, if the file can't be read,
// isn't UTF-8, holds a NUL or has a line of too few columns.
std::vector<std::wstring> ReadElements(const std::string& file, int column);
