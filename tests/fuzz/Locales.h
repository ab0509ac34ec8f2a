// Global locales that differ only in their capitals.

#pragma once

#include <cstddef>

constexpr std::size_t localeCount = 4;

// Sets one of them: without capitals, with Latin ones, with Latin and Cyrillic ones, or with a
// capital that has another capital.
void SetLocale(std::size_t index);
