#!/usr/bin/env python3
"""features_window_test.py PROGRAM SAMPLES SENTENCE... - the printer's features worked by mouse and
keys.  Runs on the display it finds, like dialog_test.py."""

import os
import sys
import tempfile

sys.dont_write_bytecode = True
sys.path.insert(0, os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
from dialog_test import NO_SERVER, PROGRAM, ppd, sample  # noqa: E402
from drive import check, equal, nudge, options_of, run_once, wait_for, xdotool  # noqa: E402
from sentences import main, test  # noqa: E402


def feature(keyword):
    return "Feature " + keyword


def show(dialog, pane):
    dialog.choose("Pane", pane)


def scroll_to(dialog, keyword):
    """Turns the wheel over the pane until all of the control can be seen."""
    scroller = dialog.wait("NSScroller")
    xdotool("mousemove", scroller.x - 40, scroller.y + 100)

    def seen():
        control = dialog.wait(feature(keyword))
        if control.y < scroller.y:
            xdotool("click", 4)
        elif control.y + control.height > scroller.y + scroller.height:
            xdotool("click", 5)
        else:
            return True
        return False
    wait_for(seen, feature(keyword) + " to be in sight")


def press_box(dialog, keyword, on):
    dialog.press(dialog.wait(feature(keyword)))
    dialog.wait(feature(keyword), on=on)


def no_conflict(dialog):
    wait_for(lambda: not dialog.all("Conflict"), "the conflict to be gone")


def printed(dialog):
    dialog.press(dialog.wait("Print"))
    dialog.end(0)
    return dialog.job_in_folder()


@test
def a_feature_chosen_in_the_pane_is_in_the_job_and_the_summary():
    with ppd("features") as dialog:
        dialog.wait("Pane", "Page Settings")
        show(dialog, "Printer Features")
        dialog.choose(feature("TapeCut"), "After the last label")
        press_box(dialog, "HalfCut", on=True)
        show(dialog, "Summary")
        wait_for(lambda: any(c.text == "After the last label" for c in dialog.controls()),
                 "the choice in the summary")
        check(any(c.text == "Half cut between labels:" for c in dialog.controls()),
              "the half cut is not in the summary")
        check(not any(c.text == "Density:" for c in dialog.controls()),
              "what was not chosen is in the summary")
        job = printed(dialog)
        equal({key: job.get(key) for key in ("TapeCut", "HalfCut", "PrintDensity")},
              {"TapeCut": "LastLabel", "HalfCut": "True", "PrintDensity": None}, "options")


@test
def a_choice_of_the_panels_made_in_the_features_reaches_the_panel():
    with ppd("features") as dialog:
        dialog.wait("cell", "On", on=True)
        show(dialog, "Printer Features")
        dialog.choose(feature("VnCompress"), "Off")
        dialog.choose(feature("Resolution"), "300 x 600 dpi")
        # The second resolution takes the first quality.
        dialog.wait(feature("VnPriority"), "Speed First")
        show(dialog, "Page Settings")
        dialog.wait("cell", "Off", on=True)
        dialog.wait("cell", "300 x 600 dpi", on=True)
        check(not dialog.wait("cell", "Quality First").enabled, "the quality is not greyed")
        job = printed(dialog)
        equal({key: job[key] for key in ("VnCompress", "Resolution", "VnPriority")},
              {"VnCompress": "Off", "Resolution": "300x600dpi", "VnPriority": "Speed"}, "options")


@test
def a_choice_made_in_the_panel_shows_in_the_features():
    with ppd("features") as dialog:
        dialog.press(dialog.wait("cell", "300 x 600 dpi"))
        dialog.wait("cell", "300 x 600 dpi", on=True)
        show(dialog, "Printer Features")
        dialog.wait(feature("Resolution"), "300 x 600 dpi")
        dialog.wait(feature("VnPriority"), "Speed First")


@test
def a_choice_that_the_panel_gives_up_is_said():
    with ppd("features", "--set", "Resolution=300x600dpi") as dialog:
        dialog.wait("cell", "300 x 600 dpi", on=True)
        show(dialog, "Printer Features")
        dialog.wait(feature("VnPriority"), "Speed First")
        dialog.pick(feature("VnPriority"), "Quality First")
        dialog.message('With the other settings Print Quality stays "Speed First".')
        dialog.wait(feature("VnPriority"), "Speed First")
        equal(printed(dialog)["VnPriority"], "Speed", "quality")


@test
def several_marks_go_with_the_job_together():
    with ppd("features", "--set", "LabelMarks=FoldMark,Frame") as dialog:
        show(dialog, "Printer Features")
        boxes = [dialog.wait(feature("LabelMarks " + mark)).on
                 for mark in ("CutMark", "FoldMark", "Frame")]
        equal(boxes, [False, True, True], "marks")
        equal(printed(dialog)["LabelMarks"], "FoldMark,Frame", "marks in the job")


@test
def a_conflict_is_said_with_both_names_and_ends_with_one_press():
    with ppd("features", "--set", "PrintDensity=Dark") as dialog:
        dialog.wait("cell", "300 x 300 dpi", on=True)
        check(not dialog.all("Conflict"), "there is a conflict already")
        dialog.press(dialog.wait("cell", "300 x 600 dpi"))
        dialog.wait("Conflict", 'Resolution "300 x 600 dpi" does not go with Density "Dark".')
        # What was chosen last stays.
        dialog.press(dialog.wait("Resolve", 'Set Density to "Normal"'))
        no_conflict(dialog)
        dialog.wait("cell", "300 x 600 dpi", on=True)
        show(dialog, "Printer Features")
        dialog.wait(feature("Resolution"), "300 x 600 dpi")
        # The other way round: the density is chosen last, and the panel's resolution gives way.
        scroll_to(dialog, "PrintDensity")
        dialog.choose(feature("PrintDensity"), "Dark")
        dialog.press(dialog.wait("Resolve", 'Set Resolution to "300 x 300 dpi"'))
        no_conflict(dialog)
        dialog.wait(feature("Resolution"), "300 x 300 dpi")
        show(dialog, "Page Settings")
        dialog.wait("cell", "300 x 300 dpi", on=True)
        job = printed(dialog)
        equal((job["Resolution"], job["PrintDensity"]), ("300x300dpi", "Dark"), "options")


@test
def a_conflict_holds_the_print_back_until_it_is_resolved():
    with ppd("features", "--set", "PrintDensity=Dark", "--set",
             "Resolution=300x600dpi") as dialog:
        sentence = 'Resolution "300 x 600 dpi" does not go with Density "Dark".'
        dialog.wait("Conflict", sentence)
        dialog.press(dialog.wait("Print"))
        dialog.message("Not printed: " + sentence)
        check(not os.path.exists(dialog.output), "something was printed")
        dialog.press(dialog.wait("Resolve"))
        no_conflict(dialog)
        dialog.wait("Message", "")
        printed(dialog)


@test
def a_conflict_with_the_tape_is_said_when_the_tape_changes():
    with ppd("features", "--set", "HalfCut=True") as dialog:
        dialog.wait("cell", "On", on=True)
        dialog.choose("Tape", "6 mm tape")
        dialog.wait("Conflict",
                    'Half cut between labels "Yes" does not go with Tape "6 mm tape".')
        dialog.wait("Resolve", 'Set Half cut between labels to "No"')
        dialog.choose("Tape", "12 mm tape")
        no_conflict(dialog)
        equal(printed(dialog)["HalfCut"], "True", "half cut")


@test
def a_conflict_of_a_script_ends_with_its_sentence_and_status():
    with tempfile.TemporaryDirectory() as folder:
        status, _, errors = run_once(PROGRAM, "--ppd", sample("many-features"), "--print-at-once",
                                     "--output", folder + "/out", "--set", "ChainPrint=True",
                                     "--set", "CutDepth=Half", "--set", "TapeSaver=Both",
                                     environment=NO_SERVER)
        equal(os.listdir(folder), [], "what was printed")
    equal(status, 10, "exit status")
    sentence = ('Not printed: Chain printing "Yes" does not go with Depth of the cut "Tape alone"'
                ' and Tape saver "Shorter lead and end".')
    check(sentence in errors, "not said: " + errors)


@test
def without_a_window_a_conflict_is_refused_by_sentence_status_and_way_out():
    with tempfile.TemporaryDirectory() as folder:
        job = ["--ppd", sample("features"), "--output", folder + "/out",
               "--set", "LabelMarks=FoldMark,Frame", "--set", "PrintDensity=Dark"]
        surroundings = {**NO_SERVER, "DISPLAY": ""}
        for task in ("--print", "--dry-run"):
            status, output, errors = run_once(PROGRAM, task, *job, "--set",
                                              "Resolution=300x600dpi", environment=surroundings)
            equal((status, output), (10, ""), "status and answer of " + task)
            equal(errors, 'tape-print: Not printed: Resolution "300 x 600 dpi" does not go with '
                          'Density "Dark". A way out: --set PrintDensity=Normal\n', "sentence")
        check(not os.path.exists(folder + "/out"), "something was printed")
        status, _, errors = run_once(PROGRAM, "--print", *job, environment=surroundings)
        equal((status, errors), (0, ""), "without the conflict")
        with open(folder + "/out/job-1/options", encoding="utf-8") as file:
            printed_with = options_of(file.read().splitlines())
        equal((printed_with["LabelMarks"], printed_with["PrintDensity"]),
              ("FoldMark,Frame", "Dark"), "options")


@test
def a_printer_without_features_has_no_pane_for_them():
    with ppd("none") as dialog:
        pane = dialog.wait("Pane", "Page Settings")
        xdotool("mousemove", pane.x + 60, pane.y + pane.height // 2, "mousedown", 1)
        nudge()
        wait_for(lambda: dialog.all("item"), "the list of panes")
        equal([c.text for c in dialog.all("item")], ["Page Settings", "Summary"], "panes")
        xdotool("mouseup", 1)



if __name__ == "__main__":
    main()
