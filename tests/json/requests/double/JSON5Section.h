#pragma once

#include <list>
#include <memory>
#include <string>
#include <vector>

#include "Script.h"

// The strings and arrays that the library owns.
struct KeptArrays {
  const wchar_t* Keep(const std::wstring& text);

  std::vector<std::unique_ptr<const wchar_t[]>> strings;
  std::vector<std::unique_ptr<const wchar_t*[]>> arrays;
};

class JSON5Section {
 public:
  JSON5Section(std::wstring sectionName, std::wstring itemName, KeptArrays& keptByParser);
  JSON5Section(const JSON5Section&) = delete;
  JSON5Section& operator=(const JSON5Section&) = delete;
  ~JSON5Section();

  const wchar_t* ParamString(const wchar_t* key, const wchar_t* defaultValue, bool& found,
                             const wchar_t* comment, bool overriding);

  int ParamInt(const wchar_t* key, int defaultValue, bool& found, const wchar_t* comment,
               bool overriding);

  double ParamDouble(const wchar_t* key, double defaultValue, bool& found, const wchar_t* comment,
                     bool overriding);

  const wchar_t** ParamStringArray(const wchar_t* key, int& count, const wchar_t** defaultValues,
                                   int defaultCount, bool& found, const wchar_t* comment,
                                   bool overriding);

 private:
  // Records the request and returns the script's answer, or null if it has none of this type or is
  // overridden.
  template <class Type>
  const Type* Request(const wchar_t* key, const std::wstring& type, const std::wstring& value,
                      const wchar_t* comment, bool overriding, bool& found);

  std::wstring section;
  std::wstring item;
  std::list<std::wstring> given;  // the strings that are valid until the section ends
  KeptArrays& kept;
};
