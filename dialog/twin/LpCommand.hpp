// LpCommand.hpp - the lp command that prints what the dialog would.
//
// Two grammars lie one in the other: lp reads the text of an option with blanks, quotes and
// backslashes of its own, and the shell reads the whole line.  Plain C++.
#pragma once

#include "dialog/job/JobOptions.hpp"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dialog {

// As one word of a shell: as it is when nothing in it is special, else in single quotes.
std::string shellWord(std::string_view text);

// keyword=choice for lp's -o, before the shell.  Nothing for a keyword that lp cannot read back.
std::optional<std::string> lpOption(const JobOption& option);

struct JobToShow
{
    std::string queue;
    std::string title;
    std::vector<JobOption> options; // the copies among them
    std::string path;               // of the document
};

// One line without its end.  The document's path is made absolute, so that the line prints the same
// wherever it is pasted.  Nothing when an option cannot be told to lp.
std::optional<std::string> lpCommand(const JobToShow& job);

} // namespace dialog
