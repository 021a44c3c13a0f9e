#!/usr/bin/env bash
# Every fuzz target: ten seconds each in the sanitized build, or ten minutes, optimised, when long.
set -euo pipefail
[ "${1-}" != long ] || exec fuzz/run 600

. tests/hard/build.sh asan fuzzers
status=0
for program in build/asan/fuzz/*_fuzz; do
    target=$(basename "$program" _fuzz)
    fuzz/one build/asan "$target" 10 || status=1
    echo "$target: $(sed -n 's/^stat::number_of_executed_units: *//p' "build/asan/$target.log") runs"
done
exit "$status"
