#include "CfgParser.h"

#include <new>
#include <string>

CfgParser::CfgParser(const wchar_t* file, const wchar_t* second, const wchar_t* language) {
  Script::current->Request(std::wstring(L"parser '") + file + L"' '" + second + L"' '" + language +
                           L"'");
}

CfgParser::~CfgParser() {
  const int open = Script::current->openSections;
  Script::current->requests.push_back(
      L"end of parser" + (open == 0 ? L"" : L", sections still open: " + std::to_wstring(open)));
}

void* CfgParser::operator new(std::size_t size) {
  ++Script::current->parsersByNew;
  return ::operator new(size);
}

void CfgParser::operator delete(void* memory) {
  ++Script::current->parsersByDelete;
  ::operator delete(memory);
}

JSON5Section* CfgParser::Section(const wchar_t* sectionName, bool& found, bool first, bool last,
                                 const wchar_t* itemName) {
  Script::current->Request(std::wstring(L"section ") + sectionName + L" '" + itemName + L"'" +
                           (first ? L" first" : L"") + (last ? L" last" : L""));
  found = false;
  return new JSON5Section(sectionName, itemName, kept);
}

void CfgParser::saveCfgParamsToJson5(const wchar_t* file, int kind) {
  Script::current->Request(std::wstring(L"save '") + file + L"' " + std::to_wstring(kind));
}
