#!/usr/bin/env python3
"""scale_test.py PROGRAM SAMPLES SENTENCE... - the dialog on screens with more pixels to a point.

Runs on the display it finds, which must be large, like dialog_test.py.
"""

import os
import subprocess
import sys

sys.dont_write_bytecode = True
sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from dialog_test import FIELD, LENGTH, ppd  # noqa: E402
from drive import check, equal  # noqa: E402
from sentences import main, test  # noqa: E402


def worked_at(scale):
    subprocess.run(["defaults", "write", "NSGlobalDomain", "GSScaleFactor", str(scale)], check=True)
    with ppd("resolution") as dialog:
        field = dialog.wait(FIELD, "100.0", LENGTH)
        button = dialog.wait("Print")
        equal((button.width, button.height), (90 * scale, 26 * scale), "size of Print in pixels")
        dialog.type_into(field, "62.5")
        dialog.press(dialog.wait("cell", "300 x 600 dpi"))
        dialog.wait("cell", "300 x 600 dpi", on=True)
        dialog.choose("Tape", "12 mm tape")
        dialog.press(dialog.wait("Print"))
        dialog.end(0)
        job = dialog.job_in_folder()
        check(job["VnTapeLength"] == "62.5" and job["Resolution"] == "300x600dpi", str(job))
        check(job["PageSize"].startswith("Custom.12x"), str(job))


@test
def everything_is_in_its_place_at_one_and_a_half_pixels_to_a_point():
    worked_at(1.5)


@test
def everything_is_in_its_place_at_two_pixels_to_a_point():
    worked_at(2)



if __name__ == "__main__":
    main()
