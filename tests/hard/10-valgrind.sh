#!/usr/bin/env bash
# The PPD checks and the opening of PPDs under valgrind, which sees inside the print library too.
set -euo pipefail
. tests/hard/build.sh release PPDCheck_test PPDFile_test

for program in PPDCheck_test PPDFile_test; do
    valgrind --quiet --error-exitcode=99 --leak-check=full --errors-for-leak-kinds=definite \
        "build/release/tests/dialog/ppd/$program" --gtest_brief=1
done
