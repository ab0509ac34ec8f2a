// A double of the configuration library that answers from a script and records the requests.

#pragma once

#include <map>
#include <string>
#include <tuple>
#include <utility>
#include <variant>
#include <vector>

using Texts = std::vector<std::wstring>;

// Section, item and key.
using ScriptKey = std::tuple<std::wstring, std::wstring, std::wstring>;

using ScriptAnswer = std::variant<std::wstring, int, double, Texts>;

// What a library may return for an array of strings.
enum class ArrayResult {
  defaults,  // the array of the defaults where that is correct
  other,     // a new array instead of that of the defaults, which the library keeps
  null,      // no array if nothing is found; the library keeps that of the defaults
  empty,     // an array that the library owns, with a count of 0
  negative,  // the same with a count of -1
};

// The current script, which answers and records all parsers and sections. REQUIRES: there is only
// one at a time.
struct Script {
  Script() { current = this; }
  Script(const Script&) = delete;
  Script& operator=(const Script&) = delete;
  ~Script() { current = nullptr; }

  void Answer(const wchar_t* section, const wchar_t* item, const wchar_t* key,
              ScriptAnswer answer) {
    answers[{section, item, key}] = std::move(answer);
  }

  // Records a request, and throws if it is the one that is to fail.
  void Request(const std::wstring& request);

  std::map<ScriptKey, ScriptAnswer> answers;
  ArrayResult arrays = ArrayResult::defaults;
  bool foundOnOverride = false;  // what an overridden request reports of the file
  int failing = 0;               // the number of the request that fails, from 1; 0 for none
  void (*fail)() = nullptr;      // throws the exception
  Texts requests;                // including the ends of sections and parsers
  int made = 0;                  // requests that could have failed
  int openSections = 0;          // sections that have not ended
  int parsersByNew = 0;          // made by `new`
  int parsersByDelete = 0;       // ended by `delete`
  static inline Script* current = nullptr;
};
