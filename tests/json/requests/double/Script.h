// A double of the configuration library: it answers from a script and writes down what it is asked.

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

// What a library may hand back for an array of strings.
enum class ArrayResult {
  defaults,  // the array of the defaults wherever that is right
  other,     // a new array in place of that of the defaults, which stays with the library
  null,      // no array where nothing is found; that of the defaults stays with the library
  empty,     // an array of the library's own, with a count of 0
  negative,  // the same with a count of -1
};

// The one script at a time. Whatever parsers and sections do while it lives is told by it and
// written down in it.
struct Script {
  Script() { current = this; }
  Script(const Script&) = delete;
  Script& operator=(const Script&) = delete;
  ~Script() { current = nullptr; }

  void Answer(const wchar_t* section, const wchar_t* item, const wchar_t* key,
              ScriptAnswer answer) {
    answers[{section, item, key}] = std::move(answer);
  }

  // Writes a request down, and raises an exception if it is the one that is to fail.
  void Request(const std::wstring& request);

  std::map<ScriptKey, ScriptAnswer> answers;
  ArrayResult arrays = ArrayResult::defaults;
  bool foundOnOverride = false;  // what an overridden request says of the file
  int failing = 0;               // the number of the request that fails, from 1; 0 for none
  void (*fail)() = nullptr;      // raises the exception
  Texts requests;                // with the ends of sections and parsers
  int made = 0;                  // requests that could have failed
  int openSections = 0;          // sections that have not ended
  int parsersByNew = 0;          // that were made by `new`
  int parsersByDelete = 0;       // that were ended by `delete`
  static inline Script* current = nullptr;
};
