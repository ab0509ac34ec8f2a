// Values as a written file has them: in JSON that reads the same as JSON5.

#pragma once

#include <string>
#include <string_view>

namespace TolvenLibs::RevitMappingEditorDll {

// In quotation marks. What can't stand for itself is escaped, a unit that is no code point too.
void AppendString(std::string& bytes, std::wstring_view text);

void AppendInt(std::string& bytes, int number);

// With a point or an exponent, so that it reads as a real. What JSON has no number for is null.
void AppendReal(std::string& bytes, double number);

}  // namespace TolvenLibs::RevitMappingEditorDll
