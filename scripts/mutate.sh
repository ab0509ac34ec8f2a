#!/usr/bin/env bash
# Changes the sources in one place at a time and tells which changes no test notices. Takes the
# options of scripts/mutate; `--help` lists them. An hour of work and more, so no part of test.sh.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/setup.sh mold python3

exec python3 scripts/mutate "$@"
