#include "dialog/twin/Twin.hpp"

#include "dialog/Answer.hpp"
#include "dialog/Translate.hpp"
#include "dialog/background/JobSender.hpp"
#include "dialog/background/PrinterOpener.hpp"
#include "dialog/features/JobConflict.hpp"
#include "dialog/job/Document.hpp"
#include "dialog/job/JobPageSize.hpp"
#include "dialog/printers/PrintServer.hpp"
#include "dialog/printers/Printers.hpp"
#include "dialog/twin/JobCommand.hpp"
#include "dialog/twin/PanelSettings.hpp"
#include "dialog/twin/PrinterFacts.hpp"
#include "dialog/twin/Remarks.hpp"

#include <cstdio>
#include <memory>

namespace dialog {

namespace {

void say(const std::string& sentence)
{
    std::fprintf(stderr, "tape-print: %s\n", sentence.c_str());
}

ExitStatus failed(const Failure& failure)
{
    say(failure.text);
    return failure.status;
}

PPDFile openPPD(const PrinterEntry& printer, Failure& failure)
{
    OpenedPPD opened = openPPDOf(printer);
    failure = opened.failure;
    return std::move(opened.ppd);
}

struct Found
{
    std::vector<PrinterEntry> printers;
    std::vector<std::string> rawQueues;
    Failure server; // why there are no queues
};

Found findPrinters(const CommandLine& line)
{
    const QueueList list = listQueues();
    return {printersToOffer(line, list.queues), list.rawQueues, list.failure};
}

// Where the printer to print on is not a queue, no print server is asked.
Found findPrintersToPrintOn(const CommandLine& line)
{
    Found own{printersToOffer(line, {}), {}, {}};
    const bool isOwn = line.printer.empty() ? !line.ppdFiles.empty()
                                            : findPrinter(own.printers, line.printer).has_value();
    return isOwn ? own : findPrinters(line);
}

// Why the printer that was asked for is not there.
Failure missingPrinter(const CommandLine& line, const Found& found)
{
    if (found.server) {
        return found.server;
    }
    for (const std::string& name : found.rawQueues) {
        if (name == line.printer) {
            return printerWithoutPPD(name, tr("it is a raw queue"));
        }
    }
    return noSuchPrinter(line.printer);
}

// The printer named, or the first one.  A script that names none means one that prints.
const PrinterEntry* choosePrinter(const CommandLine& line, const Found& found, Failure& failure)
{
    if (line.printer.empty()) {
        const PrinterEntry& first = found.printers.front();
        if (first.kind == PrinterKind::Sample) {
            failure = found.server ? found.server : noPrinterToChoose();
            return nullptr;
        }
        return &first;
    }
    if (const auto index = findPrinter(found.printers, line.printer)) {
        return &found.printers[*index];
    }
    failure = missingPrinter(line, found);
    return nullptr;
}

// A job as it would be sent.
struct Plan
{
    PrinterEntry printer;
    std::string paper;
    PanelSettings settings;
    std::vector<JobOption> options;
    std::string title;
};

Failure makePlan(const CommandLine& line, const Document& document, Plan& plan)
{
    Failure failure;
    const Found found = findPrintersToPrintOn(line);
    const PrinterEntry* const printer = choosePrinter(line, found, failure);
    if (printer == nullptr) {
        return failure;
    }
    plan.printer = *printer;
    PPDFile ppd = openPPD(*printer, failure);
    if (failure) {
        return failure;
    }
    const std::string wantedPaper = paperOf(line);
    plan.paper = startingPaper(ppd, wantedPaper);
    if (!wantedPaper.empty() && plan.paper != wantedPaper) {
        return noSuchPaper(wantedPaper, printer->name);
    }
    if (const auto* unknown = unknownChoice(line.wanted, ppd)) {
        return noSuchChoice(printer->name, unknown->first, unknown->second);
    }
    ppd.mark("PageSize", plan.paper);
    plan.settings = panelSettings(ppd, plan.paper, {line.length, line.margin, line.wanted});
    plan.options = optionsToSend(
        plan.settings.options, pageSizeToSend(ppd, plan.paper, plan.settings.options), line.copies);
    plan.title = jobTitle(line.title, document.name());
    return jobConflict(ppd, line.wanted);
}

void sayAdjustments(const PanelSettings& settings, PanelLook& panel)
{
    for (const Adjustment& adjustment : settings.adjustments) {
        if (adjustment.cause == Cause::TwoMargins) {
            if (const std::string alert = panel.marginAlert(); !alert.empty()) {
                say(alert);
            }
        }
        say(sentenceFor(adjustment));
    }
}

std::string planText(const CommandLine& line, const Document& document, const Plan& plan)
{
    std::string text;
    const auto add = [&text](const char* pattern, std::string_view value) {
        text += filled(pattern, {shown(value)}) + "\n";
    };
    add(tr("Printer: {1}"), plan.printer.name);
    add(tr("Tape: {1}"), plan.paper);
    add(tr("Length: {1}"), plan.settings.length);
    if (!plan.settings.margin.empty()) {
        add(tr("Margin: {1}"), plan.settings.margin);
    }
    add(tr("Copies: {1}"), std::to_string(line.copies));
    add(tr("Title: {1}"), plan.title);
    add(tr("Document: {1}"), line.document.empty() ? document.name() : line.document);
    return text;
}

ExitStatus send(const CommandLine& line, std::shared_ptr<const Document> document, const Plan& plan)
{
    const std::string summary = planText(line, *document, plan);
    const JobTicket ticket{plan.printer, std::move(document), plan.title,
                           plan.options, line.output,         summary};
    Cancellation never;
    JobWatch watch;
    const JobOutcome outcome = printJob(ticket, never, watch);
    if (outcome.end == JobEnd::Failed) {
        return failed(outcome.failure);
    }
    answer(outcome.answer + "\n");
    if (!outcome.waiting.empty()) {
        say(outcome.waiting);
    }
    return ExitStatus::Printed;
}

ExitStatus showCommand(const CommandLine& line, const Plan& plan)
{
    std::string command;
    if (const Failure failure =
            jobCommand(plan.printer, plan.title, plan.options, line.document, command)) {
        return failed(failure);
    }
    answer(command + "\n");
    return ExitStatus::Printed;
}

ExitStatus printOrSay(const CommandLine& line, PanelLook& panel)
{
    const auto document = std::make_shared<const Document>(Document::open(line.document));
    if (!document->ok()) {
        return failed(document->failure());
    }
    Plan plan;
    if (const Failure failure = makePlan(line, *document, plan)) {
        return failed(failure);
    }
    sayAdjustments(plan.settings, panel);
    switch (taskOf(line)) {
    case Task::DryRun:
        answer(planText(line, *document, plan) + "\n" + optionLines(plan.options));
        return ExitStatus::Printed;
    case Task::ShowCommand:
        return showCommand(line, plan);
    default:
        return send(line, document, plan);
    }
}

ExitStatus list(const CommandLine& line)
{
    const Found found = findPrinters(line);
    ExitStatus status = ExitStatus::Printed;
    std::vector<PrinterFacts> all;
    for (const PrinterEntry& printer : found.printers) {
        const bool isAsked = line.printer.empty() || printer.name == line.printer ||
                             (!printer.ppdPath.empty() && printer.ppdPath == line.printer);
        if (!isAsked || (!line.printer.empty() && !all.empty())) {
            continue;
        }
        Failure failure;
        PrinterFacts facts = factsOf(printer, openPPD(printer, failure));
        facts.isFirst = &printer == &found.printers.front();
        facts.problem = failure.text;
        if (failure) {
            status = failed(failure);
        }
        all.push_back(std::move(facts));
    }
    if (all.empty()) {
        return failed(missingPrinter(line, found));
    }
    if (found.server && line.printer.empty()) {
        status = failed(found.server);
    }
    answer(line.json ? factsAsJSON(all) : factsAsText(all));
    return status;
}

// A line for everything that is there, and one for everything that is not; the status of the first
// failure.
class Report
{
  public:
    void good(const std::string& sentence) { answer(filled(tr("fine: {1}"), {sentence}) + "\n"); }
    void bad(const Failure& failure)
    {
        answer(filled(tr("wrong: {1}"), {failure.text}) + "\n");
        if (status_ == ExitStatus::Printed) {
            status_ = failure.status;
        }
    }
    ExitStatus status() const noexcept { return status_; }

  private:
    ExitStatus status_ = ExitStatus::Printed;
};

ExitStatus check(const CommandLine& line, PanelLook& panel)
{
    Report report;
    std::string name;
    if (const Failure failure = panel.load(name)) {
        report.bad(failure);
    } else {
        report.good(filled(tr("The bundle \"{1}\" offers the panel \"{2}\"."),
                           {shown(line.plugin), shown(name)}));
    }
    const Found found = findPrinters(line);
    if (found.server) {
        report.bad(found.server);
    } else {
        report.good(tr("The print server answers."));
    }
    bool isThere = line.printer.empty();
    for (const PrinterEntry& printer : found.printers) {
        if (!line.printer.empty() && printer.name != line.printer &&
            printer.ppdPath != line.printer) {
            continue;
        }
        isThere = true;
        Failure failure;
        const PPDFile ppd = openPPD(printer, failure);
        if (failure) {
            report.bad(failure);
        } else if (ppd.sizes().empty()) {
            report.bad(printerWithoutTapes(printer.name));
        } else {
            report.good(filled(tr("The printer \"{1}\" has a PPD that can be used: {2}."),
                               {shown(printer.name), shown(ppd.modelName())}));
        }
    }
    if (!isThere && !found.server) {
        report.bad(missingPrinter(line, found));
    }
    return report.status();
}

} // namespace

std::string paperOf(const CommandLine& line)
{
    if (!line.paper.empty()) {
        return line.paper;
    }
    for (const auto& [keyword, choice] : line.wanted) {
        if (keyword == "PageSize") {
            return choice;
        }
    }
    return {};
}

ExitStatus runTwin(const CommandLine& line, PanelLook& panel)
{
    switch (taskOf(line)) {
    case Task::List:
        return endOfAnswer(list(line));
    case Task::Check:
        return endOfAnswer(check(line, panel));
    case Task::Print:
        return printOrSay(line, panel); // the job counts, not what is said of it
    default:
        return endOfAnswer(printOrSay(line, panel));
    }
}

} // namespace dialog
