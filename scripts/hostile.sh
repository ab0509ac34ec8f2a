#!/usr/bin/env bash
# Measures the cost of adversarial inputs at their full size and at half of it, writes the figures
# into docs/measured/hostile.md, and fails if a cost exceeds its bound.
#
#   scripts/hostile.sh          measures all
#   scripts/hostile.sh TEXT     measures those with the text in their names, and only prints
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/setup.sh python3

build=build/linux-release
cmake --preset linux-release >/dev/null
cmake --build --preset linux-release --target hostile_sizes >/dev/null

results=$build/hostile.tsv
"$build/tests/hostile_sizes" "$@" | tee "$results.part"
mv "$results.part" "$results"
[ $# -gt 0 ] || page=docs/measured/hostile.md
python3 tests/hostile/report.py "$results" ${page:+"$page"}
