#pragma once

#include <cstddef>
#include <functional>

// Runs the work on a thread of its own, whose stack is small and painted, and tells how many bytes
// of it the work has used. An exception of the work is raised here. Work that needs more stack than
// there is ends the program.
std::size_t RunOnPaintedStack(const std::function<void()>& work);
