#include "dialog/features/Constraints.hpp"

#include <algorithm>
#include <set>
#include <string_view>

#include <strings.h>

namespace dialog {

namespace {

// Options and choices of the PPD by the names that a constraint calls them by.
class Names
{
  public:
    explicit Names(ppd_file_t* ppd) noexcept : ppd_(ppd) {}

    // False when the PPD has no such option or choice.
    bool spell(Setting& setting) const
    {
        if (strcasecmp(setting.keyword.c_str(), "PageRegion") == 0 &&
            ppdFindOption(ppd_, "PageSize") != nullptr) {
            setting.keyword = "PageSize";
        }
        const ppd_option_t* const option = ppdFindOption(ppd_, setting.keyword.c_str());
        if (option == nullptr) {
            return false;
        }
        setting.keyword = option->keyword;
        if (setting.choice.empty()) {
            return true;
        }
        const Choices& choices = choicesOf(*option);
        const auto choice = choices.find(setting.choice);
        if (choice == choices.end()) {
            return false;
        }
        setting.choice = *choice;
        return true;
    }

    bool spell(std::vector<Setting>& settings) const
    {
        return std::all_of(settings.begin(), settings.end(),
                           [&](Setting& setting) { return spell(setting); });
    }

  private:
    struct WithoutCase
    {
        bool operator()(const std::string& one, const std::string& other) const noexcept
        {
            return strcasecmp(one.c_str(), other.c_str()) < 0;
        }
    };
    using Choices = std::set<std::string, WithoutCase>;

    const Choices& choicesOf(const ppd_option_t& option) const
    {
        const auto [place, isNew] = choices_.try_emplace(&option);
        for (int i = 0; isNew && i < option.num_choices; ++i) {
            place->second.insert(option.choices[i].choice);
        }
        return place->second;
    }

    ppd_file_t* ppd_;
    mutable std::map<const ppd_option_t*, Choices> choices_; // of the options that were named
};

// "*Keyword Choice *Keyword Choice": words, of which those with an asterisk begin a setting.
std::vector<Setting> settingsIn(std::string_view text)
{
    constexpr std::string_view kBlanks = " \t\r\n";
    std::vector<Setting> settings;
    while (true) {
        const std::size_t start = text.find_first_not_of(kBlanks);
        if (start == std::string_view::npos) {
            return settings;
        }
        text.remove_prefix(start);
        const std::string_view word = text.substr(0, text.find_first_of(kBlanks));
        text.remove_prefix(word.size());
        if (word.front() == '*') {
            settings.push_back({std::string(word.substr(1)), {}});
        } else if (!settings.empty() && settings.back().choice.empty()) {
            settings.back().choice = word;
        }
    }
}

std::vector<Setting> sorted(std::vector<Setting> settings)
{
    std::sort(settings.begin(), settings.end());
    return settings;
}

bool isNothing(std::string_view choice) noexcept
{
    const std::string text(choice);
    return strcasecmp(text.c_str(), "None") == 0 || strcasecmp(text.c_str(), "Off") == 0 ||
           strcasecmp(text.c_str(), "False") == 0;
}

// An option as a whole, and one of its choices, are the same option's one choice.
bool isOfOneChoice(const std::vector<Setting>& terms)
{
    const Setting* named = nullptr;
    for (const Setting& term : terms) {
        if (term.keyword != terms.front().keyword) {
            return false;
        }
        if (term.choice.empty()) {
            continue;
        }
        if (named != nullptr && term.choice != named->choice) {
            return false;
        }
        named = &term;
    }
    return true;
}

} // namespace

Constraints constraintsOf(const PPDFile& ppd)
{
    Constraints constraints;
    ppd_file_t* const record = ppd.record();
    if (record == nullptr) {
        return constraints;
    }
    const Names names(record);
    std::set<std::vector<Setting>> known;
    const auto take = [&](Constraint constraint) {
        if (constraint.terms.size() < 2 || !names.spell(constraint.terms) ||
            isOfOneChoice(constraint.terms) || !known.insert(sorted(constraint.terms)).second) {
            return;
        }
        if (!names.spell(constraint.resolver)) {
            constraint.resolver.clear();
        }
        constraints.push_back(std::move(constraint));
    };
    for (int i = 0; i < record->num_consts; ++i) {
        const ppd_const_t& pair = record->consts[i];
        take({{{pair.option1, pair.choice1}, {pair.option2, pair.choice2}}, {}});
    }
    std::map<std::string, std::string, std::less<>> resolvers;
    for (const ppd_attr_t* attribute = ppdFindAttr(record, "cupsUIResolver", nullptr);
         attribute != nullptr; attribute = ppdFindNextAttr(record, "cupsUIResolver", nullptr)) {
        if (attribute->value != nullptr) {
            resolvers.emplace(attribute->spec, attribute->value);
        }
    }
    for (const ppd_attr_t* attribute = ppdFindAttr(record, "cupsUIConstraints", nullptr);
         attribute != nullptr; attribute = ppdFindNextAttr(record, "cupsUIConstraints", nullptr)) {
        if (attribute->value != nullptr) {
            const auto resolver = resolvers.find(attribute->spec);
            take({settingsIn(attribute->value), resolver == resolvers.end()
                                                    ? std::vector<Setting>()
                                                    : settingsIn(resolver->second)});
        }
    }
    return constraints;
}

Marks marksOf(const PPDFile& ppd, const Constraints& constraints)
{
    Marks marks;
    for (const Constraint& constraint : constraints) {
        for (const Setting& term : constraint.terms) {
            if (!marks.contains(term.keyword)) {
                marks.emplace(term.keyword, ppd.markedChoices(term.keyword));
            }
        }
    }
    return marks;
}

std::vector<Setting> brokenBy(const Constraint& constraint, const Marks& marks)
{
    std::vector<Setting> settings;
    settings.reserve(constraint.terms.size());
    for (const Setting& term : constraint.terms) {
        const auto made = marks.find(term.keyword);
        if (made == marks.end()) {
            return {};
        }
        const auto choice =
            std::find_if(made->second.begin(), made->second.end(), [&](const std::string& mark) {
                return term.choice.empty() ? !isNothing(mark) : mark == term.choice;
            });
        if (choice == made->second.end()) {
            return {};
        }
        settings.push_back({term.keyword, *choice});
    }
    return settings;
}

std::vector<Conflict> conflictsIn(const Constraints& constraints, const Marks& marks)
{
    std::vector<Conflict> conflicts;
    std::set<std::vector<Setting>> known;
    for (std::size_t i = 0; i < constraints.size(); ++i) {
        std::vector<Setting> settings = brokenBy(constraints[i], marks);
        if (!settings.empty() && known.insert(sorted(settings)).second) {
            conflicts.push_back({std::move(settings), i});
        }
    }
    return conflicts;
}

} // namespace dialog
