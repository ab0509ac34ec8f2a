// The cost of a case at a size.

#pragma once

#include <cstddef>

#include "hostile/Case.h"
#include "support/TempFolder.h"

struct Cost {
  double seconds = 0;         // processor time
  std::size_t allocated = 0;  // total bytes of all blocks
  std::size_t peak = 0;       // the most bytes at the same time
  std::size_t stack = 0;      // bytes
};

// A case at one size, with its file.
class PreparedCase {
 public:
  PreparedCase(const HostileCase& hostileCase, std::size_t caseSize);

  // Loads the file into a new editor, makes the queries of the case and destroys the editor. Throws
  // an exception if an answer is wrong.
  Cost Measure() const;

  // Returns the size of the file, or 0 if there is none.
  std::size_t FileSize() const;

 private:
  void Run() const;

  const HostileCase& theCase;
  std::size_t size;
  TempFolder folder;
  std::wstring file;  // none if empty
};
