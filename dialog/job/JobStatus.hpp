// JobStatus.hpp - what has become of a job, as the print server tells it and in words.
//
// Plain C++; askForJob alone talks to the server.
#pragma once

#include "dialog/printers/ServerConnection.hpp"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dialog {

// The numbers are the protocol's.
enum class JobState : std::int32_t
{
    Pending = 3,
    Held = 4,
    Processing = 5,
    Stopped = 6,
    Cancelled = 7,
    Aborted = 8,
    Completed = 9,
};

struct JobReport
{
    JobState state = JobState::Pending;
    std::vector<std::string> reasons; // the protocol's keywords
    std::string message;              // for people, of the printer's programs; may be empty
    bool printerStopped = false;
    std::vector<std::string> printerReasons;
    std::string printerMessage;
};

// No value when the server does not answer.  A job that the server has forgotten is Completed.
std::optional<JobReport> askForJob(ServerConnection& connection, const std::string& queue, int job);

enum class Standing : std::uint8_t
{
    Undecided, // ask again soon
    Taken,     // it is printed, or takes its turn
    Waiting,   // it is taken, but something has to happen first
    Refused,   // it will not be printed
};

// A job that nothing speaks against for so long has been taken.
inline constexpr std::chrono::milliseconds kSettled{2000};

Standing standingOf(const JobReport& report, std::chrono::milliseconds sinceSent) noexcept;

// Why it waits or was refused; empty when nobody says.
std::string whyInWords(const JobReport& report);

} // namespace dialog
