#!/usr/bin/env python3
"""job_bytes_test.py PROGRAM SAMPLES SENTENCE... - jobs arrive byte for byte, whole or not at all.

Runs on the display it finds, beside the print server in CUPS_SERVER.  What the server has of a job
is asked of the server itself, in its own protocol.
"""

import os
import signal
import subprocess
import sys
import tempfile
import time

sys.dont_write_bytecode = True
sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from dialog_test import PROGRAM, arrived  # noqa: E402
from drive import check, equal, run_once, wait_for  # noqa: E402
from sentences import main, test  # noqa: E402
from slow_server import Between  # noqa: E402

SERVER = os.environ.get("CUPS_SERVER", "")

# Made by a shell that reads the text of that name.
OWNED = os.path.join(tempfile.gettempdir(), "owned")

# Texts that would do something if anything on the way took them for more than texts.
TEXTS = {
    "spaces": "  two  spaces and an end ",
    "quotes": "a 'single' and a \"double\" one",
    "equals": "a=b PageSize=A4 copies=99",
    "shell": "$(touch {}); `id` && ls -d * | cat > x & \\".format(OWNED),
    "format": "%s%n%@ %d %%",
    "letters": "Läbel 日本語 🏷 é",
    "commas": "a,b,'c,d',{e f}",
    "dashes": "-o raw --set x=y",
    "numbers": "1-3,5 0x10 true",
}


def file_name(text):
    return text.replace("/", "_").strip()


def check_that_no_shell_read_it():
    for made in (OWNED, file_name(OWNED)):
        check(not os.path.exists(made), "a shell has made " + made)


def print_at_once(*arguments, **settings):
    return run_once(PROGRAM, "--print-at-once", "--printer", "tape", *arguments, **settings)


def printed(*arguments):
    status, _, errors = print_at_once(*arguments)
    equal(status, 0, "exit status: " + errors)


def at_server(number, *names):
    """What the server says of the job, asked by IPP: the values as texts."""
    request = tempfile.NamedTemporaryFile("w", suffix=".test")
    request.write("""{{
    OPERATION Get-Job-Attributes
    GROUP operation-attributes-tag
    ATTR charset attributes-charset utf-8
    ATTR language attributes-natural-language en
    ATTR uri printer-uri $uri
    ATTR integer job-id {}
    ATTR name requesting-user-name root
    STATUS successful-ok
    {}
}}""".format(number, "\n    ".join("DISPLAY " + name for name in names)))
    request.flush()
    text = subprocess.run(["ipptool", "-X", "ipp://{}/printers/tape".format(SERVER), request.name],
                          capture_output=True, check=False).stdout
    import plistlib
    values = {}
    for test_run in plistlib.loads(text)["Tests"]:
        for group in test_run["ResponseAttributes"]:
            values.update(group)
    return values


def jobs_at_server():
    """The numbers of all jobs that the server knows, finished ones too."""
    lines = subprocess.run(["lpstat", "-W", "all", "-o"], check=True, capture_output=True,
                           text=True).stdout.splitlines()
    return sorted(int(line.split()[0].rpartition("-")[2]) for line in lines)


def documents():
    folder = os.environ["PRIVATE_CUPSD_JOBS"]
    found = []
    for number in sorted(n for n in os.listdir(folder) if not n.startswith(".")):
        with open("{}/{}/document".format(folder, number), "rb") as file:
            found.append(file.read())
    return found


@test
def titles_arrive_as_they_are():
    for number, text in enumerate(TEXTS.values(), 1):
        printed("--title", text)
        job = arrived(number)
        equal(job["title"].decode("utf-8"), text, "title at the filter")
        equal(at_server(number)["job-name"], text, "title at the server")
        equal(job["copies"], b"1", "copies with the title " + text)
        equal(job["options"]["PageSize"], "Custom.24x100mm",
              "tape with the title " + text)
    check_that_no_shell_read_it()


@test
def options_of_another_panel_arrive_as_they_are():
    for number, text in enumerate(TEXTS.values(), 1):
        printed("--set", "VnNote=" + text, "--set", "VnLast=here")
        equal(at_server(number)["VnNote"], text, "option at the server")
        equal(at_server(number)["VnLast"], "here", "option behind it")
        options = arrived(number)["options"]
        equal(options["VnLast"], "here", "option behind it at the filter")
        equal(sorted(options), sorted(["PageSize", "VnTapeLength", "VnMargin", "VnPriority",
                                       "Resolution", "VnCompress", "VnNote", "VnLast"]),
              "names of the options with " + text)
    check_that_no_shell_read_it()


@test
def names_of_documents_are_names_and_nothing_else():
    with tempfile.TemporaryDirectory() as folder:
        names = [file_name(text) + ".txt" for text in TEXTS.values()]
        for number, name in enumerate(names, 1):
            path = os.path.join(folder, name)
            content = "label {}\n".format(number).encode()
            with open(path, "wb") as file:
                file.write(content)
            printed(path)
            job = arrived(number)
            equal(job["title"].decode("utf-8"), name, "title")
            equal(job["document"], content, "document " + name)
            equal(job["copies"], b"1", "copies")
    check_that_no_shell_read_it()


@test
def long_texts_arrive_whole():
    for number, length in enumerate((252, 253, 1000, 1023, 1024, 5000, 30000), 1):
        text = "".join(chr(ord("a") + i % 26) for i in range(length))
        printed("--title", text, "--set", "VnNote=" + text)
        # A server calls a job with a longer name "Untitled".
        title = text if length <= 252 else text[:252] + "..."
        at = at_server(number)
        equal(at["job-name"], title, "title")
        equal(at["VnNote"], text, "option")
        job = arrived(number)
        equal(job["title"].decode(), title, "title at the filter")
        equal(job["options"]["VnNote"], text, "option at the filter")


@test
def titles_that_are_no_names_still_tell_the_job():
    for number, (given, title) in enumerate(((b"two\nlines", "two lines"),
                                             (b"a\x7fb\x01c", "a b c"),
                                             (b"l\xe4bel", "l\u00e4bel")), 1):
        printed("--title", given)
        equal(at_server(number)["job-name"], title, "title")
    with tempfile.TemporaryDirectory() as folder:
        path = os.path.join(folder.encode(), b"l\xe4bel.txt")
        with open(path, "wb") as file:
            file.write(b"label\n")
        printed(path)
        equal(arrived(4)["document"], b"label\n", "document")
        equal(at_server(4)["job-name"], "l\u00e4bel.txt", "title after the document")


@test
def variables_of_another_encoding_keep_nothing_from_being_printed():
    status, _, errors = print_at_once("--title", "mine", environment={"NOTE": "l\udce4bel"})
    equal(status, 0, "exit status: " + errors)
    equal(at_server(1)["job-name"], "mine", "title")


@test
def a_killed_print_leaves_no_job_or_a_whole_one():
    # Killed after ever more bytes of what it sends, and before it is done in any case.
    content = b"0123456789abcde\n" * (1 << 17)
    with tempfile.NamedTemporaryFile(suffix=".txt") as file:
        file.write(content)
        file.flush()
        for limit in (0, 2000, 4000, 8000, 20000, 100000, 1000000, 2000000):
            with Between(SERVER, "hold", limit) as server:
                program = subprocess.Popen(
                    [PROGRAM, "--print-at-once", "--printer", "tape", file.name],
                    env=dict(os.environ, **server.environment()), stdin=subprocess.DEVNULL,
                    stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
                wait_for(lambda: server.held or program.poll() is not None, "the job to be held")
                program.send_signal(signal.SIGKILL)
                program.wait()
        equal(jobs_at_server(), [], "jobs")
        printed(file.name)
        arrived(1)
        equal(documents(), [content], "documents")


@test
def a_print_killed_at_any_moment_leaves_no_job_or_a_whole_one():
    content = b"0123456789abcde\n" * (1 << 15)
    with tempfile.NamedTemporaryFile(suffix=".txt") as file:
        file.write(content)
        file.flush()
        start = time.monotonic()
        printed(file.name)
        took = time.monotonic() - start
        runs = 12
        for run in range(runs):
            program = subprocess.Popen([PROGRAM, "--print-at-once", "--printer", "tape", file.name],
                                       stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                       stderr=subprocess.DEVNULL)
            try:
                program.wait(timeout=took * (0.5 + run / runs))
            except subprocess.TimeoutExpired:
                program.kill()
                program.wait()
        wait_for(lambda: len(documents()) == len(jobs_at_server()), "every job to be printed")
        check(all(found == content for found in documents()), "a document is not whole")


@test
def a_server_that_goes_away_leaves_no_job():
    content = b"0123456789abcde\n" * (1 << 17)
    with tempfile.NamedTemporaryFile(suffix=".txt") as file:
        file.write(content)
        file.flush()
        for limit in (2000, 20000, 1000000):
            with Between(SERVER, "hold", limit) as server:
                program = subprocess.Popen(
                    [PROGRAM, "--print-at-once", "--printer", "tape", file.name],
                    env=dict(os.environ, **server.environment()), stdin=subprocess.DEVNULL,
                    stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True)
                wait_for(lambda: server.held or program.poll() is not None, "the job to be held")
                server.over = True  # every connection is closed
                errors = program.communicate(timeout=60)[1]
                check(program.returncode in (5, 8), "exit status {}".format(program.returncode))
                check(errors.startswith("tape-print: "), errors)
        equal(jobs_at_server(), [], "jobs")



if __name__ == "__main__":
    main()
