#include "dialog/features/Resolving.hpp"

#include <algorithm>
#include <set>

namespace dialog {

namespace {

// Constraints looked at in one search; far more than real PPDs need, a few hundredths of a second.
constexpr std::size_t kMostLooks = 100000;

bool sameSettings(std::vector<Setting> one, std::vector<Setting> other)
{
    std::sort(one.begin(), one.end());
    std::sort(other.begin(), other.end());
    return one == other;
}

class Search
{
  public:
    Search(const Conflict& conflict, const Features& features, const Constraints& constraints,
           const Marks& marks, std::string_view lastChosen)
        : conflict_(conflict), features_(features), constraints_(constraints), marks_(marks),
          lastChosen_(lastChosen)
    {
        for (std::size_t i = 0; i < constraints.size(); ++i) {
            for (const Setting& term : constraints[i].terms) {
                std::vector<std::size_t>& list = naming_[term.keyword];
                if (list.empty() || list.back() != i) {
                    list.push_back(i);
                }
            }
            const std::vector<Setting> settings = brokenBy(constraints[i], marks);
            if (!settings.empty() && !sameSettings(settings, conflict.settings)) {
                others_.insert(i);
            }
        }
    }

    std::vector<Change> find()
    {
        for (const auto& attempt : {&Search::proposal, &Search::oneChange, &Search::twoChanges,
                                    &Search::changeOfTheLast}) {
            // Better to end what else the changed option is in conflict with as well.
            for (const bool othersMayStay : {false, true}) {
                othersMayStay_ = othersMayStay;
                std::vector<Change> changes = (this->*attempt)();
                if (!changes.empty()) {
                    return changes;
                }
            }
        }
        return {};
    }

  private:
    std::vector<Change> proposal()
    {
        std::vector<Change> changes;
        for (const Setting& setting : constraints_[conflict_.constraint].resolver) {
            if (setting.choice.empty() || setting.keyword == lastChosen_ ||
                offered(setting.keyword) == nullptr) {
                return {};
            }
            changes.push_back({setting.keyword, {setting.choice}});
        }
        return ends(changes) ? changes : std::vector<Change>();
    }

    std::vector<Change> oneChange()
    {
        for (const Setting& setting : conflict_.settings) {
            if (setting.keyword != lastChosen_) {
                for (const Change& change : alternatives(setting)) {
                    if (ends({change})) {
                        return {change};
                    }
                }
            }
        }
        return {};
    }

    std::vector<Change> twoChanges()
    {
        for (const Setting& setting : conflict_.settings) {
            if (setting.keyword == lastChosen_) {
                continue;
            }
            for (const Change& first : alternatives(setting)) {
                for (const Setting& next : brought({first})) {
                    if (next.keyword == first.keyword || next.keyword == lastChosen_) {
                        continue;
                    }
                    for (const Change& second : alternatives(next)) {
                        if (ends({first, second})) {
                            return {first, second};
                        }
                    }
                }
            }
        }
        return {};
    }

    std::vector<Change> changeOfTheLast()
    {
        for (const Setting& setting : conflict_.settings) {
            if (setting.keyword == lastChosen_) {
                for (const Change& change : alternatives(setting)) {
                    if (ends({change})) {
                        return {change};
                    }
                }
            }
        }
        return {};
    }

    const Feature* offered(std::string_view keyword) const
    {
        const Feature* const feature = findFeature(features_, keyword);
        return feature != nullptr && isOffered(*feature) ? feature : nullptr;
    }

    // What the option could be instead, the default first.
    std::vector<Change> alternatives(const Setting& setting) const
    {
        std::vector<Change> changes;
        const Feature* const feature = offered(setting.keyword);
        if (feature == nullptr) {
            return changes;
        }
        if (feature->kind == FeatureKind::PickMany) {
            Change change{setting.keyword, marks_.find(setting.keyword)->second};
            std::erase(change.choices, setting.choice);
            return {change};
        }
        for (const FeatureChoice& choice : feature->choices) {
            if (choice.keyword == setting.choice) {
                continue;
            }
            const auto place =
                choice.keyword == feature->standard ? changes.begin() : changes.end();
            changes.insert(place, {setting.keyword, {choice.keyword}});
        }
        return changes;
    }

    // Visits the constraints that name a changed option, with their settings; false when the
    // visitor wants no more or the search has gone on for too long.
    template <typename Visitor>
    bool look(const std::vector<Change>& changes, Visitor visitor)
    {
        Marks marks = marks_;
        for (const Change& change : changes) {
            marks[change.keyword] = change.choices;
        }
        for (const Change& change : changes) {
            const auto naming = naming_.find(change.keyword);
            if (naming == naming_.end()) {
                continue;
            }
            for (const std::size_t index : naming->second) {
                if (++looks_ > kMostLooks ||
                    !visitor(index, brokenBy(constraints_[index], marks))) {
                    return false;
                }
            }
        }
        return true;
    }

    bool ends(const std::vector<Change>& changes)
    {
        const bool touches = std::any_of(changes.begin(), changes.end(), [&](const Change& change) {
            return std::any_of(conflict_.settings.begin(), conflict_.settings.end(),
                               [&](const Setting& s) { return s.keyword == change.keyword; });
        });
        return touches &&
               look(changes, [&](std::size_t index, const std::vector<Setting>& settings) {
                   return settings.empty() || (othersMayStay_ && others_.contains(index));
               });
    }

    // The settings of the conflicts that were not there before.
    std::vector<Setting> brought(const std::vector<Change>& changes)
    {
        std::vector<Setting> result;
        look(changes, [&](std::size_t index, const std::vector<Setting>& settings) {
            if (!others_.contains(index)) {
                result.insert(result.end(), settings.begin(), settings.end());
            }
            return true;
        });
        return result;
    }

    const Conflict& conflict_;
    const Features& features_;
    const Constraints& constraints_;
    const Marks& marks_;
    const std::string_view lastChosen_;
    std::map<std::string, std::vector<std::size_t>, std::less<>> naming_;
    std::set<std::size_t> others_; // constraints broken otherwise than by this conflict
    bool othersMayStay_ = false;
    std::size_t looks_ = 0;
};

} // namespace

void noteChoice(ChoiceOrder& order, std::string_view keyword)
{
    std::erase(order, keyword);
    order.emplace_back(keyword);
}

std::string_view lastChosenIn(const Conflict& conflict, const ChoiceOrder& order) noexcept
{
    const auto last = std::find_if(order.rbegin(), order.rend(), [&](const std::string& keyword) {
        return std::any_of(conflict.settings.begin(), conflict.settings.end(),
                           [&](const Setting& setting) { return setting.keyword == keyword; });
    });
    return last == order.rend() ? std::string_view() : *last;
}

std::vector<Change> changesToResolve(const Conflict& conflict, const Features& features,
                                     const Constraints& constraints, const Marks& marks,
                                     std::string_view lastChosen)
{
    return Search(conflict, features, constraints, marks, lastChosen).find();
}

bool canBeResolved(const Conflict& conflict, const Features& features)
{
    return std::any_of(
        conflict.settings.begin(), conflict.settings.end(), [&](const Setting& setting) {
            const Feature* const feature = findFeature(features, setting.keyword);
            return feature != nullptr && (isOffered(*feature) || (feature->keyword == "PageSize" &&
                                                                  feature->choices.size() > 1));
        });
}

} // namespace dialog
