#!/usr/bin/env python3
"""presets_test.py PROGRAM SAMPLES SENTENCE - one test of what the dialog remembers.

Runs on the display it finds, like dialog_test.py.
"""

import json
import os
import sys
import tempfile

sys.dont_write_bytecode = True
sys.path.insert(0, os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
from dialog_test import (FIELD, LENGTH, MARGIN, NO_SERVER, PROGRAM, ppd, refused,  # noqa: E402
                         sample)
from drive import check, equal, nudge, options_of, run_once, wait_for, xdotool  # noqa: E402
from sentences import main, test  # noqa: E402

NAME = "PresetNameField"


class Room(tempfile.TemporaryDirectory):
    """A configuration folder that several dialogs have in common."""

    def __enter__(self):
        super().__enter__()
        self.file = self.name + "/page-settings/presets.json"
        self.environment = dict(NO_SERVER, XDG_CONFIG_HOME=self.name)
        return self

    def dialog(self, name, *arguments):
        return ppd(name, *arguments, environment=self.environment)

    def kept(self):
        with open(self.file, encoding="utf-8") as file:
            return json.load(file)

    def presets(self):
        return {preset["name"]: preset for preset in self.kept()["presets"]}

    def keep(self, text):
        os.mkdir(os.path.dirname(self.file))
        with open(self.file, "w", encoding="utf-8") as file:
            file.write(text if isinstance(text, str) else json.dumps(text))


def preset(name, tape, **options):
    return {"version": 1, "presets": [{"name": name, "tape": tape, "options": options}]}


def type_length(dialog, text):
    dialog.type_into(dialog.wait(FIELD, None, LENGTH), text)


def print_it(dialog):
    dialog.press(dialog.wait("Print"))
    dialog.end(0)
    return dialog.job_in_folder()


def cancel(dialog):
    xdotool("key", "Escape")
    dialog.end(1)


def type_name(dialog, text):
    """Types a name over the one that is there and takes it."""
    before = dialog.wait(NAME).text
    xdotool("key", "--delay", 20, "End", *["BackSpace"] * len(before))
    nudge()
    dialog.wait(NAME, "")
    if text:
        dialog.type(text)
        dialog.wait(NAME, text)
    xdotool("key", "Return")
    nudge()


def said(dialog, sentence):
    wait_for(lambda: any(c.text == sentence for c in dialog.controls()), sentence)


def name_panel_closes(dialog):
    wait_for(lambda: not dialog.all(NAME), "the panel to close")


def save_as(dialog, name):
    dialog.pick("Presets", "Save As...")
    type_name(dialog, name)
    name_panel_closes(dialog)
    dialog.wait("Presets", name)


@test
def the_last_values_come_back_with_the_printer_and_tape_they_were_used_with():
    with Room() as room:
        with room.dialog("resolution") as dialog:
            dialog.wait("Presets", "Default Settings")
            type_length(dialog, "62.5")
            dialog.press(dialog.wait("cell", "300 x 600 dpi"))
            dialog.wait("Presets", "Default Settings (changed)")
            print_it(dialog)
        with room.dialog("resolution", "--ppd", sample("inches")) as dialog:
            dialog.wait("Presets", "Last Used")
            dialog.wait(FIELD, "62.5", LENGTH)
            dialog.wait("cell", "300 x 600 dpi", on=True)
            # Nothing is known of this tape: what is set stays.
            dialog.choose("Tape", "12 mm tape")
            dialog.wait("Presets", "Last Used (changed)")
            dialog.wait(FIELD, "62.5", LENGTH)
            type_length(dialog, "40")
            equal(print_it(dialog)["VnTapeLength"], "40.0", "length")
        with room.dialog("resolution", "--ppd", sample("inches"), "--copies", "2") as dialog:
            dialog.wait("Tape", "12 mm tape")
            dialog.wait(FIELD, "40.0", LENGTH)
            dialog.choose("Tape", "24 mm tape")
            dialog.wait(FIELD, "62.5", LENGTH)
            dialog.wait("Presets", "Last Used")
            dialog.choose("Printer", "sample-tape-inches (PPD file)")
            dialog.wait("Presets", "Default Settings")
            dialog.wait(FIELD, "3.94", LENGTH)  # 100 mm
            dialog.choose("Printer", "sample-tape-resolution (PPD file)")
            dialog.wait(FIELD, "40.0", LENGTH)
            job = print_it(dialog)
            equal((job["PageSize"], job["VnTapeLength"], job["Resolution"], job["copies"]),
                  ("Custom.12x40mm", "40.0", "300x600dpi", "2"), "job")
        with room.dialog("resolution") as dialog:
            dialog.wait(FIELD, "40.0", LENGTH)
            dialog.wait("Copies", "1")
            cancel(dialog)


@test
def a_closed_dialog_keeps_nothing():
    with Room() as room:
        with room.dialog("resolution") as dialog:
            type_length(dialog, "62.5")
            cancel(dialog)
        check(not os.path.exists(room.file), "something was kept")


@test
def presets_are_saved_renamed_and_deleted():
    with Room() as room, room.dialog("resolution") as dialog:
        dialog.wait("Presets", "Default Settings")
        type_length(dialog, "62.5")
        dialog.pick("Presets", "Save As...")
        type_name(dialog, "   ")
        said(dialog, "Give the preset a name.")
        type_name(dialog, "x" * 61)
        said(dialog, "The name may have at most 60 letters.")
        type_name(dialog, "Last Used")
        said(dialog, '"Last Used" is the name of another entry of the list; '
                     'choose another name.')
        type_name(dialog, "Cables")
        name_panel_closes(dialog)
        dialog.wait("Presets", "Cables")
        equal(room.presets()["Cables"]["options"]["VnTapeLength"], "62.5", "length")

        type_length(dialog, "70")
        dialog.wait("Presets", "Cables (changed)")
        dialog.pick("Presets", "Save As...")
        type_name(dialog, "Cables")
        said(dialog, 'There is already a preset named "Cables".')
        # Once more is a replacement, another name is not.
        said(dialog, "Replace")
        xdotool("key", "End", "s")
        nudge()
        dialog.wait(NAME, "Cabless")
        check(not any(c.text == "Replace" for c in dialog.controls()), "still a replacement")
        equal(room.presets()["Cables"]["options"]["VnTapeLength"], "62.5", "length")
        type_name(dialog, "Cables")
        said(dialog, "Replace")
        xdotool("key", "Return")
        nudge()
        name_panel_closes(dialog)
        dialog.wait("Presets", "Cables")
        equal(room.presets()["Cables"]["options"]["VnTapeLength"], "70.0", "length")

        save_as(dialog, "Shelves")
        dialog.pick("Presets", "Rename...")
        dialog.wait(NAME, "Shelves")
        type_name(dialog, "Cables")
        said(dialog, 'There is already a preset named "Cables".')
        type_name(dialog, "Boxes")
        name_panel_closes(dialog)
        dialog.wait("Presets", "Boxes")
        equal(sorted(room.presets()), ["Boxes", "Cables"], "presets")

        dialog.pick("Presets", "Delete...")
        said(dialog, 'Delete the preset "Boxes"?')
        xdotool("key", "Escape")
        nudge()
        wait_for(lambda: not any(c.text == "Delete" for c in dialog.controls()), "the end")
        equal(sorted(room.presets()), ["Boxes", "Cables"], "presets")
        dialog.pick("Presets", "Delete...")
        said(dialog, 'Delete the preset "Boxes"?')
        xdotool("key", "Return")
        nudge()
        dialog.wait("Presets", "Default Settings (changed)")
        equal(sorted(room.presets()), ["Cables"], "presets")
        cancel(dialog)


@test
def a_chosen_preset_brings_its_values_and_the_defaults_take_them_away():
    with Room() as room:
        room.keep(preset("Käbel", "TC12", VnTapeLength="45.5", VnMargin="2.5",
                         Resolution="300x600dpi", VnCompress="Off"))
        with room.dialog("resolution") as dialog:
            dialog.choose("Presets", "Käbel")
            dialog.wait("Tape", "12 mm tape")
            dialog.wait(FIELD, "45.5", LENGTH)
            dialog.wait(FIELD, "2.5", MARGIN)
            dialog.wait("cell", "300 x 600 dpi", on=True)
            dialog.wait("cell", "Off", on=True)
            dialog.choose("Presets", "Default Settings")
            dialog.wait("Tape", "24 mm tape")
            dialog.wait(FIELD, "100.0", LENGTH)
            dialog.wait(FIELD, "3.0", MARGIN)
            dialog.wait("cell", "300 x 300 dpi", on=True)
            dialog.choose("Presets", "Käbel")
            dialog.wait(FIELD, "45.5", LENGTH)
            equal(print_it(dialog)["VnMargin"], "2.5", "margin")
        with room.dialog("inches") as dialog:
            dialog.choose("Presets", "Käbel")
            dialog.wait(FIELD, "1.79", LENGTH)  # 45.5 mm
            cancel(dialog)


@test
def what_does_not_fit_is_said():
    with Room() as room:
        room.keep(preset("Big", "TC36", VnTapeLength="2000", Resolution="9x9dpi",
                         VnCompress="Off"))
        with room.dialog("resolution") as dialog:
            dialog.choose("Presets", "Big")
            dialog.message('Not everything in "Big" fits this printer: Tape TC36 is left out; '
                           'Resolution 9x9dpi is left out; '
                           'Tape Length 2000 mm became 1000.0 mm.')
            dialog.wait("Tape", "24 mm tape")
            dialog.wait(FIELD, "1000.0", LENGTH)
            dialog.wait("cell", "Off", on=True)
            dialog.press(dialog.wait("NSSlider", None, LENGTH))
            dialog.wait("Presets", "Big (changed)")
            cancel(dialog)


@test
def a_preset_is_chosen_by_keys_alone():
    with Room() as room:
        room.keep(preset("Cables", "TC12", VnTapeLength="45.5"))
        with room.dialog("resolution") as dialog:
            dialog.wait("Presets", "Default Settings")
            xdotool("key", "--delay", 100, "Tab", "Tab", "space")
            wait_for(lambda: dialog.all("item"), "the list of presets")
            xdotool("key", "--delay", 100, "Down", "Down", "Return")
            nudge()
            dialog.wait("Presets", "Cables")
            dialog.wait(FIELD, "45.5", LENGTH)
            # The pop-up still has the keyboard.
            xdotool("key", "--delay", 100, "space")
            wait_for(lambda: dialog.all("item"), "the list of presets")
            xdotool("key", "--delay", 100, "Escape")
            wait_for(lambda: not dialog.all("item"), "the list to close")
            cancel(dialog)


@test
def the_command_line_wins_over_the_last_values():
    with Room() as room:
        with room.dialog("resolution") as dialog:
            type_length(dialog, "62.5")
            dialog.type_into(dialog.wait(FIELD, None, MARGIN), "4.2")
            print_it(dialog)
        with room.dialog("resolution", "--set", "VnTapeLength=48") as dialog:
            dialog.wait(FIELD, "48.0", LENGTH)
            dialog.wait(FIELD, "4.2", MARGIN)
            dialog.wait("Presets", "Last Used")
            cancel(dialog)
        with room.dialog("resolution", "--no-memory") as dialog:
            dialog.wait(FIELD, "100.0", LENGTH)
            dialog.wait("Presets", "Default Settings")
            print_it(dialog)
        with room.dialog("resolution") as dialog:
            dialog.wait(FIELD, "62.5", LENGTH)
            cancel(dialog)


def print_at_once(room, *arguments):
    status, _, errors = run_once(PROGRAM, "--ppd", sample("resolution"), "--print-at-once",
                                 "--output", room.name + "/out", *arguments,
                                 environment=room.environment)
    equal((status, errors), (0, ""), "end")
    with open(room.name + "/out/job-1/options", encoding="utf-8") as file:
        return options_of(file.read().splitlines())


@test
def a_script_neither_takes_nor_keeps_last_values():
    with Room() as room:
        with room.dialog("resolution") as dialog:
            type_length(dialog, "62.5")
            print_it(dialog)
        before = room.kept()
        equal(print_at_once(room)["VnTapeLength"], "100.0", "length")
        equal(room.kept(), before, "what is kept")


@test
def a_script_prints_a_preset():
    with Room() as room:
        room.keep(preset("Cables", "TC12", VnTapeLength="45.5", VnMargin="2.5"))
        job = print_at_once(room, "--preset", "Cables", "--set", "VnMargin=5")
        equal((job["VnTapeLength"], job["VnMargin"]), ("45.5", "5.0"), "lengths")
        refused(["--ppd", sample("resolution"), "--preset", "Cable"], 2,
                'There is no preset named "Cable".', environment=room.environment)


@test
def a_script_gets_no_job_that_its_preset_does_not_fit():
    with Room() as room:
        room.keep(preset("Big", "TC36", VnTapeLength="45.5"))
        refused(["--ppd", sample("resolution"), "--preset", "Big"], 8,
                'Not everything in "Big" fits this printer: Tape TC36 is left out.',
                environment=room.environment)


@test
def a_damaged_file_is_set_aside_and_said():
    with Room() as room:
        room.keep('{"version": 1, "presets": [')
        with room.dialog("resolution") as dialog:
            dialog.message('The presets in "{0}" were damaged; the file is now "{0}.damaged".'
                           .format(room.file))
            with open(room.file + ".damaged", encoding="utf-8") as file:
                equal(file.read(), '{"version": 1, "presets": [', "the damaged file")
            save_as(dialog, "Cables")
            equal(list(room.presets()), ["Cables"], "presets")
            cancel(dialog)


@test
def values_that_cannot_be_kept_are_said_and_printed():
    with Room() as room:
        with open(room.name + "/page-settings", "w", encoding="utf-8"):
            pass
        sentence = 'Presets and last values cannot be kept in "{}": Not a directory.'.format(
            room.file)
        with room.dialog("resolution") as dialog:
            dialog.wait("Presets", "Default Settings")
            dialog.pick("Presets", "Save As...")
            type_name(dialog, "Cables")
            said(dialog, sentence)
            xdotool("key", "Escape")
            nudge()
            name_panel_closes(dialog)
            print_it(dialog)
            equal(dialog.read_errors().count(sentence), 1, "times it is said")


@test
def two_dialogs_at_once_keep_both_presets():
    with Room() as room, room.dialog("resolution") as one:
        one.wait("Presets", "Default Settings")
        save_as(one, "Cables")
        # The second is in front of the first from now on.
        with room.dialog("resolution") as two:
            two.wait("Presets", "Default Settings")
            save_as(two, "Shelves")
            equal(sorted(room.presets()), ["Cables", "Shelves"], "presets")
            cancel(two)
        save_as(one, "Boxes")
        equal(sorted(room.presets()), ["Boxes", "Cables", "Shelves"], "presets")
        one.choose("Presets", "Shelves")
        cancel(one)



if __name__ == "__main__":
    main()
