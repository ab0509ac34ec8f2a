#!/usr/bin/env bash
# Measures the test coverage of the library: lines, branches, and conditions (MC/DC). Prints a table
# by file and each line and branch that is not reached. Fails below 100 % of the lines or 98 % of
# the branches.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/setup.sh clang-19 libclang-rt-19-dev llvm-19

build=$PWD/build/coverage
profiles=$build/profiles
flags="-O0 -w -fprofile-instr-generate -fcoverage-mapping -fcoverage-mcdc"
cmake -S . -B "$build" -G Ninja -D CMAKE_BUILD_TYPE= -D CMAKE_CXX_COMPILER=clang++-19 \
  -D CMAKE_CXX_FLAGS="$flags" -D CMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE=PRE_TEST >/dev/null
cmake --build "$build" --target tests request_tests

# Programs that tests run use the library too, each with its own profile.
rm -rf "$profiles"
export LLVM_PROFILE_FILE=$profiles/%m-%p.profraw
"$build/tests/tests" --gtest_brief=1
"$build/tests/request_tests" --gtest_brief=1
llvm-profdata-19 merge -sparse "$profiles"/*.profraw -o "$build/tests.profdata"

# Counts the functions of the built library, whichever program ran them.
llvm_cov() {
  llvm-cov-19 "$@" "$build/libRevitMappingEditorDll.so" -instr-profile="$build/tests.profdata" \
    2> >(grep -v 'mismatched data' >&2)
}
llvm_cov report -show-region-summary=false -show-branch-summary -show-mcdc-summary |
  sed 's/   */  /g' | tee "$build/report.txt"

# Prints what is not reached: "file:line", or "file:line branch".
llvm_cov export -format=lcov | awk -F'[:,]' '
  /^SF:/ { file = $2; sub(/^.*build\//, "", file) }
  /^DA:/ && $3 == 0 { print "not reached: " file ":" $2 }
  /^BRDA:/ && ($5 == 0 || $5 == "-") { print "not reached: " file ":" $2 " branch " $3 "," $4 }
' | tee "$build/missed.txt"

awk '/^TOTAL/ {
  lines = $6 + 0
  branches = 100 * (1 - $9 / $8)
  conditions = 100 * (1 - $12 / $11)
  printf "lines %.2f %%, branches %.2f %%, MC/DC %.2f %%\n", 100 * (1 - $6 / $5), branches, conditions
  exit lines > 0 || branches < 98
}' "$build/report.txt"
