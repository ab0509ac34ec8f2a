// Exports a declaration from the library. Only the library's own build defines
// REVIT_MAPPING_EDITOR_EXPORTS.

#pragma once

#if !defined(_WIN32)
#define REVIT_MAPPING_EDITOR_API __attribute__((visibility("default")))
#elif defined(REVIT_MAPPING_EDITOR_EXPORTS)
#define REVIT_MAPPING_EDITOR_API __declspec(dllexport)
#else
#define REVIT_MAPPING_EDITOR_API __declspec(dllimport)
#endif
