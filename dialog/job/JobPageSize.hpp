// JobPageSize.hpp - the page size that a job names, so that a printer's filter makes a page as long
// as the label.
//
// The panel hands the label's length over as an option of its own, which only the printer's own
// filter knows.  Every other filter goes by the page size: for a tape whose length is the user's
// that is a custom one, Custom.<width>x<length>mm, where the printer takes such sizes.
#pragma once

#include "dialog/job/JobOptions.hpp"

#include <string>
#include <string_view>

namespace dialog {

class PPDFile;

struct JobTape
{
    std::string name;              // a page size of the PPD
    double widthPoints = 0;        // 0 when unknown
    bool takesCustomSizes = false; // the printer's PPD has variable page sizes
};

// `lengthMillimetres` is a number with a dot, as the panel hands it over.  The tape's own name is
// answered for a label of fixed length, for a printer without custom sizes, and when there is no
// width or no length above zero.
std::string pageSizeToSend(const JobTape& tape, std::string_view lengthMillimetres);

// The same for a page size of an open PPD and the length among the options.
std::string pageSizeToSend(const PPDFile& ppd, const std::string& paper, const JobOptions& options);

// "40.5": no more than two decimals, no zeros at the end, a dot whatever the locale.
std::string plainNumber(double value);

} // namespace dialog
