#include "dialog/preview/LabelFollower.hpp"

namespace dialog {

void LabelFollower::forget()
{
    *this = {};
}

std::optional<Label> LabelFollower::follow(const TapeFacts& tape, const LengthRules& rules,
                                           const LengthAndMargin& told,
                                           std::span<const std::string> texts)
{
    Label label = tape.label;
    if (tape.isFixed || told.length <= 0) {
        label.margin = told.margin;
    } else {
        if (told != told_) {
            told_ = told;
            shown_ = told;
        }
        if (!places_.length || !places_.margin) {
            places_ = findFields(texts, told, rules);
        }
        shown_ = valuesToShow(texts, places_, shown_, rules);
        label.length = shown_.length;
        label.margin = shown_.margin;
    }
    return isDrawable(label) ? std::optional(label) : std::nullopt;
}

} // namespace dialog
