#include "dialog/preview/PictureLayout.hpp"

#include <algorithm>

namespace dialog {

namespace {

constexpr double kLargestScale = 4; // points in a millimetre: some one and a half times life size
constexpr double kRulerGap = 4;
constexpr double kNumberOverhang = 8; // half of a number reaches over the label's ends
constexpr double kUnitGap = 4;
constexpr double kUnitWidth = 26;

} // namespace

std::optional<PictureLayout> layOutPicture(Size room, const Label& label, const Placement* place,
                                           pagesettings::Unit unit)
{
    const double ruler = kRulerGap + kRulerHeight;
    const Size inner{room.width - kNumberOverhang - kUnitWidth, room.height - ruler};
    if (!isDrawable(label) || inner.width <= 0 || inner.height <= 0) {
        return std::nullopt;
    }
    PictureLayout picture;
    picture.scale =
        std::min({kLargestScale, inner.width / label.length, inner.height / label.width});
    const double scale = picture.scale;

    Frame& tape = picture.tape;
    tape.width = label.length * scale;
    tape.height = label.width * scale;
    tape.x = kNumberOverhang + (inner.width - tape.width) / 2;
    tape.y = (inner.height - tape.height) / 2;

    const double margin = label.margin * scale;
    picture.leftMargin = {tape.x, tape.y, margin, tape.height};
    picture.rightMargin = {tape.x + tape.width - margin, tape.y, margin, tape.height};
    const double above = label.blankAbove * scale;
    const double below = label.blankBelow * scale;
    const double between = tape.width - 2 * margin;
    picture.stripAbove = {tape.x + margin, tape.y, between, above};
    picture.stripBelow = {tape.x + margin, tape.y + tape.height - below, between, below};

    if (place != nullptr) {
        picture.document = {tape.x + place->x * scale, tape.y + place->y * scale,
                            place->along * scale, place->across * scale};
        picture.documentIsCut = place->beyondLabel > 0;
    }

    picture.rulerTop = tape.y + tape.height + kRulerGap;
    picture.ticks = rulerTicks(label.length, scale, unit);
    for (Tick& tick : picture.ticks) {
        tick.x += tape.x;
    }
    picture.unitLeft = tape.x + tape.width + kUnitGap;
    return picture;
}

} // namespace dialog
