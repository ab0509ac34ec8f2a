#!/usr/bin/env bash
# Fuzzes the library, and compares its answers with the naive forms of its rules.
#
#   scripts/fuzz.sh [SECONDS [HARNESS…]]  fuzzes with each harness for this time; default: all of
#                                         them for 60 seconds
#   scripts/fuzz.sh --replay              runs each harness on its corpus and its seeds once
#   scripts/fuzz.sh --merge [HARNESS…]    merges new finds into the archive of each corpus, and keeps
#                                         only the inputs that its coverage needs
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/setup.sh clang-19 libclang-rt-19-dev locales

harnesses=(classificator text_domen json5 json5_round_trip editor_calls)
build=build/linux-fuzz
limits=(-timeout=20 -rss_limit_mb=3000 -print_final_stats=1)

# The harnesses write files for each input, which are better kept in memory.
[ ! -w /dev/shm ] || export TMPDIR=/dev/shm

cmake --preset linux-fuzz >/dev/null
cmake --build --preset linux-fuzz

# Without inputs a harness would pass silently.
expect_inputs() {
  [ -n "$(find "$1" -type f -print -quit)" ] || { echo "No input in $1" >&2; exit 1; }
}

empty_folder() {
  rm -rf "$1"
  mkdir -p "$1"
}

unpack() {
  empty_folder "$build/unpacked/$1"
  tar -xzf "tests/fuzz/corpus/$1.tar.gz" -C "$build/unpacked/$1"
  expect_inputs "$build/unpacked/$1"
  expect_inputs "tests/fuzz/seeds/$1"
}

# The same inputs yield the same archive: it has no owners and times.
pack() {
  expect_inputs "$build/merged/$1"
  tar --sort=name --format=ustar --owner=0 --group=0 --numeric-owner --mtime=@0 --mode=a=rX,u+w \
    -C "$build/merged/$1" -c . | gzip -9n >"$build/$1.tar.gz"
  mv "$build/$1.tar.gz" "tests/fuzz/corpus/$1.tar.gz"
}

replay() {
  unpack "$1"
  "$build/tests/fuzz/fuzz_$1" "${limits[@]}" -runs=0 "$build/unpacked/$1" "tests/fuzz/seeds/$1"
}

# New finds stay in the build folder until they are merged.
fuzz() {
  unpack "$1"
  mkdir -p "$build/found/$1"
  "$build/tests/fuzz/fuzz_$1" "${limits[@]}" -max_total_time="$2" -max_len=1024 -seed=1 \
    -dict="tests/fuzz/dictionaries/$1.dict" -artifact_prefix="$build/" \
    "$build/found/$1" "$build/unpacked/$1" "tests/fuzz/seeds/$1"
}

merge() {
  unpack "$1"
  mkdir -p "$build/found/$1"
  empty_folder "$build/merged/$1"
  "$build/tests/fuzz/fuzz_$1" "${limits[@]}" -merge=1 -artifact_prefix="$build/" \
    "$build/merged/$1" "$build/unpacked/$1" "$build/found/$1"
  pack "$1"
}

case "${1:-}" in
  --replay)
    for harness in "${harnesses[@]}"; do replay "$harness"; done
    ;;
  --merge)
    [ $# -lt 2 ] || harnesses=("${@:2}")
    for harness in "${harnesses[@]}"; do merge "$harness"; done
    ;;
  *)
    seconds=${1:-60}
    [ $# -lt 2 ] || harnesses=("${@:2}")
    for harness in "${harnesses[@]}"; do fuzz "$harness" "$seconds"; done
    ;;
esac
