#!/usr/bin/env python3
"""copy_window_test.py PROGRAM SAMPLES SENTENCE - the window's Copy as Command.

Runs on the display it finds, beside a print server with the queues that the sentence names.  What is
typed in the window is asked for without one as well, and both must be the same job.
"""

import os
import shlex
import subprocess
import sys

sys.dont_write_bytecode = True
HERE = os.path.dirname(os.path.abspath(__file__))
sys.path[:0] = [os.path.dirname(HERE), HERE + "/../../support"]
from drive import (Dialog, Failed, check, equal, options_of, run_once, wait_for,  # noqa: E402
                   xdotool)
from sentences import main, test  # noqa: E402

PROGRAM, SAMPLES = sys.argv[1], sys.argv[2]
LABEL = SAMPLES + "/label.png"
LENGTH, MARGIN = 0, 1  # the panel's entry fields from above
FIELD = "PDETextField13_v100_"
def clipboard():
    """Empty while nobody has copied anything."""
    return subprocess.run(["xclip", "-o", "-selection", "clipboard"], capture_output=True,
                          text=True).stdout


def copied(dialog, before):
    dialog.press(dialog.wait("Copy as Command"))
    return wait_for(lambda: clipboard() != before and clipboard(), "another command to paste")


def job_of(command):
    """(queue, title, copies, options, document) of an lp line."""
    words = iter(shlex.split(command))
    equal(next(words), "lp", "program")
    single, options = {}, []
    for word in words:
        if word == "-o":
            options.append(next(words))
        elif word in ("-d", "-t", "-n"):
            single[word] = next(words)
        else:
            equal(list(words), [], "words behind the document")
            return single, options_of(options), word
    raise Failed("no document in " + command)


def typed(dialog, index, text):
    dialog.type_into(dialog.wait(FIELD, None, index), text)


def same_by_hand_and_without_a_window(queue, lengths):
    """Each pair of margin and length is typed; none makes the panel put up its alert."""
    last = clipboard()
    with Dialog(PROGRAM, "--printer", queue, LABEL) as dialog:
        dialog.wait("Printer", queue)
        dialog.wait(FIELD, None, MARGIN)
        asked = []
        for margin, length in lengths:
            typed(dialog, MARGIN, margin)
            typed(dialog, LENGTH, length)
            if (margin, length) == lengths[-1]:
                dialog.press(dialog.wait("cell", "Speed First"))
                dialog.wait("cell", "Speed First", on=True)
                dialog.choose("Tape", "12 mm tape")
                dialog.type_into(dialog.wait("Copies", "1"), "4")
                asked = ["--set", "VnPriority=Speed", "--paper", "TC12", "--copies", "4"]
            last = copied(dialog, last)
            status, line, errors = run_once(PROGRAM, "--show-command", "--printer", queue,
                                            "--margin", margin, "--length", length, *asked, LABEL)
            equal(status, 0, "status: " + errors)
            equal(job_of(last), job_of(line), "{}: margin {}, length {}".format(queue, margin, length))
        xdotool("key", "Escape")
        dialog.end(1)
    return last


@test
def the_copied_command_is_the_job_of_the_program_without_a_window():
    last = same_by_hand_and_without_a_window(
        "tape", [("4.2", "62.5"), ("0.3", "5000")])
    same_by_hand_and_without_a_window(
        "inches", [("0.01", "100"), ("5", "7.77")])
    same_by_hand_and_without_a_window("whole", [("5", "63")])
    # The longest length and the narrowest margin.
    equal(job_of(last)[1],
          {"PageSize": "Custom.12x1000mm", "VnTapeLength": "1000.0", "VnMargin": "1.0",
           "VnPriority": "Speed", "Resolution": "300x300dpi", "VnCompress": "On"},
          "the last of the first printer")


@test
def the_copied_command_prints_what_the_window_would_after_it_has_closed():
    with Dialog(PROGRAM, "--printer", "tape", "--title", "It's a label", LABEL) as dialog:
        dialog.wait("Printer", "tape")
        typed(dialog, LENGTH, "47")
        command = copied(dialog, clipboard())
        dialog.message("The command is on the clipboard.")
        xdotool("key", "Escape")
        dialog.end(1)
    equal(clipboard(), command, "the clipboard after the window has closed")
    answer = subprocess.run(["sh", "-c", command], check=True, capture_output=True, text=True)
    check(answer.stdout.startswith("request id is tape-1 "), answer.stdout)
    folder = os.environ["PRIVATE_CUPSD_JOBS"] + "/1/"
    wait_for(lambda: os.path.isdir(folder), "the job at the print server")
    with open(folder + "options", encoding="utf-8") as options, \
            open(folder + "title", encoding="utf-8") as title:
        check("VnTapeLength=47.0" in options.read().split(), "the length is not in the job")
        equal(title.read(), "It's a label", "title")


@test
def what_cannot_be_copied_is_said_and_leaves_the_window_usable():
    with Dialog(PROGRAM, "--printer", "tape") as dialog:
        dialog.wait("Printer", "tape")
        dialog.press(dialog.wait("Copy as Command"))
        dialog.message("There is no lp command for the built-in sample label")
        dialog.choose("Printer", "Sample Tape (prints into a folder)")
        dialog.press(dialog.wait("Copy as Command"))
        dialog.message('There is no lp command for the printer "Sample Tape"')
        dialog.type_into(dialog.wait("Copies", "1"), "many")
        dialog.press(dialog.wait("Copy as Command"))
        dialog.message("The number of copies must be a whole number")
        equal(clipboard(), "", "clipboard")
        dialog.type_into(dialog.wait("Copies", "many"), "1")
        dialog.press(dialog.wait("Print"))
        dialog.end(0)
        equal(dialog.job_in_folder()["VnTapeLength"], "100.0", "length")



if __name__ == "__main__":
    main()
