#!/usr/bin/env python3
"""with_display_test.py - the desktop that tests run in."""

import os
import pathlib
import signal
import subprocess
import tempfile
import unittest

HERE = pathlib.Path(__file__).resolve().parent

# Starts itself anew in a session of its own, as the toolkit's daemon does without its folder; not
# for ever, and each is there for long enough to be met.
RESTLESS = """#!/bin/sh
[ "$1" -gt 0 ] || exit
sleep 0.02
setsid "$0" $(($1 - 1)) &
"""


def with_display(*command, **settings):
    return subprocess.run([HERE / "with-display", *command], stdin=subprocess.DEVNULL,
                          stdout=subprocess.PIPE, text=True, check=False,
                          env={**os.environ, **settings})


def processes_with(setting):
    found = []
    for environment in pathlib.Path("/proc").glob("[0-9]*/environ"):
        try:
            if setting.encode() in environment.read_bytes().split(b"\0"):
                found.append(int(environment.parent.name))
        except OSError:
            pass  # ended, or another user's
    return found


class Desktop(unittest.TestCase):
    def test_the_exit_status_is_the_commands(self):
        self.assertEqual(with_display("sh", "-c", "exit 7").returncode, 7)

    def test_nothing_outlives_it(self):
        with tempfile.TemporaryDirectory() as folder:
            restless = pathlib.Path(folder, "restless")
            restless.write_text(RESTLESS, "utf-8")
            restless.chmod(0o755)
            # Whoever reads our output waits for all that can write into it.
            script = ('{ setsid sleep 600 & setsid "$0" 500 & } >/dev/null; sleep 0.2; '
                      'echo "$WITH_DISPLAY_ROOM"')
            done = with_display("sh", "-c", script, restless, MARK=folder)
            # One that starts itself anew might be between two processes.
            left = {*processes_with("MARK=" + folder), *processes_with("MARK=" + folder)}
            for process in left:
                os.kill(process, signal.SIGKILL)
            self.assertEqual(left, set())
            room = pathlib.Path(done.stdout.strip())
            self.assertEqual((room.is_absolute(), room.exists()), (True, False))


unittest.main()
