// PanelSettings.hpp - what the Page Settings panel would make of entries and choices, without it.
//
// The steps are those of a user at the panel: the tape is chosen, the choices are made, the margin
// is typed, then the length, then Print is pressed.  Every number goes through the rules that the
// panel itself goes by, so a job is the same whichever way it was asked for.  Plain C++.
#pragma once

#include "dialog/job/JobOptions.hpp"
#include "dialog/job/WantedOptions.hpp"
#include "dialog/ppd/PPDFile.hpp"
#include "dialog/twin/LengthWord.hpp"
#include "pagesettings/PanelRules.hpp"

#include <optional>
#include <string>
#include <vector>

namespace dialog {

// What the PPD says of length and margin.  Without a record, nothing.
pagesettings::PanelRules panelRules(ppd_file_t* record) noexcept;

struct PanelEntries
{
    std::optional<LengthWord> length; // none: the tape's, or that of `wanted`
    std::optional<LengthWord> margin; // none: the PPD's default, or that of `wanted`
    WantedOptions wanted;
};

// Why a length or margin is not the one asked for.
enum class Cause : std::uint8_t
{
    Maximum,
    Minimum,
    TwoMargins, // the length was made longer than two margins
    FixedLabel, // the label has a length and margin of its own
    NoOption,   // the printer has no margin to set
    Rounding,   // to what the printer can be set to
};

struct Adjustment
{
    bool isMargin = false;
    Cause cause = Cause::Rounding;
    std::string from; // with its unit
    std::string to;   // with its unit; empty with NoOption
};

struct PanelSettings
{
    JobOptions options;
    std::string length; // as the panel would show it, with its unit
    std::string margin; // empty when the printer has none
    std::vector<Adjustment> adjustments;
};

// `paper` is a page size of the PPD, marked already.  Marks the choices in the PPD as the dialog
// does.  Lengths are held to the limits, never refused.
PanelSettings panelSettings(PPDFile& ppd, const std::string& paper, const PanelEntries& entries);

// A length and a margin as the dialog starts with them, in millimetres, behind what is wanted
// already: so the window shows what the twin would print.
WantedOptions wantedWithEntries(ppd_file_t* record, const PanelEntries& entries);

} // namespace dialog
