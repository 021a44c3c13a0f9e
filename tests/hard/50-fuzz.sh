#!/usr/bin/env bash
# Every fuzz target: ten seconds each, or ten minutes when long.
set -euo pipefail

seconds=10
[ "${1-}" != long ] || seconds=600
fuzz/run "$seconds"
