#include "dialog/preview/Sentences.hpp"

#include "dialog/Translate.hpp"
#include "pagesettings/NumberText.hpp"
#include "tape/Units.hpp"

#include <algorithm>
#include <cmath>

namespace dialog {

namespace {

void say(std::string& text, const std::string& sentence)
{
    if (!text.empty() && !sentence.empty()) {
        text += ' ';
    }
    text += sentence;
}

std::string problemSentence(PictureProblem problem)
{
    switch (problem) {
    case PictureProblem::None:
        return {};
    case PictureProblem::UnknownKind:
        return tr("A document of this kind cannot be shown.");
    case PictureProblem::Damaged:
        return tr("The document is damaged and cannot be shown.");
    case PictureProblem::TooLarge:
        return tr("The document is too large to be shown.");
    case PictureProblem::Locked:
        return tr("The document is locked by a password and cannot be shown.");
    case PictureProblem::TooSlow:
        return tr("The document takes too long to be shown.");
    case PictureProblem::NotMade:
        break;
    }
    return tr("The document cannot be shown.");
}

std::string percent(double share)
{
    const double rounded = std::max(1.0, std::round(share * 100));
    return std::string(pagesettings::fixedText(rounded, 0).view());
}

} // namespace

std::string amount(double millimetres, pagesettings::Unit unit)
{
    if (unit == pagesettings::Unit::Inches) {
        const double inches = tape::inchesFromMillimetres(millimetres);
        return filled(tr("{1} in"), {pagesettings::twoDecimalText(inches).view()});
    }
    return filled(tr("{1} mm"), {pagesettings::oneDecimalText(millimetres).view()});
}

std::string unitName(pagesettings::Unit unit)
{
    return unit == pagesettings::Unit::Inches ? tr("in") : tr("mm");
}

std::string sizeSentence(const Label& label, pagesettings::Unit unit)
{
    return filled(tr("{1} × {2}"), {amount(label.width, unit), amount(label.length, unit)});
}

std::string tapeUsedSentence(const Label& label, pagesettings::Unit unit)
{
    if (label.margin <= 0) {
        return filled(tr("Tape used {1}"), {amount(label.length, unit)});
    }
    return filled(tr("Tape used {1}, of it {2} margins"),
                  {amount(label.length, unit), amount(2 * label.margin, unit)});
}

std::string documentSentence(const Label& label, const DocumentPicture& picture,
                             const Placement* place, pagesettings::Unit unit)
{
    std::string text = problemSentence(picture.problem);
    if (place == nullptr || picture.problem != PictureProblem::None) {
        return text;
    }
    if (place->beyondLabel > 0) {
        say(text,
            filled(tr("The document is longer than the label by {1}. The printer's filter may "
                      "cut or scale it."),
                   {amount(place->beyondLabel, unit)}));
    }
    if (place->share == 0) {
        say(text, tr("The picture does not tell its size; it is shown as large as fits."));
    } else if (place->share < 1) {
        say(text, filled(tr("The document is {1} wide, the tape {2}. It is shown at {3} %; the "
                            "printer's filter may cut it instead."),
                         {amount(place->ownAcross, unit), amount(label.width, unit),
                          percent(place->share)}));
    }
    if (place->intoMargins > 0) {
        say(text, filled(tr("The document reaches {1} into each margin."),
                         {amount(place->intoMargins, unit)}));
    }
    if (picture.kind == PictureKind::Text) {
        say(text, tr("How text is set is up to the printer's filter."));
    }
    if (picture.pages > 1) {
        const std::string pages = std::to_string(picture.pages);
        say(text, filled(tr("Page 1 of {1}."), {pages}));
    }
    return text;
}

std::string pictureSentence(const Label& label, const std::string& remarks, pagesettings::Unit unit)
{
    std::string text = filled(tr("Picture of the label, {1}."), {sizeSentence(label, unit)});
    say(text, tapeUsedSentence(label, unit) + '.');
    say(text, remarks);
    return text;
}

bool isWarning(const Placement& place) noexcept
{
    return place.beyondLabel > 0;
}

} // namespace dialog
