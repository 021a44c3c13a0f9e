#include "dialog/background/JobSender.hpp"

#include "dialog/job/JobStatus.hpp"
#include "dialog/job/OutputFolder.hpp"
#include "dialog/printers/ServerConnection.hpp"

#include <thread>
#include <utility>

namespace dialog {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kBetweenQuestions{200};
constexpr std::chrono::milliseconds kBetweenLateQuestions{1000};
constexpr std::chrono::milliseconds kStep{50};

void pause(std::chrono::milliseconds length, const Cancellation& cancellation,
           const JobWatch& watch)
{
    const Clock::time_point end = Clock::now() + length;
    while (Clock::now() < end && !cancellation.cancelled() && !watch.isLetGo()) {
        std::this_thread::sleep_for(kStep);
    }
}

JobOutcome follow(const JobTicket& ticket, int job, Cancellation& cancellation, JobWatch& watch,
                  WhenWaiting whenWaiting)
{
    const std::string& queue = ticket.printer.name;
    const Clock::time_point sent = Clock::now();
    JobOutcome outcome;
    outcome.answer = jobSent(queue, job);
    watch.tell({JobPhase::Following, 0, 0, {}, outcome.answer});
    std::optional<ServerConnection> connection;
    for (;;) {
        if (watch.isLetGo()) {
            outcome.end = JobEnd::Printed;
            return outcome;
        }
        if (cancellation.cancelled()) {
            outcome.failure = cancelJob(queue, job);
            outcome.end = outcome.failure ? JobEnd::Failed : JobEnd::Cancelled;
            return outcome;
        }
        Failure silent;
        if (!connection) {
            connection.emplace(silent, &cancellation);
        }
        std::optional<JobReport> report;
        if (*connection) {
            report = askForJob(*connection, queue, job);
        }
        const auto since =
            std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - sent);
        outcome.end = JobEnd::Waiting;
        if (!report) {
            outcome.waiting = jobOutOfSight(queue, job);
            connection.reset();
        } else {
            switch (standingOf(*report, since)) {
            case Standing::Undecided:
                pause(kBetweenQuestions, cancellation, watch);
                continue;
            case Standing::Taken:
                outcome.end = JobEnd::Printed;
                return outcome;
            case Standing::Refused:
                outcome.end = JobEnd::Failed;
                outcome.failure = jobGivenUp(queue, job, whyInWords(*report));
                return outcome;
            case Standing::Waiting:
                outcome.waiting = jobWaits(queue, job, whyInWords(*report));
                break;
            }
        }
        if (cancellation.cancelled()) {
            continue;
        }
        if (whenWaiting == WhenWaiting::End) {
            return outcome;
        }
        watch.tell({JobPhase::Waiting, 0, 0, outcome.waiting, outcome.answer});
        pause(kBetweenLateQuestions, cancellation, watch);
    }
}

JobOutcome printInto(const JobTicket& ticket)
{
    JobOutcome outcome;
    const Document& document = *ticket.document;
    const JobFolder written = writeJobFolder(ticket.output, document.path(), document.name(),
                                             optionLines(ticket.options), ticket.summary);
    if (written.path.empty()) {
        outcome.failure = outputNotWritten(ticket.output, written.reason);
        return outcome;
    }
    outcome.end = JobEnd::Printed;
    outcome.answer = jobWritten(written.path);
    return outcome;
}

} // namespace

void JobWatch::tell(JobNews news)
{
    const std::lock_guard lock(mutex_);
    news_ = std::move(news);
}

JobNews JobWatch::news() const
{
    const std::lock_guard lock(mutex_);
    JobNews news = news_;
    news.sent = progress_.sent;
    news.total = progress_.total;
    return news;
}

JobOutcome printJob(const JobTicket& ticket, Cancellation& cancellation, JobWatch& watch,
                    WhenWaiting whenWaiting)
{
    if (ticket.printer.kind != PrinterKind::Queue) {
        return printInto(ticket);
    }
    const SentJob sent =
        sendJob(ticket.printer.name, ticket.title, ticket.options, ticket.document->path(),
                ticket.document->name(), &cancellation, &watch.progress());
    if (sent.id != 0) {
        return follow(ticket, sent.id, cancellation, watch, whenWaiting);
    }
    JobOutcome outcome;
    outcome.end = sent.cancelled && !sent.failure ? JobEnd::Cancelled : JobEnd::Failed;
    outcome.failure = sent.failure;
    return outcome;
}

void JobSender::begin(JobTicket ticket, WhenWaiting whenWaiting)
{
    watch_ = std::make_shared<JobWatch>();
    cancelling_ = false;
    sending_ = Errand<JobOutcome>(
        [ticket = std::move(ticket), watch = watch_, whenWaiting](Cancellation& cancellation) {
            return printJob(ticket, cancellation, *watch, whenWaiting);
        });
}

JobNews JobSender::news() const
{
    if (!underWay()) {
        return {};
    }
    JobNews news = watch_->news();
    if (cancelling_) {
        news.phase = JobPhase::Cancelling;
    }
    return news;
}

std::optional<JobOutcome> JobSender::poll(std::chrono::milliseconds patience)
{
    return sending_.take(patience);
}

void JobSender::cancel() noexcept
{
    cancelling_ = true;
    sending_.cancel();
}

void JobSender::letGo() noexcept
{
    if (watch_) {
        watch_->letGo();
    }
    sending_ = {};
}

} // namespace dialog
