#include "dialog/job/JobStatus.hpp"

#include "dialog/Translate.hpp"

#include <algorithm>
#include <memory>

namespace dialog {

namespace {

// What tells a keyword to be more or less serious is not part of its meaning.
std::string_view withoutSeverity(std::string_view keyword) noexcept
{
    for (const std::string_view severity : {"-error", "-warning", "-report"}) {
        if (keyword.ends_with(severity)) {
            keyword.remove_suffix(severity.size());
            break;
        }
    }
    return keyword;
}

struct Words
{
    std::string_view keyword;
    const char* (*said)();
    bool holdsUp; // a printer that says so does not go on by itself
};

constexpr Words kWords[] = {
    {"paused", [] { return tr("the printer is stopped"); }, true},
    {"media-empty", [] { return tr("the tape is used up"); }, true},
    {"media-needed", [] { return tr("the tape is missing"); }, true},
    {"media-jam", [] { return tr("the tape is jammed"); }, true},
    {"cover-open", [] { return tr("the cover is open"); }, true},
    {"door-open", [] { return tr("the cover is open"); }, true},
    {"marker-supply-empty", [] { return tr("the ribbon is used up"); }, true},
    {"offline", [] { return tr("the printer is switched off or not connected"); }, true},
    {"shutdown", [] { return tr("the printer is switched off or not connected"); }, true},
    {"timed-out", [] { return tr("the printer does not answer"); }, true},
    {"connecting-to-device", [] { return tr("the printer is being connected"); }, false},
    {"spool-area-full", [] { return tr("the print server's disk is full"); }, true},
    {"cups-missing-filter", [] { return tr("the print server lacks a program for this printer"); },
     true},
    {"cups-insecure-filter", [] { return tr("the print server lacks a program for this printer"); },
     true},
    {"job-hold-until-specified", [] { return tr("it is held until it is released"); }, true},
    {"resources-are-not-ready", [] { return tr("the printer lacks something for it"); }, true},
    {"job-canceled-by-user", [] { return tr("it was cancelled"); }, false},
    {"job-canceled-by-operator", [] { return tr("it was cancelled"); }, false},
    {"job-canceled-at-device", [] { return tr("it was cancelled at the printer"); }, false},
    {"aborted-by-system", [] { return tr("the print server gave it up"); }, false},
    {"document-format-error", [] { return tr("the document is damaged"); }, false},
    {"unsupported-document-format", [] { return tr("the kind of document is not known"); }, false},
    {"job-data-insufficient", [] { return tr("the document did not arrive whole"); }, false},
};

const Words* wordsOf(std::string_view keyword) noexcept
{
    const auto found = std::find_if(std::begin(kWords), std::end(kWords),
                                    [&](const Words& words) { return words.keyword == keyword; });
    return found == std::end(kWords) ? nullptr : found;
}

const Words* wordsFor(std::string_view keyword) noexcept
{
    const Words* const words = wordsOf(keyword);
    return words != nullptr ? words : wordsOf(withoutSeverity(keyword));
}

bool has(const std::vector<std::string>& reasons, std::string_view keyword) noexcept
{
    return std::find(reasons.begin(), reasons.end(), keyword) != reasons.end();
}

bool holdsUp(const std::vector<std::string>& printerReasons) noexcept
{
    return std::any_of(printerReasons.begin(), printerReasons.end(), [](const std::string& reason) {
        const Words* const words = wordsFor(reason);
        return words != nullptr && words->holdsUp && !std::string_view(reason).ends_with("-report");
    });
}

const Words* firstInWords(const std::vector<std::string>& reasons) noexcept
{
    for (const std::string& reason : reasons) {
        if (const Words* const words = wordsFor(reason)) {
            return words;
        }
    }
    return nullptr;
}

struct DeleteMessage
{
    void operator()(ipp_t* message) const noexcept { ippDelete(message); }
};
using Message = std::unique_ptr<ipp_t, DeleteMessage>;

std::string textOf(const Message& message, const char* name)
{
    const char* const text =
        ippGetString(ippFindAttribute(message.get(), name, IPP_TAG_ZERO), 0, nullptr);
    return text == nullptr ? std::string() : std::string(text);
}

std::vector<std::string> textsOf(const Message& message, const char* name)
{
    std::vector<std::string> texts;
    ipp_attribute_t* const attribute = ippFindAttribute(message.get(), name, IPP_TAG_KEYWORD);
    for (int i = 0; i < ippGetCount(attribute); ++i) {
        if (const char* const text = ippGetString(attribute, i, nullptr)) {
            texts.emplace_back(text);
        }
    }
    return texts;
}

Message ask(ServerConnection& connection, ipp_op_t operation, const char* uriName,
            const std::string& uri, std::initializer_list<const char*> wanted)
{
    Message request(ippNewRequest(operation));
    ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_URI, uriName, nullptr, uri.c_str());
    ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr,
                 cupsUser());
    ippAddStrings(request.get(), IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes",
                  static_cast<int>(wanted.size()), nullptr, wanted.begin());
    connection.alive();
    return Message(cupsDoRequest(connection.get(), request.release(), "/"));
}

} // namespace

std::optional<JobReport> askForJob(ServerConnection& connection, const std::string& queue, int job)
{
    const Message told = ask(connection, IPP_OP_GET_JOB_ATTRIBUTES, "job-uri",
                             "ipp://localhost/jobs/" + std::to_string(job),
                             {"job-state", "job-state-reasons", "job-printer-state-message"});
    JobReport report;
    if (cupsLastError() == IPP_STATUS_ERROR_NOT_FOUND) {
        report.state = JobState::Completed;
        return report;
    }
    ipp_attribute_t* const state = ippFindAttribute(told.get(), "job-state", IPP_TAG_ENUM);
    if (state == nullptr) {
        return std::nullopt;
    }
    report.state = static_cast<JobState>(ippGetInteger(state, 0));
    report.reasons = textsOf(told, "job-state-reasons");
    report.message = textOf(told, "job-printer-state-message");

    char uri[HTTP_MAX_URI];
    httpAssembleURIf(HTTP_URI_CODING_ALL, uri, sizeof uri, "ipp", nullptr, "localhost", 0,
                     "/printers/%s", queue.c_str());
    const Message printer =
        ask(connection, IPP_OP_GET_PRINTER_ATTRIBUTES, "printer-uri", uri,
            {"printer-state", "printer-state-reasons", "printer-state-message"});
    report.printerStopped =
        ippGetInteger(ippFindAttribute(printer.get(), "printer-state", IPP_TAG_ENUM), 0) ==
        IPP_PSTATE_STOPPED;
    report.printerReasons = textsOf(printer, "printer-state-reasons");
    report.printerMessage = textOf(printer, "printer-state-message");
    return report;
}

Standing standingOf(const JobReport& report, std::chrono::milliseconds sinceSent) noexcept
{
    const bool settled = sinceSent >= kSettled;
    switch (report.state) {
    case JobState::Completed:
        return Standing::Taken;
    case JobState::Cancelled:
    case JobState::Aborted:
        return Standing::Refused;
    case JobState::Held:
        return settled || has(report.reasons, "job-hold-until-specified") ? Standing::Waiting
                                                                          : Standing::Undecided;
    case JobState::Stopped:
        return Standing::Waiting;
    case JobState::Pending:
    case JobState::Processing:
        break;
    }
    if (report.printerStopped) {
        return Standing::Waiting;
    }
    if (!settled) {
        return Standing::Undecided;
    }
    return holdsUp(report.printerReasons) ? Standing::Waiting : Standing::Taken;
}

std::string whyInWords(const JobReport& report)
{
    const bool over = report.state == JobState::Aborted || report.state == JobState::Cancelled;
    const Words* words = firstInWords(report.reasons);
    if (words == nullptr) {
        // A server need not give a reason.
        words = report.state == JobState::Cancelled ? wordsFor("job-canceled-by-user")
                : over                              ? wordsFor("aborted-by-system")
                                                    : firstInWords(report.printerReasons);
    }
    std::string said = report.message;
    if (said.empty() && !over) {
        said = report.printerMessage;
    }
    // The server's own way to say that somebody stopped the printer.
    if (said == "Paused") {
        said.clear();
    }
    if (words == nullptr) {
        return said.empty() && report.printerStopped ? tr("the printer is stopped") : said;
    }
    return said.empty() ? words->said() : filled(tr("{1} ({2})"), {words->said(), said});
}

} // namespace dialog
