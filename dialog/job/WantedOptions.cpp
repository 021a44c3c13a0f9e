#include "dialog/job/WantedOptions.hpp"

#include "dialog/job/WantedLength.hpp"

#include <algorithm>

namespace dialog {

namespace {

const ppd_option_t* optionOf(const PPDFile& ppd, const std::string& keyword) noexcept
{
    return ppd.record() == nullptr ? nullptr : ppdFindOption(ppd.record(), keyword.c_str());
}

} // namespace

void applyWanted(const WantedOptions& wanted, PPDFile& ppd, JobOptions& options)
{
    for (const auto& [keyword, choice] : wanted) {
        const bool known = optionOf(ppd, keyword) != nullptr;
        if (ppd.mark(keyword, choice) || (!known && keyword != kTapeLengthOption)) {
            options.set(keyword, choice);
        }
    }
}

const std::pair<std::string, std::string>* unknownChoice(const WantedOptions& wanted,
                                                         const PPDFile& ppd)
{
    for (const auto& entry : wanted) {
        const auto& [keyword, choice] = entry;
        const ppd_option_t* const option = optionOf(ppd, keyword);
        const bool fits = keyword == kTapeLengthOption ? parseMillimetres(choice).has_value()
                          : keyword == kMarginOption   ? parseMargin(choice).has_value()
                                                     : option == nullptr || offers(option, choice);
        if (!fits) {
            return &entry;
        }
    }
    return nullptr;
}

std::string startingPaper(const PPDFile& ppd, std::string_view paper)
{
    const std::vector<PPDFile::Size> sizes = ppd.sizes();
    const std::string marked = ppd.marked("PageSize");
    for (const std::string_view name : {paper, std::string_view(marked)}) {
        const auto found = std::find_if(sizes.begin(), sizes.end(), [&](const PPDFile::Size& size) {
            return size.name == name;
        });
        if (found != sizes.end()) {
            return found->name;
        }
    }
    return sizes.empty() ? std::string() : sizes.front().name;
}

} // namespace dialog
