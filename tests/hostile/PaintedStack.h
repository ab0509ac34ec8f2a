#pragma once

#include <cstddef>
#include <functional>

// Runs the work on a new thread with a small stack that is filled with a pattern, and returns how
// many bytes of it were used. Rethrows an exception of the work. Work that overflows the stack ends
// the program.
std::size_t RunOnPaintedStack(const std::function<void()>& work);
