#pragma once

#include <gtest/gtest.h>

#include <type_traits>
#include <vector>

#include "support/Results.h"

// An array output, as a caller sets it up ahead of a call: it tells whether the call has written
// it.
template <class Element>
struct Output {
  Output() = default;
  Output(const Output&) = delete;
  Output& operator=(const Output&) = delete;

  bool Written() const { return array != &before; }

  // The elements as values; the array is freed as a caller frees it. An array is written if, and
  // only if, it has elements.
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
