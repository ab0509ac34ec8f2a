// Strings and keys of JSON5. The readers return a view into the text, or into a new entry of
// `decoded` if there are escapes.

#pragma once

#include <deque>
#include <string>
#include <string_view>

#include "json5/Json5Cursor.h"

namespace TolvenLibs::RevitMappingEditorDll {

inline bool IsQuotationMark(char byte) {
  return byte == '"' || byte == '\'';
}

// Reads a string with its quotation marks. REQUIRES: IsQuotationMark(cursor.Peek()).
std::string_view ReadString(Json5Cursor& cursor, std::deque<std::string>& decoded);

std::string_view ReadIdentifier(Json5Cursor& cursor, std::deque<std::string>& decoded);

}  // namespace TolvenLibs::RevitMappingEditorDll
