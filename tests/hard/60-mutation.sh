#!/usr/bin/env bash
# Whether the tests notice small wrong changes: some of them, or every one when long.
exec tests/mutation/run "$1"
