"""Opens tape-print and works it by keys and mouse, as a person would."""

import collections
import os
import shutil
import subprocess
import sys
import tempfile
import time

PATIENCE = 30  # seconds for anything the dialog is waited for

Control = collections.namedtuple("Control", "name x y width height enabled on spoken text")


class Failed(Exception):
    pass


def check(condition, sentence):
    if not condition:
        raise Failed(sentence)


def equal(found, expected, what):
    check(found == expected, "{}: expected {!r}, found {!r}".format(what, expected, found))


def wait_for(question, what, patience=PATIENCE):
    deadline = time.monotonic() + patience
    while time.monotonic() < deadline:
        answer = question()
        if answer:
            return answer
        time.sleep(0.05)
    raise Failed("waited in vain for " + what)


def xdotool(*words):
    subprocess.run(["xdotool", *map(str, words)], check=True, stdout=subprocess.DEVNULL)


def nudge():
    """A hand is never quite still.  The toolkit can have read an event without having looked at it
    yet; the next movement of the mouse lets it go on."""
    for step in (1, -1):
        xdotool("mousemove_relative", "--", step, 0)
        time.sleep(0.05)


def click():
    xdotool("mousedown", 1)
    time.sleep(0.1)
    xdotool("mouseup", 1)
    time.sleep(0.05)
    nudge()


def picture_of(control):
    """The pixels of the control and of what is drawn around it."""
    area = "{}x{}+{}+{}".format(control.width + 8, control.height + 8, control.x - 4, control.y - 4)
    return subprocess.run(["import", "-window", "root", "-crop", area, "rgb:-"], check=True,
                          capture_output=True).stdout


def parse_controls(text):
    controls = []
    for line in text.splitlines():
        name, x, y, width, height, enabled, on, spoken, value = line.split("\t", 8)
        controls.append(Control(name, int(x), int(y), int(width), int(height),
                                enabled == "enabled", on == "on", spoken, value))
    return controls


def options_of(lines):
    """keyword=choice lines as a dictionary; a keyword that comes twice is an error."""
    options = {}
    for line in lines:
        keyword, _, choice = line.partition("=")
        check(keyword not in options, "the option {} came twice".format(keyword))
        options[keyword] = choice
    return options


class Dialog:
    """A running tape-print.  Used in a with statement; it is ended in any case.

    It has a configuration folder of its own, so that it remembers nothing of an earlier one."""

    def __init__(self, program, *arguments, environment=None):
        self.room = tempfile.mkdtemp(prefix="tape-print.")
        self.output = self.room + "/out"
        self.listing = self.room + "/controls"
        words = [program, "--output", self.output, "--list-controls", self.listing, *arguments]
        self.errors = open(self.room + "/errors", "w+", encoding="utf-8")
        self.answers = open(self.room + "/answers", "w+", encoding="utf-8")
        settings = {"XDG_CONFIG_HOME": self.room + "/config", **(environment or {})}
        self.process = subprocess.Popen(words, stderr=self.errors, stdout=self.answers,
                                        stdin=subprocess.DEVNULL, cwd=self.room,
                                        env=dict(os.environ, **settings))

    def __enter__(self):
        return self

    def __exit__(self, kind, value, trace):
        if self.process.poll() is None:
            if kind is not None and shutil.which("import"):
                print("\n".join(map(str, self.controls())), file=sys.stderr)
            self.process.kill()
            self.process.wait()
        if kind is not None:
            sys.stderr.write(self.read_errors())
        self.errors.close()
        self.answers.close()
        shutil.rmtree(self.room, ignore_errors=True)

    def read_errors(self):
        with open(self.room + "/errors", encoding="utf-8") as file:
            return file.read()

    def read_answers(self):
        with open(self.room + "/answers", encoding="utf-8") as file:
            return file.read()

    def controls(self):
        try:
            with open(self.listing, encoding="utf-8") as file:
                return parse_controls(file.read())
        except FileNotFoundError:
            return []

    def all(self, name):
        return [c for c in self.controls() if c.name == name]

    def wait(self, name, text=None, index=0, on=None):
        """The control of that name (the index-th from above) once it shows the text."""
        def look():
            check(self.process.poll() is None or self.controls(), "tape-print has ended")
            found = sorted(self.all(name), key=lambda c: (c.y, c.x))
            if text is not None and name in ("cell", "item"):
                found = [c for c in found if c.text == text]
            if len(found) <= index:
                return None
            control = found[index]
            if text is not None and control.text != text:
                return None
            return control if on is None or control.on == on else None
        return wait_for(look, "{} {}{!r}{}".format(name, index, text,
                                                   "" if on is None else " on" if on else " off"))

    def press(self, control):
        xdotool("mousemove", control.x + min(control.width, 200) // 2,
                control.y + control.height // 2)
        time.sleep(0.1)
        click()

    def pick(self, name, title):
        """Opens the pop-up, drags to the item and lets go."""
        pop_up = self.wait(name)
        xdotool("mousemove", pop_up.x + 60, pop_up.y + pop_up.height // 2)
        time.sleep(0.1)
        xdotool("mousedown", 1)
        time.sleep(0.1)
        nudge()
        item = self.wait("item", title)
        # A first small move: the menu follows the mouse only once it has moved inside.
        xdotool("mousemove", item.x + 40, item.y + item.height // 2 - 2)
        time.sleep(0.2)
        xdotool("mousemove", item.x + 42, item.y + item.height // 2)
        time.sleep(0.2)
        xdotool("mouseup", 1)
        time.sleep(0.1)
        nudge()

    def choose(self, name, title):
        """Picks from a pop-up that shows what was chosen."""
        self.pick(name, title)
        wait_for(lambda: not self.all("item"), "{} to close".format(name))
        self.wait(name, title)

    def type_into(self, control, text, key="Tab"):
        """Clicks the field, deletes what is there, types and leaves with the key."""
        self.press(control)
        xdotool("key", "--delay", 40, "End", *["BackSpace"] * len(control.text))
        self.type(text)
        wait_for(lambda: any(c[:3] == control[:3] and c.text == text for c in self.controls()),
                 "the field to show " + text)
        if key:
            xdotool("key", key)
            time.sleep(0.1)
            nudge()

    def type(self, text):
        xdotool("type", "--delay", 40, text)
        time.sleep(0.1)
        nudge()

    def message(self, beginning):
        return wait_for(lambda: any(c.text.startswith(beginning) for c in self.all("Message")),
                        "the message " + beginning)

    def end(self, expected):
        try:
            status = self.process.wait(timeout=PATIENCE)
        except subprocess.TimeoutExpired:
            raise Failed("tape-print did not end") from None
        equal(status, expected, "exit status")

    def job_in_folder(self, number=1):
        folder = "{}/job-{}/".format(self.output, number)
        with open(folder + "options", encoding="utf-8") as file:
            return options_of(file.read().splitlines())


def run_once(program, *arguments, environment=None):
    """Runs to the end; answers status, standard output and standard error."""
    done = subprocess.run([program, *arguments], stdin=subprocess.DEVNULL, capture_output=True,
                          text=True, timeout=2 * PATIENCE,
                          env=dict(os.environ, **(environment or {})))
    return done.returncode, done.stdout, done.stderr
