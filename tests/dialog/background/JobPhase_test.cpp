#include "dialog/background/JobPhase.hpp"

#include <gtest/gtest.h>

namespace dialog {
namespace {

JobNews sent(std::uint64_t bytes, std::uint64_t total)
{
    return {JobPhase::Sending, bytes, total, {}, {}};
}

TEST(JobOffer, LetsEverythingBeSetWhileThereIsNoJob)
{
    EXPECT_EQ(offerIn(JobPhase::Idle),
              (JobOffer{PrintButton::Prints, CancelButton::ClosesWindow, true, false}));
}

TEST(JobOffer, LetsAJobOnItsWayBeCancelledAndNothingElse)
{
    for (const JobPhase phase : {JobPhase::Sending, JobPhase::Following}) {
        EXPECT_EQ(offerIn(phase),
                  (JobOffer{PrintButton::Waits, CancelButton::CancelsJob, false, true}));
    }
}

TEST(JobOffer, LetsAWaitingJobStayOrBeCancelled)
{
    EXPECT_EQ(offerIn(JobPhase::Waiting),
              (JobOffer{PrintButton::Closes, CancelButton::CancelsJob, false, false}));
}

TEST(JobOffer, LetsTheWindowBeLeftWhileAJobIsBeingTakenBack)
{
    EXPECT_EQ(offerIn(JobPhase::Cancelling),
              (JobOffer{PrintButton::Waits, CancelButton::Leaves, false, false}));
}

TEST(FractionSent, IsThatOfTheDocumentAndNeverMoreThanAll)
{
    EXPECT_EQ(fractionSent(sent(0, 0)), 0);
    EXPECT_EQ(fractionSent(sent(0, 8)), 0);
    EXPECT_EQ(fractionSent(sent(2, 8)), 0.25);
    EXPECT_EQ(fractionSent(sent(8, 8)), 1);
    EXPECT_EQ(fractionSent(sent(9, 8)), 1) << "a document that grew meanwhile";
    EXPECT_EQ(fractionSent(sent(5, 0)), 0) << "an empty one";
    EXPECT_EQ(fractionSent({JobPhase::Following, 0, 0, {}, {}}), 1);
    EXPECT_EQ(fractionSent({}), 0);
}

TEST(SentenceOfAJob, TellsWholePercentsAndNeverAHundredTooEarly)
{
    EXPECT_EQ(sentenceOf(sent(0, 8)), "Sending: 0 %");
    EXPECT_EQ(sentenceOf(sent(1, 8)), "Sending: 12 %");
    EXPECT_EQ(sentenceOf(sent(999, 1000)), "Sending: 99 %");
    EXPECT_EQ(sentenceOf(sent(1000, 1000)), "Sending: 100 %");
}

TEST(SentenceOfAJob, SaysWhyItWaits)
{
    EXPECT_EQ(sentenceOf({JobPhase::Waiting, 0, 0, "The job 3 waits.", {}}), "The job 3 waits.");
    EXPECT_EQ(sentenceOf({}), "");
    EXPECT_EQ(sentenceOf({JobPhase::Cancelling, 0, 0, "x", {}}), "Cancelling the job...");
}

} // namespace
} // namespace dialog
