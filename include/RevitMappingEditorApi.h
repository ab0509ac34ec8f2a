// What puts a declaration on the library's boundary. The library's own build defines
// REVIT_MAPPING_EDITOR_EXPORTS, nobody else does.

#pragma once

#if !defined(_WIN32)
#define REVIT_MAPPING_EDITOR_API __attribute__((visibility("default")))
#elif defined(REVIT_MAPPING_EDITOR_EXPORTS)
#define REVIT_MAPPING_EDITOR_API __declspec(dllexport)
#else
#define REVIT_MAPPING_EDITOR_API __declspec(dllimport)
#endif
