#!/usr/bin/env bash
# Panels opened, shown, edited, printed from and closed in one process: 1,000, or 10,000 when long.
set -euo pipefail
. tests/hard/build.sh release Lifetimes_test

cycles=1000
[ "${1-}" != long ] || cycles=10000
export GLIBC_TUNABLES=glibc.malloc.tcache_count=0
PANEL_CYCLES=$cycles tests/support/with-display build/release/tests/pagesettings/Lifetimes_test \
    --gtest_brief=1
