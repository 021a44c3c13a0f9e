#!/usr/bin/env python3
"""manual_test.py PROGRAM SOURCE-FOLDER SENTENCE - the manual page and the shells' completions.

All three are written by hand; what they name is compared with what the program's --help names, which
is made from the table that the program itself reads its command line by.
"""

import os
import re
import subprocess
import sys
import tempfile

sys.dont_write_bytecode = True
sys.path.insert(0, os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
from drive import check, equal  # noqa: E402
from sentences import main, test  # noqa: E402

PROGRAM, SOURCE = sys.argv[1], sys.argv[2]
MANUAL = SOURCE + "/docs/man/tape-print.1"
BASH = SOURCE + "/packaging/completion/tape-print.bash"
ZSH = SOURCE + "/packaging/completion/_tape-print"
def output_of(*command, **settings):
    environment = {name: value for name, value in os.environ.items()
                   if name not in ("DISPLAY", "LANGUAGE")}
    # Nobody listens at port 1: no test here may meet the machine's own print server.
    environment.update(LC_ALL="C.UTF-8", CUPS_SERVER="127.0.0.1:1")
    environment["PATH"] = os.path.dirname(PROGRAM) + ":" + environment["PATH"]
    done = subprocess.run(command, capture_output=True, text=True, env=environment, timeout=100,
                          **settings)
    equal((done.returncode, done.stderr), (0, ""), " ".join(command)[:200])
    return done.stdout


def help_says():
    """(option, placeholder) in order, and (number, meaning) of the exit statuses."""
    options, statuses = output_of(PROGRAM, "--help").split("\nExit status:\n")
    return (re.findall(r"^  (--[a-z-]+) ?(\S*)  +\S", options, re.M),
            re.findall(r"^ +(\d+)  (\S.*)$", statuses, re.M))


@test
def the_manual_has_the_options_and_exit_statuses_of_the_program():
    with open(MANUAL, encoding="utf-8") as file:
        source = file.read()
    plain = source.replace("\\-", "-")
    options, statuses = help_says()
    check(len(options) >= 26 and len(statuses) >= 11, "too little in the help")
    told = re.findall(r'^\.TP\n\.BI? (--[a-z-]+)(?: "? ?([^"\n]+)"?)?$', plain, re.M)
    equal(told, options, "options of the manual")
    section = plain.split(".SH EXIT STATUS\n")[1].split(".SH ")[0]
    equal(re.findall(r"^\.TP\n\.B (\d+)\n(.+)$", section, re.M), statuses, "exit statuses")
    check(output_of(PROGRAM, "--version").strip() in plain.split("\n.SH")[0], "another version")
    page = output_of("groff", "-man", "-ww", "-Tutf8", "-P-cbou", MANUAL)
    check("EXIT STATUS" in page and len(page) > 4000, "no page")


def by_bash(*words):
    """What bash offers for the last word, given as bash splits them."""
    script = ('source "$1"; shift; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _tape_print; '
              '[ ${#COMPREPLY[@]} = 0 ] || printf "%s\\n" "${COMPREPLY[@]}"')
    return output_of("bash", "-c", script, "-", BASH, "tape-print", *words).split("\n")[:-1]


@test
def bash_completes_every_option_and_what_is_known_of_its_value():
    with tempfile.TemporaryDirectory() as folder:
        os.mkdir(folder + "/labels")
        ppd = folder + "/label printer.ppd"
        os.symlink(SOURCE + "/samples/sample-tape-few.ppd", ppd)
        typed_ppd = ppd.replace(" ", "\\ ")
        options, _ = help_says()
        equal(by_bash("--"), [name for name, _ in options], "options")
        for name, placeholder in options:
            offered = by_bash(name, folder + "/l")
            expected = {"FILE": [ppd, folder + "/labels"], "FOLDER": [folder + "/labels"],
                        "PATH": [folder + "/labels"], "": [ppd, folder + "/labels"]}
            equal(sorted(offered), expected.get(placeholder, []), "value of " + name)
            if placeholder in ("FILE", "FOLDER", "PATH"):
                equal(by_bash(name, "=", folder + "/labels"), [folder + "/labels"], name + "=")
        equal(by_bash("--printer", ""), ["Sample\\ Tape"], "printers")
        equal(by_bash("--printer", "'Sam"), ["Sample Tape"], "in quotes")
        equal(by_bash("--ppd", typed_ppd, "--printer", "=", "l"), ["label\\ printer"], "of a PPD")
        equal(by_bash("--printer", "Sample\\ Tape", "--paper", "TC1"), ["TC12", "TC18"], "tapes")
        equal(by_bash("--paper", "=", "DC"), ["DC24x40"], "after an equals sign")
        equal(by_bash("--set", "Reso"), ["Resolution=300x300dpi", "Resolution=300x600dpi"], "set")
        equal(by_bash("--set", "Resolution", "=", "300x6"), ["300x600dpi"], "a choice")
        equal(by_bash("--set", "=", "VnCompress", "="), ["Off", "On"], "choices")
        # The sample with few options.
        equal(by_bash("--ppd", typed_ppd, "--set", ""), ["VnPriority=Quality", "VnPriority=Speed"],
              "options of the first printer")
        equal(by_bash("--appearance", ""), ["auto", "light", "dark"], "looks")
    equal(output_of("bash", "-c", 'source "$1"; complete -p tape-print', "-", BASH),
          "complete -F _tape_print tape-print\n", "what is completed")


def by_zsh(function, *words):
    """What a function of the completion adds with these words on the command line."""
    script = ('file=$1; shift; _arguments() { : }; compadd() { shift; print -l -- ${(P)1} }; '
              'words=("$@"); CURRENT=$#; source "$file"; ' + function)
    return output_of("zsh", "-fc", script, "-", ZSH, "tape-print", *words).split("\n")[:-1]


@test
def zsh_offers_every_option_and_what_is_known_of_its_value():
    descriptions = output_of("zsh", "-fc", '_arguments() { print -rl -- "$@" }; source "$1"', "-",
                               ZSH).split("\n")[:-1]
    told = [re.fullmatch(r"(?:\*|\(- \*\))?(--[a-z-]+)(=?)\[[^]]+\](?::[^:]+:(.*))?", s)
            for s in descriptions[:-1]]
    check(all(told), "not understood: {}".format(descriptions))
    options, _ = help_says()
    equal([(s[1], s[2] == "=", s[3] is not None) for s in told],
          [(name, value != "", value != "") for name, value in options], "options")
    for description, (name, placeholder) in zip(told, options):
        completes = {"FILE": "_files", "FOLDER": "_files -/", "PATH": "_files -/",
                     "LOOK": "(auto light dark)", "KEYWORD=CHOICE": "_tape_print_settings"}
        completes = {"--printer": "_tape_print_printers",
                     "--paper": "_tape_print_papers"}.get(name, completes.get(placeholder, " "))
        equal(description[3], completes if placeholder else None, "value of " + name)
    equal(descriptions[-1], "*:document:_files", "the document")
    few = SOURCE + "/samples/sample-tape-few.ppd"
    equal(by_zsh("_tape_print_printers", "--printer", "Sample\\ Tape", "--ppd=" + few, "--printer",
                 ""), ["sample-tape-few", "Sample Tape"], "printers")
    equal(by_zsh("_tape_print_papers", "--printer", "Sample\\ Tape", "--paper", ""),
          ["AV12x60", "DC24x40", "TC12", "TC18", "TC24", "TC6", "TC9"], "tapes")
    equal(by_zsh("_tape_print_settings", "--ppd", few, "--set", ""),
          ["VnPriority=Quality", "VnPriority=Speed"], "options of the first printer")



if __name__ == "__main__":
    main()
