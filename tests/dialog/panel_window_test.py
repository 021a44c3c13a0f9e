#!/usr/bin/env python3
"""panel_window_test.py PROGRAM SAMPLES SENTENCE... - tests of the panel worked by keys and mouse.

Runs on the display it finds, like dialog_test.py.  The tests of jobs find a queue for each sample
printer, named as the sample, in CUPS_SERVER and the jobs that arrived in PRIVATE_CUPSD_JOBS.
"""

import os
import re
import subprocess
import sys
import tempfile
import time

sys.dont_write_bytecode = True
HERE = os.path.dirname(os.path.abspath(__file__))
sys.path[:0] = [HERE, os.path.join(os.path.dirname(HERE), "support")]
from dialog_test import FIELD, LENGTH, MARGIN, NO_SERVER, PROGRAM, SAMPLES, arrived, ppd  # noqa: E402
from drive import PATIENCE, Dialog, check, equal, nudge, wait_for, xdotool  # noqa: E402
from ipp import job_attributes  # noqa: E402
from sentences import main, test  # noqa: E402

SLIDER = "NSSlider"
A_WHILE = 0.5  # seconds; several times as long as the dialog takes to show a change


def texts(dialog):
    """What the two entry fields show."""
    return tuple(dialog.wait(FIELD, None, index).text for index in (LENGTH, MARGIN))


def type_length(dialog, text, **how):
    dialog.type_into(dialog.wait(FIELD, None, LENGTH), text, **how)


def type_margin(dialog, text, **how):
    dialog.type_into(dialog.wait(FIELD, None, MARGIN), text, **how)


def select(dialog, *titles):
    for title in titles:
        dialog.press(dialog.wait("cell", title))
        dialog.wait("cell", title, on=True)


def alerts(dialog):
    return [c for c in dialog.controls() if c.text == "OK"]


def dismissed_once(dialog, dismiss):
    """Waits for the alert, dismisses it and makes sure that no other one follows."""
    wait_for(lambda: alerts(dialog), "the alert")
    equal(len(alerts(dialog)), 1, "alerts")
    dismiss(alerts(dialog)[0])
    wait_for(lambda: not alerts(dialog), "the alert to go")
    time.sleep(A_WHILE)
    nudge()
    time.sleep(A_WHILE)
    check(not alerts(dialog), "the alert came twice")


def active_window():
    return subprocess.run(["xdotool", "getactivewindow", "getwindowname"], text=True,
                          stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=False).stdout


def press_return(_):
    xdotool("key", "Return")
    nudge()


def settled(dialog):
    """Lets whatever is under way come to its end."""
    nudge()
    time.sleep(A_WHILE)
    check(not alerts(dialog), "there is an alert")
    return texts(dialog)


def knob(slider, value, minimum, maximum):
    """Where to take hold of a slider that stands at the value."""
    thickness = 16
    way = slider.width - thickness
    return slider.x + thickness // 2 + round(way * (value - minimum) / (maximum - minimum))


class Drag:
    """Holds the knob of a slider; lets go at the end of the with statement."""

    def __init__(self, slider, start, end):
        self.y = slider.y + slider.height // 2
        self.start, self.end = start, end

    def __enter__(self):
        xdotool("mousemove", self.start, self.y)
        time.sleep(0.1)
        xdotool("mousedown", 1)
        time.sleep(0.1)
        for step in range(1, 6):
            xdotool("mousemove", self.start + (self.end - self.start) * step // 5, self.y)
            time.sleep(0.05)
        nudge()

    def __exit__(self, *failure):
        xdotool("mouseup", 1)
        time.sleep(0.05)
        nudge()


# Typing.

@test
def a_length_above_the_maximum_becomes_the_maximum_after_tab():
    with ppd("resolution") as dialog:
        type_length(dialog, "1000.1")
        dialog.wait(FIELD, "1000.0", LENGTH)
        dialog.wait(SLIDER, "1000.000000", LENGTH)


@test
def a_length_below_the_minimum_becomes_the_minimum_after_a_click_elsewhere():
    with ppd("resolution") as dialog:
        type_length(dialog, "9.9", key=None)
        equal(settled(dialog)[LENGTH], "9.9", "length while it is typed")
        dialog.press(dialog.wait(FIELD, None, MARGIN))
        dialog.wait(FIELD, "10.0", LENGTH)
        dialog.wait(SLIDER, "10.000000", LENGTH)


@test
def return_in_a_field_checks_the_value_before_it_prints():
    with ppd("resolution") as dialog:
        type_margin(dialog, "0.5", key="Return")
        # Return ends the editing; a second one is for the window.
        if dialog.process.poll() is None:
            xdotool("key", "Return")
        dialog.end(0)
        equal(dialog.job_in_folder()["VnMargin"], "1.0", "margin")


@test
def a_typed_letter_is_refused_and_the_text_stays():
    with ppd("resolution") as dialog:
        type_length(dialog, "42", key=None)
        xdotool("type", "--delay", 40, "mm-,")
        equal(settled(dialog)[LENGTH], "42", "length after letters")
        dialog.type("5")
        dialog.wait(FIELD, "425", LENGTH)


@test
def a_second_decimal_point_is_refused():
    with ppd("resolution") as dialog:
        type_margin(dialog, "1.2", key=None)
        xdotool("type", "--delay", 40, ".")
        equal(settled(dialog)[MARGIN], "1.2", "margin after a second point")
        dialog.type("5")
        dialog.wait(FIELD, "1.25", MARGIN)
        xdotool("key", "Tab")
        nudge()
        dialog.wait(FIELD, "1.3", MARGIN)  # rounded up to tenths


@test
def delete_and_backspace_take_characters_away():
    with ppd("resolution") as dialog:
        dialog.press(dialog.wait(FIELD, "100.0", LENGTH))
        xdotool("key", "--delay", 40, "Home", "Delete")
        nudge()
        dialog.wait(FIELD, "00.0", LENGTH)
        xdotool("key", "--delay", 40, "End", "BackSpace", "BackSpace")
        nudge()
        dialog.wait(FIELD, "00", LENGTH)
        equal(settled(dialog)[LENGTH], "00", "length while it is typed")
        xdotool("key", "Tab")
        nudge()
        dialog.wait(FIELD, "10.0", LENGTH)


@test
def pasted_letters_are_refused_and_pasted_digits_are_taken():
    with ppd("resolution") as dialog:
        for cut, length in (("12x", "100.0"), ("12", "100.012")):
            # Cut from one field to its end, and pasted into another.
            dialog.type_into(dialog.wait("Copies", None), cut, key=None)
            xdotool("key", "--delay", 60, "Home", "ctrl+k")
            nudge()
            dialog.wait("Copies", "")
            dialog.press(dialog.wait(FIELD, "100.0", LENGTH))
            xdotool("key", "--delay", 60, "End", "ctrl+y")
            nudge()
            equal(settled(dialog)[LENGTH], length, "length after pasting " + cut)


# Sliders.

@test
def the_field_follows_a_dragged_length_slider():
    with ppd("resolution") as dialog:
        slider = dialog.wait(SLIDER, None, LENGTH)
        start = knob(slider, 100, 10, 1000)
        with Drag(slider, start, start + 60):
            wait_for(lambda: float(texts(dialog)[LENGTH]) > 300, "the length to follow")
        length = settled(dialog)[LENGTH]
        # 60 of the 178 points that the knob can travel are a third of 990 mm.
        check(400 < float(length) < 470, "length " + length)
        # A slider's value is in single precision.
        slider_stands_at = float(dialog.wait(SLIDER, None, LENGTH).text)
        check(abs(slider_stands_at - float(length)) < 0.001, "slider {}".format(slider_stands_at))


@test
def nothing_is_corrected_before_a_dragged_slider_is_released():
    with ppd("resolution") as dialog:
        type_margin(dialog, "20")
        dialog.wait(FIELD, "20.0", MARGIN)
        slider = dialog.wait(SLIDER, None, LENGTH)
        with Drag(slider, knob(slider, 100, 10, 1000), slider.x - 20):
            dialog.wait(FIELD, "10.0", LENGTH)
            equal(settled(dialog), ("10.0", "20.0"), "fields while the slider is held")
        dismissed_once(dialog, press_return)
        equal(texts(dialog), ("40.1", "20.0"), "fields after the alert")


@test
def an_arrow_key_moves_a_focused_slider_and_the_value_is_checked():
    with ppd("resolution") as dialog:
        type_margin(dialog, "30")
        dialog.wait(FIELD, "30.0", MARGIN)
        slider = dialog.wait(SLIDER, "100.000000", LENGTH)
        # A click at the very end gives the slider the focus and its maximum.
        with Drag(slider, knob(slider, 100, 10, 1000), slider.x + slider.width + 20):
            dialog.wait(FIELD, "1000.0", LENGTH)
        xdotool("key", "Left")
        nudge()
        # A twentieth of the range of 990 mm.
        dialog.wait(FIELD, "950.5", LENGTH)
        for _ in range(18):
            xdotool("key", "Left")
            time.sleep(0.03)
            nudge()
        dialog.wait(FIELD, "59.5", LENGTH)
        dismissed_once(dialog, press_return)
        equal(texts(dialog), ("60.1", "30.0"), "fields after the alert")


@test
def tab_goes_from_a_field_to_its_slider():
    with ppd("resolution") as dialog:
        dialog.press(dialog.wait(FIELD, "100.0", LENGTH))
        xdotool("key", "Tab")
        nudge()
        xdotool("key", "Left")
        # A twentieth of the range of 990 mm.
        equal(settled(dialog), ("50.5", "3.0"), "fields after a key on the length slider")


# The alert.

@test
def a_margin_above_half_the_length_alerts_once_and_return_dismisses_it():
    with ppd("resolution") as dialog:
        type_length(dialog, "30")
        type_margin(dialog, "15")
        equal(settled(dialog), ("30.0", "15.0"), "half the length is no reason for an alert")
        type_margin(dialog, "20")
        dismissed_once(dialog, press_return)
        # A dot of 25.4 / 300 mm counts as the least step of 0.1 mm.
        equal(texts(dialog), ("40.1", "20.0"), "fields after the alert")
        check(dialog.process.poll() is None, "Return in the alert printed")


@test
def return_before_a_script_prints_is_the_only_print():
    with open(os.path.join(SAMPLES, "sample-tape-few.ppd"), encoding="utf-8") as file:
        text = file.read()
    with tempfile.TemporaryDirectory() as room:
        path = room + "/wide-margins.ppd"
        with open(path, "w", encoding="utf-8") as file:
            # A least margin above the largest, and two of it longer than a label can be.
            file.write(text.replace('*VnMinMargin: "1.0"', '*VnMinMargin: "600.0"'))
        with Dialog(PROGRAM, "--ppd", path, "--print-at-once", environment=NO_SERVER) as dialog:
            wait_for(lambda: "Print Label" in active_window(), "the window to have the keyboard")
            time.sleep(0.1)
            deadline = time.monotonic() + PATIENCE
            while dialog.process.poll() is None:
                check(time.monotonic() < deadline, "tape-print did not end")
                xdotool("key", "Return")
                # So long that the script's own print is due when the alert's button is pressed.
                time.sleep(A_WHILE)
            dialog.end(0)
            equal(dialog.job_in_folder()["VnMargin"], "50.0", "the margin")
            equal(dialog.job_in_folder()["VnTapeLength"], "1000.0", "the length")


@test
def a_click_on_ok_dismisses_the_alert():
    with ppd("resolution") as dialog:
        type_margin(dialog, "20")
        type_length(dialog, "30")
        dismissed_once(dialog, dialog.press)
        equal(texts(dialog), ("40.1", "20.0"), "fields after the alert")
        dialog.press(dialog.wait("Print"))
        dialog.end(0)
        job = dialog.job_in_folder()
        equal((job["VnTapeLength"], job["VnMargin"]), ("40.1", "20.0"), "the job")


# What can be chosen and what cannot.

@test
def a_chosen_print_mode_is_shown_and_printed():
    with ppd("print-mode") as dialog:
        dialog.choose("NSPopUpButton", "Quality, 300 x 600 dpi")
        dialog.press(dialog.wait("Print"))
        dialog.end(0)
        equal(dialog.job_in_folder()["VnResolution"], "Q300x600", "print mode")


@test
def a_fixed_label_takes_no_edits():
    with ppd("resolution") as dialog:
        dialog.wait(FIELD, "100.0", LENGTH)
        dialog.choose("Tape", "24 x 40 mm label")
        dialog.wait(FIELD, "40.0", LENGTH)
        for index in (LENGTH, MARGIN):
            dialog.press(dialog.wait(FIELD, None, index))
            xdotool("type", "--delay", 40, "77")
            slider = dialog.wait(SLIDER, None, index)
            with Drag(slider, slider.x + slider.width // 2, slider.x + slider.width - 20):
                pass
        equal(settled(dialog), ("40.0", "3.0"), "fields")


@test
def a_network_printers_compression_takes_no_clicks():
    with ppd("network", "--device-uri", "socket://localhost:9100") as dialog:
        dialog.press(dialog.wait("cell", "Off", on=False))
        settled(dialog)
        dialog.wait("cell", "Off", on=False)
        dialog.wait("cell", "On", on=True)
        dialog.press(dialog.wait("Print"))
        dialog.end(0)
        equal(dialog.job_in_folder()["VnCompress"], "On", "compression")


# Jobs: for every sample printer, what was set and nothing else.  A tape whose length is the user's
# arrives as a page of that length.

def printed(queue, edits, **expected):
    """Makes the edits in a dialog for the queue, prints, and compares the job's options."""
    with Dialog(PROGRAM, "--printer", queue) as dialog:
        dialog.wait("Printer", queue)
        dialog.wait(FIELD, None, MARGIN)
        edits(dialog)
        dialog.press(dialog.wait("Print"))
        dialog.end(0)
        number = re.search(r"as job (\d+)\.", dialog.read_answers()).group(1)
    equal(arrived(int(number))["options"], expected, "options of " + queue)
    kept = job_attributes(number)
    equal({name: kept.get(name) for name in expected}, expected, "what the server says of the job")


@test
def every_option_arrives_as_set():
    def edits(dialog):
        type_length(dialog, "62.5")
        type_margin(dialog, "4.2")
        dialog.choose("NSPopUpButton", "Quality, 300 x 600 dpi")
        select(dialog, "Speed First", "Off")
    # The resolution rows give way to the print mode and keep the printer's default.
    printed("all", edits, PageSize="Custom.24x62.5mm", VnTapeLength="62.5", VnMargin="4.2",
            VnPriority="Speed", Resolution="300x300dpi", VnCompress="Off",
            VnResolution="Q300x600")


@test
def a_printer_with_few_options_gets_only_those():
    def edits(dialog):
        type_length(dialog, "45.5")
        type_margin(dialog, "2.5")
        dialog.choose("Tape", "12 mm tape")
        select(dialog, "Speed First", "Quality First")
    printed("few", edits, PageSize="Custom.12x45.5mm", VnTapeLength="45.5", VnMargin="2.5",
            VnPriority="Quality")


@test
def any_of_five_rows_arrives_as_chosen():
    def edits(dialog):
        type_length(dialog, "80")
        type_margin(dialog, "7.5")
        # The quality is free only beside the first resolution.
        check(not dialog.wait("cell", "Finest").enabled, "quality beside the second resolution")
        select(dialog, "150 x 150 dpi", "Finest", "High")
    printed("five-choices", edits, PageSize="Custom.24x80mm", VnTapeLength="80.0", VnMargin="7.5",
            VnPriority="Finest", Resolution="150x150dpi", VnCompress="High")


@test
def inches_arrive_in_millimetres():
    def edits(dialog):
        type_length(dialog, "2.25")
        type_margin(dialog, "0.32")
        select(dialog, "Speed First", "Off")
    # 2.25 / 0.0393701 = 57.14997 to one decimal; 0.32 / 0.0393701 = 8.12800 up to tenths.
    printed("inches", edits, PageSize="Custom.24x57.1mm", VnTapeLength="57.1", VnMargin="8.2",
            VnPriority="Speed", Resolution="300x300dpi", VnCompress="Off")


@test
def a_network_printer_keeps_its_compression():
    def edits(dialog):
        type_length(dialog, "33.3")
        type_margin(dialog, "6.05")
        dialog.press(dialog.wait("cell", "Off"))
        select(dialog, "300 x 600 dpi")
    # The second resolution takes the first quality; a margin goes up to tenths.
    printed("network", edits, PageSize="Custom.24x33.3mm", VnTapeLength="33.3", VnMargin="6.1",
            VnPriority="Speed", Resolution="300x600dpi", VnCompress="On")


@test
def a_printer_without_options_gets_tape_and_length_alone():
    def edits(dialog):
        type_length(dialog, "55")
        # A printer that states no limits has none above zero.
        dialog.wait(FIELD, "0.0", LENGTH)
        dialog.choose("Tape", "12 mm tape")
    printed("none", edits, PageSize="TC12", VnTapeLength="0.0")


@test
def a_print_mode_arrives_without_resolution_or_quality():
    def edits(dialog):
        type_length(dialog, "120.5")
        type_margin(dialog, "10.5")
        dialog.choose("NSPopUpButton", "Quality, 300 x 300 dpi")
        # Compression goes with the resolution option, which this printer lacks.
        dialog.press(dialog.wait("cell", "Off"))
    printed("print-mode", edits, PageSize="Custom.24x120.5mm", VnTapeLength="120.5",
            VnMargin="10.5", VnCompress="On", VnResolution="Q300x300")


@test
def values_outside_the_limits_arrive_as_the_limits():
    def edits(dialog):
        dialog.choose("Tape", "18 mm tape")
        type_length(dialog, "5000")
        type_margin(dialog, "0.5")
        select(dialog, "Quality First", "300 x 600 dpi", "Off")
    printed("resolution", edits, PageSize="Custom.18x1000mm", VnTapeLength="1000.0", VnMargin="1.0",
            VnPriority="Speed", Resolution="300x600dpi", VnCompress="Off")


@test
def a_length_made_longer_for_its_margins_arrives():
    def edits(dialog):
        select(dialog, "360 x 720 dpi", "Off")
        type_length(dialog, "30")
        type_margin(dialog, "20")
        dismissed_once(dialog, press_return)
    printed("three-resolutions", edits, PageSize="Custom.24x40.1mm", VnTapeLength="40.1",
            VnMargin="20.0", VnPriority="Speed", Resolution="360x720dpi", VnCompress="Off")


@test
def whole_numbers_arrive_rounded_up():
    def edits(dialog):
        dialog.choose("Tape", "9 mm tape")
        type_length(dialog, "62.5")
        type_margin(dialog, "4.2")
        select(dialog, "Speed First", "300 x 600 dpi", "300 x 300 dpi", "Off")
    printed("whole", edits, PageSize="Custom.9x63mm", VnTapeLength="63", VnMargin="5",
            VnPriority="Speed", Resolution="300x300dpi", VnCompress="Off")


@test
def a_fixed_label_arrives_with_its_own_length():
    def edits(dialog):
        dialog.choose("Tape", "24 x 40 mm label")
        dialog.wait(FIELD, "40.0", LENGTH)
        dialog.press(dialog.wait(FIELD, None, LENGTH))
        xdotool("type", "--delay", 40, "77")
        select(dialog, "Speed First", "Off")
    printed("zr", edits, PageSize="DC24x40", VnTapeLength="40.0", VnMargin="3.0",
            VnPriority="Speed", Resolution="300x300dpi", VnCompress="Off")



if __name__ == "__main__":
    main()
