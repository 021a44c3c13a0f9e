// JobSender.hpp - one job on its way: sent, then followed until it is taken or refused.
//
//     const JobOutcome outcome = printJob(ticket, cancellation, watch);   // waits
//
//     JobSender sender;                                                   // does not
//     sender.begin(ticket);
//     ... sender.news(), sender.poll(), sender.cancel() ...
//
// Plain C++.
#pragma once

#include "dialog/background/Errand.hpp"
#include "dialog/background/JobPhase.hpp"
#include "dialog/job/Document.hpp"
#include "dialog/job/JobOptions.hpp"
#include "dialog/printers/PrintServer.hpp"
#include "dialog/printers/Printers.hpp"

#include <atomic>
#include <chrono>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace dialog {

// All that a job takes with it.
struct JobTicket
{
    PrinterEntry printer;
    std::shared_ptr<const Document> document; // one that is ok()
    std::string title;
    std::vector<JobOption> options;
    std::string output;  // the folder of a printer without a queue
    std::string summary; // that is written there
};

enum class JobEnd : std::uint8_t
{
    Printed,   // taken by the server, or written into the folder
    Waiting,   // taken, but something has to happen before it is printed
    Cancelled, // and gone from the server
    Failed,
};

struct JobOutcome
{
    JobEnd end = JobEnd::Failed;
    std::string answer;  // for standard output: what was printed, where; empty when nothing was
    std::string waiting; // why it waits
    Failure failure;     // of Failed
};

// What the thread that sends tells, for another to look at.
class JobWatch
{
  public:
    SendProgress& progress() noexcept { return progress_; }
    void tell(JobNews news); // its bytes are those of progress()
    JobNews news() const;

    // From now on nobody is interested: the job stays where it is.
    void letGo() noexcept { letGo_ = true; }
    bool isLetGo() const noexcept { return letGo_; }

  private:
    SendProgress progress_;
    std::atomic<bool> letGo_ = false;
    mutable std::mutex mutex_;
    JobNews news_{JobPhase::Sending, 0, 0, {}, {}};
};

// What to do once a job waits for something that may take long.
enum class WhenWaiting : std::uint8_t
{
    End,
    GoOn, // until it is taken, refused, cancelled or let go
};

// Cancelling takes the job back from the server.
JobOutcome printJob(const JobTicket& ticket, Cancellation& cancellation, JobWatch& watch,
                    WhenWaiting whenWaiting = WhenWaiting::End);

class JobSender
{
  public:
    // One job at a time.
    void begin(JobTicket ticket, WhenWaiting whenWaiting);
    bool underWay() const noexcept { return sending_.underWay(); }

    // Idle when nothing is under way.
    JobNews news() const;
    // The end of the job, once.  Waits for it as long as `patience`.
    std::optional<JobOutcome> poll(std::chrono::milliseconds patience = {});

    void cancel() noexcept;
    // Nothing more is done for the job, or against it.
    void letGo() noexcept;

  private:
    std::shared_ptr<JobWatch> watch_;
    Errand<JobOutcome> sending_;
    bool cancelling_ = false;
};

} // namespace dialog
