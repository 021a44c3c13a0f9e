// FeatureSummary.hpp - the chosen features as lines of the summary.  Plain C++.
#pragma once

#include "dialog/SummaryLines.hpp"
#include "dialog/features/Features.hpp"
#include "dialog/job/JobOptions.hpp"

#include <functional>
#include <string>
#include <vector>

namespace dialog {

// Those that go with the job and of which the panel does not speak, in the PPD's order.
void appendFeatureLines(std::vector<SummaryLine>& lines, const Features& offered,
                        const JobOptions& job,
                        const std::function<bool(const std::string& keyword)>& isThePanels);

} // namespace dialog
