#!/usr/bin/env bash
# Holds the reports of `classify check` to their schemas: over the sample files, and over files in
# which much is wrong.
#
#   reports_test.sh NPM_FOLDER CLASSIFY SOURCE_FOLDER
#
# Exit status 77 says that the tools are not installed; scripts/test.sh installs them.
set -euo pipefail
npm=$1
classify=$2
source=$3

if [ ! -d "$npm/reports/node_modules" ]; then
  echo "skipped: the npm packages are not installed"
  exit 77
fi
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir "$work/reports" "$work/two words"

printf '%s\n' '==MAPTEXT' '@@ (D zones)' '@W10 {FIRE=60}' 'wall' 'wall outer' '@D20' '==Maptext' \
  '==DOMEN' '@@@ D' '@ FIRE 0' 'Minutes int 0 30' '@ K 0 1' 'F int 0 x' 'F int 0 1' \
  >"$work/two words/плохой.txt"
printf '%s\n' "{Domen: {asFuncsNames: ['P', 5, 'Q'], sName: 5, sName: 'D', x: '{0}'}," \
  " Properties: {P: {sId: 'R', iUniq: '1', asFuncsNames: ['F', 'F', 'G']}, S: {}}," \
  " ArrayValueFields: {F: {sType: 'x'}, G: {sType: 'i', rDefault: 1}, H: {}}}" \
  >"$work/two words/zones.json"
printf '%s\n' "{Domen: {sName: 'Zones' asFuncsNames: ['P']}}" >"$work/two words/slip.json"
printf '==MAPTEXT\n@W10\nwall\n\xCF\n' >"$work/two words/encoded.txt"

# Arguments: the name of the report, and then those of the program
report() {
  local name=$work/reports/$1
  shift
  (cd "$work" && "$classify" check --fail-on never "$@" --format json >"$name.json")
  (cd "$work" && "$classify" check --fail-on never "$@" --format json --all >"$name.all.json")
  (cd "$work" && "$classify" check --fail-on never "$@" --format sarif >"$name.sarif")
}
sample=(--classificator "$source/data/classificator_ru.txt"
  --classificator "$source/data/uniformat.txt"
  --domen "$source/data/domens.txt" --domen "$source/data/zones.json")
bad=(--classificator 'two words/плохой.txt' --classificator 'two words/encoded.txt'
  --domen 'two words/zones.json' --domen 'two words/slip.json')
for language in en ru; do
  report "sample.$language" "${sample[@]}" --language "$language"
  report "bad.$language" "${bad[@]}" --language "$language"
done

node "$npm/reports/reports.mjs" "$source/docs/check.schema.json" "$work/reports"
