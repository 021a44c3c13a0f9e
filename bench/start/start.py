#!/usr/bin/env python3
"""start.py BUILD-FOLDER [--runs N] [--sizes N,N,...] [--json FILE]

How long print dialogs take from their start until their window shows what it will show, and the
memory they hold then: tape-print, where they were built the GTK and Qt dialogs of bench/peers, and
as a floor the interface file of our panel in a window with nothing else.  All ask the same private
print server with three queues; the first queue's PPD has that many page sizes.  "first" is the first
start in a fresh home, "again" the median of the runs after it.  The programs take turns, so that
what else the machine does hits all of them.  Before that each is started once with a small PPD, so that
none of them alone is the first on a new display, at a new server, or from a disk not yet read.
"""

import argparse
import json
import os
import pathlib
import shutil
import statistics
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
SUPPORT = ROOT / "tests/support"
# Where opening the PPD takes a peer most of a minute, once more is enough.
SLOW_MILLISECONDS = 5000


def dialogs(build):
    found = {"tape-print": [build / "tape-print", "--printer", "first"],
             "GTK": [build / "bench/peers/peer_gtk", "first"],
             "Qt": [build / "bench/peers/peer_qt", "first"],
             "interface file alone": [build / "bench/bench_panel", "bare"]}
    return {name: command for name, command in found.items() if command[0].exists()}


def empty_home():
    for entry in pathlib.Path(os.environ["HOME"]).iterdir():
        if entry.is_dir():
            shutil.rmtree(entry)
        else:
            entry.unlink()


def one_session(build, runs):
    """Called again by itself, on the display and beside the server: a line of JSON."""
    for command in dialogs(build).values():
        small = ["second" if word == "first" else word for word in command]
        subprocess.run([build / "bench/start/shown", *small], capture_output=True)
    result = {name: [] for name in dialogs(build)}
    for run in range(runs + 1):
        for name, command in dialogs(build).items():
            if run == 0:
                empty_home()
            elif run > 1 and (not result[name][0] or result[name][0][0] > SLOW_MILLISECONDS):
                continue
            done = subprocess.run([build / "bench/start/shown", *command], capture_output=True,
                                  text=True)
            if done.returncode == 0:
                milliseconds, kib = done.stdout.split()
                result[name].append((float(milliseconds), int(kib)))
            else:
                result[name].append(None)
    print(json.dumps(result))


def measure(build, sizes, runs):
    """Name to a row."""
    with tempfile.TemporaryDirectory() as folder:
        ppd = pathlib.Path(folder, "first.ppd")
        with open(ppd, "wb") as file:
            subprocess.run([build / "bench/make-ppd", str(sizes), "10"], stdout=file, check=True)
        samples = ROOT / "samples"
        done = subprocess.run(
            [SUPPORT / "with-display", SUPPORT / "private-cupsd", f"first={ppd}",
             f"second={samples}/sample-tape.ppd", f"third={samples}/sample-tape-inches.ppd", "--",
             sys.executable, "-B", __file__, str(build), "--runs", str(runs), "--session"],
            capture_output=True, text=True, check=False)
        if done.returncode != 0:
            sys.exit(f"start.py: the session failed\n{done.stderr}")
    rows = {}
    for name, shown in json.loads(done.stdout.splitlines()[-1]).items():
        again = [run for run in shown[1:] if run]
        rows[name] = {"first_ms": shown[0] and shown[0][0],
                      "again_ms": statistics.median(run[0] for run in again) if again else None,
                      "resident_mb": max(run[1] for run in again) / 1024 if again else None}
    return rows


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("--runs", type=int, default=7)
    parser.add_argument("--sizes", default="10,100,1000,10000")
    parser.add_argument("--json", type=pathlib.Path)
    parser.add_argument("--session", action="store_true", help=argparse.SUPPRESS)
    arguments = parser.parse_args()
    build = arguments.build.resolve()
    if arguments.session:
        one_session(build, arguments.runs)
        return
    found = {}
    print(f"{'sizes':>6}  {'dialog':<20}  {'first ms':>9}  {'again ms':>9}  {'MB':>6}")
    for sizes in (int(number) for number in arguments.sizes.split(",")):
        found[sizes] = measure(build, sizes, arguments.runs)
        for name, row in found[sizes].items():
            texts = ["-" if row[key] is None else f"{row[key]:.1f}"
                     for key in ("first_ms", "again_ms", "resident_mb")]
            print(f"{sizes:>6}  {name:<20}  {texts[0]:>9}  {texts[1]:>9}  {texts[2]:>6}",
                  flush=True)
    if arguments.json:
        arguments.json.write_text(json.dumps(found, indent=1) + "\n", "utf-8")


if __name__ == "__main__":
    main()
