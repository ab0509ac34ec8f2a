#!/usr/bin/env bash
# Runs real models through `classify` and compares the number of elements of each code with a count
# by awk, without the library.
#
#   models_test.sh CLASSIFY SOURCE_FOLDER
#
# The exit status is 77 if the models are absent.
set -euo pipefail
export LC_ALL=C.UTF-8
classify=$1
source=$2
models=$source/../shared/data/models

if [ ! -d "$models" ]; then
  echo "skipped: no models beside the project"
  exit 77
fi
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

check() {
  local scheme=$1 model=$2
  cut -f 2 "$model" >"$work/names"
  "$classify" --classificator "$source/data/$scheme" --domen "$source/data/domens.txt" \
    --column 2 "$model" >"$work/table" 2>"$work/summary"
  cut -f 3 "$work/table" | sort | uniq -c | awk '{ print $2 "\t" $1 }' | sort >"$work/counts"
  awk -f "$source/tests/tools/count_codes.awk" "$source/data/$scheme" "$work/names" | sort \
    >"$work/expected"
  if ! diff "$work/expected" "$work/counts"; then
    echo "$scheme on $(basename "$model"): the counts of these codes differ"
    exit 1
  fi
  echo "$scheme on $(basename "$model"): $(head -n 1 "$work/summary")"
}

for model in "$models"/*.tsv; do check uniformat.txt "$model"; done
check classificator_ru.txt "$models/house_renga_ru.tsv"
