// Twin.hpp - what the program does without a window and without a display: print, say what would be
// printed, list, and look for what is wrong.
//
// Answers go to standard output, everything else to standard error, each line of it beginning with
// "tape-print: ".
#pragma once

#include "dialog/CommandLine.hpp"
#include "dialog/ExitStatus.hpp"
#include "dialog/Messages.hpp"

#include <string>

namespace dialog {

// What only the toolkit can tell.
class PanelLook
{
  public:
    virtual ~PanelLook() = default;

    // The panel's own words for a margin of more than half the length; empty without a bundle.
    virtual std::string marginAlert() = 0;

    // Loads the bundle and asks it for its panel; `name` is what the panel calls itself.
    virtual Failure load(std::string& name) = 0;
};

// The tape that is asked for by --paper or else by --set PageSize; empty when none is.
std::string paperOf(const CommandLine& line);

// `line.plugin` names the bundle.  taskOf(line) is anything but the window.
ExitStatus runTwin(const CommandLine& line, PanelLook& panel);

} // namespace dialog
