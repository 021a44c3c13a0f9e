#!/usr/bin/env bash
# Every condition of the rules decides something alone, in one of their tests.
exec tests/support/mcdc
