#include "dialog/features/Features.hpp"

#include "dialog/job/WantedLength.hpp"

#include <algorithm>
#include <array>

namespace dialog {

namespace {

constexpr std::string_view kFittedGroup = "InstallableOptions";

std::string textOr(const char* text, const char* keyword)
{
    return text[0] == '\0' ? keyword : text;
}

// A check box is clear for such an answer alone; any other is shown as the text it is.
bool isPlainAnswer(std::string_view title) noexcept
{
    constexpr std::array<std::string_view, 8> kAnswers = {"True", "False", "Yes",     "No",
                                                          "On",   "Off",   "Enabled", "Disabled"};
    return std::find(kAnswers.begin(), kAnswers.end(), title) != kAnswers.end();
}

bool isPlainSwitch(const Feature& feature) noexcept
{
    return feature.choices.size() == 2 &&
           std::all_of(feature.choices.begin(), feature.choices.end(),
                       [](const FeatureChoice& choice) {
                           return (choice.keyword == "True" || choice.keyword == "False") &&
                                  isPlainAnswer(choice.title);
                       }) &&
           feature.choices[0].keyword != feature.choices[1].keyword;
}

Feature featureOf(ppd_file_t* ppd, const ppd_option_t& option)
{
    Feature feature;
    feature.keyword = option.keyword;
    feature.title = textOr(option.text, option.keyword);
    feature.standard = option.defchoice;
    const bool hasCustom = ppdFindCustomOption(ppd, option.keyword) != nullptr;
    feature.choices.reserve(static_cast<std::size_t>(option.num_choices));
    for (int i = 0; i < option.num_choices; ++i) {
        const ppd_choice_t& choice = option.choices[i];
        if (!hasCustom || std::string_view(choice.choice) != "Custom") {
            feature.choices.push_back({choice.choice, textOr(choice.text, choice.choice)});
        }
    }
    if (option.ui == PPD_UI_PICKMANY) {
        feature.kind = FeatureKind::PickMany;
    } else if (option.ui == PPD_UI_BOOLEAN && isPlainSwitch(feature)) {
        feature.kind = FeatureKind::Switch;
    }
    return feature;
}

bool hasOwnControl(std::string_view keyword) noexcept
{
    return keyword == "PageSize" || keyword == "PageRegion" || keyword == kTapeLengthOption ||
           keyword == kMarginOption;
}

void appendGroup(Features& features, ppd_file_t* ppd, const ppd_group_t& group, bool offeredAlone,
                 bool fitted = false)
{
    fitted = fitted || std::string_view(group.name) == kFittedGroup;
    FeatureGroup result{textOr(group.text, group.name), {}};
    for (int i = 0; i < group.num_options; ++i) {
        if (offeredAlone && (fitted || hasOwnControl(group.options[i].keyword))) {
            continue;
        }
        Feature feature = featureOf(ppd, group.options[i]);
        feature.fitted = fitted;
        if (!offeredAlone || isOffered(feature)) {
            result.features.push_back(std::move(feature));
        }
    }
    if (!offeredAlone || !result.features.empty()) {
        features.push_back(std::move(result));
    }
    for (int i = 0; i < group.num_subgroups; ++i) {
        appendGroup(features, ppd, group.subgroups[i], offeredAlone, fitted);
    }
}

Features readFeatures(const PPDFile& ppd, bool offeredAlone)
{
    Features features;
    ppd_file_t* const record = ppd.record();
    for (int i = 0; record != nullptr && i < record->num_groups; ++i) {
        appendGroup(features, record, record->groups[i], offeredAlone);
    }
    return features;
}

} // namespace

Features featuresOf(const PPDFile& ppd)
{
    return readFeatures(ppd, false);
}

Features offeredFeatures(const PPDFile& ppd)
{
    return readFeatures(ppd, true);
}

const Feature* findFeature(const Features& features, std::string_view keyword) noexcept
{
    for (const FeatureGroup& group : features) {
        for (const Feature& feature : group.features) {
            if (feature.keyword == keyword) {
                return &feature;
            }
        }
    }
    return nullptr;
}

bool isOffered(const Feature& feature) noexcept
{
    const std::size_t least = feature.kind == FeatureKind::PickMany ? 1 : 2;
    return !hasOwnControl(feature.keyword) && !feature.fitted && feature.choices.size() >= least;
}

std::string_view choiceTitle(const Feature& feature, std::string_view keyword) noexcept
{
    for (const FeatureChoice& choice : feature.choices) {
        if (choice.keyword == keyword) {
            return choice.title;
        }
    }
    return keyword;
}

} // namespace dialog
