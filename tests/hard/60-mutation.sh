#!/usr/bin/env bash
# Whether the tests notice small wrong changes: some of them, or every one when long.
tests/mutation/apart_test.py && exec tests/mutation/run "$1"
