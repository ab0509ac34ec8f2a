#!/usr/bin/env bash
# Checks the formatting, then builds and tests everything: with sanitizers, for Windows under Wine,
# and as released, and threads with the thread sanitizer. Then it replays the corpora of the fuzzer,
# fuzzes for a minute, and runs each benchmark once, so that they stay up to date.
set -euo pipefail
cd "$(dirname "$0")/.."
node=()
command -v npm >/dev/null || node=(nodejs npm)
. scripts/setup.sh clang-format clang-19 locales g++-mingw-w64-x86-64-posix googletest wine64 \
  python3 unicode-data "${node[@]}"

# Locales with other numbers and capitals, which must change nothing.
for name in de_DE ru_RU tr_TR; do
  locale -a | grep -qix "$name\.utf-\?8" ||
    "${as_root[@]}" localedef -i "$name" -f UTF-8 "$name.UTF-8"
done

find include src tests tools examples benchmarks -name '*.h' -o -name '*.cpp' |
  xargs clang-format --dry-run --Werror

# The reference tools that JSON5 files and reports are compared with, at their locked versions.
for tool in referee schema reports; do
  mkdir -p "build/npm/$tool"
  cp "tests/json/$tool"/* "build/npm/$tool/"
  npm ci --loglevel=error --no-audit --no-fund --prefix "build/npm/$tool"
done

# Wine sometimes ends a program before it starts, without any output, so a test may be repeated.
declare -A repeat=([windows-mingw]="--repeat until-pass:2")
for preset in linux-sanitize windows-mingw linux-release; do
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset"
  # shellcheck disable=SC2086
  ctest --preset "$preset" --parallel "$(nproc)" ${repeat[$preset]:-}
done

cmake --preset linux-tsan >/dev/null
cmake --build --preset linux-tsan
build/linux-tsan/tests/thread_tests --gtest_brief=1

scripts/fuzz.sh --replay
scripts/fuzz.sh 12

scripts/bench.sh --brief
