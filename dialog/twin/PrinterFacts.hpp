// PrinterFacts.hpp - what a printer offers, for --list: as text for people, as JSON for programs.
//
// Plain C++.
#pragma once

#include "dialog/ppd/PPDFile.hpp"
#include "dialog/printers/Printers.hpp"

#include <optional>
#include <string>
#include <vector>

namespace dialog {

struct PaperFacts
{
    std::string name;
    std::string title;
    double widthMillimetres = 0;
    double lengthMillimetres = 0;
    bool isFixed = false; // a label with a length of its own
};

// In millimetres; 0 to 0 where the PPD states no limits.
struct LengthFacts
{
    std::string option; // the keyword
    double minimum = 0;
    double maximum = 0;
    std::string standard; // as the PPD has it; empty for the tape's length, which is the paper's
    bool wholeNumbers = false;
};

struct ChoiceFacts
{
    std::string choice;
    std::string title;
};

struct OptionFacts
{
    std::string keyword;
    std::string title;
    std::string standard;
    std::vector<ChoiceFacts> choices;
};

struct PrinterFacts
{
    PrinterEntry printer;
    bool isFirst = false; // the one that is used when none is named
    std::string problem;  // a sentence; empty when all the rest is known
    std::string model;
    std::string paper; // the tape to start with
    bool inInches = false;
    std::vector<PaperFacts> papers;
    LengthFacts length;
    std::optional<LengthFacts> margin;
    std::vector<OptionFacts> options; // but the tape, the length and the margin
};

PrinterFacts factsOf(const PrinterEntry& printer, const PPDFile& ppd);

std::string factsAsText(const std::vector<PrinterFacts>& printers);

// Valid UTF-8 whatever a PPD holds.
std::string factsAsJSON(const std::vector<PrinterFacts>& printers);

} // namespace dialog
