#!/usr/bin/python3
"""tests/mutation/apart_test.py - whether a changed program can harm what is not its own."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
from apart import ROOT, apart  # noqa: E402


def shell(script, *words, **settings):
    """The exit status of a script that is run apart, and what it wrote."""
    done = subprocess.run([str(word) for word in apart(["sh", "-c", script, "sh", *words])],
                          stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True, timeout=10,
                          **settings)
    return done.returncode, done.stdout


class Apart(unittest.TestCase):
    def test_the_exit_status_and_the_output_are_the_programs(self):
        self.assertEqual(shell("echo seen; exit 7"), (7, "seen\n"))

    def test_it_cannot_end_another_process(self):
        with subprocess.Popen(["sleep", "600"]) as other:
            _, told = shell('kill -9 "$1" || echo none', other.pid)
            other.kill()
            self.assertEqual(told, "none\n")

    def test_what_it_started_ends_with_it(self):
        # The pipe is closed only when nobody can write into it any more.
        _, told = shell("sleep 20 & echo started")
        self.assertEqual(told, "started\n")

    def test_it_ends_with_who_started_it(self):
        words = [str(word) for word in apart(["sh", "-c", "echo up; sleep 20; echo on"])]
        with subprocess.Popen(words, stdout=subprocess.PIPE, text=True) as started:
            self.assertEqual(started.stdout.readline(), "up\n")
            started.kill()
            self.assertEqual(started.stdout.read(), "")

    def test_it_writes_neither_in_this_tree_nor_beside_it(self):
        with tempfile.TemporaryDirectory(dir=ROOT / "build") as folder:
            kept = pathlib.Path(folder) / "kept"
            kept.write_text("whole")
            beside = pathlib.Path("/", pathlib.Path(folder).name)
            shell('echo x >"$1"; rm -f "$1"; mkdir "$2/new" "$3"', kept, folder, beside)
            made = beside.exists()
            if made:
                beside.rmdir()
            self.assertFalse(made)
            self.assertEqual(list(pathlib.Path(folder).iterdir()), [kept])
            self.assertEqual(kept.read_text(), "whole")

    def test_its_temporary_files_are_seen_by_nobody_else(self):
        with tempfile.NamedTemporaryFile(dir="/tmp") as other:
            look = '[ -e "$1" ] || file=$(mktemp /tmp/apart.XXXXXX) && echo "$file"'
            status, told = shell(look, other.name)
            self.assertEqual((status, told[:11]), (0, "/tmp/apart."))
            self.assertFalse(pathlib.Path(told.strip()).exists())


unittest.main()
