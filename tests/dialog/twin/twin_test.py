#!/usr/bin/env python3
"""twin_test.py PROGRAM SAMPLES SENTENCE - one test of tape-print without its window.

There is no display here, in any test.  Tests of jobs at a print server find the server's address in
CUPS_SERVER and the jobs that arrived in PRIVATE_CUPSD_JOBS.
"""

import decimal
import json
import os
import re
import shlex
import socket
import subprocess
import sys
import tempfile

sys.dont_write_bytecode = True
HERE = os.path.dirname(os.path.abspath(__file__))
sys.path[:0] = [os.path.dirname(HERE), HERE + "/../../support"]
from drive import Failed, check, equal, options_of, wait_for  # noqa: E402
from ipp import job_attributes  # noqa: E402
from sentences import main, test  # noqa: E402

PROGRAM, SAMPLES = sys.argv[1], sys.argv[2]
LABEL = SAMPLES + "/label.png"
# Nobody listens at port 1: no test here may meet the machine's own print server.
NO_SERVER = {"CUPS_SERVER": "127.0.0.1:1"}
def sample(name):
    return "{}/sample-tape-{}.ppd".format(SAMPLES, name)


def surroundings(home, **settings):
    kept = {name: value for name, value in os.environ.items()
            if name not in ("DISPLAY", "WAYLAND_DISPLAY", "LANGUAGE", "XDG_CONFIG_HOME")}
    return {**kept, "HOME": home, "LC_ALL": "C.UTF-8", **settings}


def start(*arguments, home, stdout=subprocess.PIPE, **settings):
    return subprocess.Popen([PROGRAM, *arguments], stdin=subprocess.DEVNULL, stdout=stdout,
                            stderr=subprocess.PIPE, text=True, cwd=home,
                            env=surroundings(home, **settings))


def run(*arguments, home=None, **settings):
    """Status, standard output and standard error."""
    with tempfile.TemporaryDirectory() as empty:
        process = start(*arguments, home=home or empty, **settings)
        output, errors = process.communicate(timeout=120)
        return process.returncode, output, errors


def answered(*arguments, **settings):
    status, output, errors = run(*arguments, **settings)
    equal((status, errors), (0, ""), " ".join(arguments))
    return output


def in_folder(*arguments):
    """What a printer without a queue has got: options, summary, document; and what was said."""
    with tempfile.TemporaryDirectory() as home:
        status, output, errors = run("--print", "--output", "out", *arguments, home=home, **NO_SERVER)
        equal((status, output), (0, 'Printed into the folder "out/job-1".\n'), "answer: " + errors)
        equal(sorted(os.listdir(home)), ["out"], "what is left in the user's folder")
        found = {}
        for name in os.listdir(home + "/out/job-1"):
            with open(home + "/out/job-1/" + name, "rb") as file:
                found[name.split(".")[0]] = file.read()
        found["options"] = options_of(found["options"].decode().splitlines())
        return found, errors


# What lp adds because the queue's own defaults say so, and what the server adds to every job.
NOT_ASKED_FOR = ("finishings=", "number-up=", "print-color-mode=", "job-uuid=",
                 "job-originating-host-name=", "date-time-at-", "time-at-")


def arrived(number):
    folder = "{}/{}/".format(os.environ["PRIVATE_CUPSD_JOBS"], number)
    wait_for(lambda: os.path.isdir(folder), "job {} at the print server".format(number))
    texts = {}
    for name in ("options", "title", "copies", "document"):
        with open(folder + name, "rb") as file:
            texts[name] = file.read()
    words = shlex.split(texts["options"].decode())
    texts["document"] = texts["document"][-40:], hash(texts["document"])
    texts["options"] = options_of(w for w in words if not w.startswith(NOT_ASKED_FOR))
    return texts


def job_number(answer):
    return int(re.search(r"(?:as job |request id is [a-z]+-)(\d+)", answer).group(1))


# Without a print server.

@test
def a_job_into_a_folder_is_what_was_asked_for():
    job, errors = in_folder("--ppd", sample("resolution"), "--paper", "TC18", "--length", "40.5",
                            "--margin", "2.5", "--set", "Resolution=300x600dpi", "--set",
                            "VnCompress=Off", "--set", "Note=a b", "--copies", "3", LABEL)
    equal(errors, "", "what is said")
    # The second resolution has the first quality only.
    equal(job["options"],
          {"PageSize": "Custom.18x40.5mm", "copies": "3", "VnTapeLength": "40.5",
           "VnMargin": "2.5", "VnPriority": "Speed", "Resolution": "300x600dpi",
           "VnCompress": "Off", "Note": "a b"}, "options")
    with open(LABEL, "rb") as file:
        equal(job["document"], file.read(), "document")
    equal(job["summary"].decode().splitlines(),
          ["Printer: sample-tape-resolution", "Tape: TC18", "Length: 40.5 mm", "Margin: 2.5 mm",
           "Copies: 3", "Title: label.png", "Document: " + LABEL], "summary")


@test
def what_was_adjusted_is_said_and_printed_nonetheless():
    job, errors = in_folder("--ppd", sample("inches"), "--length", "500 mm", "--margin", "1in")
    equal(errors, "tape-print: The length was changed from 500 mm to 19.69 in, the next one that "
                  "can be set.\n", "an inexact conversion")
    # 500 mm are 19.68505 inches; 19.69 of them 500.126 mm.
    equal(job["options"]["VnTapeLength"], "500.1", "length")
    equal(job["options"]["VnMargin"], "25.4", "margin")
    job, errors = in_folder("--ppd", sample("resolution"), "--length", "2000", "--margin", ".2")
    equal(errors.splitlines(),
          ["tape-print: The length was changed from 2000 mm to 1000.0 mm, the longest this printer "
           "takes.",
           "tape-print: The margin was changed from .2 mm to 1.0 mm, the narrowest this printer "
           "takes."], "both limits")
    equal(job["options"]["PageSize"], "Custom.24x1000mm", "page")
    job, errors = in_folder("--ppd", sample("resolution"), "--length", "30", "--margin", "20")
    equal(errors.splitlines(),
          ["tape-print: The margin cannot be more than half of the tape length. The length has been "
           "increased to fit.",
           "tape-print: The length was changed from 30 mm to 40.1 mm, to be longer than its two "
           "margins."], "the panel's own words among them")
    job, errors = in_folder("--ppd", sample("resolution"), "--paper", "DC24x40", "--length", "50")
    equal(errors, "tape-print: The length was changed from 50 mm to 40.0 mm: this label has a "
                  "length of its own.\n", "a label of fixed length")
    equal(job["options"]["PageSize"], "DC24x40", "its name")


@test
def a_dry_run_says_the_job_and_prints_nothing():
    with tempfile.TemporaryDirectory() as home:
        text = answered("--dry-run", "--print", "--ppd", sample("resolution"), "--length", "2in",
                        "--title", "Shelf", home=home, **NO_SERVER)
        # 2 inches are 50.79997 mm by the panel's factor.
        equal(text.split("\n\n"),
              ["Printer: sample-tape-resolution\nTape: TC24\nLength: 50.8 mm\nMargin: 3.0 mm\n"
               "Copies: 1\nTitle: Shelf\nDocument: label.png",
               "PageSize=Custom.24x50.8mm\nVnTapeLength=50.8\nVnMargin=3.0\nVnPriority=Quality\n"
               "Resolution=300x300dpi\nVnCompress=On\n"], "what would be printed")
        equal(os.listdir(home), [], "what was written")


@test
def every_mistake_has_its_status_and_its_sentence():
    own = ("--ppd", sample("resolution"))
    with tempfile.TemporaryDirectory() as home:
        broken = home + "/broken.ppd"
        write(broken, DAMAGED)
        for arguments, status, sentence in (
                (("--frobnicate", "--print"), 2, 'The option "--frobnicate" is not known.'),
                (("--print", "--length", "5cm"), 2,
                 '--length takes a length such as 40, 40.5mm or 1.5in, not "5cm".'),
                (("--print", "--margin=-1"), 2,
                 '--margin takes a length such as 3, 2.5mm or 0.25in, not "-1".'),
                (("--list", "--check"), 2, "--list and --check cannot go together."),
                (("--list", "x"), 2, "--list takes no document."),
                (("--print", "--screenshot", "x"), 2,
                 "--print and --screenshot cannot go together."),
                ((), 3, "No window can be opened: there is no display, or it does not answer."),
                (("--print",), 5, 'The print server "127.0.0.1" does not answer.'),
                (("--list", "--printer", "Office"), 5,
                 'The print server "127.0.0.1" does not answer.'),
                (("--print", *own, "--paper", "A4"), 5,
                 'The printer "sample-tape-resolution" has no tape named "A4".'),
                (("--dry-run", "--ppd", broken), 6,
                 'The PPD "{}" is damaged in line 4: OpenGroup'.format(broken)),
                (("--print", *own, home + "/missing"), 7,
                 'The document "{}/missing" cannot be read: No such file or directory.'
                 .format(home)),
                (("--print", *own, home), 7,
                 'The document "{}" cannot be read: it is not a regular file.'.format(home)),
                (("--print", *own, "--output", broken + "/out"), 8,
                 'Nothing could be printed into the folder "{}/out": '.format(broken)),
                (("--show-command", *own, LABEL), 5,
                 'There is no lp command for the printer "sample-tape-resolution": it prints into a '
                 "folder."),
                (("--print", *own, "--set", "Resolution=9dpi"), 10,
                 'The printer "sample-tape-resolution" has no choice "9dpi" for the option '
                 '"Resolution".')):
            # The toolkit leaves an application that cannot be opened half made.
            leaks = {} if arguments else {"ASAN_OPTIONS": "detect_leaks=0"}
            found, output, errors = run(*arguments, home=home, **NO_SERVER, **leaks)
            equal((found, output), (status, ""), " ".join(arguments))
            check(errors.startswith("tape-print: " + sentence), errors)
            equal(errors.count("\n"), 2 if status == 2 else 1, "lines of " + errors)
        equal(os.listdir(home), ["broken.ppd"], "what was written")


@test
def an_answer_that_cannot_be_written_is_a_failure():
    own = ("--ppd", sample("resolution"))
    with tempfile.TemporaryDirectory() as home, open("/dev/full", "w", encoding="utf-8") as full:
        for arguments in (("--help",), ("--version",), ("--list", "--printer", "Sample Tape"),
                          ("--check", *own), ("--dry-run", *own)):
            process = start(*arguments, home=home, stdout=full, **NO_SERVER)
            errors = process.communicate(timeout=120)[1]
            # The check finds no print server first.
            equal(process.returncode, 5 if "--check" in arguments else 9, " ".join(arguments))
            check("tape-print: The answer cannot be written.\n" in errors, errors)
        # The label lies printed in its folder, whatever becomes of the answer.
        process = start("--print", *own, home=home, stdout=full, **NO_SERVER)
        process.communicate(timeout=120)
        equal((process.returncode, os.listdir(home)), (0, ["out"]), "a job")


@test
def a_print_server_that_hangs_is_given_up_and_asked_for_queues_alone():
    with socket.create_server(("127.0.0.1", 0)) as server, \
            tempfile.TemporaryDirectory() as home:
        address = "127.0.0.1:{}".format(server.getsockname()[1])
        for printer in (("--ppd", sample("resolution")), ("--printer", "Sample Tape")):
            equal(run("--print", *printer, home=home, CUPS_SERVER=address)[0], 0, "own printers")
        server.settimeout(0.1)
        try:
            server.accept()
            raise Failed("the print server was asked")
        except TimeoutError:
            pass
        equal(run("--print", "--printer", "Office", CUPS_SERVER=address),
              (5, "", 'tape-print: The print server "127.0.0.1" does not answer.\n'),
              "after a long silence")


# Nothing but a group inside a group.
DAMAGED = '*PPD-Adobe: "4.3"\n*FormatVersion: "4.3"\n*OpenGroup: A\n*OpenGroup: B\n'


def without_tapes():
    with open(sample("few"), encoding="utf-8") as file:
        return "".join(line for line in file
                       if not re.search("PageSize|PageRegion|PaperDimension|ImageableArea", line))


def write(path, text):
    with open(path, "w", encoding="utf-8") as file:
        file.write(text)


def kept_line(name, line):
    return re.sub('"[^"]*{}"'.format(name), '"{}"'.format(name), line)


@test
def a_check_names_all_that_is_wrong_with_its_reason():
    with tempfile.TemporaryDirectory() as home:
        write(home + "/damaged.ppd", DAMAGED)
        write(home + "/bare.ppd", without_tapes())
        status, output, errors = run("--check", "--ppd", "damaged.ppd", "--ppd", "bare.ppd",
                                     "--ppd", sample("inches"), home=home, **NO_SERVER)
        equal((status, errors), (5, ""), "status of the first that is wrong")
        lines = [kept_line("PageSettings.plugin", line) for line in output.splitlines()]
        check(lines[2].startswith('wrong: The PPD "damaged.ppd" is damaged in line 4: '), lines[2])
        del lines[2]
        equal(lines,
              ['fine: The bundle "PageSettings.plugin" offers the panel "Page Settings".',
               'wrong: The print server "127.0.0.1" does not answer.',
               'wrong: The PPD of the printer "bare" names no tape.',
               'fine: The printer "sample-tape-inches" has a PPD that can be used: Sample Tape '
               'Inches, 1.0.',
               'fine: The printer "Sample Tape" has a PPD that can be used: Sample Tape, 1.0.'],
              "the others")
        status, output, _ = run("--check", "--plugin", home + "/Page.plugin", home=home,
                                **NO_SERVER)
        equal((status, output.splitlines()[0]),
              (4, 'wrong: The Page Settings panel is missing: there is no bundle at '
                  '"{}/Page.plugin".'.format(home)), "a bundle that is not there")


def texts_of(path, keyword):
    """(choice, title) of each "*Keyword choice/title:" line of a PPD, in order."""
    with open(path, encoding="utf-8") as file:
        return re.findall(r"^\*{} ([^/:\s]+)/([^:]*):".format(keyword), file.read(), re.M)


def value_of(path, keyword):
    with open(path, encoding="utf-8") as file:
        return re.search(r"^\*{}:\s*\"?([^\"\n]*?)\"?\s*$".format(keyword), file.read(), re.M)[1]


@test
def the_list_as_json_says_what_the_ppds_say():
    names = sorted(name for name in os.listdir(SAMPLES) if name.endswith(".ppd"))
    check(len(names) >= 11, "too few sample printers")
    arguments = [word for name in names for word in ("--ppd", SAMPLES + "/" + name)]
    status, output, errors = run("--list", "--json", *arguments, **NO_SERVER)
    equal((status, errors), (5, 'tape-print: The print server "127.0.0.1" does not answer.\n'),
          "a list without the server's printers")
    printers = json.loads(output)["printers"]
    equal([p["name"] for p in printers], [name[:-4] for name in names] + ["Sample Tape"], "names")
    equal([p["default"] for p in printers], [True] + [False] * len(names), "the default")
    for name, found in zip(names, printers):
        path = SAMPLES + "/" + name
        equal([(p["name"], p["title"]) for p in found["papers"]], texts_of(path, "PageSize"), name)
        sizes = dict(texts_of_sizes(path))
        for paper in found["papers"]:
            for side, points in zip(("width_mm", "length_mm"), sizes[paper["name"]]):
                check(abs(paper[side] - points * 25.4 / 72) < 0.006, "{}: {}".format(name, paper))
            equal(paper["fixed"], paper["name"][:2] in ("DC", "AV"), "of a label")
        equal(found["default_paper"], value_of(path, "DefaultPageSize"), "paper of " + name)
        options = {option["keyword"]: option for option in found["options"]}
        with open(path, encoding="utf-8") as file:
            keywords = re.findall(r"^\*OpenUI \*(\w+)", file.read(), re.M)
        kept = [k for k in keywords
                if k not in ("PageSize", "PageRegion", "VnTapeLength", "VnMargin")]
        equal(list(options), kept, "options of " + name)
        for keyword in kept:
            equal([(c["choice"], c["title"]) for c in options[keyword]["choices"]],
                  texts_of(path, keyword), keyword)
            equal(options[keyword]["default"], value_of(path, "Default" + keyword), keyword)
        equal(found["margin"] is None, "VnMargin" not in keywords, "margin of " + name)
        if "none" in name:
            continue
        equal(found["unit"], "in" if "inch" in value_of(path, "VnUnitType") else "mm", "unit")
        for kind, limits in (("length", "TapeLength"), ("margin", "Margin")):
            for end, beginning in (("minimum_mm", "VnMin"), ("maximum_mm", "VnMax")):
                equal(found[kind][end], float(value_of(path, beginning + limits)), kind + end)
            equal(found[kind]["whole_numbers"],
                  value_of(path, "VnIsInteger" + limits).lower() == "true", "whole " + kind)


def texts_of_sizes(path):
    with open(path, encoding="utf-8") as file:
        for name, width, length in re.findall(r'^\*PaperDimension ([^/:]+)[^:]*: "(\S+) (\S+)"',
                                              file.read(), re.M):
            yield name, (float(width), float(length))


@test
def a_list_is_valid_json_whatever_a_ppd_says_of_itself():
    with tempfile.TemporaryDirectory() as home:
        with open(sample("few"), "rb") as file:
            text = file.read()
        changed = text.replace(b"/12 mm tape:", b'/a"b\\c \xe2\x82\xac\xff <tape>&:')
        check(changed != text, "the sample has no such tape")
        with open(home + "/odd.ppd", "wb") as file:
            file.write(changed)
        output = answered("--list", "--json", "--ppd", "odd.ppd", "--printer", "odd", home=home,
                          **NO_SERVER)
        paper = json.loads(output)["printers"][0]["papers"][2]
        equal((paper["name"], paper["title"]), ("TC12", 'a"b\\c \u20ac\ufffd <tape>&'), "the tape")
        output = answered("--list", "--ppd", "odd.ppd", "--printer", "odd.ppd", home=home,
                          **NO_SERVER)
        # The bytes of a text that is no UTF-8 are taken for letters.
        check('TC12: a"b\\c \u00e2' in output and "\u00ff <tape>&\n" in output, output)


# At a print server with a queue in millimetres ("tape"), one in inches and a raw one.

@test
def a_job_arrives_at_the_server_as_asked_for():
    title = 'Shelf "1" a=b \\ $HOME %s ü'
    answer = answered("--print", "--printer", "tape", "--paper", "TC12", "--length", "62.5",
                      "--margin", "4.2", "--set", "Resolution=300x600dpi", "--copies", "2",
                      "--title", title, LABEL)
    equal(answer, 'Printed on "tape" as job 1.\n', "answer")
    job, asked = arrived(1), {"PageSize": "Custom.12x62.5mm", "VnTapeLength": "62.5",
                              "VnMargin": "4.2", "VnPriority": "Speed",
                              "Resolution": "300x600dpi", "VnCompress": "On"}
    equal({k: v for k, v in job["options"].items() if not k.startswith("document-name")}, asked,
          "options")
    equal((job["title"].decode(), job["copies"]), (title, b"2"), "title and copies")
    with open(LABEL, "rb") as file:
        equal(job["document"][1], hash(file.read()), "document")
    kept = job_attributes(1)
    equal({name: kept.get(name) for name in asked}, asked, "what the server says of the job")
    equal(kept["copies"], 2, "copies there")


NASTY = [" two words ", "it's \"x\"", "back\\slash", "$HOME `id` $(id)", "a;b|c&d>e<f", "x{brace}",
         "*?[x]!#~ %s%n", "Größe 5 €, a", "-n", "=cat", "tab\there"]


@test
def a_shell_that_runs_the_shown_command_prints_the_same_job():
    with tempfile.TemporaryDirectory() as home:
        for number, word in enumerate(NASTY):
            # The server takes no name with a tab.
            title = word.replace("\t", " ")
            document = "{}/{}.png".format(home, title.replace("/", ""))
            with open(LABEL, "rb") as file, open(document, "wb") as copy:
                copy.write(file.read() + word.encode())
            queue = ("tape", "inches")[number % 2]
            asked = ("--printer", queue, "--title", word, "--set", "Note=" + word, "--length",
                     str(20 + 7 * number) + "mm", "--copies", str(1 + number % 3), "--set",
                     "VnCompress=Off", document)
            status, line, remarks = run("--show-command", *asked)
            equal(status, 0, "the command for " + word)
            equal(line.count("\n"), 1, "lines of " + line)
            shell = ("sh", "bash")[number // 2 % 2]
            by_lp = subprocess.run([shell, "-c", line], env=surroundings(home), cwd="/",
                                   check=True, capture_output=True, text=True).stdout
            status, ours, said = run("--print", *asked)
            equal((status, said), (0, remarks), "what is said of " + word)
            jobs = [arrived(job_number(answer)) for answer in (by_lp, ours)]
            equal(jobs[0], jobs[1], "the jobs for " + word)
            equal(jobs[0]["title"].decode(), title, "title")
            equal(jobs[0]["options"]["Note"], word, "option")
            kept = [job_attributes(job_number(answer)) for answer in (by_lp, ours)]
            names = set(jobs[0]["options"]) - {"document-name-supplied"}
            equal(*[{name: attributes.get(name) for name in names} for attributes in kept],
                  "what the server says of the jobs")


@test
def what_cannot_be_a_command_is_said():
    equal(run("--show-command", "--printer", "tape"),
          (7, "", "tape-print: There is no lp command for the built-in sample label: it is no "
                  "file.\n"), "no document")
    equal(run("--show-command", "--printer", "tape", "--set", "a b=c", LABEL),
          (10, "", "tape-print: There is no lp command for these options: lp cannot read the name "
                   "of one of them.\n"), "a keyword with a blank")


@test
def every_length_asked_for_is_the_length_of_the_page_at_the_server():
    one = decimal.Decimal
    lengths = [one(text) for text in ("10", "10.01", "25.4", "39.99", "57.05", "99.9",
                                      "123.45", "999.91", "1000")]
    for number, length in enumerate(lengths, 1):
        run("--print", "--printer", "tape", "--length", str(length))
        # Up to the next tenth of a millimetre.
        shown = (length * 10).to_integral_value(decimal.ROUND_CEILING) / 10
        kept = job_attributes(number)
        equal(kept["VnTapeLength"], "{:.1f}".format(shown), "length")
        equal(kept["PageSize"], "Custom.24x{}mm".format("{:.1f}".format(shown).removesuffix(".0")),
              "page for {} mm".format(length))
    inches = [one(text) for text in ("0.5", "0.505", "1", "2.25", "7.777", "36")]
    for number, length in enumerate(inches, len(lengths) + 1):
        run("--print", "--printer", "inches", "--length", str(length))
        # Up to the next hundredth of an inch; then millimetres by the panel's factor.
        shown = (length * 100).to_integral_value(decimal.ROUND_CEILING) / 100
        saved = min(max(shown / one("0.0393701"), one("12.7")), one("914.4"))
        text = str(saved.quantize(one("0.1"), decimal.ROUND_HALF_UP))
        kept = job_attributes(number)
        equal(kept["VnTapeLength"], text, "length")
        equal(kept["PageSize"], "Custom.24x{}mm".format(text.removesuffix(".0")),
              "page for {} inches".format(length))


@test
def lists_and_checks_know_the_queues_and_the_raw_ones():
    printers = json.loads(answered("--list", "--json"))["printers"]
    equal([(p["name"], p["kind"], p["default"], p["unit"]) for p in printers],
          [("inches", "queue", True, "in"), ("tape", "queue", False, "mm"),
           ("Sample Tape", "sample", False, "mm")], "printers")
    equal(printers[1]["device"], "usb://Sample/Tape", "device")
    check(answered("--list", "--printer", "tape").startswith("tape\n    Sample Tape Resolution"),
          "one printer alone")
    lines = answered("--check").splitlines()
    equal([line.split(":")[0] for line in lines], ["fine"] * 5, "the check")
    equal(lines[1], "fine: The print server answers.", "the server")
    equal(lines[3], 'fine: The printer "tape" has a PPD that can be used: Sample Tape Resolution, '
                    "1.0.", "a queue")
    raw = 'The printer "raw" offers no PPD: it is a raw queue.'
    status, output, _ = run("--check", "--printer", "raw")
    equal((status, output.splitlines()[-1]), (6, "wrong: " + raw), "a raw queue")
    equal(run("--print", "--printer", "raw"), (6, "", "tape-print: " + raw + "\n"), "the same")
    missing = 'There is no printer named "Office".'
    equal(run("--list", "--printer", "Office"), (5, "", "tape-print: " + missing + "\n"), "none")
    status, output, _ = run("--check", "--printer", "Office")
    equal((status, output.splitlines()[-1]), (5, "wrong: " + missing), "none")


@test
def a_queue_that_takes_no_jobs_or_keeps_them_is_said():
    status, output, errors = run("--print", "--printer", "inches")
    equal((status, output), (8, ""), "a queue that takes no jobs")
    check(errors.startswith('tape-print: The print server did not take the job for "inches"'),
          errors)
    subprocess.run(["cupsdisable", "tape"], check=True)
    equal(run("--print", "--printer", "tape"),
          (0, 'Printed on "tape" as job 1.\n',
           'tape-print: The job 1 waits on "tape": the printer is stopped.\n'), "a stopped queue")



if __name__ == "__main__":
    main()
