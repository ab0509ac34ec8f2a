// Global locales that differ in their capitals and in nothing else.

#pragma once

#include <cstddef>

constexpr std::size_t localeCount = 4;

// Makes one of them the global locale: without capitals, with Latin ones, with Latin and Cyrillic
// ones, and one in which a capital has another capital of its own.
void SetLocale(std::size_t index);
