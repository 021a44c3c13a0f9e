// SummaryLines.hpp - a panel's summary as lines.  Plain C++.
#pragma once

#include <string>
#include <vector>

namespace dialog {

struct SummaryLine
{
    std::string title;
    std::string value;

    bool operator==(const SummaryLine&) const = default;
};

// "title: value" a line, for the summary file.  Line breaks inside a text become blanks.
std::string summaryText(const std::vector<SummaryLine>& lines);

} // namespace dialog
