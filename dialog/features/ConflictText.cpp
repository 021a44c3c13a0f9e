#include "dialog/features/ConflictText.hpp"

#include "dialog/Messages.hpp"
#include "dialog/Translate.hpp"
#include "dialog/features/FeatureValue.hpp"

namespace dialog {

namespace {

constexpr std::size_t kMostOfATitle = 80;

std::string featureTitle(const Features& features, const std::string& keyword)
{
    const Feature* const feature = findFeature(features, keyword);
    return shown(feature == nullptr ? keyword : feature->title, kMostOfATitle);
}

std::string titleOf(const Features& features, const std::string& keyword, const std::string& choice)
{
    const Feature* const feature = findFeature(features, keyword);
    return shown(feature == nullptr ? choice : choiceTitle(*feature, choice), kMostOfATitle);
}

std::string settingText(const Setting& setting, const Features& features)
{
    return filled(tr("{1} \"{2}\""), {featureTitle(features, setting.keyword),
                                      titleOf(features, setting.keyword, setting.choice)});
}

std::string changeText(const Change& change, const Features& features)
{
    const std::string feature = featureTitle(features, change.keyword);
    if (change.choices.empty()) {
        return filled(tr("Choose nothing for {1}"), {feature});
    }
    std::string titles;
    for (const std::string& choice : change.choices) {
        if (!titles.empty()) {
            titles += tr(", ");
        }
        titles += titleOf(features, change.keyword, choice);
    }
    return filled(tr("Set {1} to \"{2}\""), {feature, titles});
}

} // namespace

std::string conflictSentence(const Conflict& conflict, const Features& features)
{
    std::string others;
    for (std::size_t i = 1; i < conflict.settings.size(); ++i) {
        const std::string text = settingText(conflict.settings[i], features);
        others = others.empty() ? text : filled(tr("{1} and {2}"), {others, text});
    }
    return filled(tr("{1} does not go with {2}."),
                  {settingText(conflict.settings.front(), features), others});
}

std::string conflictSentence(const std::vector<Conflict>& conflicts, const Features& features)
{
    if (conflicts.empty()) {
        return {};
    }
    const std::string first = conflictSentence(conflicts.front(), features);
    return conflicts.size() == 1
               ? first
               : filled(tr("{1} ({2} more)"), {first, std::to_string(conflicts.size() - 1)});
}

std::string changesTitle(const std::vector<Change>& changes, const Features& features)
{
    std::string title;
    for (const Change& change : changes) {
        const std::string text = changeText(change, features);
        title = title.empty() ? text : filled(tr("{1}, {2}"), {title, text});
    }
    return title;
}

std::string choiceNotKept(const Feature& feature, const std::string& kept)
{
    return filled(
        tr("With the other settings {1} stays \"{2}\"."),
        {shown(feature.title, kMostOfATitle), shown(valueTitle(feature, kept), kMostOfATitle)});
}

} // namespace dialog
