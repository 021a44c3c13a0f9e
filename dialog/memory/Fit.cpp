#include "dialog/memory/Fit.hpp"

#include "dialog/Messages.hpp"
#include "dialog/Translate.hpp"
#include "dialog/job/WantedLength.hpp"

#include <algorithm>
#include <cmath>

namespace dialog {

namespace {

constexpr double kRoundingMillimetres = 0.25;
constexpr std::string_view kTapeOption = "PageSize";
constexpr std::string_view kRegionOption = "PageRegion"; // follows the tape

bool isLength(std::string_view keyword) noexcept
{
    return keyword == kTapeLengthOption || keyword == kMarginOption;
}

const ppd_option_t* findOption(const PPDFile& ppd, const std::string& keyword)
{
    return ppd.record() == nullptr ? nullptr : ppdFindOption(ppd.record(), keyword.c_str());
}

std::string titleOf(const PPDFile& ppd, const std::string& keyword)
{
    const ppd_option_t* const option = findOption(ppd, keyword);
    return option == nullptr || option->text[0] == '\0' ? keyword : option->text;
}

bool fits(const JobOption& value, const PPDFile& ppd)
{
    const ppd_option_t* const option = findOption(ppd, value.keyword);
    if (isLength(value.keyword)) {
        return parseMillimetres(value.choice) &&
               (option != nullptr || value.keyword == kTapeLengthOption);
    }
    return offers(option, value.choice);
}

const std::string* findIn(const Wanted& options, std::string_view keyword)
{
    const auto found = std::find_if(options.begin(), options.end(),
                                    [&](const auto& option) { return option.first == keyword; });
    return found == options.end() ? nullptr : &found->second;
}

std::string leftOut(const std::string& title, const std::string& choice)
{
    return filled(tr("{1} {2} is left out"), {shown(title, 80), shown(choice, 80)});
}

} // namespace

Fit fit(const KeptValues& values, const PPDFile& ppd)
{
    Fit result;
    if (offers(findOption(ppd, std::string(kTapeOption)), values.tape)) {
        result.tape = values.tape;
    } else if (!values.tape.empty()) {
        result.leftOut.push_back(leftOut(tr("Tape"), values.tape));
    }
    for (const JobOption& value : values.options) {
        if (value.keyword == kTapeOption || value.keyword == kRegionOption) {
            continue;
        }
        if (fits(value, ppd)) {
            result.options.emplace_back(value.keyword, value.choice);
        } else {
            result.leftOut.push_back(leftOut(titleOf(ppd, value.keyword), value.choice));
        }
    }
    return result;
}

std::vector<JobOption> worthKeeping(const std::vector<JobOption>& options, const PPDFile& ppd)
{
    std::vector<JobOption> kept;
    for (const JobOption& option : options) {
        if (option.keyword == kTapeOption || option.keyword == kRegionOption) {
            continue;
        }
        if (isLength(option.keyword) ? parseMillimetres(option.choice).has_value()
                                     : findOption(ppd, option.keyword) != nullptr) {
            kept.push_back(option);
        }
    }
    return kept;
}

std::vector<std::string> changedLengths(const Wanted& wanted, const JobOptions& now,
                                        const PPDFile& ppd)
{
    std::vector<std::string> changes;
    for (const auto& [keyword, choice] : wanted) {
        const std::string* const is = isLength(keyword) ? now.find(keyword) : nullptr;
        const auto before = parseMillimetres(choice);
        if (is == nullptr || !before) {
            continue;
        }
        const auto after = parseMillimetres(*is);
        if (after && std::abs(*after - *before) < kRoundingMillimetres) {
            continue;
        }
        // Margin has its title in the PPD; the length often is no option of it.
        const std::string title =
            keyword == kTapeLengthOption ? tr("Tape Length") : titleOf(ppd, keyword);
        changes.push_back(
            filled(tr("{1} {2} mm became {3} mm"), {shown(title, 80), choice, shown(*is, 80)}));
    }
    return changes;
}

Wanted overlaid(const Wanted& base, const Wanted& over, const Wanted& firm)
{
    Wanted result = base;
    for (const auto& [keyword, choice] : over) {
        if (findIn(firm, keyword) != nullptr) {
            continue;
        }
        std::erase_if(result,
                      [&, &name = keyword](const auto& other) { return other.first == name; });
        result.emplace_back(keyword, choice);
    }
    return result;
}

Wanted unknownTo(const PPDFile& ppd, const Wanted& wanted)
{
    Wanted result;
    for (const auto& option : wanted) {
        if (findOption(ppd, option.first) == nullptr && !isLength(option.first)) {
            result.push_back(option);
        }
    }
    return result;
}

} // namespace dialog
