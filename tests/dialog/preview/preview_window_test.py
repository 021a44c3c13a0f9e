"""The picture of the label in the running window, worked by keys and mouse and read pixel by pixel."""

import os
import subprocess
import sys
import tempfile

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), ".."))
from drive import Dialog, Failed, check, equal, nudge, wait_for, xdotool  # noqa: E402

PROGRAM, SAMPLES = sys.argv[1:3]
LENGTH, MARGIN = 0, 1  # the panel's fields from above

# Light colours of the look, and what veils the ink where nothing is printed.
TAPE, BORDER, FAILURE = (255, 255, 255), (0x85, 0x8C, 0x97), (0xB3, 0x26, 0x1E)


def open_dialog(*arguments, environment=None):
    return Dialog(PROGRAM, "--appearance", "light", *arguments, environment=environment)


def sample(name):
    return "--ppd", "{}/sample-tape-{}.ppd".format(SAMPLES, name)


def field(dialog, place):
    return dialog.wait("PDETextField13_v100_", index=place)


def slider(dialog, place):
    return dialog.wait("NSSlider", index=place)


def says(dialog, name, text):
    dialog.wait(name, text)


def type_without_leaving(dialog, place, text):
    dialog.type_into(field(dialog, place), text, key=None)


class Pixels:
    """What the picture of the label looks like now."""

    def __init__(self, dialog):
        self.area = dialog.wait("Label Picture")
        crop = "{}x{}+{}+{}".format(self.area.width, self.area.height, self.area.x, self.area.y)
        done = subprocess.run(["import", "-silent", "-window", "root", "-crop", crop, "+repage",
                               "-depth", "8", "rgb:-"], check=True, capture_output=True)
        self.bytes = done.stdout
        equal(len(self.bytes), 3 * self.area.width * self.area.height, "bytes of the picture")

    def at(self, x, y):
        start = 3 * (y * self.area.width + x)
        return tuple(self.bytes[start:start + 3])

    def tape(self):
        """left, top, right, bottom inside the tape's border, which is above the ruler's line."""
        middle = None
        for y in range(self.area.height):
            edges = [x for x in range(self.area.width) if self.at(x, y) == BORDER]
            if len(edges) == 2 and edges[1] - edges[0] > 8:
                middle = y, edges
                break
        check(middle, "no tape in the picture")
        y, (left, right) = middle
        top = y
        while self.at(left, top - 1) == BORDER:
            top -= 1
        bottom = y
        while self.at(left, bottom + 1) == BORDER:
            bottom += 1
        return left + 1, top + 1, right, bottom


def picture_of(dialog, question, what):
    """Pixels for which the question has an answer; the answer."""
    def look():
        try:
            return question(Pixels(dialog))
        except IndexError:
            return None
    return wait_for(look, what)


def tape_measures(dialog, length, width):
    """Width and height of the drawn tape, once it has the shape of the label."""
    def shape(pixels):
        left, top, right, bottom = pixels.tape()
        found = (right - left) / (bottom - top)
        return abs(found - length / width) <= 0.03 * length / width and (right - left, bottom - top)
    return picture_of(dialog, shape, "a tape of {} by {}".format(length, width))


def ink_between(pixels, from_mm, to_mm, length):
    """The share of pixels nearer to black than to white in the columns that these millimetres of the label have."""
    left, top, right, bottom = pixels.tape()
    scale = (right - left) / length
    columns = range(left + round(from_mm * scale), left + round(to_mm * scale))
    dark = sum(sum(pixels.at(x, y)) < 384 for x in columns for y in range(top, bottom))
    return dark / (len(columns) * (bottom - top))


# ------------------------------------------------------------------------------------ documents

def pdf(width, height, drawing):
    """One page of that size in millimetres."""
    points = 72 / 25.4
    objects = [
        "<< /Type /Catalog /Pages 2 0 R >>", "<< /Type /Pages /Kids [3 0 R] /Count 1 >>",
        "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 {:.4f} {:.4f}] /Contents 4 0 R "
        "/Resources << >> >>".format(width * points, height * points),
        "<< /Length {} >>\nstream\n{}\nendstream".format(len(drawing), drawing)]
    text = "%PDF-1.4\n"
    places = []
    for number, body in enumerate(objects, 1):
        places.append(len(text))
        text += "{} 0 obj\n{}\nendobj\n".format(number, body)
    start = len(text)
    text += "xref\n0 5\n0000000000 65535 f \n"
    text += "".join("{:010} 00000 n \n".format(place) for place in places)
    text += "trailer << /Size 5 /Root 1 0 R >>\nstartxref\n{}\n%%EOF\n".format(start)
    return text.encode()


# ---------------------------------------------------------------------------------------- tests

def TheLabelFollowsEveryTypedCharacter():
    with open_dialog() as dialog:
        said = dialog.wait("Label Picture").text
        check(said.startswith("Picture of the label, 24.0 mm × 100.0 mm. Tape used 100.0 mm, of it "
                              "6.0 mm margins."), "the picture says " + repr(said))
        # 10 is the printer's shortest and 1000 its longest: what is not between changes nothing.
        dialog.press(field(dialog, LENGTH))
        xdotool("key", "--delay", 40, "End", *["BackSpace"] * 5)
        for typed, shown in (("2", "10.0"), ("0", "20.0"), ("0", "200.0"), (".", "200.0"),
                             ("5", "200.5")):
            dialog.type(typed)
            says(dialog, "Label Size", "24.0 mm × {} mm".format(shown))
            says(dialog, "Tape Used", "Tape used {} mm, of it 6.0 mm margins".format(shown))
        equal(field(dialog, LENGTH).text, "200.5", "the field, which is still being typed in")
        xdotool("key", "--delay", 40, *["BackSpace"] * 5)
        wait_for(lambda: field(dialog, LENGTH).text == "", "the empty field")
        dialog.type("5000")
        says(dialog, "Label Size", "24.0 mm × 500.0 mm")
        xdotool("key", "Tab")
        says(dialog, "Label Size", "24.0 mm × 1000.0 mm")  # as the panel corrects it


def TheDrawnLabelHasTheTypedLengthAndMargins():
    with open_dialog() as dialog:
        type_without_leaving(dialog, LENGTH, "30")
        says(dialog, "Label Size", "24.0 mm × 30.0 mm")
        short = tape_measures(dialog, 30, 24)
        xdotool("key", "BackSpace", "BackSpace")
        dialog.type("40")
        says(dialog, "Label Size", "24.0 mm × 40.0 mm")
        long = tape_measures(dialog, 40, 24)
        equal(long[1], short[1], "height of the tape, whose scale is the same")
        check(abs(long[0] / short[0] - 4 / 3) < 0.03,
              "the tape grew from {} to {} pixels".format(short[0], long[0]))

        dialog.type_into(field(dialog, MARGIN), "10", key=None)
        says(dialog, "Tape Used", "Tape used 40.0 mm, of it 20.0 mm margins")

        def blank_ends(pixels):
            left, top, right, _ = pixels.tape()
            y = top + 1 + (right - left) * 2 // 40  # below the strip that is not printed on
            row = [pixels.at(x, y) == TAPE for x in range(left, right)]
            first, last = row.index(True), row[::-1].index(True)
            return all(abs(blank / len(row) - 0.25) < 0.03 for blank in (first, last))
        picture_of(dialog, blank_ends, "a quarter of the label blank at either end")


def TheLabelFollowsSliderAndTape():
    with open_dialog() as dialog:
        knob = slider(dialog, LENGTH)
        y = knob.y + knob.height // 2
        # The knob of 100 between 10 and 1000 stands at an eleventh.
        xdotool("mousemove", knob.x + 7 + (knob.width - 14) // 11, y)
        xdotool("mousedown", 1)
        nudge()
        seen = set()
        for share in (0.3, 0.5, 0.8):
            xdotool("mousemove", knob.x + int(knob.width * share), y)
            nudge()

            def follows():
                length = field(dialog, LENGTH).text
                size = dialog.wait("Label Size").text
                return length not in seen and size == "24.0 mm × {} mm".format(length) and length
            seen.add(wait_for(follows, "the label while the slider is held"))
        xdotool("mouseup", 1)
        nudge()

        dialog.type_into(field(dialog, LENGTH), "100")
        dialog.choose("Tape", "12 mm tape")
        says(dialog, "Label Size", "12.0 mm × 100.0 mm")
        tape_measures(dialog, 100, 12)
        dialog.choose("Tape", "24 x 40 mm label")
        says(dialog, "Label Size", "24.0 mm × 40.0 mm")
        tape_measures(dialog, 40, 24)


def InchesAreSaidAndRuledInInches():
    with open_dialog(*sample("inches")) as dialog:
        says(dialog, "Label Size", "0.94 in × 3.94 in")
        type_without_leaving(dialog, LENGTH, "2")
        says(dialog, "Label Size", "0.94 in × 2.00 in")
        says(dialog, "Tape Used", "Tape used 2.00 in, of it 0.40 in margins")


def ADocumentThatIsTooLongIsSaidUntilTheLabelIsLongEnough():
    with tempfile.TemporaryDirectory() as folder:
        path = folder + "/long.pdf"
        with open(path, "wb") as file:
            file.write(pdf(112.3, 20, ""))
        with open_dialog(path) as dialog:
            says(dialog, "Document Remarks",
                 "The document is longer than the label by 12.3 mm. The printer's filter may cut "
                 "or scale it.")

            def marked(pixels):
                return any(pixels.at(x, pixels.area.height // 2 - 20) == FAILURE
                           for x in range(pixels.area.width))
            picture_of(dialog, marked, "the mark where the label cuts the document")
            type_without_leaving(dialog, LENGTH, "120")
            says(dialog, "Document Remarks", "")
            check(not marked(Pixels(dialog)), "the mark went with the reason")


def APictureLiesWhereItBelongs():
    with tempfile.TemporaryDirectory() as folder:
        # 400 by 100 dots at 200 to the inch: 50.8 by 12.7 mm, the left quarter black.
        path = folder + "/document.tif"
        subprocess.run(["convert", "-size", "400x100", "xc:white", "-fill", "black", "-draw",
                        "rectangle 0,0 99,99", "-density", "200", "-units", "PixelsPerInch", path],
                       check=True)
        with open_dialog(path) as dialog:
            # From 24.6 to 75.4 of 100 mm, black to 37.3, 12.7 of the tape's 24 mm high.
            def lies(pixels):
                blank = max(ink_between(pixels, *ends, 100)
                            for ends in ((4, 24), (39, 74), (76, 96)))
                return blank < 0.01 and abs(ink_between(pixels, 26, 36, 100) - 12.7 / 24) < 0.06
            picture_of(dialog, lies, "the picture in its place")


def APortraitPageIsTurned():
    with tempfile.TemporaryDirectory() as folder:
        path = folder + "/portrait.pdf"
        points = 72 / 25.4
        with open(path, "wb") as file:  # black in its upper tenth, 90 mm high
            file.write(pdf(20, 90, "0 g 0 {:.4f} {:.4f} {:.4f} re f".format(
                81 * points, 20 * points, 9 * points)))
        with open_dialog(path) as dialog:
            # Turned clockwise the upper end is at the right: from 86 to 95 mm.
            def lies(pixels):
                return (ink_between(pixels, 87, 94, 100) > 0.7 and
                        ink_between(pixels, 6, 85, 100) < 0.01)
            picture_of(dialog, lies, "the page on its side")


def TextIsDrawn():
    with tempfile.TemporaryDirectory() as folder:
        path = folder + "/label.txt"
        with open(path, "w", encoding="utf-8") as file:
            file.write("MMMMMMMMMM\nMMMMMMMMMM\n")
        with open_dialog(path) as dialog:
            says(dialog, "Document Remarks", "How text is set is up to the printer's filter.")
            # Ten characters are 25.4 mm wide: from 37.3 to 62.7.
            def lies(pixels):
                return (ink_between(pixels, 38, 62, 100) > 0.02 and
                        ink_between(pixels, 4, 36, 100) == 0 and
                        ink_between(pixels, 64, 96, 100) == 0)
            picture_of(dialog, lies, "the text in its place")


def ADamagedDocumentIsSaidAndCanBePrinted():
    with tempfile.TemporaryDirectory() as folder:
        path = folder + "/cut.png"
        with open(path, "wb") as file:
            file.write(b"\x89PNG\r\n\x1a\n" + bytes(50))
        with open_dialog(path) as dialog:
            says(dialog, "Document Remarks", "The document is damaged and cannot be shown.")
            tape_measures(dialog, 100, 24)
            dialog.press(dialog.wait("Print"))  # the filter may know what it is
            dialog.end(0)


def WithoutAPanelThereIsAnEmptyPicture():
    with open_dialog("--plugin", "/dev/null/Panel.plugin") as dialog:
        says(dialog, "Label Size", "No label to show")
        says(dialog, "Tape Used", "")
        pixels = Pixels(dialog)
        colours = {pixels.at(x, y) for x in range(pixels.area.width)
                   for y in range(pixels.area.height)}
        equal(len(colours), 1, "colours in an empty picture")


if __name__ == "__main__":
    sentence = sys.argv[3]
    try:
        globals()[sentence]()
    except Failed as failure:
        print("FAILED {}: {}".format(sentence, failure))
        sys.exit(1)
    print("passed", sentence)
