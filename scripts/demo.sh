#!/usr/bin/env bash
# Builds the library and classifies the sample elements with it.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/setup.sh

cmake --preset linux-release >/dev/null
cmake --build --preset linux-release --target classify

mkdir -p build
build/linux-release/tools/classify --classificator data/uniformat.txt --domen data/domens.txt \
  --column 2 data/elements.tsv >build/demo.tsv 2>build/demo.summary
echo
head -n 8 build/demo.tsv
echo "..."
echo
cat build/demo.summary
