#!/usr/bin/env python3
"""start_test.py PROGRAM SAMPLES SENTENCE... - what a start does besides showing the window.  Runs
on the display it finds, like dialog_test.py."""

import os
import sys

sys.dont_write_bytecode = True
sys.path.insert(0, os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
from dialog_test import ppd  # noqa: E402
from drive import check  # noqa: E402
from sentences import main, test  # noqa: E402


@test
def a_first_start_does_not_look_for_other_programs():
    found = os.environ["HOME"] + "/GNUstep/Library/Services/.GNUstepAppList"
    check(not os.path.exists(found), "the home is not new")
    with ppd("resolution") as dialog:
        dialog.wait("Pane", "Page Settings")
    check(not os.path.exists(found), "there is a list of the programs that were found")


if __name__ == "__main__":
    main()
