#include "dialog/preview/TapeFacts.hpp"

#include "tape/TapeState.hpp"
#include "tape/Units.hpp"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <string_view>

namespace dialog {

namespace {

std::string_view attribute(ppd_file_t* ppd, const char* name)
{
    const ppd_attr_t* const found = ppdFindAttr(ppd, name, nullptr);
    return found == nullptr || found->value == nullptr ? std::string_view() : found->value;
}

double millimetres(double points) noexcept
{
    return tape::millimetresFromPoints(points);
}

// A strip that is narrower than what rounding to points leaves is none.
double strip(double points) noexcept
{
    const double wide = millimetres(points);
    return wide > 0.05 && std::isfinite(wide) ? wide : 0;
}

} // namespace

LengthRules lengthRules(ppd_file_t* ppd)
{
    LengthRules rules;
    if (ppd == nullptr) {
        return rules;
    }
    rules.unit = pagesettings::unitFromAttribute(attribute(ppd, "VnUnitType"));
    rules.wholeNumbers = pagesettings::isTrue(attribute(ppd, "VnIsIntegerTapeLength")) ||
                         pagesettings::isTrue(attribute(ppd, "VnIsIntegerMargin"));
    rules.limits.minLength = pagesettings::leadingFloat(attribute(ppd, "VnMinTapeLength"));
    rules.limits.maxLength = pagesettings::leadingFloat(attribute(ppd, "VnMaxTapeLength"));
    rules.limits.minMargin = pagesettings::leadingFloat(attribute(ppd, "VnMinMargin"));
    rules.limits.maxMargin = pagesettings::leadingFloat(attribute(ppd, "VnMaxMargin"));
    return rules;
}

std::optional<TapeFacts> tapeFacts(ppd_file_t* ppd, const std::string& paper)
{
    if (ppd == nullptr || paper.empty()) {
        return std::nullopt;
    }
    const ppd_size_t* const end = ppd->sizes + ppd->num_sizes;
    const ppd_size_t* const size =
        std::find_if(static_cast<const ppd_size_t*>(ppd->sizes), end, [&](const ppd_size_t& one) {
            return std::strcmp(paper.c_str(), one.name) == 0;
        });
    if (size == end) {
        return std::nullopt;
    }
    TapeFacts facts;
    facts.label.width = millimetres(size->width);
    facts.label.length = millimetres(size->length);
    // The page stands on the tape's end; turned to be read, its left edge is the upper one.
    facts.label.blankAbove = strip(size->left);
    facts.label.blankBelow = strip(static_cast<double>(size->width) - size->right);
    facts.isFixed = tape::tapeStateForPaper(paper) == tape::kFixedLengthLabel;
    return isDrawable(facts.label) ? std::optional(facts) : std::nullopt;
}

} // namespace dialog
