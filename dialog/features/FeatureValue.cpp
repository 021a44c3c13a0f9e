#include "dialog/features/FeatureValue.hpp"

#include "dialog/Translate.hpp"

#include <algorithm>

namespace dialog {

std::vector<bool> chosenOf(const Feature& feature, const std::vector<std::string>& marked)
{
    std::vector<bool> chosen;
    chosen.reserve(feature.choices.size());
    for (const FeatureChoice& choice : feature.choices) {
        chosen.push_back(std::find(marked.begin(), marked.end(), choice.keyword) != marked.end());
    }
    return chosen;
}

std::string valueOf(const Feature& feature, const std::vector<bool>& chosen)
{
    std::vector<std::string> keywords;
    for (std::size_t i = 0; i < feature.choices.size(); ++i) {
        if (chosen[i]) {
            keywords.push_back(feature.choices[i].keyword);
        }
    }
    return joinedChoices(keywords);
}

std::string joinedChoices(const std::vector<std::string>& keywords)
{
    std::string value;
    for (const std::string& keyword : keywords) {
        value += value.empty() ? "" : ",";
        value += keyword;
    }
    return value.empty() ? "None" : value;
}

bool isSwitchedOn(const Feature& feature, const std::vector<bool>& chosen) noexcept
{
    for (std::size_t i = 0; i < feature.choices.size(); ++i) {
        if (chosen[i] && feature.choices[i].keyword == "True") {
            return true;
        }
    }
    return false;
}

std::vector<bool> switched(const Feature& feature, bool on)
{
    return chosenOf(feature, {on ? "True" : "False"});
}

std::string valueTitle(const Feature& feature, const std::string& value)
{
    if (feature.kind != FeatureKind::PickMany) {
        return std::string(choiceTitle(feature, value));
    }
    std::string titles;
    std::size_t start = 0;
    while (start <= value.size()) {
        const std::size_t comma = std::min(value.find(',', start), value.size());
        titles += titles.empty() ? "" : tr(", ");
        titles += choiceTitle(feature, value.substr(start, comma - start));
        start = comma + 1;
    }
    return titles;
}

} // namespace dialog
