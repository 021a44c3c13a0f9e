// PrinterFinder.hpp - the printers on offer, while the print server is asked for its queues.
//
// From the beginning there are the printers of the command line, those known from the last time and
// the sample.  poll() takes what the server said.  A server that does not answer within the
// deadline is asked again from time to time, quietly.  To be used by one thread; the server is
// asked on others.  Plain C++.
#pragma once

#include "dialog/CommandLine.hpp"
#include "dialog/background/Errand.hpp"
#include "dialog/printers/Printers.hpp"

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace dialog {

enum class Search : std::uint8_t
{
    LookingFor, // the server has been asked for the first time
    Known,      // it has answered
    Silent,     // it has not; it may be asked again meanwhile
};

class PrinterFinder
{
  public:
    using Clock = std::chrono::steady_clock;
    using LookUp = std::function<QueueList(Cancellation&)>;

    static constexpr std::chrono::milliseconds kDeadline{4000};
    static constexpr std::chrono::milliseconds kBetweenLookUps{3000};

    // Asks at once.  `known` are the queues of the last time, `server` is what a message calls the
    // server that missed the deadline.
    PrinterFinder(CommandLine line, std::vector<Queue> known, std::string server, LookUp lookUp,
                  Clock::time_point now);

    // Takes an answer or sees that a deadline has passed, and asks again when it is time; waits for
    // an answer as long as `patience`.  Whether state() or printers() changed.
    bool poll(Clock::time_point now, std::chrono::milliseconds patience = {});

    // Asks again now, unless the question is under way.
    void lookAgain(Clock::time_point now);

    Search state() const noexcept { return state_; }
    // Why the server is silent.
    const Failure& failure() const noexcept { return failure_; }
    // Whether there are queues among the printers.
    bool hasQueues() const noexcept { return !queues_.empty(); }
    // An answer is waited for, or will be asked for again.
    bool busy() const noexcept { return asking_.underWay() || state_ == Search::Silent; }

    // Never empty.  The queue of --printer is among them as long as the server may still name it.
    const std::vector<PrinterEntry>& printers() const noexcept { return printers_; }

    // What the window shows until now.
    struct Shown
    {
        PrinterEntry printer;
        bool touched = false; // the user has done something in the window
        bool open = false;    // with its PPD
    };
    struct Choice
    {
        std::size_t index = 0;
        bool missing = false; // the printer of --printer is not there
        bool reopen = false;  // the printer, or what is known of it, is another than that shown
        bool wait = false;    // the server must answer before it is worth opening
    };
    // The printer to show.  Until the user has done something that is the one asked for on the
    // command line, or else the first; from then on it is the one shown, even if it is gone from
    // the server: whoever works with it finds that out on printing.
    Choice choice(const std::optional<Shown>& shown);

  private:
    void ask(Clock::time_point now);
    bool fallSilent(Failure failure, Clock::time_point now);
    void list();
    bool isWorthOpening(const PrinterEntry& printer) const;
    std::size_t indexOf(const PrinterEntry& printer);

    CommandLine line_;
    std::vector<Queue> queues_;
    std::string server_;
    LookUp lookUp_;
    Errand<QueueList> asking_;
    Clock::time_point next_; // the deadline while asking, else when to ask again
    Search state_ = Search::LookingFor;
    Failure failure_;
    std::vector<PrinterEntry> printers_;
};

} // namespace dialog
