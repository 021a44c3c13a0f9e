#!/usr/bin/env python3
"""long_list_test.py PROGRAM SAMPLES SENTENCE... - the list of very many tapes, opened again.

Runs on the display it finds, like dialog_test.py.
"""

import json
import os
import subprocess
import sys
import tempfile
import time

sys.dont_write_bytecode = True
sys.path.insert(0, os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
from dialog_test import NO_SERVER, PROGRAM, many_tapes, sample  # noqa: E402
from drive import Dialog, check, equal, wait_for, xdotool  # noqa: E402
from sentences import main, test  # noqa: E402


def dialog_with(*arguments):
    return Dialog(PROGRAM, *arguments, environment=NO_SERVER)


def open_at(dialog, title):
    """Opens the list by a click; the rows in sight and the one that is chosen."""
    dialog.press(dialog.wait("Tape", title))
    dialog.wait("item", title, on=True)
    return rows(dialog)


def rows(dialog):
    """The titles from above, and the chosen ones among them."""
    items = sorted(dialog.all("item"), key=lambda item: item.y)
    return [item.text for item in items], [item.text for item in items if item.on]


def titles(first, last, kind="tape"):
    return ["{} mm {}".format(number, kind) for number in range(first, last + 1)]


def closed(dialog):
    wait_for(lambda: not dialog.all("item"), "the list to close")


def go_to_the_end(dialog, title):
    """The rows in sight then, with nothing behind them."""
    xdotool("key", "End")
    dialog.wait("item", title, on=True)
    item = dialog.wait("item", title)
    xdotool("mousemove", item.x + 30, item.y + item.height // 2)
    xdotool("click", "--repeat", 3, "--delay", 40, 5)
    # The wheel has come by when a key after it has.
    for key in "Up", "Down":
        xdotool("key", key)
    dialog.wait("item", title, on=True)
    return rows(dialog)


def escape(dialog):
    xdotool("key", "Escape")
    closed(dialog)


def picture(dialog):
    """The pixels under the closed control, where the list is."""
    tape = dialog.wait("Tape")
    area = "{}x308+{}+{}".format(tape.width - 2, tape.x + 1, tape.y + tape.height + 1)
    return subprocess.run(["import", "-window", "root", "-crop", area, "rgb:-"], check=True,
                          capture_output=True).stdout


def drawn(dialog):
    """The picture once it stays the same."""
    seen = [picture(dialog)]

    def stays():
        time.sleep(0.1)
        seen.append(picture(dialog))
        return seen[-1] == seen[-2]
    wait_for(stays, "the list to be drawn")
    return seen[-1]


def looks_like(dialog, expected, what):
    wait_for(lambda: picture(dialog) == expected, what)


@test
def opened_again_it_looks_as_if_it_had_not_been_open():
    with tempfile.TemporaryDirectory() as folder:
        ppd = many_tapes(folder)
        with dialog_with("--ppd", ppd, "--paper", "T200") as dialog:
            open_at(dialog, "200 mm tape")
            expected = drawn(dialog)
        with dialog_with("--ppd", ppd, "--paper", "T100") as dialog:
            # Fourteen rows' height with the chosen one in the middle: six and a half on each side.
            around = titles(93, 107), ["100 mm tape"]
            equal(open_at(dialog, "100 mm tape"), around, "rows at first")
            first = drawn(dialog)
            check(first != expected, "two tapes look the same")
            xdotool("key", "Down")
            dialog.wait("item", "101 mm tape", on=True)
            escape(dialog)
            equal(open_at(dialog, "100 mm tape"), around, "rows after the next one was chosen")
            looks_like(dialog, first, "the next row no longer to be drawn as the chosen one")
            xdotool("key", "End")
            dialog.wait("item", "2999 mm tape", on=True)
            escape(dialog)
            equal(open_at(dialog, "100 mm tape"), around, "rows after the end was in sight")
            looks_like(dialog, first, "the list to stand where it stood")
            xdotool("key", "Home")
            item = dialog.wait("item", "0 mm tape", on=True)
            xdotool("mousemove", item.x + 30, item.y + 100)
            xdotool("click", "--repeat", 5, "--delay", 40, 5)
            dialog.wait("item", "15 mm tape")
            # A click elsewhere closes it.
            dialog.press(dialog.wait("Printer"))
            closed(dialog)
            equal(open_at(dialog, "100 mm tape"), around, "rows after the wheel was turned")
            looks_like(dialog, first, "the list to look as at first")
            xdotool("type", "--delay", 40, "200")
            dialog.wait("item", "200 mm tape", on=True)
            xdotool("key", "Return")
            closed(dialog)
            equal(open_at(dialog, "200 mm tape"), (titles(193, 207), ["200 mm tape"]),
                  "rows after another was chosen")
            looks_like(dialog, expected, "the list to look like one that is opened there")


@test
def opened_again_it_begins_a_word_of_its_own():
    with tempfile.TemporaryDirectory() as folder:
        with dialog_with("--ppd", many_tapes(folder)) as dialog:
            open_at(dialog, "7 mm tape")
            escape(dialog)
            # Quickly enough for one word.
            xdotool("key", "--delay", 30, "space", "1", "2", "Escape", "space", "3")
            dialog.wait("item", "30 mm tape", on=True)


@test
def another_printers_list_has_its_own_tapes():
    with tempfile.TemporaryDirectory() as folder:
        printers = [many_tapes(folder), many_tapes(folder, 60, "ribbon"), sample("")]
        words = [word for ppd in printers for word in ("--ppd", ppd)]
        with dialog_with(*words, "--paper", "T2990") as dialog:
            open_at(dialog, "2990 mm tape")
            escape(dialog)
            dialog.choose("Printer", "many-ribbons (PPD file)")
            equal(open_at(dialog, "7 mm ribbon"), (titles(0, 14, "ribbon"), ["7 mm ribbon"]),
                  "rows of the second printer")
            last = go_to_the_end(dialog, "59 mm ribbon")
            equal(last, (titles(46, 59, "ribbon"), ["59 mm ribbon"]), "its last rows")
            xdotool("key", "Return")
            closed(dialog)
            dialog.choose("Printer", "sample-tape (PPD file)")
            dialog.choose("Tape", "12 mm tape")  # from a menu
            dialog.choose("Printer", "many-tapes (PPD file)")
            equal(open_at(dialog, "7 mm tape"), (titles(0, 14), ["7 mm tape"]),
                  "rows of the first printer")
            last = go_to_the_end(dialog, "2999 mm tape")
            equal(last, (titles(2986, 2999), ["2999 mm tape"]), "its last rows")
            escape(dialog)
            dialog.choose("Printer", "many-ribbons (PPD file)")
            open_at(dialog, "7 mm ribbon")
            last = go_to_the_end(dialog, "59 mm ribbon")
            equal(last, (titles(46, 59, "ribbon"), ["59 mm ribbon"]), "the last rows there again")
            xdotool("key", "Up")
            dialog.wait("item", "58 mm ribbon", on=True)
            xdotool("key", "Return")
            closed(dialog)
            dialog.press(dialog.wait("Print"))
            dialog.end(0)
            # 68 points wide.
            check(dialog.job_in_folder()["PageSize"].startswith("Custom.23.99x"),
                  "the tape is not in the job: {}".format(dialog.job_in_folder()))


@test
def it_opens_at_the_tape_that_a_preset_has_brought():
    with tempfile.TemporaryDirectory() as folder:
        os.mkdir(folder + "/page-settings")
        with open(folder + "/page-settings/presets.json", "w", encoding="utf-8") as file:
            json.dump({"version": 1, "presets": [{"name": "Wide", "tape": "T500", "options": {}}]},
                      file)
        with Dialog(PROGRAM, "--ppd", many_tapes(folder),
                    environment=dict(NO_SERVER, XDG_CONFIG_HOME=folder)) as dialog:
            open_at(dialog, "7 mm tape")
            escape(dialog)
            dialog.choose("Presets", "Wide")
            equal(open_at(dialog, "500 mm tape"), (titles(493, 507), ["500 mm tape"]), "rows")


if __name__ == "__main__":
    main()
