#!/usr/bin/env bash
# Every call of the panel to the dialog and the print system failing once, in every way.
set -euo pipefail
. tests/hard/build.sh release Faults_test

PANEL_FAULTS=all tests/support/with-display build/release/tests/pagesettings/Faults_test \
    --gtest_brief=1 2> >(grep -v "The print dialog raised" >&2)
