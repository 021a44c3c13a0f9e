#include "dialog/preview/Label.hpp"

#include <algorithm>
#include <cmath>

namespace dialog {

namespace {

constexpr double kLongest = 100'000;

// Page boxes are rounded to points, tapes to millimetres.
constexpr double kSameWidth = 0.5;

struct Lying
{
    double along = 0;
    double across = 0;
    bool turned = false;
};

bool fitsAcross(const Lying& lying, const Label& label) noexcept
{
    return lying.across <= label.width + kSameWidth;
}

bool fits(const Lying& lying, const Label& label) noexcept
{
    return fitsAcross(lying, label) && lying.along <= label.length + kNegligible;
}

Lying choose(const Lying& upright, const Lying& turned, const Label& label) noexcept
{
    if (fits(upright, label)) {
        return upright;
    }
    if (fits(turned, label)) {
        return turned;
    }
    if (fitsAcross(upright, label)) {
        return upright;
    }
    if (fitsAcross(turned, label)) {
        return turned;
    }
    return turned.along > upright.along ? turned : upright;
}

Lying largest(double aspect, double along, double across, bool turned) noexcept
{
    const double width = std::min(along, across * aspect);
    return {width, width / aspect, turned};
}

} // namespace

bool isDrawable(const Label& label) noexcept
{
    for (const double number :
         {label.width, label.length, label.margin, label.blankAbove, label.blankBelow}) {
        if (!(number >= 0 && number <= kLongest)) {
            return false;
        }
    }
    return label.length > 0 && 2 * label.margin <= label.length &&
           label.blankAbove + label.blankBelow < label.width;
}

Placement placeDocument(const Label& label, const DocumentSize& document) noexcept
{
    const double room = label.length - 2 * label.margin;
    const double band = label.width - label.blankAbove - label.blankBelow;

    Placement place;
    Lying lying;
    if (document.width <= 0 || document.height <= 0) {
        const Lying upright = largest(document.aspect, room, band, false);
        const Lying turned = largest(1 / document.aspect, room, band, true);
        lying = document.mayTurn &&
                        turned.along * turned.across > upright.along * upright.across * (1 + 1e-9)
                    ? turned
                    : upright;
        place.share = 0;
    } else {
        const Lying upright{document.width, document.height, false};
        const Lying turned{document.height, document.width, true};
        lying = document.mayTurn ? choose(upright, turned, label) : upright;
        place.ownAcross = lying.across;
        if (!fitsAcross(lying, label)) {
            place.share = band / lying.across;
            lying.along *= place.share;
            lying.across = band;
        }
    }
    place.along = lying.along;
    place.across = lying.across;
    place.turned = lying.turned;

    place.y = lying.across <= band ? label.blankAbove + (band - lying.across) / 2
                                   : (label.width - lying.across) / 2;
    place.x = std::max(0.0, (label.length - lying.along) / 2);
    if (lying.along > label.length + kNegligible) {
        place.beyondLabel = lying.along - label.length;
    } else if (lying.along > room + 2 * kNegligible) {
        place.intoMargins = (lying.along - room) / 2;
    }
    return place;
}

} // namespace dialog
