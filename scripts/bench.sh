#!/usr/bin/env bash
# Measures the library, the least work for the same results, and the alternatives.
#
#   scripts/bench.sh          measures, prints the results, and writes them into docs/measured/
#   scripts/bench.sh --check  measures and prints, and fails if a ratio exceeds its bound
#   scripts/bench.sh --brief  runs everything once at its smallest size, to check the answers only
#
# With --titles DIR the lookup is measured on real data too: the second columns of the tables in
# DIR/classifications are patterns, those in DIR/models descriptions.
set -euo pipefail
mode=
titles=()
while [ $# -gt 0 ]; do
  case $1 in
    --check | --brief) mode=$1 ;;
    --titles) titles=("--titles=$(realpath -- "${2:-}")"); shift ;;
    *) echo "scripts/bench.sh [--check | --brief] [--titles DIR]" >&2; exit 2 ;;
  esac
  shift
done
cd "$(dirname "$0")/.."
windows=()
[ "$mode" = --brief ] || windows=(g++-mingw-w64-x86-64-posix wine64)
. scripts/setup.sh libbenchmark-dev libhyperscan-dev libre2-dev python3 \
  "${windows[@]}"

benchmarks=(lookup mapping_string colors loads json queries copy check)
build=build/bench
results=$build/results
files=$build/files
rm -rf "$results" "$files"
mkdir -p "$results" "$files"
trap 'rm -rf "$files"' EXIT

build_for() {
  cmake --preset "$1" -B "$2" -D REVIT_MAPPING_EDITOR_BENCHMARKS=ON \
    -D REVIT_MAPPING_EDITOR_TESTS=OFF -D REVIT_MAPPING_EDITOR_TOOLS=OFF >/dev/null
  cmake --build "$2"
}

# Measures the peak memory of loading each file, and its size: measure_memory OUTPUT COMMAND…
measure_memory() {
  local output=$1
  shift
  for file in "$files"/*; do
    echo "$(basename "$file") $("$@" "$file" | tr -d '\r')"
  done >"$output"
}

# Runs a program, and shows its output only if it fails: run NAME ARGUMENTS…
run() {
  local name=$1 log=$results/$1.log
  shift
  [ "$name" != lookup ] || set -- "${titles[@]}" "$@"
  "$build/benchmarks/bench_$name" "$@" >"$log" 2>&1 || { cat "$log" >&2; exit 1; }
}

build_for linux-release "$build"
if [ "$mode" = --brief ]; then
  for name in "${benchmarks[@]}"; do
    run "$name" --brief --benchmark_min_time=0.001
  done
  run memory_files "$files" --brief
  measure_memory "$results/memory_linux" "$build/benchmarks/bench_memory"
  echo "All benchmarks run, and all answers agree"
  exit
fi

for name in "${benchmarks[@]}"; do
  echo "Measuring $name"
  run "$name" --benchmark_min_time=0.1 --benchmark_repetitions=5 \
    --benchmark_enable_random_interleaving=true \
    --benchmark_out="$results/$name.json" --benchmark_out_format=json
done

build_for windows-mingw "$build-windows"
wine=$(command -v wine64 || echo /usr/lib/wine/wine64)
run memory_files "$files"
measure_memory "$results/memory_linux" "$build/benchmarks/bench_memory"
measure_memory "$results/memory_windows" env WINEPREFIX="$PWD/$build-windows/wine" WINEDEBUG=-all \
  "$wine" "$build-windows/bin/bench_memory.exe"

python3 benchmarks/report.py "$build" "$mode"
