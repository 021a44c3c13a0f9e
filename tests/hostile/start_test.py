#!/usr/bin/env python3
"""start_test.py PROGRAM FOLDER [EVERY] - starts tape-print with the PPDs of cases.py.

With every PPD, or with every EVERY-th, it prints into a folder, once with its window and once
without.  It ends with the status and the one sentence of a PPD that is not used or of choices that
exclude each other, or with exactly the options of the case.
"""

import os
import subprocess
import sys
import tempfile
import time

sys.dont_write_bytecode = True
sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "dialog"))
from drive import PATIENCE, Failed, check, equal, options_of, xdotool  # noqa: E402

BAD_PPD, CONFLICT = 6, 10
WITH_WINDOW, WITHOUT = "--print-at-once", "--print"
# Nobody listens at port 1: no test here may meet the machine's own print server.
NO_SERVER = {"CUPS_SERVER": "127.0.0.1:1"}
IN_ENGLISH = os.environ.get("LANG", "C").startswith("C")


def cases(folder):
    found = []
    with open(folder + "/cases", encoding="ascii") as file:
        for line in file:
            word, _, rest = line.rstrip("\n").partition(" ")
            if word == "case":
                found.append({"case": rest})
            elif word != "see":
                found[-1][word] = rest
    return found


def spelled(text):
    """As cases.py spells what is no printable ASCII."""
    return "".join("%{:02X}".format(b) if b < 32 or b > 126 or chr(b) in "%{}|" else chr(b)
                   for b in text)


def panels_options(path):
    with open(path, "rb") as file:
        lines = [line.replace(b"\\\\", b"\\") for line in file.read().splitlines()]
    options = options_of(spelled(line) for line in lines)
    options.pop("PageSize", None)
    return options


def run(words, has_alerts):
    """Runs to the end, with Return for every alert; answers status and standard error."""
    with tempfile.TemporaryFile() as errors:
        process = subprocess.Popen(words, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                   stderr=errors, env=dict(os.environ, **NO_SERVER))
        deadline = time.monotonic() + 4 * PATIENCE
        try:
            while process.poll() is None:
                check(time.monotonic() < deadline, "tape-print did not end")
                time.sleep(0.1)
                if has_alerts:
                    xdotool("key", "Return")
        finally:
            process.kill()
            process.wait()
        errors.seek(0)
        return process.returncode, errors.read().decode("utf-8", "replace")


def only_sentence(errors):
    said = [line for line in errors.splitlines() if line.startswith("tape-print: ")]
    equal(len(said), 1, "number of sentences in " + errors)
    return said[0]


def try_case(program, folder, case, way):
    path = case["file"] if case["file"].startswith("/") else folder + "/" + case["file"]
    with tempfile.TemporaryDirectory() as room:
        status, errors = run([program, way, "--output", room + "/out",
                              "--device-uri", case["uri"], "--ppd", path],
                             has_alerts=way == WITH_WINDOW and case.get("alerts", "0") != "0")
        if "refused" in case:
            equal(status, BAD_PPD, "exit status")
            sentence = "tape-print: " + case["refused"].replace(
                "{path}", path if len(path) <= 300 else path[:300] + "...")
            said = only_sentence(errors)
            if IN_ENGLISH:
                equal(said, sentence, "the sentence")
            check(not os.path.exists(room + "/out"), "something was printed")
            return
        if "held" in case:
            equal(status, CONFLICT, "exit status")
            said = only_sentence(errors)
            if IN_ENGLISH:
                equal(said[:len("tape-print: " + case["held"])], "tape-print: " + case["held"],
                      "the sentence")
            check(not os.path.exists(room + "/out"), "something was printed")
            return
        equal(status, 0, "exit status, with " + errors)
        equal(panels_options(room + "/out/job-1/options"),
              options_of(case["print"].split("|")), "options")


def main():
    program, folder = sys.argv[1:3]
    every = int(sys.argv[3]) if len(sys.argv) > 3 else 1
    chosen = cases(folder)[::every]
    failures = 0
    for case in chosen:
        for way in (WITH_WINDOW, WITHOUT):
            try:
                try_case(program, folder, case, way)
            except (Failed, OSError) as problem:
                failures += 1
                print("{}, {}: {}".format(case["case"], way, problem), file=sys.stderr)
    print("{} PPDs, {} failures".format(len(chosen), failures))
    sys.exit(1 if failures or not chosen else 0)


if __name__ == "__main__":
    main()
