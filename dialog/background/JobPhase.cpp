#include "dialog/background/JobPhase.hpp"

#include "dialog/Messages.hpp"

#include <algorithm>

namespace dialog {

JobOffer offerIn(JobPhase phase) noexcept
{
    switch (phase) {
    case JobPhase::Idle:
        break;
    case JobPhase::Sending:
        return {PrintButton::Waits, CancelButton::CancelsJob, false, true};
    case JobPhase::Following:
        return {PrintButton::Waits, CancelButton::CancelsJob, false, true};
    case JobPhase::Waiting:
        return {PrintButton::Closes, CancelButton::CancelsJob, false, false};
    case JobPhase::Cancelling:
        return {PrintButton::Waits, CancelButton::Leaves, false, false};
    }
    return {};
}

double fractionSent(const JobNews& news) noexcept
{
    if (news.phase == JobPhase::Following) {
        return 1;
    }
    if (news.total == 0) {
        return 0;
    }
    return std::min(1.0, static_cast<double>(news.sent) / static_cast<double>(news.total));
}

std::string sentenceOf(const JobNews& news)
{
    switch (news.phase) {
    case JobPhase::Idle:
        break;
    case JobPhase::Sending:
        return sendingJob(static_cast<int>(fractionSent(news) * 100));
    case JobPhase::Following:
        return followingJob();
    case JobPhase::Waiting:
        return news.sentence;
    case JobPhase::Cancelling:
        return cancellingJob();
    }
    return {};
}

} // namespace dialog
