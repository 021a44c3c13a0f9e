#include "dialog/DialogController+Job.h"

#include "dialog/Text.h"

#include <cstdio>

namespace {

// Unnoticed by a user, and enough for a small job that goes into a folder.
constexpr std::chrono::milliseconds kAtOnce{80};
// A server that hangs is not waited for when the window closes, unless a job is to be taken back.
constexpr std::chrono::milliseconds kLeavingPatience{300};
constexpr std::chrono::milliseconds kTakingBackPatience{3000};

void say(const std::string& answer)
{
    if (!answer.empty()) {
        std::printf("%s\n", answer.c_str());
    }
}

} // namespace

@interface DialogController (JobAlone)
- (void)showJob;
- (void)lookAtJobFor:(std::chrono::milliseconds)patience;
- (void)jobDidEnd:(const dialog::JobOutcome&)outcome;
@end

@implementation DialogController (Job)

- (void)beginJob:(dialog::JobTicket)ticket
{
    sender_.begin(std::move(ticket),
                  line_.printAtOnce ? dialog::WhenWaiting::End : dialog::WhenWaiting::GoOn);
    [self lookAtJobFor:kAtOnce];
    [self lookAround];
}

- (void)showJob
{
    const dialog::JobNews news = sender_.news();
    if (news.phase != phaseShown_) {
        [window_ offer:dialog::offerIn(news.phase)];
    } else if (news.phase == dialog::JobPhase::Idle) {
        return;
    }
    phaseShown_ = news.phase;
    [window_ showProgress:dialog::fractionSent(news)];
    NSString* const sentence = dialog::toNSString(dialog::sentenceOf(news));
    if (![sentence isEqualToString:[[window_ messageField] stringValue]]) {
        [window_ showMessage:sentence isFailure:NO];
    }
}

- (void)lookAtJob
{
    [self lookAtJobFor:{}];
}

- (void)lookAtJobFor:(std::chrono::milliseconds)patience
{
    const std::optional<dialog::JobOutcome> outcome = sender_.poll(patience);
    [self showJob];
    if (outcome) {
        [self jobDidEnd:*outcome];
    }
}

- (void)jobDidEnd:(const dialog::JobOutcome&)outcome
{
    switch (outcome.end) {
    case dialog::JobEnd::Printed:
        say(outcome.answer);
        [self stopWithStatus:dialog::ExitStatus::Printed];
        return;
    case dialog::JobEnd::Waiting:
        say(outcome.answer);
        std::fprintf(stderr, "tape-print: %s\n", outcome.waiting.c_str());
        [self stopWithStatus:dialog::ExitStatus::Printed];
        return;
    case dialog::JobEnd::Cancelled:
        [window_ showMessage:dialog::toNSString(dialog::jobCancelled()) isFailure:NO];
        break;
    case dialog::JobEnd::Failed:
        [self report:outcome.failure];
        break;
    }
    if (line_.printAtOnce) {
        [self stopWithStatus:status_ == dialog::ExitStatus::Printed ? dialog::ExitStatus::Cancelled
                                                                    : status_];
    }
}

- (BOOL)cancelJob
{
    if (dialog::offerIn(sender_.news().phase).cancel != dialog::CancelButton::CancelsJob) {
        return NO;
    }
    sender_.cancel();
    [self showJob];
    return YES;
}

- (BOOL)leaveWaitingJob
{
    const dialog::JobNews news = sender_.news();
    if (dialog::offerIn(news.phase).print != dialog::PrintButton::Closes) {
        return NO;
    }
    sender_.letGo();
    say(news.answer);
    [self stopWithStatus:dialog::ExitStatus::Printed];
    return YES;
}

- (std::chrono::milliseconds)endJob
{
    const bool takesBack = sender_.underWay();
    sender_.cancel();
    return takesBack ? kTakingBackPatience : kLeavingPatience;
}

@end
