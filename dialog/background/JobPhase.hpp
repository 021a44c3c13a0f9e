// JobPhase.hpp - what the window offers while a job is on its way, and says of it.  Plain C++.
#pragma once

#include <cstdint>
#include <string>

namespace dialog {

enum class JobPhase : std::uint8_t
{
    Idle,       // no job yet, or one that failed or was cancelled
    Sending,    // the document goes to the server or the folder
    Following,  // the server has it; what becomes of it?
    Waiting,    // the server keeps it until something happens
    Cancelling, // it is being taken back
};

struct JobNews
{
    JobPhase phase = JobPhase::Idle;
    std::uint64_t sent = 0;  // bytes of the document
    std::uint64_t total = 0; // 0 when not known yet
    std::string sentence;    // of Waiting: why
    std::string answer;      // once the server has it: its name there
};

enum class PrintButton : std::uint8_t
{
    Prints,
    Waits,  // cannot be pressed
    Closes, // leaves the job to the server
};

enum class CancelButton : std::uint8_t
{
    ClosesWindow,
    CancelsJob,
    Leaves, // though the job may not be gone yet
};

struct JobOffer
{
    PrintButton print = PrintButton::Prints;
    CancelButton cancel = CancelButton::ClosesWindow;
    bool settings = true; // printer, tape and copies can be changed
    bool bar = false;     // how much has been sent is shown

    bool operator==(const JobOffer&) const = default;
};

JobOffer offerIn(JobPhase phase) noexcept;

// 0 to 1.
double fractionSent(const JobNews& news) noexcept;

// Empty in Idle.
std::string sentenceOf(const JobNews& news);

} // namespace dialog
