#include "dialog/job/JobStatus.hpp"

#include <gtest/gtest.h>

namespace dialog {
namespace {

using std::chrono_literals::operator""ms;

constexpr auto kEarly = 100ms;

JobReport report(JobState state, std::vector<std::string> reasons = {"none"})
{
    JobReport result;
    result.state = state;
    result.reasons = std::move(reasons);
    result.printerReasons = {"none"};
    return result;
}

JobReport atPrinter(JobState state, bool stopped, std::vector<std::string> reasons,
                    std::string message = {})
{
    JobReport result = report(state);
    result.printerStopped = stopped;
    result.printerReasons = std::move(reasons);
    result.printerMessage = std::move(message);
    return result;
}

TEST(Standing, IsTakenOncePrinted)
{
    EXPECT_EQ(standingOf(report(JobState::Completed), 0ms), Standing::Taken);
    EXPECT_EQ(standingOf(atPrinter(JobState::Completed, true, {"paused"}), 0ms), Standing::Taken)
        << "whoever stopped the printer did so later";
}

TEST(Standing, IsRefusedOnceAbortedOrCancelled)
{
    EXPECT_EQ(standingOf(report(JobState::Aborted), 0ms), Standing::Refused);
    EXPECT_EQ(standingOf(report(JobState::Cancelled), 9999ms), Standing::Refused);
}

TEST(Standing, OfAPendingJobIsUndecidedUntilNothingSpokeAgainstItForAWhile)
{
    for (const JobState state : {JobState::Pending, JobState::Processing}) {
        EXPECT_EQ(standingOf(report(state), kEarly), Standing::Undecided);
        EXPECT_EQ(standingOf(report(state), kSettled - 1ms), Standing::Undecided);
        EXPECT_EQ(standingOf(report(state), kSettled), Standing::Taken);
    }
}

TEST(Standing, IsWaitingAtOnceWhenThePrinterIsStopped)
{
    EXPECT_EQ(standingOf(atPrinter(JobState::Pending, true, {"paused"}), 0ms), Standing::Waiting);
    EXPECT_EQ(standingOf(report(JobState::Stopped), 0ms), Standing::Waiting);
}

TEST(Standing, IsWaitingAtOnceWhenSomebodyHoldsTheJob)
{
    EXPECT_EQ(standingOf(report(JobState::Held, {"job-hold-until-specified"}), 0ms),
              Standing::Waiting);
    // Just made, its document is still coming in.
    EXPECT_EQ(standingOf(report(JobState::Held, {"job-incoming"}), kEarly), Standing::Undecided);
    EXPECT_EQ(standingOf(report(JobState::Held, {"job-incoming"}), kSettled), Standing::Waiting);
}

TEST(Standing, IsWaitingWhenThePrinterCannotGoOnByItself)
{
    for (const char* reason :
         {"media-empty", "media-empty-error", "cover-open-warning", "offline"}) {
        EXPECT_EQ(standingOf(atPrinter(JobState::Processing, false, {reason}), kSettled),
                  Standing::Waiting)
            << reason;
        EXPECT_EQ(standingOf(atPrinter(JobState::Processing, false, {reason}), kEarly),
                  Standing::Undecided)
            << reason;
    }
    for (const char* reason :
         {"media-empty-report", "connecting-to-device", "media-low", "-error"}) {
        EXPECT_EQ(standingOf(atPrinter(JobState::Processing, false, {reason}), kSettled),
                  Standing::Taken)
            << reason;
    }
}

TEST(WhyAJobWaits, IsSaidInWords)
{
    EXPECT_EQ(whyInWords(atPrinter(JobState::Pending, true, {"paused"}, "Paused")),
              "the printer is stopped");
    EXPECT_EQ(whyInWords(atPrinter(JobState::Pending, true, {"paused"}, "Back on Monday.")),
              "the printer is stopped (Back on Monday.)");
    EXPECT_EQ(whyInWords(atPrinter(JobState::Processing, false, {"media-empty-error"})),
              "the tape is used up");
    EXPECT_EQ(whyInWords(report(JobState::Held, {"job-hold-until-specified"})),
              "it is held until it is released");
}

TEST(WhyAJobWaits, TakesTheFirstReasonThatHasWords)
{
    EXPECT_EQ(whyInWords(atPrinter(JobState::Pending, true, {"x-odd", "cover-open", "offline"})),
              "the cover is open");
}

TEST(WhyAJobWaits, IsTheServersOwnTextWhereThereAreNoWords)
{
    EXPECT_EQ(whyInWords(atPrinter(JobState::Pending, false, {"x-odd"}, "Out of luck")),
              "Out of luck");
    EXPECT_EQ(whyInWords(atPrinter(JobState::Pending, true, {"x-odd"})), "the printer is stopped");
    EXPECT_EQ(whyInWords(report(JobState::Pending)), "");
}

TEST(WhyAJobWasRefused, IsNotTakenFromThePrintersPresentTrouble)
{
    JobReport aborted = atPrinter(JobState::Aborted, true, {"cover-open"}, "Open");
    EXPECT_EQ(whyInWords(aborted), "the print server gave it up");
    aborted.reasons = {"document-format-error"};
    EXPECT_EQ(whyInWords(aborted), "the document is damaged");
    aborted.message = "No pages found";
    EXPECT_EQ(whyInWords(aborted), "the document is damaged (No pages found)");
}

TEST(WhyAJobWasRefused, IsSaidEvenWhenTheServerGivesNoReason)
{
    EXPECT_EQ(whyInWords(report(JobState::Cancelled)), "it was cancelled");
    EXPECT_EQ(whyInWords(report(JobState::Cancelled, {"job-canceled-at-device"})),
              "it was cancelled at the printer");
    EXPECT_EQ(whyInWords(report(JobState::Aborted)), "the print server gave it up");
}

} // namespace
} // namespace dialog
