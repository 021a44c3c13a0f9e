#!/usr/bin/env python3
"""dialog_test.py PROGRAM SAMPLES SENTENCE - one test of the running dialog.

Runs on the display it finds.  Tests of jobs at a print server find the server's address in
CUPS_SERVER and the jobs that arrived in PRIVATE_CUPSD_JOBS.
"""

import os
import shlex
import subprocess
import sys
import tempfile
import time

sys.dont_write_bytecode = True
sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from drive import (Dialog, check, equal, options_of, picture_of, run_once, wait_for,  # noqa: E402
                   xdotool)
from sentences import main, test  # noqa: E402

PROGRAM, SAMPLES = sys.argv[1], sys.argv[2]
LENGTH, MARGIN = 0, 1  # the panel's entry fields from above
FIELD = "PDETextField13_v100_"
# Nobody listens at port 1: no test here may meet the machine's own print server.
NO_SERVER = {"CUPS_SERVER": "127.0.0.1:1"}
def sample(name):
    return "{}/sample-tape{}.ppd".format(SAMPLES, name and "-" + name)


def ppd(name, *arguments, **settings):
    settings.setdefault("environment", NO_SERVER)
    return Dialog(PROGRAM, "--ppd", sample(name), *arguments, **settings)


def arrived(number=1):
    """The job's options, without those that the server itself adds, its title and its document."""
    folder = "{}/{}/".format(os.environ["PRIVATE_CUPSD_JOBS"], number)
    wait_for(lambda: os.path.isdir(folder), "job {} at the print server".format(number))
    texts = {}
    for name in ("options", "title", "copies", "document"):
        with open(folder + name, "rb") as file:
            texts[name] = file.read()
    words = shlex.split(texts["options"].decode("utf-8"))
    own = ("job-uuid", "job-originating-host-name", "date-time-at-", "time-at-", "document-name")
    texts["options"] = options_of(w for w in words if not w.startswith(own))
    return texts


def refused(arguments, status, *sentences, environment=None):
    with tempfile.TemporaryDirectory() as folder:
        found, _, errors = run_once(PROGRAM, "--print-at-once", "--output", folder + "/out",
                                    *arguments, environment=environment or NO_SERVER)
        equal(os.listdir(folder), [], "what was printed")
    equal(found, status, "exit status")
    for sentence in sentences:
        check(sentence in errors, "{!r} is not in {!r}".format(sentence, errors))


# What the window shows and does.

@test
def edits_by_keys_and_mouse_end_as_options_in_the_folder():
    with ppd("resolution") as dialog:
        dialog.type_into(dialog.wait(FIELD, "100.0", LENGTH), "62.5")
        dialog.type_into(dialog.wait(FIELD, "3.0", MARGIN), "4.2")
        dialog.press(dialog.wait("cell", "300 x 600 dpi"))
        dialog.wait("cell", "300 x 600 dpi", on=True)
        wait_for(lambda: not dialog.wait("cell", "Speed First").enabled,
                 "the quality to be greyed by the second resolution")
        dialog.press(dialog.wait("cell", "Off"))
        dialog.wait("cell", "Off", on=True)
        dialog.press(dialog.wait("Print"))
        dialog.end(0)
        # The second resolution takes the first quality.
        equal(dialog.job_in_folder(),
              {"PageSize": "Custom.24x62.5mm", "VnTapeLength": "62.5", "VnMargin": "4.2",
               "VnPriority": "Speed", "Resolution": "300x600dpi", "VnCompress": "Off"},
              "options")
        check("Printed into the folder" in dialog.read_answers(), "the answer names no folder")
        equal(dialog.read_errors(), "", "what was complained of")


@test
def pressing_print_takes_the_field_being_typed_in():
    with ppd("resolution") as dialog:
        dialog.type_into(dialog.wait(FIELD, "100.0", LENGTH), "40", key=None)
        dialog.press(dialog.wait("Print"))
        dialog.end(0)
        equal(dialog.job_in_folder()["VnTapeLength"], "40.0", "length")


@test
def return_in_a_field_prints():
    with ppd("resolution") as dialog:
        dialog.type_into(dialog.wait(FIELD, "100.0", LENGTH), "41", key="Return")
        # Return ends the editing; a second one is for the window.
        if dialog.process.poll() is None:
            xdotool("key", "Return")
        dialog.end(0)
        equal(dialog.job_in_folder()["VnTapeLength"], "41.0", "length")


@test
def escape_closes_without_a_job():
    with ppd("resolution") as dialog:
        dialog.wait("Print")
        xdotool("key", "Escape")
        dialog.end(1)
        check(not os.path.exists(dialog.output), "something was printed")


# Below the five seconds that the toolkit waits for a pasteboard server.
IN_TIME = 3


@test
def a_field_takes_focus_and_keys_at_once():
    """Nothing may hold the window up when a field gets the focus."""
    with ppd("resolution") as dialog:
        copies = dialog.wait("Copies", "1")
        before = picture_of(copies)
        # Printer, Tape, Presets, Copies.
        for _ in range(3):
            xdotool("key", "Tab")
            time.sleep(0.1)
        wait_for(lambda: picture_of(copies) != before, "the ring around the field", IN_TIME)
        for key, text in (("7", "7"), ("3", "73")):
            xdotool("key", key)
            wait_for(lambda: any(c.text == text for c in dialog.all("Copies")),
                     "the field to show " + text, IN_TIME)
        # Pane, the length.
        length = dialog.wait(FIELD, "100.0", LENGTH)
        before = picture_of(length)
        for _ in range(2):
            xdotool("key", "Tab")
            time.sleep(0.1)
        wait_for(lambda: picture_of(length) != before, "the ring around the length", IN_TIME)
        xdotool("key", "4")
        wait_for(lambda: any(c[:3] == length[:3] and c.text == "4" for c in dialog.controls()),
                 "the length to show 4", IN_TIME)
        xdotool("key", "Escape")
        dialog.end(1)


@test
def many_starts_in_a_row_neither_hang_nor_die():
    with tempfile.TemporaryDirectory() as folder:
        for number in range(1, 16):
            status, _, errors = run_once(PROGRAM, "--print-at-once", "--output", folder,
                                         environment=NO_SERVER)
            equal((status, errors), (0, ""), "end of start {}".format(number))


@test
def escape_closes_an_open_list_alone():
    with ppd("resolution") as dialog:
        dialog.wait("Tape", "24 mm tape")
        for name in ("Tape", "Pane"):
            xdotool("key", "Tab")
            if name == "Pane":
                xdotool("key", "--delay", 100, "Tab", "Tab")
            time.sleep(0.1)
            xdotool("key", "space")
            wait_for(lambda: dialog.all("item"), "the list of " + name)
            xdotool("key", "Escape")
            wait_for(lambda: not dialog.all("item"), "the list to close")
            check(dialog.process.poll() is None, "Escape in the list ended the dialog")
        # A list held open by the mouse.
        tape = dialog.wait("Tape", "24 mm tape")
        xdotool("mousemove", tape.x + 60, tape.y + tape.height // 2)
        xdotool("mousedown", 1)
        wait_for(lambda: dialog.all("item"), "the list to open")
        xdotool("key", "Escape")
        xdotool("mousemove", 2, 2)
        time.sleep(0.2)
        xdotool("mouseup", 1)
        wait_for(lambda: not dialog.all("item"), "the list to close")
        time.sleep(0.3)
        check(dialog.process.poll() is None, "Escape in the held list ended the dialog")
        dialog.wait("Tape", "24 mm tape")
        xdotool("key", "Escape")
        dialog.end(1)


@test
def another_tape_brings_its_own_length():
    with ppd("resolution") as dialog:
        dialog.wait(FIELD, "100.0", LENGTH)
        dialog.choose("Tape", "12 x 60 mm label")
        field = dialog.wait(FIELD, "60.0", LENGTH)
        check(not field.enabled, "the length of a fixed label can be edited")
        check(not dialog.wait(FIELD, None, MARGIN).enabled, "so can its margin")
        dialog.press(dialog.wait("Print"))
        dialog.end(0)
        job = dialog.job_in_folder()
        equal((job["PageSize"], job["VnTapeLength"]), ("AV12x60", "60.0"), "tape and length")


def many_tapes(folder, count=3000, kind="tape"):
    """A PPD with that many tapes, T0 "0 mm tape" and on; T7 is the default."""
    with open(sample(""), encoding="utf-8") as file:
        lines = [line for line in file.read().split("\n")
                 if not line.startswith(("*PageSize ", "*PageRegion ", "*ImageableArea ",
                                         "*PaperDimension "))]
    def after(beginning, *more):
        at = next(i for i, line in enumerate(lines) if line.startswith(beginning))
        lines[at:at + 1] = [beginning + " T7", *more]
    for option in ("PageSize", "PageRegion"):
        after(f"*Default{option}:", *(f'*{option} T{i}/{i} mm {kind}: "<</PageSize[{i + 10} 200]>>"'
                                      for i in range(count)))
    after("*DefaultImageableArea:", *(f'*ImageableArea T{i}: "1 2 {i + 9} 198"'
                                      for i in range(count)))
    after("*DefaultPaperDimension:", *(f'*PaperDimension T{i}: "{i + 10} 200"'
                                       for i in range(count)))
    path = "{}/many-{}s.ppd".format(folder, kind)
    with open(path, "w", encoding="utf-8") as file:
        file.write("\n".join(lines))
    return path


@test
def a_list_of_thousands_of_tapes_opens_moves_and_chooses_by_keys_and_mouse():
    with tempfile.TemporaryDirectory() as folder:
        with Dialog(PROGRAM, "--ppd", many_tapes(folder), environment=NO_SERVER) as dialog:
            dialog.press(dialog.wait("Tape", "7 mm tape"))
            dialog.wait("item", "7 mm tape", on=True)
            check(len(dialog.all("item")) < 20, "only the rows in sight are there")
            for key, chosen in (("End", "2999 mm tape"), ("Up", "2998 mm tape"),
                                ("Home", "0 mm tape"), ("Prior", "0 mm tape")):
                xdotool("key", key)
                dialog.wait("item", chosen, on=True)
            xdotool("type", "--delay", "40", "123")
            dialog.wait("item", "123 mm tape", on=True)
            xdotool("key", "Return")
            dialog.wait("Tape", "123 mm tape")
            wait_for(lambda: not dialog.all("item"), "the list to close")
            # The button keeps the focus: a key opens the list again, Escape closes it alone.
            xdotool("key", "space")
            dialog.wait("item", "123 mm tape", on=True)
            xdotool("key", "Down")
            dialog.wait("item", "124 mm tape", on=True)
            xdotool("key", "Escape")
            wait_for(lambda: not dialog.all("item"), "the list to close")
            dialog.wait("Tape", "123 mm tape")
            dialog.press(dialog.wait("Tape"))
            dialog.press(dialog.wait("item", "125 mm tape"))
            dialog.wait("Tape", "125 mm tape")
            dialog.press(dialog.wait("Print"))
            dialog.end(0)
            # 135 points wide.
            check(dialog.job_in_folder()["PageSize"].startswith("Custom.47.6"),
                  "the tape is not in the job: {}".format(dialog.job_in_folder()))


@test
def a_typed_length_survives_another_tape():
    with ppd("resolution") as dialog:
        dialog.type_into(dialog.wait(FIELD, "100.0", LENGTH), "77")
        dialog.choose("Tape", "12 mm tape")
        dialog.wait(FIELD, "77.0", LENGTH)
        dialog.press(dialog.wait("Print"))
        dialog.end(0)
        job = dialog.job_in_folder()
        equal((job["PageSize"], job["VnTapeLength"]), ("Custom.12x77mm", "77.0"), "tape and length")


@test
def another_printer_gets_a_panel_of_its_own():
    with ppd("resolution", "--ppd", sample("inches")) as dialog:
        dialog.wait(FIELD, "100.0", LENGTH)
        dialog.choose("Printer", "sample-tape-inches (PPD file)")
        dialog.wait(FIELD, "3.94", LENGTH)  # 100 mm
        dialog.choose("Printer", "sample-tape-resolution (PPD file)")
        dialog.wait(FIELD, "100.0", LENGTH)
        equal(len(dialog.all(FIELD)), 2, "entry fields")
        xdotool("key", "Escape")
        dialog.end(1)


@test
def the_summary_lists_what_is_set():
    with ppd("resolution") as dialog:
        dialog.type_into(dialog.wait(FIELD, "100.0", LENGTH), "62.5")
        dialog.choose("Pane", "Summary")
        dialog.wait("NSTextField", None)
        titles = ["Tape Width:", "Tape Length:", "Margin:", "Print Quality:", "Resolution:",
                  "Compression:"]
        values = ["24 mm tape", "62.5mm", "3.0mm", "Quality First", "300 x 300 dpi", "On"]
        wait_for(lambda: any(c.text == "62.5mm" for c in dialog.controls()), "the length's line")
        rows = [c for c in dialog.controls() if c.text in titles + values and c.height == 20]
        rows.sort(key=lambda c: (c.y, c.x))
        equal([c.text for c in rows], [t for pair in zip(titles, values) for t in pair], "rows")
        dialog.choose("Pane", "Page Settings")
        dialog.wait(FIELD, "62.5", LENGTH)
        xdotool("key", "Escape")
        dialog.end(1)


@test
def a_chosen_row_is_in_the_summary_at_once():
    with ppd("resolution") as dialog:
        dialog.press(dialog.wait("cell", "300 x 600 dpi"))
        dialog.wait("cell", "300 x 600 dpi", on=True)
        dialog.choose("Pane", "Summary")
        wait_for(lambda: any(c.text == "300 x 600 dpi" and c.height == 20 and c.name != "cell"
                             for c in dialog.controls()), "the resolution's line")
        xdotool("key", "Escape")
        dialog.end(1)


@test
def wrong_copies_are_said_and_the_window_stays_usable():
    with ppd("resolution") as dialog:
        dialog.type_into(dialog.wait("Copies", "1"), "many")
        dialog.press(dialog.wait("Print"))
        dialog.message("The number of copies must be a whole number")
        dialog.type_into(dialog.wait("Copies", "many"), "3")
        dialog.press(dialog.wait("Print"))
        dialog.end(0)
        equal(dialog.job_in_folder()["copies"], "3", "copies")


@test
def a_network_printer_greys_compression():
    with ppd("network", "--device-uri", "socket://localhost:9100") as dialog:
        check(not dialog.wait("cell", "On").enabled, "compression can be chosen")
        check(dialog.wait("cell", "300 x 300 dpi").enabled, "resolution cannot")
        xdotool("key", "Escape")
        dialog.end(1)


@test
def wanted_values_are_shown_and_printed():
    with ppd("resolution", "--set", "VnTapeLength=48", "--set", "VnMargin=5.5", "--set",
             "Resolution=300x600dpi", "--set", "VnCompress=Off", "--paper", "TC18",
             "--copies", "2") as dialog:
        dialog.wait(FIELD, "48.0", LENGTH)
        dialog.wait(FIELD, "5.5", MARGIN)
        dialog.wait("cell", "300 x 600 dpi", on=True)
        dialog.wait("cell", "Off", on=True)
        dialog.wait("Tape", "18 mm tape")
        dialog.press(dialog.wait("Print"))
        dialog.end(0)
        equal(dialog.job_in_folder(),
              {"PageSize": "Custom.18x48mm", "copies": "2", "VnTapeLength": "48.0",
               "VnMargin": "5.5", "VnPriority": "Speed", "Resolution": "300x600dpi", "VnCompress": "Off"},
              "options")


@test
def every_sample_printer_shows_its_panel_and_prints():
    names = sorted(n for n in os.listdir(SAMPLES) if n.endswith(".ppd"))
    check(len(names) >= 11, "too few sample printers")
    for name in names:
        with tempfile.TemporaryDirectory() as folder:
            status, _, errors = run_once(PROGRAM, "--ppd", os.path.join(SAMPLES, name),
                                         "--print-at-once", "--output", folder,
                                         environment=NO_SERVER)
            equal(status, 0, name + ": " + errors)
            with open(folder + "/job-1/options", encoding="utf-8") as file:
                check("VnTapeLength" in options_of(file.read().splitlines()), name)


@test
def a_picture_of_the_window_is_written():
    with tempfile.TemporaryDirectory() as folder:
        picture = folder + "/dialog.png"
        status, _, errors = run_once(PROGRAM, "--screenshot", picture, "--print-at-once",
                                     "--output", folder, environment=NO_SERVER)
        equal(status, 0, "exit status: " + errors)
        size = subprocess.run(["identify", "-format", "%m %w %h %k", picture], check=True,
                              capture_output=True, text=True).stdout.split()
        equal(size[0], "PNG", "format")
        check(int(size[1]) > 500 and int(size[2]) > 400 and int(size[3]) > 4,
              "the picture is empty: {}".format(size))


# Every failure is a sentence and a status.

@test
def a_missing_bundle_is_said():
    with tempfile.TemporaryDirectory() as empty:
        bundle = empty + "/Page.plugin"
        refused(["--plugin", bundle], 4, 'there is no bundle at "{}"'.format(bundle))


@test
def a_bundle_that_cannot_be_loaded_is_said():
    with tempfile.TemporaryDirectory() as folder:
        bundle = folder + "/Broken.plugin"
        os.makedirs(bundle + "/Resources")
        with open(bundle + "/Resources/Info-gnustep.plist", "w", encoding="utf-8") as file:
            file.write("{ NSExecutable = Broken; NSPrincipalClass = Broken; }")
        with open(bundle + "/Broken", "w", encoding="utf-8") as file:
            file.write("this is no shared library")
        refused(["--plugin", bundle], 4, "could not be loaded")


@test
def a_bundle_that_refuses_the_system_is_said():
    refused([], 4, "refuses this release of the operating system",
            environment=dict(NO_SERVER, PAGE_SETTINGS_SYSTEM_VERSION="10.4.11"))


@test
def a_damaged_ppd_is_said_with_its_line_and_reason():
    with tempfile.TemporaryDirectory() as folder:
        path = folder + "/damaged.ppd"
        with open(path, "w", encoding="utf-8") as file:
            file.write('*PPD-Adobe: "4.3"\n*FormatVersion: "4.3"\n'
                       "*OpenUI *PageSize/Tape: PickOne\n*OpenUI *Margin/Margin: PickOne\n"
                       "*CloseUI: *PageSize\n*OpenGroup: A\n*OpenGroup: B\n")
        refused(["--ppd", path], 6, "is damaged in line", "damaged.ppd")


@test
def a_ppd_that_would_crash_the_library_is_refused():
    with tempfile.TemporaryDirectory() as folder:
        path = folder + "/custom.ppd"
        with open(sample("resolution"), encoding="utf-8") as file:
            text = file.read()
        changed = text.replace("Width: 1 points", "Width: 1 string")
        check(changed != text, "the sample has no custom width")
        with open(path, "w", encoding="utf-8") as file:
            file.write(changed)
        refused(["--ppd", path], 6, "is not given in points")


@test
def a_named_pipe_is_no_ppd_and_no_document():
    with tempfile.TemporaryDirectory() as folder:
        pipe = folder + "/pipe"
        os.mkfifo(pipe)
        refused(["--ppd", pipe], 6, "it is not a regular file")
        refused([pipe], 7, "it is not a regular file")


@test
def a_damaged_ppd_leaves_the_window_usable():
    with tempfile.TemporaryDirectory() as folder:
        path = folder + "/no.ppd"
        with open(path, "w", encoding="utf-8") as file:
            file.write("nothing of a PPD\n")
        with Dialog(PROGRAM, "--ppd", path, environment=NO_SERVER) as dialog:
            dialog.message("The PPD ")
            dialog.choose("Printer", "Sample Tape (prints into a folder)")
            dialog.wait("Message", "")
            dialog.wait(FIELD, "100.0", LENGTH)
            dialog.press(dialog.wait("Print"))
            dialog.end(0)
            equal(dialog.job_in_folder()["PageSize"], "Custom.24x100mm", "tape")


@test
def a_missing_server_is_a_hint_to_who_asked_for_no_queue():
    with ppd("resolution") as dialog:
        dialog.message('The print server "127.0.0.1" does not answer')
        xdotool("key", "Escape")
        dialog.end(1)
        equal(dialog.read_errors(), "", "standard error")


@test
def a_missing_server_is_said():
    refused(["--printer", "Office"], 5, 'The print server "127.0.0.1" does not answer')


@test
def a_missing_document_is_said():
    with tempfile.TemporaryDirectory() as empty:
        document = empty + "/label.png"
        refused([document], 7, 'The document "{}" cannot be read'.format(document))


@test
def an_output_folder_that_cannot_be_made_is_said():
    with tempfile.NamedTemporaryFile() as file:
        found, _, errors = run_once(PROGRAM, "--print-at-once", "--output", file.name + "/out",
                                    environment=NO_SERVER)
        equal(found, 8, "exit status")
        check("Nothing could be printed into the folder" in errors, errors)


@test
def a_missing_tape_is_said():
    refused(["--paper", "A4"], 5, 'has no tape named "A4"')


@test
def a_missing_display_is_said():
    refused([], 3, "No window can be opened", environment=dict(NO_SERVER, DISPLAY=":4711"))


@test
def a_wrong_command_line_is_said():
    refused(["--frobnicate"], 2, 'The option "--frobnicate" is not known.')


@test
def words_from_outside_are_no_formats_and_no_options():
    with tempfile.TemporaryDirectory() as folder:
        document = folder + "/%n%s %@ -NSOpen x.txt"
        with open(document, "w", encoding="utf-8") as file:
            file.write("label")
        status, _, errors = run_once(PROGRAM, document, "--print-at-once", "--output", folder,
                                     environment=NO_SERVER)
        equal(status, 0, "exit status: " + errors)
        missing = folder + "/missing/%n%s%@"
        refused([missing], 7, '"{}"'.format(missing))


# Jobs at a print server of the test's own.

@test
def edits_in_millimetres_arrive_at_the_server():
    title = 'Läbel "1" a=b \\ %s copies=9'
    with tempfile.TemporaryDirectory() as folder:
        document = folder + "/my label.txt"
        content = b"First line\nsecond = line\n"
        with open(document, "wb") as file:
            file.write(content)
        with Dialog(PROGRAM, "--printer", "tape", "--title", title, document) as dialog:
            dialog.wait("Printer", "tape")
            dialog.type_into(dialog.wait(FIELD, "100.0", LENGTH), "62.5")
            dialog.type_into(dialog.wait(FIELD, "3.0", MARGIN), "4.2")
            dialog.choose("Tape", "18 mm tape")
            dialog.press(dialog.wait("cell", "Speed First"))
            dialog.wait("cell", "Speed First", on=True)
            dialog.press(dialog.wait("cell", "Off"))
            dialog.wait("cell", "Off", on=True)
            dialog.type_into(dialog.wait("Copies", "1"), "2")
            dialog.press(dialog.wait("Print"))
            dialog.end(0)
            equal(dialog.read_answers(), 'Printed on "tape" as job 1.\n', "answer")
        job = arrived()
        equal(job["options"],
              {"PageSize": "Custom.18x62.5mm", "VnTapeLength": "62.5", "VnMargin": "4.2",
               "VnPriority": "Speed", "Resolution": "300x300dpi", "VnCompress": "Off"},
              "options")
        equal(job["title"].decode("utf-8"), title, "title")
        equal(job["copies"], b"2", "copies")
        equal(job["document"], content, "document")


@test
def edits_in_inches_arrive_at_the_server():
    with Dialog(PROGRAM, "--printer", "inches") as dialog:
        dialog.wait("Printer", "inches")
        dialog.wait(FIELD, "3.94", LENGTH)
        dialog.wait(FIELD, "0.20", MARGIN)
        dialog.type_into(dialog.wait(FIELD, None, LENGTH), "1.50")
        dialog.type_into(dialog.wait(FIELD, None, MARGIN), "0.25")
        dialog.press(dialog.wait("cell", "300 x 600 dpi"))
        dialog.wait("cell", "300 x 600 dpi", on=True)
        dialog.press(dialog.wait("Print"))
        dialog.end(0)
    job = arrived()
    # 1.5 / 0.0393701 = 38.09998 to one decimal; 0.25 / 0.0393701 = 6.34999 up to tenths.
    equal(job["options"],
          {"PageSize": "Custom.24x38.1mm", "VnTapeLength": "38.1", "VnMargin": "6.4",
           "VnPriority": "Speed", "Resolution": "300x600dpi", "VnCompress": "On"},
          "options")
    equal(job["title"], b"label.png", "title")
    with open(SAMPLES + "/label.png", "rb") as file:
        equal(job["document"], file.read(), "document")


@test
def raw_queues_are_not_offered():
    with Dialog(PROGRAM, "--printer", "tape") as dialog:
        pop_up = dialog.wait("Printer", "tape")
        xdotool("mousemove", pop_up.x + 60, pop_up.y + 12)
        xdotool("mousedown", 1)
        dialog.wait("item", "Sample Tape (prints into a folder)")
        equal(sorted(c.text for c in dialog.all("item")),
              ["Sample Tape (prints into a folder)", "inches", "tape"], "printers")
        xdotool("mouseup", 1)


@test
def an_unknown_queue_is_said():
    refused(["--printer", "Office"], 5, 'There is no printer named "Office".',
            environment=dict(os.environ))


@test
def a_refused_job_is_said_and_the_window_stays_usable():
    with Dialog(PROGRAM, "--printer", "inches") as dialog:
        dialog.wait("Printer", "inches")
        dialog.press(dialog.wait("Print"))
        dialog.message('The print server did not take the job for "inches"')
        dialog.choose("Printer", "tape")
        dialog.press(dialog.wait("Print"))
        dialog.end(0)
    equal(arrived(1)["options"]["VnTapeLength"], "100.0", "length")



if __name__ == "__main__":
    main()
