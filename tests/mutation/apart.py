"""Runs changed programs where they can harm nobody's processes or files."""

import os
import pathlib

ROOT = pathlib.Path(__file__).resolve().parents[2]


def apart(words):
    """The words that run a program which reaches no process but those that it starts, and writes
    nothing but temporary files.

    A wrong change may well send a signal to every process there is, or delete a folder with all
    that is in it.  The temporary folder is empty and goes with the program; the one that
    with-display made is there as it is.
    """
    # The display's socket, and this tree, may lie in the temporary folder that is covered.
    seen = ["--ro-bind-try", "/tmp/.X11-unix", "/tmp/.X11-unix", "--ro-bind", ROOT, ROOT]
    room = os.environ.get("WITH_DISPLAY_ROOM")
    written = ["--bind", room, room] if room else ["--setenv", "TMPDIR", "/tmp"]
    return ["bwrap", "--ro-bind", "/", "/", "--dev", "/dev", "--proc", "/proc", "--tmpfs", "/tmp",
            *seen, *written, "--unshare-pid", "--die-with-parent", "--", *words]
