// JobOptions.hpp - the options a job takes to the printer.
//
// Keywords keep the place where they were first set, so a job's options always come in the same
// order.  Values are kept as given, whether or not the PPD lists them.  Plain C++.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace dialog {

struct JobOption
{
    std::string keyword;
    std::string choice;

    bool operator==(const JobOption&) const = default;
};

class JobOptions
{
  public:
    // An empty keyword is ignored.  Keywords are compared exactly.
    void set(std::string_view keyword, std::string_view choice);
    void remove(std::string_view keyword);

    // nullptr when the keyword was never set.
    const std::string* find(std::string_view keyword) const noexcept;
    const std::vector<JobOption>& all() const noexcept { return options_; }

  private:
    std::vector<JobOption> options_;
};

// What goes with the job: the tape first, the number of copies when there is more than one, then
// all that was chosen.  An empty choice is left out; it would only undo the printer's default.  An
// empty `paper` sends no tape.
std::vector<JobOption> optionsToSend(const JobOptions& chosen, std::string_view paper,
                                     std::int32_t copies);

// One "keyword=choice" per line.  Line breaks and backslashes inside a text are written as \n, \r
// and \\, so that a line is always one option.
std::string optionLines(const std::vector<JobOption>& options);

// The title of the job: `title` where there is one, else the document's name without its folder.
// At most 255 bytes, cut between characters, with control characters as blanks.
std::string jobTitle(std::string_view title, std::string_view document);

} // namespace dialog
