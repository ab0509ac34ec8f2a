#pragma once

#include <string>
#include <vector>

// U+FF21, U+FFFD and U+1F600 in the order of their code units. If a unit has 16 bits, the last of
// them is a surrogate pair, which sorts before the others.
inline const std::vector<std::wstring> inOrderOfUnits =
    sizeof(wchar_t) == 2 ? std::vector<std::wstring>{L"\U0001F600", L"\uFF21", L"\uFFFD"}
                         : std::vector<std::wstring>{L"\uFF21", L"\uFFFD", L"\U0001F600"};
