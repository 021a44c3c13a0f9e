#include "dialog/job/JobPageSize.hpp"

#include "dialog/job/WantedLength.hpp"
#include "dialog/ppd/PPDFile.hpp"
#include "tape/TapeState.hpp"

#include <charconv>
#include <optional>

namespace dialog {

namespace {

// Of a page size in general, not of the panel: filters take the inch for 25.4 mm.
constexpr double kMillimetresPerPoint = 25.4 / 72.0;

constexpr std::string_view kCustomSize = "Custom";

} // namespace

std::string plainNumber(double value)
{
    char buffer[400]; // the longest double has 309 digits before its point
    const auto written =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, 2);
    std::string text(buffer, written.ptr);
    if (text.find('.') != text.npos) {
        text.erase(text.find_last_not_of('0') + 1);
        if (text.back() == '.') {
            text.pop_back();
        }
    }
    return text;
}

std::string pageSizeToSend(const JobTape& tape, std::string_view lengthMillimetres)
{
    const std::optional<double> length = parseMillimetres(lengthMillimetres);
    const bool isVariable = tape::tapeStateForPaper(tape.name) == tape::kContinuousTape;
    if (!tape.takesCustomSizes || !isVariable || !(tape.widthPoints > 0) || !length) {
        return tape.name;
    }
    return std::string(kCustomSize) + "." + plainNumber(tape.widthPoints * kMillimetresPerPoint) +
           "x" + plainNumber(*length) + "mm";
}

std::string pageSizeToSend(const PPDFile& ppd, const std::string& paper, const JobOptions& options)
{
    const std::string* const length = options.find(kTapeLengthOption);
    const ppd_file_t* const record = ppd.record();
    if (record == nullptr || length == nullptr) {
        return paper;
    }
    JobTape tape{paper};
    for (int i = 0; i < record->num_sizes; ++i) {
        const ppd_size_t& size = record->sizes[i];
        if (size.name == paper) {
            tape.widthPoints = size.width;
        } else if (size.name == kCustomSize) {
            // The library reads custom sizes for a PPD that has this entry and no other.
            tape.takesCustomSizes = record->variable_sizes != 0;
        }
    }
    return pageSizeToSend(tape, *length);
}

} // namespace dialog
