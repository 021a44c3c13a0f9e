#!/usr/bin/env python3
"""waiting_test.py PROGRAM SAMPLES SENTENCE... - the window while a print server keeps it waiting.

Runs on the display it finds.  Most tests put a stand-in before the print server in CUPS_SERVER.
"""

import os
import subprocess
import sys
import tempfile

sys.dont_write_bytecode = True
sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from dialog_test import FIELD, LENGTH, PROGRAM, arrived  # noqa: E402
from drive import Dialog, check, equal, run_once, wait_for, xdotool  # noqa: E402
from sentences import main, test  # noqa: E402
from slow_server import Between  # noqa: E402

SAMPLE = "Sample Tape (prints into a folder)"
SERVER = os.environ.get("CUPS_SERVER", "")
LIMIT = 1 << 20
# What hangs here hangs for good, and no deadline of the dialog is shorter.
AT_ONCE = 4


def command(*words):
    return subprocess.run(words, check=True, capture_output=True, text=True).stdout


def jobs_left():
    return command("lpstat", "-W", "not-completed", "-o").splitlines()


def ends_at_once(dialog, status):
    wait_for(lambda: dialog.process.poll() is not None, "the dialog to end", AT_ONCE)
    equal(dialog.process.returncode, status, "exit status")


def button(dialog, name, text):
    """The button once it has that title and can be pressed."""
    return wait_for(lambda: next((c for c in dialog.all(name) if c.text == text and c.enabled),
                                 None), "the button " + text)


def sentence_in_the_pane(dialog, beginning):
    wait_for(lambda: any(c.text.startswith(beginning) and c.name != "Message"
                         for c in dialog.controls()), "the sentence " + beginning)


def print_is_off(dialog):
    wait_for(lambda: dialog.all("Print") and not dialog.all("Print")[0].enabled,
             "Print to be switched off")


# Looking for printers.

@test
def a_silent_server_leaves_the_window_usable():
    with Between(mode="hang") as server:
        with Dialog(PROGRAM, environment=server.environment()) as dialog:
            dialog.message("Looking for printers...")
            dialog.wait("Printer", SAMPLE)
            dialog.type_into(dialog.wait(FIELD, "100.0", LENGTH), "62.5")
            dialog.press(button(dialog, "Print", "Print"))
            ends_at_once(dialog, 0)
            equal(dialog.job_in_folder()["VnTapeLength"], "62.5", "length")
            check(server.held > 0, "the server was never asked")


@test
def a_silent_server_does_not_keep_the_window_from_closing():
    with Between(mode="hang") as server:
        with Dialog(PROGRAM, "--printer", "Office", environment=server.environment()) as dialog:
            dialog.wait("Printer", "Office")
            sentence_in_the_pane(dialog, "Looking for printers...")
            print_is_off(dialog)
            xdotool("key", "Return")
            xdotool("key", "Escape")
            ends_at_once(dialog, 1)


@test
def another_printer_can_be_chosen_while_one_is_looked_for():
    with Between(mode="hang") as server:
        with Dialog(PROGRAM, "--printer", "Office", environment=server.environment()) as dialog:
            sentence_in_the_pane(dialog, "Looking for printers...")
            dialog.choose("Printer", SAMPLE)
            dialog.wait(FIELD, "100.0", LENGTH)
            # What the server does not say in the end changes nothing for the user.
            dialog.message('The print server "127.0.0.1" does not answer')
            dialog.wait("Printer", SAMPLE)
            dialog.press(button(dialog, "Print", "Print"))
            dialog.end(0)
            equal(dialog.job_in_folder()["VnTapeLength"], "100.0", "length")


@test
def a_script_is_told_that_the_server_hangs():
    with Between(mode="hang") as server, tempfile.TemporaryDirectory() as folder:
        status, _, errors = run_once(PROGRAM, "--print-at-once", "--printer", "Office", "--output",
                                     folder, environment=server.environment())
        equal(status, 5, "exit status")
        check('The print server "127.0.0.1" does not answer' in errors, errors)


@test
def a_server_that_wakes_up_is_found_and_its_first_queue_opened():
    with Between(SERVER, "hang") as server:
        with Dialog(PROGRAM, environment=server.environment()) as dialog:
            dialog.message('The print server "127.0.0.1" does not answer')
            dialog.wait("Printer", SAMPLE)
            server.mode = "pass"
            wait_for(lambda: any(c.text in ("tape", "inches") for c in dialog.all("Printer")),
                     "a queue")
            dialog.wait("Message", "")
            xdotool("key", "Escape")
            dialog.end(1)


@test
def what_the_user_works_with_stays_when_the_server_wakes_up():
    with Between(SERVER, "hang") as server:
        with Dialog(PROGRAM, environment=server.environment()) as dialog:
            dialog.message("Looking for printers...")
            dialog.type_into(dialog.wait(FIELD, "100.0", LENGTH), "55")
            dialog.message('The print server "127.0.0.1" does not answer')
            server.mode = "pass"
            dialog.wait("Message", "")
            dialog.wait("Printer", SAMPLE)
            dialog.wait(FIELD, "55.0", LENGTH)
            dialog.choose("Printer", "tape")
            dialog.wait(FIELD, "100.0", LENGTH)
            xdotool("key", "Escape")
            dialog.end(1)


@test
def the_printers_of_the_last_time_are_offered_while_the_server_is_silent():
    with Between(SERVER) as server:
        with Dialog(PROGRAM, environment=server.environment()) as dialog:
            wait_for(lambda: any(c.text in ("tape", "inches") for c in dialog.all("Printer")),
                     "a queue")
            xdotool("key", "Escape")
            dialog.end(1)
        with open(os.environ["HOME"] + "/.cache/page-settings/printers", encoding="utf-8") as file:
            lines = file.read().splitlines()
        check("queue tape" in lines and "queue inches" in lines and "queue raw" not in lines,
              "what is remembered: {}".format(lines))
        server.mode = "hang"
        with Dialog(PROGRAM, "--printer", "tape", environment=server.environment()) as dialog:
            dialog.message("Looking for printers...")
            sentence_in_the_pane(dialog, 'Opening the printer "tape"...')
            wait_for(lambda: any("known from the last time" in c.text
                                 for c in dialog.all("Message")), "the hint")
            server.mode = "pass"
            dialog.wait(FIELD, "100.0", LENGTH)
            xdotool("key", "Escape")
            dialog.end(1)


# Opening a printer.

def half_a_ppd(mode):
    with Between(SERVER, mode, limit=1000) as server:
        with Dialog(PROGRAM, "--printer", "tape", environment=server.environment()) as dialog:
            if mode == "half":
                sentence_in_the_pane(dialog, 'Opening the printer "tape"...')
                print_is_off(dialog)
            else:
                dialog.message('The print server "127.0.0.1" does not answer: it sent only a part')
            dialog.choose("Printer", SAMPLE)
            dialog.wait(FIELD, "100.0", LENGTH)
            dialog.wait("Message", "")
            server.mode = "pass"
            dialog.choose("Printer", "inches")
            dialog.wait(FIELD, "3.94", LENGTH)
            xdotool("key", "Escape")
            ends_at_once(dialog, 1)


@test
def a_ppd_that_stops_halfway_leaves_the_window_usable():
    half_a_ppd("half")


@test
def a_ppd_that_is_cut_off_is_said_and_leaves_the_window_usable():
    half_a_ppd("cut")


# Sending.

class Sending:
    """A dialog that sends a big document through a stand-in that stops taking it on the way."""

    def __init__(self, *arguments):
        self.folder = tempfile.TemporaryDirectory()
        self.document = self.folder.name + "/big.txt"
        with open(self.document, "wb") as file:
            file.write(b"label\n" * (4 << 20))
        self.server = Between(SERVER, "hold", LIMIT)
        self.dialog = Dialog(PROGRAM, "--printer", "tape", self.document, *arguments,
                             environment=self.server.environment())

    def __enter__(self):
        self.dialog.wait(FIELD, "100.0", LENGTH)
        self.dialog.press(button(self.dialog, "Print", "Print"))
        self.dialog.message("Sending: ")
        wait_for(lambda: self.server.held, "the document to be stopped on its way")
        return self.dialog, self.server

    def __exit__(self, *failure):
        self.dialog.__exit__(*failure)
        self.server.__exit__()
        self.folder.cleanup()


@test
def a_long_send_shows_how_far_it_is_and_can_be_cancelled():
    with Sending() as (dialog, server):
        # One of 24 MiB has gone, and what the sockets on the way hold.
        wait_for(lambda: any(0.04 < float(c.text) < 0.9 for c in dialog.all("Progress")),
                 "the bar to stand somewhere")
        for name in ("Printer", "Tape", "Copies", "Print"):
            check(not dialog.wait(name).enabled, name + " can be used while the job is sent")
        dialog.press(button(dialog, "Cancel", "Cancel"))
        dialog.message("The job was cancelled.")
        equal(jobs_left(), [], "jobs left on the server")
        equal(os.listdir(os.environ["PRIVATE_CUPSD_JOBS"]), [], "jobs that were printed")
        check(not dialog.all("Progress"), "the bar is still there")
        dialog.wait("Printer", "tape")
        server.mode = "pass"
        dialog.press(button(dialog, "Print", "Print"))
        dialog.end(0)
        job = arrived(1)
        equal(len(job["document"]), 6 * (4 << 20), "bytes of the document sent at last")


@test
def a_job_that_cannot_be_taken_back_does_not_hold_the_window():
    with Sending() as (dialog, server):
        server.mode = "hang"
        xdotool("key", "Escape")
        dialog.message("Cancelling the job...")
        xdotool("key", "Escape")
        dialog.end(1)
        equal(os.listdir(os.environ["PRIVATE_CUPSD_JOBS"]), [], "jobs that were printed")


# Following.

@test
def a_stopped_queue_is_said_and_the_job_can_be_left_there():
    command("cupsdisable", "tape")
    with Dialog(PROGRAM, "--printer", "tape") as dialog:
        dialog.wait(FIELD, "100.0", LENGTH)
        dialog.press(button(dialog, "Print", "Print"))
        dialog.message('The job 1 waits on "tape": the printer is stopped.')
        equal(len(jobs_left()), 1, "jobs on the server")
        dialog.press(button(dialog, "Print", "Close"))
        ends_at_once(dialog, 0)
        equal(dialog.read_answers(), 'Printed on "tape" as job 1.\n', "answer")
    equal(len(jobs_left()), 1, "jobs on the server afterwards")
    command("cupsenable", "tape")
    equal(arrived(1)["options"]["VnTapeLength"], "100.0", "length")


@test
def a_job_on_a_stopped_queue_can_be_cancelled():
    command("cupsdisable", "-r", "Back on Monday", "tape")
    with Dialog(PROGRAM, "--printer", "tape") as dialog:
        dialog.wait(FIELD, "100.0", LENGTH)
        dialog.press(button(dialog, "Print", "Print"))
        dialog.message('The job 1 waits on "tape": the printer is stopped (Back on Monday).')
        dialog.press(button(dialog, "Cancel", "Cancel Job"))
        dialog.message("The job was cancelled.")
        equal(jobs_left(), [], "jobs left on the server")
        button(dialog, "Print", "Print")
        xdotool("key", "Escape")
        dialog.end(1)


@test
def a_queue_that_is_started_again_ends_the_waiting():
    command("cupsdisable", "tape")
    with Dialog(PROGRAM, "--printer", "tape") as dialog:
        dialog.wait(FIELD, "100.0", LENGTH)
        dialog.press(button(dialog, "Print", "Print"))
        dialog.message('The job 1 waits on "tape": the printer is stopped.')
        command("cupsenable", "tape")
        dialog.end(0)
        equal(dialog.read_answers(), 'Printed on "tape" as job 1.\n', "answer")


@test
def a_job_that_somebody_else_cancels_is_said():
    with Dialog(PROGRAM, "--printer", "tape", "--set", "job-hold-until=indefinite") as dialog:
        dialog.wait(FIELD, "100.0", LENGTH)
        dialog.press(button(dialog, "Print", "Print"))
        dialog.message('The job 1 waits on "tape": it is held until it is released.')
        command("cancel", "tape-1")
        dialog.message('The job 1 was not printed on "tape": it was cancelled')
        button(dialog, "Print", "Print")
        xdotool("key", "Escape")
        dialog.end(8)


@test
def a_script_is_told_what_becomes_of_its_job():
    def print_at_once(*more):
        return run_once(PROGRAM, "--print-at-once", "--printer", "tape", *more)
    command("cupsdisable", "tape")
    equal(print_at_once(), (0, 'Printed on "tape" as job 1.\n',
                            'tape-print: The job 1 waits on "tape": the printer is stopped.\n'),
          "on a stopped queue")
    command("cupsenable", "tape")
    command("cupsreject", "tape")
    status, answer, errors = print_at_once()
    equal((status, answer), (8, ""), "on a queue that takes no jobs")
    check('The print server did not take the job for "tape"' in errors, errors)



if __name__ == "__main__":
    main()
