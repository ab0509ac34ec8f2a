#!/usr/bin/env bash
# Runs mutation tests: changes the sources in one place at a time and reports the changes that no
# test notices. Takes the options of scripts/mutate, which `--help` lists. Takes an hour or more, so
# it isn't a part of test.sh.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/setup.sh mold python3

exec python3 scripts/mutate "$@"
