// PrinterOpener.hpp - fetches and opens the PPD of the printer that was chosen last.
//
// A choice replaces the one before it, whose PPD is then no longer waited for.  To be used by one
// thread; the fetching is done on others.  Plain C++.
#pragma once

#include "dialog/background/Errand.hpp"
#include "dialog/ppd/PPDFile.hpp"
#include "dialog/printers/Printers.hpp"

#include <chrono>
#include <functional>
#include <optional>

namespace dialog {

struct OpenedPPD
{
    PPDFile ppd;
    Failure failure; // why there is none
};

// From the server, the file or the program itself, waiting as long as it takes or until cancelled.
OpenedPPD openPPDOf(const PrinterEntry& printer, Cancellation* cancellation = nullptr);

class PrinterOpener
{
  public:
    using Clock = std::chrono::steady_clock;
    using Open = std::function<OpenedPPD(const PrinterEntry&, Cancellation*)>;

    static constexpr std::chrono::milliseconds kDeadline{15000};

    explicit PrinterOpener(Open open = openPPDOf);

    void begin(PrinterEntry printer, Clock::time_point now);
    bool underWay() const noexcept { return opening_.underWay(); }

    // The PPD, or after the deadline a failure: once for each begin() that no other replaced.
    // Waits as long as `patience`.
    std::optional<OpenedPPD> poll(Clock::time_point now, std::chrono::milliseconds patience = {});

  private:
    Open open_;
    PrinterEntry printer_;
    Errand<OpenedPPD> opening_;
    Clock::time_point deadline_;
};

} // namespace dialog
