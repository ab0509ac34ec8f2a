#pragma once

#include <gtest/gtest.h>

#include <type_traits>
#include <vector>

#include "support/Results.h"

// An array output, initialised as by a caller, which shows whether a call has written it.
template <class Element>
struct Output {
  Output() = default;
  Output(const Output&) = delete;
  Output& operator=(const Output&) = delete;

  bool Written() const { return array != &before; }

  // Returns the elements as values and releases the array as a caller does. An array is written if
  // and only if it has elements.
  auto Take(int count) {
    EXPECT_EQ(Written(), count != 0);
    if (!Written()) count = 0;
    if constexpr (std::is_same_v<Element, const wchar_t*>) {
      return TakeAll(count, array);
    } else {
      std::vector<Element> taken(array, array + count);
      if (count != 0) delete[] array;
      return taken;
    }
  }

  Element before{};
  Element* array = &before;
};
