#!/usr/bin/env python3
"""keyboard_test.py PROGRAM SAMPLES SENTENCE... - the window by keys alone, and what its controls are
called.  Runs on the display it finds, like dialog_test.py."""

import os
import subprocess
import sys

sys.dont_write_bytecode = True
sys.path.insert(0, os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
from dialog_test import ppd  # noqa: E402
from drive import Failed, check, equal, nudge, wait_for, xdotool  # noqa: E402
from sentences import main, test  # noqa: E402

KEYBOARD_OF_ALL = ["Printer", "Tape", "Presets", "Copies", "Settings shown"]


def press(*keys):
    for key in keys:
        xdotool("key", key)
        nudge()


def spoken(dialog):
    """What the control that has the keyboard is called; None without one."""
    found = dialog.all("Focus")
    return found[0].spoken if found else None


def wait_focus(dialog, name):
    try:
        wait_for(lambda: spoken(dialog) == name, name, patience=10)
    except Failed:
        raise Failed("the keyboard is at {!r}, not at {!r}".format(spoken(dialog), name)) from None


def goes_through(dialog, key, names):
    for name in names:
        press(key)
        wait_focus(dialog, name)


def choose_by_keys(dialog, pop_up, steps, title):
    """Opens the list under the keyboard, goes down and takes the entry."""
    press("space")
    wait_for(lambda: dialog.all("item"), "the list of " + pop_up)
    press(*["Down"] * steps)
    dialog.wait("item", title, on=True)
    press("Return")
    dialog.wait(pop_up, title)
    wait_for(lambda: not dialog.all("item"), "the list to close")


@test
def tab_goes_through_the_whole_window_and_back():
    with ppd("resolution") as dialog:
        dialog.wait("Pane", "Page Settings")
        wait_focus(dialog, "Printer")
        panel = ["Tape Length", "Tape Length", "Margin", "Margin", "Print Quality", "Resolution",
                 "Compression"]
        rest = KEYBOARD_OF_ALL[1:] + panel + ["Copy as Command", "Cancel", "Print"]
        goes_through(dialog, "Tab", rest + ["Printer"])
        goes_through(dialog, "shift+Tab", list(reversed(rest)) + ["Printer"])


@test
def tab_goes_through_the_features_and_brings_each_into_sight():
    with ppd("features", "--set", "PrintDensity=Dark", "--set",
             "Resolution=300x600dpi") as dialog:
        dialog.wait("Conflict")
        dialog.choose("Pane", "Printer Features")
        wait_focus(dialog, "Settings shown")
        bar = dialog.wait("NSScroller")
        names = ["Print Quality", "Resolution", "Compression", "Cut", "Half cut between labels",
                 "Feed after cutting", "Density", "Mirror image", "Marks: Cut line",
                 "Marks: Fold line", "Marks: Frame"]
        for name in names:
            press("Tab")
            wait_focus(dialog, name)
            focus = dialog.wait("Focus")
            check(bar.y <= focus.y and focus.y + focus.height <= bar.y + bar.height,
                  name + " is out of sight")
        # The way out of the conflict comes before the buttons of the window.
        press("Tab")
        wait_focus(dialog, 'Set Resolution to "300 x 300 dpi"')
        press("space")
        wait_for(lambda: not dialog.all("Conflict"), "the conflict to be gone")
        wait_focus(dialog, "Settings shown")


@test
def everything_that_can_be_worked_has_a_name():
    with ppd("features") as dialog:
        dialog.wait("Pane", "Page Settings")
        for pane in ("Page Settings", "Printer Features"):
            dialog.choose("Pane", pane)
            names = {}
            for control in dialog.controls():
                if control.name not in ("NSTextField", "NSScroller", "Focus", "Message",
                                        "Label Size", "Tape Used", "Document Remarks"):
                    check(control.spoken, "nameless: {}".format(control))
                    names[control.name] = control.spoken
            equal([names[n] for n in ("Printer", "Tape", "Presets", "Copies", "Copies Stepper",
                                      "Pane", "Cancel", "Print")],
                  ["Printer", "Tape", "Presets", "Copies", "Copies", "Settings shown", "Cancel",
                   "Print"], "names")


@test
def alt_and_an_underlined_letter_go_to_the_control():
    with ppd("resolution") as dialog:
        dialog.wait("Pane", "Page Settings")
        for key, name in (("alt+t", "Tape"), ("alt+r", "Presets"), ("alt+c", "Copies"),
                          ("alt+p", "Printer")):
            press(key)
            wait_focus(dialog, name)
        equal(dialog.wait("Copies").text, "1", "copies: the letter was typed")


@test
def control_and_page_down_turn_the_panes():
    with ppd("features") as dialog:
        dialog.wait("Pane", "Page Settings")
        for key, pane in (("ctrl+Next", "Printer Features"), ("ctrl+Next", "Summary"),
                          ("ctrl+Next", "Summary"), ("ctrl+Prior", "Printer Features"),
                          ("ctrl+Prior", "Page Settings"), ("ctrl+Prior", "Page Settings")):
            press(key)
            dialog.wait("Pane", pane)
        wait_focus(dialog, "Settings shown")


@test
def arrow_keys_step_the_copies():
    with ppd("resolution") as dialog:
        dialog.wait("Copies", "1")
        press("alt+c", "Up", "Up", "Up", "Down")
        dialog.wait("Copies", "3")
        dialog.wait("Copies Stepper", "3")
        press("Down", "Down", "Down")
        dialog.wait("Copies", "1")
        press("Up", "Return")
        if dialog.process.poll() is None:
            press("Return")
        dialog.end(0)
        equal(dialog.job_in_folder()["copies"], "2", "copies")


@test
def the_keyboard_stays_at_the_list_something_was_chosen_from():
    with ppd("features", "--ppd", os.path.join(sys.argv[2], "sample-tape-inches.ppd")) as dialog:
        dialog.wait("Pane", "Page Settings")
        press("alt+t")
        wait_focus(dialog, "Tape")
        at = [c.text for c in dialog.all("Tape")]
        equal(at, ["24 mm tape"], "tape")
        press("space")
        wait_for(lambda: dialog.all("item"), "the tapes")
        press("Up", "Return")
        wait_for(lambda: dialog.all("Tape")[0].text != "24 mm tape" and not dialog.all("item"),
                 "another tape")
        wait_focus(dialog, "Tape")
        # By the mouse in the middle of typing, too.
        dialog.press(dialog.wait("PDETextField13_v100_", None, 0))
        wait_focus(dialog, "Tape Length")
        dialog.choose("Tape", "12 mm tape")
        wait_focus(dialog, "Tape")
        press("alt+p")
        wait_focus(dialog, "Printer")
        choose_by_keys(dialog, "Printer", 1, "sample-tape-inches (PPD file)")
        dialog.wait("NSTextField", None, 0)
        wait_focus(dialog, "Printer")
        press("Tab")
        wait_focus(dialog, "Tape")


@test
def wrong_copies_keep_the_keyboard():
    with ppd("resolution") as dialog:
        dialog.wait("Copies", "1")
        press("alt+c")
        wait_focus(dialog, "Copies")
        dialog.type("x")
        dialog.press(dialog.wait("Print"))
        wait_for(lambda: any("x" in c.text for c in dialog.all("Message")), "the message")
        wait_focus(dialog, "Copies")
        press("2")
        dialog.wait("Copies", "2")


E_ACUTE_AND_U_DIAERESIS = ("\N{LATIN SMALL LETTER E WITH ACUTE}"
                           "\N{LATIN SMALL LETTER U WITH DIAERESIS}")


def use_a_keyboard_with_accents():
    """Before the program starts: a keyboard that changes under the keys may change their meaning."""
    subprocess.run(["setxkbmap", "-layout", "us", "-variant", "intl"], check=True)


def has_the_keyboard():
    asked = ["xdotool", "getactivewindow", "getwindowname"]
    return subprocess.run(asked, capture_output=True, check=False).stdout == b"Print Label\n"


def types_composed_letters(dialog):
    xdotool("key", "--delay", 20, "alt+c", "dead_acute", "e", "dead_diaeresis", "u")
    nudge()
    wait_for(lambda: [c.text for c in dialog.all("Copies")] == [E_ACUTE_AND_U_DIAERESIS],
             "the two letters")


@test
def an_accent_and_a_letter_make_one():
    use_a_keyboard_with_accents()
    with ppd("resolution") as dialog:
        dialog.wait("Copies", "1")
        types_composed_letters(dialog)


@test
def an_accent_typed_as_soon_as_there_is_a_window_makes_one():
    use_a_keyboard_with_accents()
    with ppd("resolution") as dialog:
        wait_for(has_the_keyboard, "the window")
        types_composed_letters(dialog)


@test
def return_prints_from_a_list_and_escape_closes():
    with ppd("resolution") as dialog:
        dialog.wait("Pane", "Page Settings")
        wait_focus(dialog, "Printer")
        press("Return")
        dialog.end(0)
        dialog.job_in_folder()
    with ppd("resolution") as dialog:
        dialog.wait("Pane", "Page Settings")
        press("alt+c")
        wait_focus(dialog, "Copies")
        xdotool("key", "Escape")
        dialog.end(1)
        check(not os.path.exists(dialog.output), "something was printed")



if __name__ == "__main__":
    main()
