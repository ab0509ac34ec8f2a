#!/usr/bin/env bash
# Feeds the library with inputs that a fuzzer makes up, and holds its answers against the plain forms
# of its rules.
#
#   scripts/fuzz.sh [SECONDS [HARNESS…]]  fuzzes, each harness for so long; all of them for 60 seconds
#   scripts/fuzz.sh --replay              runs each harness over its corpus once
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/setup.sh clang-19 libclang-rt-19-dev locales

harnesses=(classificator text_domen json5 json5_round_trip editor_calls)
build=build/linux-fuzz
limits=(-timeout=20 -rss_limit_mb=3000 -print_final_stats=1)

# The harnesses write files for each input, which no disk has to keep.
[ ! -w /dev/shm ] || export TMPDIR=/dev/shm

cmake --preset linux-fuzz >/dev/null
cmake --build --preset linux-fuzz

replay() {
  "$build/tests/fuzz/fuzz_$1" "${limits[@]}" -runs=0 "tests/fuzz/corpus/$1"
}

# What is found new stays in the build folder.
fuzz() {
  mkdir -p "$build/corpus/$1"
  "$build/tests/fuzz/fuzz_$1" "${limits[@]}" -max_total_time="$2" -max_len=1024 -seed=1 \
    -dict="tests/fuzz/dictionaries/$1.dict" -artifact_prefix="$build/" \
    "$build/corpus/$1" "tests/fuzz/corpus/$1"
}

if [ "${1:-}" = --replay ]; then
  for harness in "${harnesses[@]}"; do replay "$harness"; done
  exit
fi

seconds=${1:-60}
[ $# -lt 2 ] || harnesses=("${@:2}")
for harness in "${harnesses[@]}"; do fuzz "$harness" "$seconds"; done
