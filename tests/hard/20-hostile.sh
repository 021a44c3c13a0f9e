#!/usr/bin/env bash
# The PPDs of tests/hostile/, every one of them: through the panel in three locales, one with a
# decimal comma, a third of them sanitized, some through tape-print.  Long, all of them sanitized in
# every locale, through tape-print, and under valgrind.
set -euo pipefail
length=$1
locales=(C de_DE.UTF-8 ja_JP.UTF-8)
status=0

. tests/hard/build.sh release HostilePPD_test tape-print
. tests/hard/build.sh asan HostilePPD_test tape-print

panel() { # PRESET LOCALE [COMMAND...]
    local room=build/$1/tests/hostile
    echo "panel, $1, $2 ${3-}"
    LSAN_OPTIONS=suppressions=$PWD/$room/leaks.supp tests/support/with-locale "$2" \
        tests/support/with-display "${@:3}" "$room/HostilePPD_test" --gtest_brief=1 || status=1
}

program() { # PRESET LOCALE EVERY
    local room=$PWD/build/$1/tests/hostile
    echo "tape-print, $1, $2"
    ASAN_OPTIONS=fast_unwind_on_malloc=0 LSAN_OPTIONS=suppressions=$room/leaks.supp \
        tests/support/with-locale "$2" tests/support/with-display \
        tests/hostile/start_test.py "build/$1/tape-print" "$room/ppds" "$3" || status=1
}

for locale in "${locales[@]}"; do
    panel release "$locale"
done
if [ "$length" = long ]; then
    for locale in "${locales[@]}"; do
        panel asan "$locale"
        program release "$locale" 1
    done
    program asan C.UTF-8 5
    panel release de_DE.UTF-8 valgrind --quiet --error-exitcode=99 \
        --suppressions=tests/hostile/valgrind.supp
else
    GTEST_TOTAL_SHARDS=3 GTEST_SHARD_INDEX=2 panel asan de_DE.UTF-8
    program release C.UTF-8 20
fi
exit "$status"
