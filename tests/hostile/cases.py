#!/usr/bin/env python3
"""cases.py FOLDER - PPDs with one fault each, and what is to come of them.

Writes the PPDs into the folder, and beside them `cases`, a text that the tests read:

    case NAME             a word
    file PATH             of the PPD; what is not a file of ours begins with a slash
    uri URI               where the printer is attached
    refused SENTENCE      the dialog's one sentence, {path} for the file's
    held SENTENCE         how the dialog begins to say why it prints nothing; the panel is there
    see WHAT: TEXT        what the panel shows or hands over (printer.py)
    alerts NUMBER         how often the panel has something to say when it is printed at once
    print TEXT            the panel's options of that job

Bytes outside of printable ASCII, and %, { and }, are written %41 in TEXT; {KEY} is the text that the
panel's own table has for the key.
"""

import gzip
import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
sys.dont_write_bytecode = True
from printer import PPD, Choices, Limits, Printer, plain  # noqa: E402

CASES = {}


def case(name, printer):
    if name in CASES:
        raise KeyError(name)
    CASES[name] = printer


def held_back(name, printer):
    """The defaults of its quality and its resolution exclude each other."""
    printer.conflict = 'Not printed: Prio "Swift" does not go with Dots "Square".'
    case(name, printer)


def whole():
    return Printer()


def printer_with_mode(**changes):
    printer = whole()
    printer.ppd.option("VnResolution", "Mode", "S300",
                       [("S300", "Quick"), ("Q300", "Nice"), ("Q600", "Best")])
    # The default is looked for among the resolutions.
    printer.mode = Choices("Mode", ["S300", "Q300", "Q600"], ["Quick", "Nice", "Best"])
    return printer.spoiled(**changes)


def put(name, text, printer=None, **changes):
    printer = (printer or whole()).spoiled(**changes)
    printer.ppd.put(name, text)
    return printer


def line_put(name, text, **changes):
    return put(name, text + "\n", **changes)


def refused(name, sentence, printer):
    printer.refusal = sentence
    case(name, printer)


def damaged(name, line, reason, printer):
    refused(name, 'The PPD "{path}" is damaged in line %d: %s.' % (line, reason), printer)


def not_used(name, reason, printer, line=0):
    place = " (line %d)" % line if line else ""
    refused(name, 'The PPD "{path}" is not used: %s%s.' % (reason, place), printer)


# Nothing wrong at all: else the others prove nothing.

case("whole", whole())
case("whole-with-mode", printer_with_mode())

# Attributes ------------------------------------------------------------------------------------

# What a text stands for as a number of millimetres: the decimal number that it begins with.
NUMBERS = {
    "letters": ("abc", 0), "nan": ("nan", 0), "inf": ("inf", 0), "minus-inf": ("-inf", 0),
    "word-infinity": ("Infinity", 0), "hexadecimal": ("0x10", 0), "exponent": ("2e1", 20),
    "exponent-alone": ("e5", 0),
    "exponent-as-large-as-can-be": ("123e9223372036854775807", float("inf")), "open-exponent": ("7e", 7), "comma": ("12,5", 12),
    "two-points": ("12.5.7", 12.5), "point-alone": (".", 0), "leading-point": (".5", 0.5),
    "blank-before": ("  15", 15), "blanks": ("   ", 0), "sign": ("+15", 15), "two-signs": ("--15", 0),
    "unit": ("15mm", 15), "percent": ("15%n%s", 15), "thousands": ("1 500", 1),
    "arabic-digits": ("١٥", 0), "full-width-digits": ("１５", 0),
    "many-digits": ("15." + "0" * 200, 15), "nothing-times-huge": ("0e400", 0),
    "zero": ("0", 0), "minus-zero": ("-0", -0.0),
    "negative": ("-15", -15), "tiny": ("1e-400", 0), "huge": ("1e9", 1e9),
    "beyond-single": ("1e60", 1e60), "beyond-double": ("1e400", float("inf")),
    "apostrophes": ("1'500", 1), "underscore": ("1_000", 1), "slash": ("15/2", 15),
}
LIMITS = {"VnMinTapeLength": ("length_limits", "least"), "VnMaxTapeLength": ("length_limits", "most"),
          "VnMinMargin": ("margin_limits", "least"), "VnMaxMargin": ("margin_limits", "most")}


def with_limit(keyword, value):
    printer = whole()
    limits, end = LIMITS[keyword]
    old = getattr(printer, limits)
    ends = {"least": old.least, "most": old.most, end: value}
    return printer.spoiled(**{limits: Limits(ends["least"], ends["most"])})


for keyword in LIMITS:
    name = keyword[2:]
    for kind, (text, value) in NUMBERS.items():
        case(name + "-" + kind, line_put(keyword, '*{}: "{}"'.format(keyword, text),
                                         printer=with_limit(keyword, value)))
    case(name + "-missing", put(keyword, "", with_limit(keyword, 0)))
    case(name + "-empty", line_put(keyword, '*{}: ""'.format(keyword),
                                   printer=with_limit(keyword, 0)))
    first = {"VnMinTapeLength": 10, "VnMaxTapeLength": 1000, "VnMinMargin": 1, "VnMaxMargin": 50}
    case(name + "-twice", line_put(keyword, '*{0}: "{1}"\n*{0}: "77"'.format(keyword, first[keyword]),
                                   printer=with_limit(keyword, first[keyword])))
    # Under a specifier it is still the first of its keyword.
    case(name + "-with-specifier", line_put(keyword, '*{0} a/b: "77"'.format(keyword),
                                            printer=with_limit(keyword, 77)))
    case(name + "-without-quotes", line_put(keyword, "*{}: 77".format(keyword),
                                            printer=with_limit(keyword, 77)))
    case(name + "-other-case", line_put(keyword, '*{}: "77"'.format(keyword.upper()),
                                        printer=with_limit(keyword, 77)))
    case(name + "-over-two-lines", line_put(keyword, '*{}: "77\n8"\n*End'.format(keyword),
                                            printer=with_limit(keyword, 77)))

case("limits-crossed", put("VnMaxTapeLength", '*VnMaxTapeLength: "5"\n',
                           length_limits=Limits(10, 5)))
case("limits-equal", put("VnMaxTapeLength", '*VnMaxTapeLength: "10"\n',
                         length_limits=Limits(10, 10)))
case("margin-limits-crossed", put("VnMaxMargin", '*VnMaxMargin: "0.5"\n',
                                  margin_limits=Limits(1, 0.5)))

for kind, text, inches in (
        ("capital", "Inch", False), ("plural", "inches", False), ("blank-after", "inch ", False),
        ("percent", "%@%n", False), ("inch", "inch", True),
        ("control", "inch\x01", False), ("empty", "", False), ("long", "inch" * 60, False),
        ("utf-8", "інч", False), ("broken-utf-8", b"inch\xff".decode("latin-1"), False)):
    case("UnitType-" + kind, put("VnUnitType", '*VnUnitType: "{}"\n'.format(text).encode(
        "latin-1" if kind == "broken-utf-8" else "utf-8"), inches=inches, dot=0.01 if inches else 0.1))
case("UnitType-missing", put("VnUnitType", ""))
case("UnitType-twice", put("VnUnitType", '*VnUnitType: "mm"\n*VnUnitType: "inch"\n'))
case("UnitType-other-case-of-keyword", put("VnUnitType", '*vnunittype: "inch"\n', inches=True,
                                           dot=0.01))

for keyword, attribute in (("VnIsIntegerTapeLength", "whole_lengths"),
                           ("VnIsIntegerMargin", "whole_margins")):
    for kind, text, is_true in (
            ("lower-case", "true", False), ("upper-case", "TRUE", False), ("one", "1", False),
            ("yes", "Yes", False), ("blank-before", " True", False), ("percent", "%s", False),
            ("true", "True", True), ("empty", "", False), ("long", "True" * 40, False)):
        changes = {attribute: is_true}
        if is_true and attribute == "whole_margins":
            changes["dot"] = 1.0
        case(keyword[2:] + "-" + kind, put(keyword, '*{}: "{}"\n'.format(keyword, text), **changes))
    case(keyword[2:] + "-missing", put(keyword, ""))
    case(keyword[2:] + "-twice", put(keyword, '*{0}: "False"\n*{0}: "True"\n'.format(keyword)))
    case(keyword[2:] + "-without-quotes", put(keyword, "*{}: True\n".format(keyword),
                                              **({attribute: True, "dot": 1.0}
                                                 if attribute == "whole_margins"
                                                 else {attribute: True})))

for kind, text in (("lower-case", "zr"), ("more", "ZR2"), ("percent", "%@"), ("empty", ""),
                   ("two-lines", "ZR\nZR")):
    case("TapeType-" + kind, put("VnTapeType", '*VnTapeType: "{}"\n'.format(text)))
case("TapeType-missing", put("VnTapeType", ""))
for kind, text in (("missing", ""), ("twice", '*FileVersion: "1"\n*FileVersion: "2"\n'),
                   ("percent", '*FileVersion: "%n%@"\n'), ("letters", "*FileVersion: abc\n")):
    case("FileVersion-" + kind, put("FileVersion", text))

# Options ---------------------------------------------------------------------------------------

LISTS = {"VnPriority": "quality", "Resolution": "resolution", "VnCompress": "compress"}
STAND_INS = {"VnPriority": ["{RS_QualitySpeed}", "{RS_QualityQuality}"],
             "Resolution": ["{RS_Resol300300}", "{RS_Resol300600}"],
             "VnCompress": ["{RS_CompressOFF}", "{RS_CompressON}"]}
# A summary's words for the choices of a printer that is not of the ZR line.
SUMMED_UP = {"VnPriority": STAND_INS["VnPriority"],
             "Resolution": ["{RS_Resol180360}", "{RS_Resol360360}"],
             "VnCompress": STAND_INS["VnCompress"]}
PLAIN_CHOICES = {"VnPriority": [("Speed", "Swift"), ("Finer", "Neat")],
                 "Resolution": [("300x300dpi", "Square"), ("300x600dpi", "Tall")],
                 "VnCompress": [("Slack", "Loose"), ("Firm", "Tight")]}


def choice_lines(keyword, choices):
    return b"".join(b"*" + keyword.encode() + b" " + (k if isinstance(k, bytes) else k.encode()) +
                    b"/" + (t if isinstance(t, bytes) else t.encode()) + b': ""\n'
                    for k, t in choices)


# Texts for the user: kind, bytes in the PPD, what is shown (None: they are no text).
TEXTS = (
    ("percent", b"100 %@ %n %s %d", b"100 %@ %n %s %d"),
    ("utf-8", "Größe 寸法".encode(), "Größe 寸法".encode()),
    ("direction", "a\u202eb\u2066c".encode(), "a\u202eb\u2066c".encode()),
    ("zero-width", "a\u200bb\ufeffc".encode(), "a\u200bb\ufeffc".encode()),
    ("tab", b"a\tb", b"a\tb"),
    ("latin-1", b"Gr\xf6\xdfe", None),
    ("cut-utf-8", b"a\xe5\xaf", None),
    ("overlong-utf-8", b"a\xc0\xafb", None),
    ("surrogate", b"a\xed\xa0\x80b", None),
    ("beyond-unicode", b"a\xf5\x80\x80\x80", None),
    ("continuation-alone", b"\x80\x80", None),
    ("cut-inside-a-character", b"x" * 79 + "寸".encode(), None),
    ("longer-than-kept", b"y" * 100, b"y" * 80),
    ("beyond-16-bits", "\U0001f5a8".encode(), "\U0001f5a8".encode()),
    ("combining", "e\u0301\u0301\u0301".encode(), "e\u0301\u0301\u0301".encode()),
)


for keyword, attribute in LISTS.items():
    (first, first_title), (second, second_title) = PLAIN_CHOICES[keyword]
    base_default = {"VnPriority": 0, "Resolution": 0, "VnCompress": 1}[keyword]
    name = keyword[2:] if keyword.startswith("Vn") else keyword

    for kind, text, seen in TEXTS:
        # In the option's title.
        printer = put("open " + keyword,
                      b"*OpenUI *" + keyword.encode() + b"/" + text + b": PickOne\n",
                      **{attribute + "__title": seen})
        case(name + "-title-" + kind, printer)
        # In the title of its first choice.
        printer = put("choices " + keyword,
                      choice_lines(keyword, [(first, text), (second, second_title)]))
        target = getattr(printer, attribute)
        if seen is None:
            # The stand-ins take the first two rows; the second choice then gets its own again.
            target.titles = [STAND_INS[keyword][0], second_title]
            target.summaries = [SUMMED_UP[keyword][0], second_title]
        else:
            target.titles = [plain(seen), second_title]
        case(name + "-choice-" + kind, printer)

    def lists(kind, text, keywords=None, titles=None, default=None, part="choices", **changes):
        printer = put(part + " " + keyword, text)
        target = getattr(printer, attribute)
        if keywords is not None:
            target.keywords, target.titles = keywords, titles
        if default is not None:
            target.default = default
        case(name + "-" + kind, printer.spoiled(**changes))

    both = [first, second], [first_title, second_title]
    printer = whole().spoiled(**{attribute + "__offered": False})
    printer.ppd.without_option(keyword)
    if keyword == "Resolution":
        # Without a resolution there is nothing to compress, and no dot.
        printer.compress.enabled = False
    case(name + "-missing", printer)
    lists("no-default", "", default=0, part="default")
    lists("default-of-no-choice", "*Default{}: Other\n".format(keyword), default=0, part="default")
    lists("default-empty", "*Default{}: \n".format(keyword), default=0, part="default")
    lists("default-in-other-case", "*Default{}: {}\n".format(keyword, second.upper()
                                                              if second != second.upper()
                                                              else second.lower()),
          default=0, part="default")
    lists("default-percent", "*Default{}: %n%@%s\n".format(keyword), default=0, part="default")
    lists("default-not-ascii", "*Default{}: größe\n".format(keyword), default=0, part="default")
    lists("default-twice", "*Default{0}: {1}\n*Default{0}: {2}\n".format(
        keyword, both[0][1 - base_default], both[0][base_default]), part="default")
    lists("one-choice", choice_lines(keyword, [(both[0][base_default], both[1][base_default])]),
          [both[0][base_default]], [both[1][base_default]], 0)
    lists("choice-without-text", choice_lines(keyword, [(first, first_title)]) +
          "*{} {}: \"\"\n".format(keyword, second).encode(), both[0], [first_title, second])
    lists("choice-with-empty-text", choice_lines(keyword, [(first, ""), (second, second_title)]),
          both[0], [first, second_title])
    lists("choice-with-code", "*{} {}/{}: \"<</A (%n) >> setpagedevice\"\n".format(
        keyword, first, first_title).encode() + choice_lines(keyword, [(second, second_title)]))
    lists("choice-over-lines", '*{} {}/{}: "a\nb\n"\n*End\n'.format(
        keyword, first, first_title).encode() + choice_lines(keyword, [(second, second_title)]))
    lists("two-titles-alike", choice_lines(keyword, [(first, "Same"), (second, "Same")]),
          both[0], ["Same", "Same"])
    lists("third-choice", choice_lines(keyword, [(first, first_title), (second, second_title),
                                                 ("Third", "Third title")]),
          both[0] + ["Third"], both[1] + ["Third title"])
    lists("pick-many", "*OpenUI *{}/{}: PickMany\n".format(
        keyword, getattr(whole(), attribute).title), part="open")
    lists("boolean", "*OpenUI *{}/{}: Boolean\n".format(
        keyword, getattr(whole(), attribute).title), part="open")
    lists("other-order", "*OrderDependency: nan Nowhere *{}\n".format(keyword), part="order")
    lists("no-order", "", part="order")
    lists("order-of-another", "*OrderDependency: 10 AnySetup *Nothing\n", part="order")
    lists("in-a-group", "*OpenGroup: G/Group\n*OpenUI *{}/{}: PickOne\n".format(
        keyword, getattr(whole(), attribute).title), part="open")
    CASES[name + "-in-a-group"].ppd.put("close " + keyword,
                                        "*CloseUI: *{}\n*CloseGroup: G\n".format(keyword))
    lists("option-twice", choice_lines(keyword, [(first, first_title)]) +
          "*CloseUI: *{0}\n*OpenUI *{0}/{1}: PickOne\n".format(
              keyword, getattr(whole(), attribute).title).encode() +
          choice_lines(keyword, [(second, second_title)]))
    many = [("c%d" % i, "Choice %d" % i) for i in range(5000)]
    lists("five-thousand-choices", choice_lines(keyword, many), [k for k, _ in many],
          [t for _, t in many], 0)
    # A keyword that is not ASCII names no choice that the dialog could mark by it.
    lists("keyword-of-percents", choice_lines(keyword, [("%n%@%s", "Odd"), (second, second_title)]),
          ["%n%@%s", second], ["Odd", second_title])
    lists("keyword-of-signs", choice_lines(keyword, [("a=b;c'$(d)", "Odd"), (second, second_title)]),
          ["a=b;c'$(d)", second], ["Odd", second_title])
    lists("keyword-of-40-bytes", choice_lines(keyword, [("k" * 40, "Odd"), (second, second_title)]),
          ["k" * 40, second], ["Odd", second_title])
    constraint = "".join("*UIConstraints: *{} {} *{} {}\n".format(keyword, a, keyword, b)
                         for a in both[0] for b in both[0])
    lists("constraint-on-itself", "*CloseUI: *{}\n".format(keyword) + constraint, part="close")
    lists("constraint-on-nothing", "*CloseUI: *{0}\n*UIConstraints: *{0} *Nothing None\n".format(
        keyword), part="close")

# The two numbers among the options.

for kind, text, value in (
        ("letters", "abc", 0), ("nan", "nan", 0), ("inf", "inf", 0), ("negative", "-4", -4),
        ("comma", "4,5", 4), ("huge", "1e30", 1e30), ("zero", "0", 0), ("fraction", "2.01", 2.01),
        ("many-decimals", "2.0000000000000000001", 2), ("percent", "3%n", 3),
        ("above-its-maximum", "60", 60), ("nothing-times-huge", "0e400", 0),
        ("twenty-five-digits", "1234567890123456789012345", 1.234567890123456789012345e24)):
    case("Margin-default-" + kind, put("default VnMargin", "*DefaultVnMargin: {}\n".format(text),
                                       margin=value))
case("Margin-default-missing", put("default VnMargin", "", margin=0))
case("Margin-default-not-ascii", put("default VnMargin", "*DefaultVnMargin: é\n", margin=0))
margin_free = whole().spoiled(margin=None, margin_title=None)
margin_free.ppd.without_option("VnMargin")
case("Margin-missing", margin_free)
case("Margin-boolean", put("open VnMargin", "*OpenUI *VnMargin/Edge: Boolean\n"))
case("Margin-no-choices", put("choices VnMargin", ""))
case("Margin-custom", put("close VnMargin", '*CloseUI: *VnMargin\n*CustomVnMargin True: ""\n'
                          "*ParamCustomVnMargin Margin: 1 string 1 50\n"))
case("Margin-custom-default", put("default VnMargin", "*DefaultVnMargin: Custom.4\n", margin=0))
length_free = whole().spoiled(length_title=None)
length_free.ppd.without_option("VnTapeLength")
case("TapeLength-missing", length_free)
case("TapeLength-no-choices", put("choices VnTapeLength", ""))
case("TapeLength-default-letters", put("default VnTapeLength", "*DefaultVnTapeLength: abc\n"))
for keyword, attribute, title in (("VnMargin", "margin_title", "Edge"),
                                  ("VnTapeLength", "length_title", "Len")):
    for kind, text, seen in TEXTS:
        case(keyword[2:] + "-title-" + kind, put(
            "open " + keyword, b"*OpenUI *" + keyword.encode() + b"/" + text + b": PickOne\n",
            **{attribute: seen}))
    case(keyword[2:] + "-without-title", put("open " + keyword,
                                             "*OpenUI *{}: PickOne\n".format(keyword),
                                             **{attribute: keyword}))

# Print mode.

case("Mode-missing-resolution", printer_with_mode(resolution__offered=False,
                                                  compress__enabled=False))
CASES["Mode-missing-resolution"].ppd.without_option("Resolution")
case("Mode-one-choice", put("choices VnResolution", '*VnResolution S300/Quick: ""\n',
                            printer_with_mode(mode__keywords=["S300"], mode__titles=["Quick"])))
case("Mode-without-texts", put(
    "choices VnResolution", '*VnResolution S300/: ""\n*VnResolution Q300/: ""\n'
    '*VnResolution Q600/: ""\n',
    printer_with_mode(mode__titles=["S300", "Q300", "Q600"])))
case("Mode-texts-latin-1", put(
    "choices VnResolution", b'*VnResolution S300/\xf6: ""\n*VnResolution Q300/\xf6: ""\n'
    b'*VnResolution Q600/\xf6: ""\n',
    printer_with_mode(mode__titles=["{RS_VnResolS300300}", "{RS_VnResolQ300300}",
                                    "{RS_VnResolQ300600}"])))
case("Mode-titles-alike", put(
    "choices VnResolution", '*VnResolution S300/Same: ""\n*VnResolution Q300/Same: ""\n'
    '*VnResolution Q600/Same: ""\n', printer_with_mode(mode__titles=["Same"] * 3)))
modes = [("m%d" % i, "Mode %d" % i) for i in range(5000)]
case("Mode-five-thousand-choices", put(
    "default VnResolution", "*DefaultVnResolution: m0\n",
    put("choices VnResolution", choice_lines("VnResolution", modes),
        printer_with_mode(mode__keywords=[k for k, _ in modes],
                          mode__titles=[t for _, t in modes]))))

# Page sizes ------------------------------------------------------------------------------------

case("PageSize-missing", whole().spoiled(width=None))
CASES["PageSize-missing"].ppd.without_option("PageSize")
case("PageSize-no-default", put("default PageSize", "", width="12 mm strip"))
case("PageSize-default-of-no-size", put("default PageSize", "*DefaultPageSize: A4\n",
                                        width="12 mm strip"))
case("PageSize-label", put("default PageSize", "*DefaultPageSize: DC62\n", width="62 mm sticker",
                           fixed_label=True, paper=40.0))
case("PageSize-text-percent", put("choices PageSize", '*PageSize TC24/%n %@ %s: ""\n',
                                  width="%n %@ %s"))
case("PageSize-text-latin-1", put("choices PageSize", b'*PageSize TC24/\xf6: ""\n', width=None))
case("PageSize-text-empty", put("choices PageSize", '*PageSize TC24/: ""\n', width="TC24"))
case("PageSize-without-paper-dimension", put("paper TC24", ""))
for kind, measures, paper in (
        ("letters", "a b", 100.0), ("nan", "nan nan", 100.0), ("zero", "0 0", 100.0),
        ("missing-height", "68", 100.0), ("empty", "", 100.0), ("comma", "68,0 283,465", None),
        ("huge", "68 28346.5", 10000.0), ("negative", "68 -283.465", -100.0)):
    case("Paper-" + kind, put("paper TC24", '*PaperDimension TC24: "{}"\n'.format(measures),
                              paper=paper if paper is not None else 100.0))
case("Paper-twice", put("paper TC24", '*PaperDimension TC24: "68 28.3465"\n'
                                      '*PaperDimension TC24: "68 283.465"\n'))
case("Paper-of-no-size", put("paper TC24", '*PaperDimension TC24: "68 283.465"\n'
                                           '*PaperDimension XX99: "1 1"\n'))
sizes = "".join('*PageSize S{0}/{0}: ""\n'.format(i) for i in range(3997))
case("PageSize-four-thousand", put(
    "choices PageSize", sizes + '*PageSize TC12/12 mm strip: ""\n*PageSize TC24/24 mm strip: ""\n'
                                '*PageSize DC62/62 mm sticker: ""\n'))

# Complete and without a fault, only many: the dialog reads such sizes itself.
plain_many = whole()
plain_names = ["S%d" % i for i in range(9997)]
for part, line in (("choices PageSize", '*PageSize {0}/{0} wide: ""\n'),
                   ("area DC62", '*ImageableArea {}: "0 0 68 283.465"\n'),
                   ("paper DC62", '*PaperDimension {}: "68 283.465"\n')):
    plain_many.ppd.put(part, plain_many.ppd.pieces[part] +
                       "".join(line.format(name) for name in plain_names).encode())
plain_many.ppd.option("PageRegion", "Tape", "TC24",
                      [("TC12", "12 mm strip"), ("TC24", "24 mm strip"), ("DC62", "62 mm sticker")] +
                      [(name, name + " wide") for name in plain_names])
for part in ("choices PageSize", "choices PageRegion"):
    plain_many.ppd.put(part, plain_many.ppd.pieces[part].replace(b': ""', b': "<<>>setpagedevice"'))
case("PageSize-ten-thousand", plain_many)

# Encodings -------------------------------------------------------------------------------------

for kind, encoding, raw, text in (
        ("ISOLatin1", "ISOLatin1", b"Gr\xf6\xdfe", "Größe"),
        ("WindowsANSI", "WindowsANSI", b"5\x80", "5€"),
        ("ISOLatin2", "ISOLatin2", b"\xb1", "ą"),
        # The library takes this name for ISO 8859-5.
        ("ISOLatin5", "ISOLatin5", b"\xfd", "§"),
        ("MacStandard", "MacStandard", b"\x8a", "ä"),
        ("JIS83-RKSJ", "JIS83-RKSJ", b"\x90\xa1\x96\x40", "寸法")):
    printer = put("encoding", "*LanguageEncoding: {}\n".format(encoding))
    case("Encoding-" + kind, put("open VnPriority",
                                 b"*OpenUI *VnPriority/" + raw + b": PickOne\n", printer,
                                 quality__title=text))
case("Encoding-missing", put("encoding", ""))
case("Encoding-unknown", put("encoding", "*LanguageEncoding: Klingon\n"))
case("Encoding-percent", put("encoding", "*LanguageEncoding: %n%@\n"))
case("Encoding-empty", put("encoding", "*LanguageEncoding: \n"))
case("Encoding-twice", put("encoding", "*LanguageEncoding: UTF-8\n*LanguageEncoding: UTF-8\n"))

# The file as a whole ---------------------------------------------------------------------------


def rewritten(change, **changes):
    printer = whole().spoiled(**changes)
    text = change(printer.ppd.bytes())
    printer.ppd.pieces = {"all": text}
    return printer


case("Lines-ended-by-return", rewritten(lambda text: text.replace(b"\n", b"\r")))
case("Lines-ended-by-both", rewritten(lambda text: text.replace(b"\n", b"\r\n")))
case("Last-line-not-ended", rewritten(lambda text: text[:-1]))
case("End-mark-at-the-end", rewritten(lambda text: text + b"\x1a"))
case("Empty-lines", rewritten(lambda text: text.replace(b"\n", b"\n\n")))
case("Blanks-at-line-ends", rewritten(lambda text: text.replace(b": PickOne\n", b": PickOne \n")))
case("Comments-of-everything", rewritten(
    lambda text: text + b"".join(b"*% " + line + b"\n" for line in text.split(b"\n"))))
held_back("Constraints-in-a-ring", put("end", "".join(
    "*UIConstraints: *{} {} *{} {}\n".format(a, x, b, y) for a, x, b, y in (
        ("VnPriority", "Speed", "Resolution", "300x300dpi"),
        ("Resolution", "300x300dpi", "VnCompress", "Firm"),
        ("VnCompress", "Firm", "VnPriority", "Speed")))))
held_back("Constraint-sets-in-a-ring", put(
    "end", '*cupsUIConstraints a: "*VnPriority Speed *Resolution 300x300dpi"\n'
           '*cupsUIConstraints b: "*Resolution 300x300dpi *VnPriority Speed"\n'
           '*cupsUIResolver a: "*Resolution 300x600dpi"\n*cupsUIResolver b: "*VnPriority Finer"\n'))
held_back("Constraints-by-thousands", put(
    "end", "*UIConstraints: *VnPriority Speed *Resolution 300x300dpi\n" * 10000))
case("Attributes-by-thousands", put("end", "".join('*X{}: "v"\n'.format(i) for i in range(50000))))
case("Languages-unknown", put("end", '*cupsLanguages: "xx yy"\n*xx.Translation VnPriority/Q: ""\n'))
case("Custom-size-whole", put(
    "end", '*CustomPageSize True: ""\n*ParamCustomPageSize Width: 1 points 1 2\n'
           "*ParamCustomPageSize Height: 2 points 1 2\n"
           "*ParamCustomPageSize Orientation: 5 int 0 1\n"))
case("Custom-size-limits-crossed", put(
    "end", '*CustomPageSize True: ""\n*ParamCustomPageSize Width: 1 points 2 -1e60\n'
           "*ParamCustomPageSize Height: 2 points nan inf\n"))
case("Custom-size-without-parameters", put("end", '*CustomPageSize True: ""\n'))

LONG = "Line longer than the maximum allowed (255 characters)"
refused("Empty-file", 'The PPD "{path}" is damaged: Missing PPD-Adobe-4.x header.',
        rewritten(lambda text: b""))
damaged("Head-missing", 1, "Missing PPD-Adobe-4.x header", put("head", ""))
for kind, change in (("Byte-order-mark", lambda text: b"\xef\xbb\xbf" + text),
                     ("UTF-16", lambda text: text.decode().encode("utf-16")),
                     ("A-picture", lambda text: b"\x89PNG\r\n"),
                     ("A-text", lambda text: b"This is no PPD.\n")):
    damaged(kind, 1, "Missing asterisk in column 1", rewritten(change))
damaged("Zeros", 1, LONG, rewritten(lambda text: bytes(4096)))
damaged("Head-without-value", 1, "Missing PPD-Adobe-4.x header", put("head", "*PPD-Adobe\n"))

not_used("Compressed", "it is compressed", rewritten(gzip.compress))
not_used("Too-large", "it is larger than 2 MiB",
         rewritten(lambda text: text + b"*% filler\n" * 220000))
not_used("End-mark-inside", "it goes on after an end-of-file mark",
         rewritten(lambda text: text + b"\x1a*Par"))


def over(name, reason, lines, printer=None):
    """One record too many: told with the line of the first that is."""
    printer = printer or whole()
    printer.ppd.put("end", "".join(lines))
    first = printer.ppd.line("end")
    not_used(name, reason, printer, first + len(lines) - 1)


over("Ten-thousand-sizes", "it has more than 4000 page sizes",
     ['*PageSize S{0}/{0}: ""\n'.format(i) for i in range(3998)])
CASES["Ten-thousand-sizes"].ppd.put("end", CASES["Ten-thousand-sizes"].ppd.pieces["end"] + "".join(
    '*PageSize T{0}/{0}: ""\n'.format(i) for i in range(6000)).encode())
over("Papers-by-thousands", "it has more than 4000 page sizes",
     ['*PaperDimension S{}: "1 1"\n'.format(i) for i in range(8000 - 6 + 1)])
over("Choices-by-ten-thousands", "it has more than 20000 choices",
     ['*VnPriority c{0}/{0}: ""\n'.format(i)
      for i in range(20000 - (3 + 6 + 1 + 1 + 2 + 2 + 2) + 1)])
over("Options-by-thousands", "it has more than 2000 options",
     ["*OpenUI *O{}: PickOne\n".format(i) for i in range(2000 - 6 + 1)])
over("Groups-by-thousands", "it has more than 1000 groups",
     ["*OpenGroup: G{}\n".format(i) for i in range(1001)])
over("Custom-parameters-by-thousands", "it has more than 1000 custom parameters",
     ["*ParamCustomA p{}: 1 int 0 1\n".format(i) for i in range(1001)])
for kind in ("int", "real", "string", "curve", "password", "passcode", "invcurve", "nothing"):
    over("Custom-width-of-" + kind,
         "the width or height of its custom page size is not given in points",
         ["*ParamCustomPageSize Width: 1 {} 1 2\n".format(kind)])
over("Custom-height-cut", "the width or height of its custom page size is not given in points",
     ["*ParamCustomPageSize Height\n"])


def broken(name, piece, text, reason, within=0):
    printer = put(piece, text)
    damaged(name, printer.ppd.line(piece, within), reason, printer)


broken("A-line-too-long", "FileVersion", '*FileVersion: "' + "x" * 300 + '"\n', LONG)
broken("Asterisk-missing", "VnUnitType", 'VnUnitType: "mm"\n', "Missing asterisk in column 1")
broken("Group-in-a-group", "end", "*OpenGroup: A\n*OpenGroup: B\n",
       "OpenGroup without a CloseGroup first", 1)
broken("Constraints-cut", "end", "*UIConstraints: *VnPriority\n", "Bad UIConstraints")
for keyword, title in (("VnPriority", "Prio"), ("Resolution", "Dots"), ("VnCompress", "Pack"),
                       ("VnMargin", "Edge"), ("VnTapeLength", "Len"), ("PageSize", "Tape")):
    for kind, control in (("bell", "\x07"), ("escape", "\x1b[31m"), ("backspace", "\x08")):
        broken("{}-title-with-{}".format(keyword, kind), "open " + keyword,
               "*OpenUI *{}/{}{}: PickOne\n".format(keyword, title, control),
               "Illegal translation string")
case("Option-in-an-option", put("end", "*OpenUI *A: PickOne\n*OpenUI *B: PickOne\n"))
# From the open quote on all is one value.
case("Quote-never-closed", put(
    "VnUnitType", '*VnUnitType: "mm\n', width=None, length_limits=Limits(0, 0),
    margin_limits=Limits(0, 0), margin=None, margin_title=None, length_title=None,
    quality__offered=False, resolution__offered=False, compress__offered=False))

# What is no file -------------------------------------------------------------------------------


def no_file(name, path, reason):
    printer = whole()
    printer.path = path
    refused("No-file-" + name, 'The PPD "{path}" cannot be read: %s.' % reason, printer)


no_file("missing", "missing.ppd", "No such file or directory")
no_file("folder", "folder.ppd", "it is not a regular file")
no_file("named-pipe", "pipe.ppd", "it is not a regular file")
no_file("socket", "socket.ppd", "No such device or address")
no_file("link-to-nothing", "dangling.ppd", "No such file or directory")
no_file("link-to-itself", "ring.ppd", "Too many levels of symbolic links")
no_file("below-a-file", "whole.ppd/below.ppd", "Not a directory")
no_file("name-too-long", "n" * 300 + ".ppd", "File name too long")
no_file("device", "/dev/zero", "it is not a regular file")
no_file("unreadable", "/proc/self/mem", "Input/output error")
case("Link-to-a-file", whole())
CASES["Link-to-a-file"].path = "link.ppd"
network = whole().spoiled(uri="socket://printer.example:9100", compress__enabled=False)
case("Device-on-a-network", network)
case("Device-nonsense", whole().spoiled(uri="%n%@ no URI at all", compress__enabled=False))
case("Device-in-capitals", whole().spoiled(uri="USB://Vendor/LabelPrinter",
                                           compress__enabled=False))


def make_special_files(folder):
    os.mkdir(folder + "/folder.ppd")
    os.mkfifo(folder + "/pipe.ppd")
    import socket
    here = os.getcwd()
    os.chdir(folder)
    listener = socket.socket(socket.AF_UNIX)
    listener.bind("socket.ppd")
    listener.close()
    os.chdir(here)
    os.symlink("nothing.ppd", folder + "/dangling.ppd")
    os.symlink("ring.ppd", folder + "/ring.ppd")
    os.symlink("whole.ppd", folder + "/link.ppd")


def main():
    folder = sys.argv[1]
    os.makedirs(folder)
    make_special_files(folder)
    lines = []
    for name, printer in CASES.items():
        lines.append("case " + name)
        if printer.path is None:
            with open(folder + "/" + name + ".ppd", "wb") as file:
                file.write(printer.ppd.bytes())
        lines.append("file " + (printer.path or name + ".ppd"))
        lines.append("uri " + printer.uri)
        if printer.refusal is not None:
            lines.append("refused " + printer.refusal)
            continue
        if printer.conflict is not None:
            lines.append("held " + printer.conflict)
        for what, text in printer.observations():
            words = {"printed job": "print ", "alerts": "alerts "}
            lines.append(words.get(what, "see {}: ".format(what)) + text)
    with open(folder + "/cases", "w", encoding="ascii") as file:
        file.write("\n".join(lines) + "\n")


if __name__ == "__main__":
    main()
