// White space and comments of JSON5.

#pragma once

#include "json5/Json5Cursor.h"

namespace TolvenLibs::RevitMappingEditorDll {

// Skips white space and comments. Faster where there are some.
void SkipSomeSpace(Json5Cursor& cursor);

inline void SkipSpace(Json5Cursor& cursor) {
  // A fast path for files without blanks.
  const char byte = cursor.Peek();
  if (!IsAscii(byte) || byte <= ' ' || byte == '/') SkipSomeSpace(cursor);
}

}  // namespace TolvenLibs::RevitMappingEditorDll
