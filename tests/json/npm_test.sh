#!/usr/bin/env bash
# Compares what the library reads and writes with reference tools of the npm registry: the reference
# implementation of JSON5, and a JSON Schema validator.
#
#   npm_test.sh NPM_FOLDER JSON5_TREE CLASSIFY SOURCE_FOLDER
#
# The exit status is 77 if the tools are not installed; scripts/test.sh installs them.
set -euo pipefail
npm=$1
json5_tree=$2
classify=$3
source=$4

if [ ! -d "$npm/referee/node_modules" ] || [ ! -d "$npm/schema/node_modules" ]; then
  echo "skipped: the npm packages are not installed"
  exit 77
fi
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

domens=(--domen "$source/data/domens.txt" --domen "$source/data/zones.json"
  --classificator "$source/data/classificator_ru.txt")
number=0
while IFS=$'\t' read -r id _; do
  number=$((number + 1))
  "$classify" "${domens[@]}" export "$id" "$work/domen$number.json"
done < <("$classify" "${domens[@]}" --list domens)

node "$npm/referee/referee.mjs" "$json5_tree" "$source/data/zones.json" "$work"/*.json
node "$npm/schema/schema.mjs" "$source/docs/domen.schema.json" "$source/data/zones.json" \
  "$work"/*.json
