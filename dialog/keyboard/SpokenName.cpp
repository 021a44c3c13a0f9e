#include "dialog/keyboard/SpokenName.hpp"

#include <algorithm>

namespace dialog {

namespace {

constexpr std::string_view kColon = ":";
constexpr std::string_view kWideColon = "\xEF\xBC\x9A"; // of Japanese and Chinese
constexpr double kRow = 24;

std::string_view trimmed(std::string_view text) noexcept
{
    constexpr std::string_view kNoBreakSpace = "\xC2\xA0"; // before a French colon
    while (true) {
        if (text.ends_with(' ')) {
            text.remove_suffix(1);
        } else if (text.ends_with(kNoBreakSpace)) {
            text.remove_suffix(kNoBreakSpace.size());
        } else {
            return text;
        }
    }
}

bool endsWithColon(std::string_view text) noexcept
{
    text = trimmed(text);
    return text.ends_with(kColon) || text.ends_with(kWideColon);
}

} // namespace

std::string withoutColon(std::string_view caption)
{
    caption = trimmed(caption);
    for (const std::string_view colon : {kColon, kWideColon}) {
        if (caption.ends_with(colon)) {
            caption.remove_suffix(colon.size());
            break;
        }
    }
    return std::string(trimmed(caption));
}

std::string captionBeside(const Frame& control, const std::vector<Caption>& captions)
{
    const double top = control.y + control.height;
    const double bottom = top - std::min(control.height, kRow);
    const Caption* nearest = nullptr;
    for (const Caption& caption : captions) {
        const Frame& frame = caption.frame;
        const double middle = frame.y + frame.height / 2;
        if (endsWithColon(caption.text) && middle >= bottom && middle <= top &&
            frame.x + frame.width <= control.x + 1 &&
            (nearest == nullptr || frame.x > nearest->frame.x)) {
            nearest = &caption;
        }
    }
    return nearest == nullptr ? std::string() : withoutColon(nearest->text);
}

} // namespace dialog
