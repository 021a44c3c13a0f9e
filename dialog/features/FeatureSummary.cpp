#include "dialog/features/FeatureSummary.hpp"

#include "dialog/features/FeatureValue.hpp"

namespace dialog {

void appendFeatureLines(std::vector<SummaryLine>& lines, const Features& offered,
                        const JobOptions& job,
                        const std::function<bool(const std::string& keyword)>& isThePanels)
{
    for (const FeatureGroup& group : offered) {
        for (const Feature& feature : group.features) {
            const std::string* const choice = job.find(feature.keyword);
            if (choice != nullptr && !isThePanels(feature.keyword)) {
                lines.push_back({feature.title, valueTitle(feature, *choice)});
            }
        }
    }
}

} // namespace dialog
