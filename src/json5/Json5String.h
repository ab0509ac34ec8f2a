// Strings and keys. What is written with escapes is put together in a new entry of `decoded`; of
// anything else a view into the text is given.

#pragma once

#include <deque>
#include <string>
#include <string_view>

#include "json5/Json5Cursor.h"

namespace TolvenLibs::RevitMappingEditorDll {

inline bool IsQuotationMark(char byte) {
  return byte == '"' || byte == '\'';
}

// Reads a string with its quotation marks, the opening one of which stands at the place.
std::string_view ReadString(Json5Cursor& cursor, std::deque<std::string>& decoded);

std::string_view ReadIdentifier(Json5Cursor& cursor, std::deque<std::string>& decoded);

}  // namespace TolvenLibs::RevitMappingEditorDll
