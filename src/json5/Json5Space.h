// What may stand anywhere between the parts of a document.

#pragma once

#include "json5/Json5Cursor.h"

namespace TolvenLibs::RevitMappingEditorDll {

// White space and comments, from a place where there are some.
void SkipSomeSpace(Json5Cursor& cursor);

inline void SkipSpace(Json5Cursor& cursor) {
  // In files without blanks there is none.
  const char byte = cursor.Peek();
  if (!IsAscii(byte) || byte <= ' ' || byte == '/') SkipSomeSpace(cursor);
}

}  // namespace TolvenLibs::RevitMappingEditorDll
