#include "dialog/background/PrinterFinder.hpp"

#include <algorithm>
#include <utility>

namespace dialog {

PrinterFinder::PrinterFinder(CommandLine line, std::vector<Queue> known, std::string server,
                             LookUp lookUp, Clock::time_point now)
    : line_(std::move(line)), queues_(std::move(known)), server_(std::move(server)),
      lookUp_(std::move(lookUp))
{
    list();
    ask(now);
}

void PrinterFinder::ask(Clock::time_point now)
{
    asking_ = Errand<QueueList>(lookUp_);
    next_ = now + kDeadline;
}

void PrinterFinder::lookAgain(Clock::time_point now)
{
    if (!asking_.underWay()) {
        ask(now);
    }
}

bool PrinterFinder::poll(Clock::time_point now, std::chrono::milliseconds patience)
{
    if (!asking_.underWay()) {
        if (state_ == Search::Silent && now >= next_) {
            ask(now);
        }
        return false;
    }
    if (std::optional<QueueList> answer = asking_.take(patience)) {
        if (answer->failure) {
            return fallSilent(std::move(answer->failure), now);
        }
        queues_ = std::move(answer->queues);
        failure_ = {};
        state_ = Search::Known;
        list();
        return true;
    }
    if (now < next_) {
        return false;
    }
    asking_ = {};
    return fallSilent(serverSilent(server_, {}), now);
}

bool PrinterFinder::fallSilent(Failure failure, Clock::time_point now)
{
    const bool changed = state_ != Search::Silent;
    failure_ = std::move(failure);
    state_ = Search::Silent;
    next_ = now + kBetweenLookUps;
    if (changed) {
        list();
    }
    return changed;
}

void PrinterFinder::list()
{
    printers_ = printersToOffer(line_, queues_);
    if (state_ == Search::LookingFor && !line_.printer.empty() &&
        !findPrinter(printers_, line_.printer)) {
        std::vector<Queue> queues = queues_;
        queues.insert(queues.begin(), {line_.printer, {}, {}});
        printers_ = printersToOffer(line_, queues);
    }
}

std::size_t PrinterFinder::indexOf(const PrinterEntry& printer)
{
    for (std::size_t i = 0; i < printers_.size(); ++i) {
        if (printers_[i].kind == printer.kind && printers_[i].name == printer.name &&
            printers_[i].ppdPath == printer.ppdPath) {
            return i;
        }
    }
    printers_.insert(printers_.end() - 1, printer);
    return printers_.size() - 2;
}

// While the server has not answered: not a printer that it may not have, and for a script, which
// gets one chance, only one that was asked for and is there.
bool PrinterFinder::isWorthOpening(const PrinterEntry& printer) const
{
    if (state_ != Search::LookingFor) {
        return true;
    }
    if (printer.kind != PrinterKind::Queue) {
        return !line_.printAtOnce || !line_.printer.empty() || printer.kind == PrinterKind::PPDFile;
    }
    return !line_.printAtOnce &&
           std::any_of(queues_.begin(), queues_.end(),
                       [&](const Queue& known) { return known.name == printer.name; });
}

PrinterFinder::Choice PrinterFinder::choice(const std::optional<Shown>& shown)
{
    Choice choice;
    if (shown && shown->touched) {
        choice.index = indexOf(shown->printer);
        choice.reopen = !shown->open;
        choice.wait = !isWorthOpening(printers_[choice.index]);
        return choice;
    }
    if (!line_.printer.empty()) {
        const std::optional<std::size_t> found = findPrinter(printers_, line_.printer);
        choice.index = found.value_or(0);
        choice.missing = !found;
    }
    choice.reopen = !shown || !shown->open || shown->printer != printers_[choice.index];
    choice.wait = !isWorthOpening(printers_[choice.index]);
    return choice;
}

} // namespace dialog
