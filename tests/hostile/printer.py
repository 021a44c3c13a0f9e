"""A printer as its PPD describes it, and what the panel and the dialog make of it.

A case takes the whole printer, spoils one thing of its PPD (`ppd`) and says what the panel then
shows and hands over (everything else).  What is not said stays as it is for the whole printer.
"""

import copy
import math
import struct

POINTS_OF_100_MM = "283.465"
USB = "usb://Vendor/LabelPrinter"


def single(number):
    """The nearest single-precision number, beyond their range infinite."""
    try:
        return struct.unpack("f", struct.pack("f", number))[0]
    except OverflowError:
        return math.copysign(math.inf, number)


def fixed(value, decimals):
    return "{:.{}f}".format(value, decimals)


def ceiling(value):
    """Rounded up; what comes to nothing keeps its sign, as it does in C."""
    return math.copysign(math.ceil(value), value)


def number(text):
    """As the toolkit reads a text of a field: what is no decimal number is 0."""
    try:
        value = float(text or "0")
    except ValueError:
        return 0.0
    return value if math.isfinite(value) else 0.0


class Choices:
    """One option of the panel: what its row offers."""

    def __init__(self, title, keywords, titles, default=0):
        self.title = title        # of the option; None: the panel's own wording
        self.keywords = keywords  # what is handed over; None: that choice cannot be
        self.titles = titles      # what the row shows
        self.summaries = None     # what the summary shows, where it is not the row's title
        self.default = default    # the row selected at first
        self.offered = True       # whether the PPD has the option at all
        self.enabled = True

    def summary(self, row):
        return (self.summaries or self.titles)[row]


class Limits:
    """Minimum and maximum, as numbers in millimetres, the way the panel reads the PPD's texts."""

    def __init__(self, least, most):
        self.least, self.most = single(least), single(most)

    def hold(self, value):
        if self.least > value:
            return self.least
        return self.most if value > self.most else value


class Fields:
    """The length and margin fields while they are edited."""

    def __init__(self, printer, length, margin):
        self.printer, self.length, self.margin = printer, length, margin
        self.alerts = 0  # that the margin is too wide

    def edit_length(self, text):
        if not self.printer.fixed_label:
            self.length = text
            self.type_and_leave()

    def edit_margin(self, text):
        if not self.printer.fixed_label:
            self.margin = text
            self.type_and_leave()

    def type_and_leave(self):
        """While it is typed only what is above a maximum is corrected, then everything."""
        lengths = self.printer.limits_in_unit(self.printer.length_limits)
        margins = self.printer.limits_in_unit(self.printer.margin_limits)
        if (single(number(self.length)) > lengths.most or
                single(number(self.margin)) > margins.most):
            self.check()
        self.check()

    def check(self):
        printer = self.printer
        if printer.fixed_label:
            return
        self.length = printer.rounded_up(printer.held(self.length, printer.length_limits),
                                         printer.whole_lengths)
        if printer.margin is None:
            return
        self.margin = printer.rounded_up(printer.held(self.margin, printer.margin_limits),
                                         printer.whole_margins, noise=1e9)
        margin = math.inf if self.margin == "inf" else number(self.margin)
        if single(margin) > single(number(self.length)) * 0.5:
            self.alerts += 1
            length = 2 * margin + printer.dot
            self.length = (fixed(length, 2) if printer.inches
                           else printer.rounded_up(length, printer.whole_margins))


class Printer:
    def __init__(self):
        self.ppd = PPD()
        self.path = None        # of something that is no file of ours
        self.refusal = None     # a sentence; then nothing else counts
        self.conflict = None    # how the sentence begins when the dialog prints nothing
        self.uri = USB

        self.inches = False
        self.whole_lengths = False
        self.whole_margins = False
        self.length_limits = Limits(10, 1000)
        self.margin_limits = Limits(1, 50)
        self.width = "24 mm strip"
        self.paper = 100.0        # millimetres, to a thousandth
        self.fixed_label = False
        self.margin = 3.0         # the default; None: no such option
        self.length_title = "Len"
        self.margin_title = "Edge"
        self.dot = 0.1            # the least step above a margin, in the panel's unit
        self.quality = Choices("Prio", ["Speed", "Finer"], ["Swift", "Neat"])
        self.resolution = Choices("Dots", ["300x300dpi", "300x600dpi"], ["Square", "Tall"])
        self.compress = Choices("Pack", ["Slack", "Firm"], ["Loose", "Tight"], default=1)
        self.mode = Choices("Mode", [], [])
        self.mode.offered = False

    def spoiled(self, **changes):
        """A copy with attributes changed; a dot goes into an object: quality__offered=False."""
        result = copy.deepcopy(self)
        for name, value in changes.items():
            target = result
            *path, last = name.split("__")
            for step in path:
                target = getattr(target, step)
            if not hasattr(target, last):
                raise AttributeError(name)
            setattr(target, last, value)
        return result

    # What the panel makes of numbers: a second computation, apart from the panel's own.

    def inch(self, millimetres):
        return fixed(single(millimetres * 0.0393701), 2)

    def tenths_up(self, value):
        product = single(single(value) * 10)
        return (product if math.isinf(product) else ceiling(product)) / 10

    def whole_text(self, value, up):
        if math.isnan(value):
            return "0"
        rounded = value if math.isinf(value) else (math.ceil(value) if up else math.trunc(value))
        return str(int(max(-2**31, min(2**31 - 1, rounded))))

    def length_text(self, millimetres):
        if self.inches:
            return self.inch(millimetres)
        return (self.whole_text(millimetres, up=False) if self.whole_lengths
                else fixed(millimetres, 1))

    def margin_text(self, millimetres):
        if self.inches:
            return self.inch(millimetres)
        return self.up_text(millimetres, self.whole_margins)

    def up_text(self, value, whole):
        return self.whole_text(value, up=True) if whole else fixed(self.tenths_up(value), 1)

    def range_text(self, limits, whole):
        texts = [self.inch(v) if self.inches else self.up_text(v, whole)
                 for v in (limits.least, limits.most)]
        return " ".join(texts)

    def limits_in_unit(self, limits):
        if not self.inches:
            return limits
        return Limits(float(self.inch(limits.least)), float(self.inch(limits.most)))

    def millimetres(self, value):
        return value / 0.0393701 if self.inches else value

    def saved_length(self, shown):
        length = self.millimetres(number(shown))
        if not self.fixed_label:
            length = self.length_limits.hold(length)
        return (self.whole_text(length, up=False) if self.whole_lengths else fixed(length, 1))

    def saved_margin(self, shown):
        margin = single(self.millimetres(number(shown)))
        least = self.margin_limits.least
        if least + 0.1 > margin and abs(least + 0.1 - margin) > 1e-6 * abs(margin):
            margin = least
        if not self.fixed_label:
            margin = self.margin_limits.hold(margin)
        return self.up_text(margin, self.whole_margins)

    def summed_up_length(self, shown):
        if self.fixed_label:
            return shown
        value = self.limits_in_unit(self.length_limits).hold(single(number(shown)))
        return fixed(value, 2) if self.inches else self.up_text(value, self.whole_lengths)

    def rounded_up(self, value, whole, noise=1e6):
        """An entry as a check leaves it.  Millimetres are rounded in single precision; in inches
        what the arithmetic adds below a `noise`-th of a hundredth is cut first."""
        if self.inches:
            return fixed(math.ceil(math.floor(value * 100 * noise) / noise) / 100, 2)
        if whole:
            return self.whole_text(value, up=True)
        return fixed(single(ceiling(single(single(value) * 10)) / 10) if math.isfinite(value)
                     else value, 1)

    def held(self, text, limits):
        """The number of a field within the limits, which are looked at in single precision."""
        value = number(text)
        near = self.limits_in_unit(limits)
        held = near.hold(single(value))
        if held != single(value):
            return float(self.inch(limits.least if held == near.least else limits.most)) \
                if self.inches else held
        return value

    # What is seen.

    def observations(self):
        """(what, text) pairs; {KEY} in a text stands for the panel's own wording."""
        length, margin = self.length_text(self.paper), ""
        if self.margin is not None:
            margin = self.margin_text(self.margin)
        rows = {name: choices.default for name, choices in self.rows()}
        yield "shown length", plain(length)
        yield "shown margin", plain(margin)
        yield "shown width", self.wording(self.width, "RS_TapeWidthNot")
        yield "shown unit", "{RS_Inch}" if self.inches else "{RS_mm}"
        yield "length range", self.range_text(self.length_limits, self.whole_lengths)
        yield "margin range", self.range_text(self.margin_limits, self.whole_margins)
        yield "editable", " ".join(
            (["length"] if not self.fixed_label else []) +
            (["margin"] if not self.fixed_label and self.margin is not None else []))
        yield "length caption", self.caption(self.length_title, "RS_TapeLength")
        yield "margin caption", self.caption(self.margin_title, "RS_Margin")
        yield "keys", " ".join(self.keys())
        for name, choices in self.rows():
            yield name, self.row(name, choices)
        yield "first job", self.job(length, margin, rows)
        yield "first summary", self.summary(length, margin, rows)

        unedited = Fields(self, length, margin)
        unedited.check()
        yield "alerts", str(unedited.alerts)
        yield "printed job", self.job(unedited.length, unedited.margin, rows)

        fields = Fields(self, length, margin)
        fields.edit_length("2.19" if self.inches else "55.5")
        if self.margin is not None:
            fields.edit_margin("0.17" if self.inches else "4.2")
        # The second quality and print mode, the first compression; each choice ends in a check.
        for name, choices in self.rows():
            if name in ("quality", "mode") and len(choices.keywords) > 1 and choices.enabled:
                rows[name] = 1
                fields.check()
            if name == "compress" and choices.keywords and choices.enabled:
                rows[name] = 0
                fields.check()
        fields.check()
        yield "last job", self.job(fields.length, fields.margin, rows)
        fields.check()
        yield "edited length", plain(fields.length)
        yield "edited margin", plain(fields.margin)
        yield "last summary", self.summary(fields.length, fields.margin, rows)

    def rows(self):
        named = (("quality", self.quality), ("resolution", self.resolution),
                 ("compress", self.compress), ("mode", self.mode))
        return [(name, choices) for name, choices in named if choices.offered]

    def keys(self):
        order = (("VnPriority", self.quality.offered), ("VnMargin", self.margin is not None),
                 ("Resolution", self.resolution.offered), ("VnCompress", self.compress.offered),
                 ("VnResolution", self.mode.offered))
        return [key for key, offered in order if offered]

    @staticmethod
    def wording(text, key):
        return "{" + key + "}" if text is None else plain(text)

    def caption(self, title, key):
        return "{" + key + "}" if title is None else plain(title) + " : "

    def row(self, name, choices):
        if name == "resolution" and (len(choices.keywords) == 1 or self.mode.offered):
            return "hidden"
        fallback = "RS_Resolution" if name == "resolution" else (
            "RS_Compress" if name == "compress" else "RS_Quality")
        return "{} {} {}: {}".format(
            "on" if choices.enabled else "off", choices.default if choices.titles else -1,
            self.caption(choices.title, fallback), "|".join(choices.titles))

    def job(self, length, margin, rows):
        told = ["VnTapeLength=" + self.saved_length(length)]
        if self.margin is not None:
            told.append("VnMargin=" + self.saved_margin(margin))
        keywords = {"quality": "VnPriority", "resolution": "Resolution", "compress": "VnCompress",
                    "mode": "VnResolution"}
        for name, choices in self.rows():
            if not choices.keywords:
                continue
            row = rows[name]
            if name == "quality" and self.resolution.offered and rows.get("resolution"):
                row = 0
            if choices.keywords[row] is not None:
                told.append(keywords[name] + "=" + plain(choices.keywords[row]))
        return "|".join(told)

    def summary(self, length, margin, rows):
        unit = "{RS_Inch}" if self.inches else "{RS_mm}"
        lines = [("{RS_STitle_TapeWidth}", self.wording(self.width, "RS_TapeWidthNot")),
                 (self.wording(self.length_title, "RS_STitle_TapeLength"),
                  plain(self.summed_up_length(length)) + unit)]
        if self.margin is not None:
            lines.append((self.wording(self.margin_title, "RS_STitle_Margin"),
                          plain(margin) + unit))

        def line(name, choices, key):
            if choices.offered and choices.keywords:
                lines.append((self.wording(choices.title, key), choices.summary(rows[name])))
        line("mode", self.mode, "RS_STitle_Quality")
        if not (self.resolution.offered and rows.get("resolution") == 1):
            line("quality", self.quality, "RS_STitle_Quality")
        if not (self.mode.offered and self.mode.keywords):
            line("resolution", self.resolution, "RS_STitle_Resolution")
        if self.uri.startswith("usb"):
            line("compress", self.compress, "RS_STitle_Compress")
        # A title that comes twice names the later value both times.
        last = dict(lines)
        return "|".join("{}: {}".format(title, last[title]) for title, _ in lines)


def plain(text):
    """Text for an observation: what could be taken for a wording or a new line is escaped."""
    return "".join("%{:02X}".format(b) if b < 32 or b > 126 or chr(b) in "%{}|" else chr(b)
                   for b in (text if isinstance(text, bytes) else text.encode("utf-8")))


class PPD:
    """The printer's PPD as named pieces of bytes, so that a case can spoil just one."""

    def __init__(self):
        self.pieces = {}
        self.put("head", '*PPD-Adobe: "4.3"\n')
        self.put("format", '*FormatVersion: "4.3"\n')
        self.put("language", "*LanguageVersion: English\n")
        self.put("encoding", "*LanguageEncoding: UTF-8\n")
        self.put("names", '*Manufacturer: "Vendor"\n*ModelName: "Vendor Label Printer"\n'
                          '*NickName: "Vendor Label Printer"\n*PCFileName: "LABEL.PPD"\n'
                          '*Product: "(Label)"\n*PSVersion: "(3010) 0"\n')
        for keyword, value in (("VnUnitType", "mm"), ("VnIsIntegerTapeLength", "False"),
                               ("VnIsIntegerMargin", "False"), ("VnMinTapeLength", "10.0"),
                               ("VnMaxTapeLength", "1000.0"), ("VnMinMargin", "1.0"),
                               ("VnMaxMargin", "50.0"), ("VnTapeType", "Standard"),
                               ("FileVersion", "1.0")):
            self.put(keyword, '*{}: "{}"\n'.format(keyword, value))
        sizes = (("TC12", "12 mm strip", "34", POINTS_OF_100_MM),
                 ("TC24", "24 mm strip", "68", POINTS_OF_100_MM),
                 ("DC62", "62 mm sticker", "176", "113.386"))
        self.option("PageSize", "Tape", "TC24", [(name, title) for name, title, _, _ in sizes])
        for name, _, width, height in sizes:
            self.put("area " + name, '*ImageableArea {}: "0 0 {} {}"\n'.format(name, width, height))
        for name, _, width, height in sizes:
            self.put("paper " + name, '*PaperDimension {}: "{} {}"\n'.format(name, width, height))
        self.option("VnTapeLength", "Len", "100.0", [("100.0", "100 mm")])
        self.option("VnMargin", "Edge", "3.0", [("3.0", "3 mm")])
        self.option("VnPriority", "Prio", "Speed", [("Speed", "Swift"), ("Finer", "Neat")])
        self.option("Resolution", "Dots", "300x300dpi",
                    [("300x300dpi", "Square"), ("300x600dpi", "Tall")])
        self.option("VnCompress", "Pack", "Firm", [("Slack", "Loose"), ("Firm", "Tight")])
        self.put("end", "")

    def option(self, keyword, title, default, choices):
        self.put("open " + keyword, "*OpenUI *{}/{}: PickOne\n".format(keyword, title))
        self.put("order " + keyword, "*OrderDependency: 10 AnySetup *{}\n".format(keyword))
        self.put("default " + keyword, "*Default{}: {}\n".format(keyword, default))
        self.put("choices " + keyword, "".join('*{} {}/{}: ""\n'.format(keyword, *choice)
                                               for choice in choices))
        self.put("close " + keyword, "*CloseUI: *{}\n".format(keyword))
        if "end" in self.pieces:
            self.put("end", self.pieces.pop("end"))

    def put(self, name, text):
        self.pieces[name] = text if isinstance(text, bytes) else text.encode("utf-8")
        return self

    def without(self, *names):
        for name in names:
            del self.pieces[name]
        return self

    def without_option(self, keyword):
        return self.without(*("{} {}".format(part, keyword)
                              for part in ("open", "order", "default", "choices", "close")))

    def bytes(self):
        return b"".join(self.pieces.values())

    def line(self, name, within=0):
        """The number of the piece's first line, or of the one `within` lines further."""
        before = b""
        for piece, text in self.pieces.items():
            if piece == name:
                return before.count(b"\n") + 1 + within
            before += text
        raise KeyError(name)
