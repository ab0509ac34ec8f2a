// What a case costs at a size.

#pragma once

#include <cstddef>

#include "hostile/Case.h"
#include "support/TempFolder.h"

struct Cost {
  double seconds = 0;         // of a processor
  std::size_t allocated = 0;  // bytes of all blocks together
  std::size_t peak = 0;       // bytes that were taken at once
  std::size_t stack = 0;      // bytes
};

// A case with its file, at one size.
class PreparedCase {
 public:
  PreparedCase(const HostileCase& hostileCase, std::size_t caseSize);

  // Loads the file into a new editor, asks the questions of the case and ends the editor. Raises an
  // exception if an answer is wrong.
  Cost Measure() const;

  // Of the file; 0 if there is none.
  std::size_t FileSize() const;

 private:
  void Run() const;

  const HostileCase& theCase;
  std::size_t size;
  TempFolder folder;
  std::wstring file;  // none if empty
};
