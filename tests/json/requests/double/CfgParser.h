#pragma once

#include <cstddef>

#include "JSON5Section.h"
#include "Script.h"

class CfgParser {
 public:
  CfgParser(const wchar_t* file, const wchar_t* second, const wchar_t* language);
  CfgParser(const CfgParser&) = delete;
  CfgParser& operator=(const CfgParser&) = delete;
  ~CfgParser();

  static void* operator new(std::size_t size);
  static void operator delete(void* memory);

  JSON5Section* Section(const wchar_t* sectionName, bool& found, bool first, bool last,
                        const wchar_t* itemName);

  void saveCfgParamsToJson5(const wchar_t* file, int kind);

 private:
  // What the library may keep until the parser ends.
  KeptArrays kept;
};
