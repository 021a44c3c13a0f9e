#include "dialog/twin/Remarks.hpp"

#include "dialog/Translate.hpp"

namespace dialog {

namespace {

const char* lengthPattern(Cause cause) noexcept
{
    switch (cause) {
    case Cause::Maximum:
        return tr("The length was changed from {1} to {2}, the longest this printer takes.");
    case Cause::Minimum:
        return tr("The length was changed from {1} to {2}, the shortest this printer takes.");
    case Cause::TwoMargins:
        return tr("The length was changed from {1} to {2}, to be longer than its two margins.");
    case Cause::FixedLabel:
        return tr("The length was changed from {1} to {2}: this label has a length of its own.");
    case Cause::NoOption:
    case Cause::Rounding:
        break;
    }
    return tr("The length was changed from {1} to {2}, the next one that can be set.");
}

const char* marginPattern(Cause cause) noexcept
{
    switch (cause) {
    case Cause::Maximum:
        return tr("The margin was changed from {1} to {2}, the widest this printer takes.");
    case Cause::Minimum:
        return tr("The margin was changed from {1} to {2}, the narrowest this printer takes.");
    case Cause::FixedLabel:
        return tr("The margin was changed from {1} to {2}: this label has a margin of its own.");
    case Cause::NoOption:
        return tr("The margin of {1} was left out: this printer has no margin to set.");
    case Cause::TwoMargins:
    case Cause::Rounding:
        break;
    }
    return tr("The margin was changed from {1} to {2}, the next one that can be set.");
}

} // namespace

std::string sentenceFor(const Adjustment& adjustment)
{
    return filled(adjustment.isMargin ? marginPattern(adjustment.cause)
                                      : lengthPattern(adjustment.cause),
                  {adjustment.from, adjustment.to});
}

} // namespace dialog
