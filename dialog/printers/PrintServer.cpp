#include "dialog/printers/PrintServer.hpp"

#include "dialog/Translate.hpp"
#include "dialog/ppd/PPDSizes.hpp"
#include "dialog/printers/ServerConnection.hpp"

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <memory>
#include <optional>

#include <cups/cups.h>
#include <cups/ppd.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace dialog {

namespace {

// A server that takes a document writes to its disk now and then.
constexpr std::chrono::milliseconds kSendingSilence{30000};
// A job whose document has all gone is better waited for: nobody could cancel it without its
// number.
constexpr std::chrono::milliseconds kCreatingSilence{3000};

struct DeleteMessage
{
    void operator()(ipp_t* message) const noexcept { ippDelete(message); }
};
using Message = std::unique_ptr<ipp_t, DeleteMessage>;

struct CloseFile
{
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

class OptionArray
{
  public:
    OptionArray() = default;
    ~OptionArray() { cupsFreeOptions(count_, options_); }
    OptionArray(const OptionArray&) = delete;
    OptionArray& operator=(const OptionArray&) = delete;
    void add(const JobOption& option)
    {
        count_ = cupsAddOption(option.keyword.c_str(), option.choice.c_str(), count_, &options_);
    }
    int count() const noexcept { return count_; }
    cups_option_t* get() const noexcept { return options_; }

  private:
    int count_ = 0;
    cups_option_t* options_ = nullptr;
};

std::string textOf(ipp_attribute_t* attribute)
{
    const char* const text = ippGetString(attribute, 0, nullptr);
    return text == nullptr ? std::string() : std::string(text);
}

// Why the last request failed.  After a silence that was too long the library's reason is that of
// no error at all.
std::string lastReason()
{
    const char* const reason = cupsLastErrorString();
    const bool isNone = reason == nullptr || std::strcmp(reason, std::strerror(0)) == 0;
    return isNone ? std::string() : std::string(reason);
}

bool isRaw(std::string_view makeAndModel) noexcept
{
    return makeAndModel.ends_with(" Raw Printer");
}

std::string defaultQueue(http_t* connection)
{
    Message request(ippNewRequest(IPP_OP_CUPS_GET_DEFAULT));
    ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes", nullptr,
                 "printer-name");
    const Message response(cupsDoRequest(connection, request.release(), "/"));
    return textOf(ippFindAttribute(response.get(), "printer-name", IPP_TAG_NAME));
}

// Answers the status of the file; its bytes are the next to be read.
http_status_t askFor(http_t* connection, const std::string& resource)
{
    http_status_t status = HTTP_STATUS_ERROR;
    for (int attempt = 0; attempt < 3; ++attempt) {
        httpClearFields(connection);
        httpSetField(connection, HTTP_FIELD_AUTHORIZATION, httpGetAuthString(connection));
        if (httpGet(connection, resource.c_str()) != 0) {
            return HTTP_STATUS_ERROR;
        }
        do {
            status = httpUpdate(connection);
        } while (status == HTTP_STATUS_CONTINUE);
        if (status == HTTP_STATUS_UNAUTHORIZED) {
            httpFlush(connection);
            if (cupsDoAuthentication(connection, "GET", resource.c_str()) != 0) {
                return status;
            }
        } else if (status == HTTP_STATUS_UPGRADE_REQUIRED) {
            httpFlush(connection);
            if (httpEncryption(connection, HTTP_ENCRYPTION_REQUIRED) != 0) {
                return HTTP_STATUS_ERROR;
            }
        } else {
            return status;
        }
    }
    return status;
}

bool isCancelled(const Cancellation* cancellation) noexcept
{
    return cancellation != nullptr && cancellation->cancelled();
}

std::string queueResource(std::string_view queue)
{
    constexpr std::string_view kPlain = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ"
                                        "0123456789-_.~";
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string path = "/printers/";
    for (const char byte : queue) {
        if (kPlain.find(byte) != kPlain.npos) {
            path += byte;
        } else {
            const auto code = static_cast<unsigned char>(byte);
            path += '%';
            path += kDigits[code >> 4];
            path += kDigits[code & 15];
        }
    }
    return path;
}

// The job with its document in one request, of which the server makes a job only once it has all of
// it: whatever breaks on the way leaves none behind.
Message jobRequest(const std::string& queue, const std::string& title,
                   const std::string& documentName, const OptionArray& options)
{
    char uri[HTTP_MAX_URI];
    httpAssembleURIf(HTTP_URI_CODING_ALL, uri, sizeof uri, "ipp", nullptr, "localhost", 0,
                     "/printers/%s", queue.c_str());
    Message request(ippNewRequest(IPP_OP_PRINT_JOB));
    ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_URI, "printer-uri", nullptr, uri);
    ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr,
                 cupsUser());
    ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_NAME, "job-name", nullptr,
                 title.c_str());
    ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_NAME, "document-name", nullptr,
                 documentName.c_str());
    ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_MIMETYPE, "document-format", nullptr,
                 CUPS_FORMAT_AUTO);
    for (const ipp_tag_t group : {IPP_TAG_OPERATION, IPP_TAG_JOB, IPP_TAG_SUBSCRIPTION}) {
        cupsEncodeOptions2(request.get(), options.count(), options.get(), group);
    }
    return request;
}

// Its number at the server; 0 when it made no job.
int numberOfNewJob(http_t* connection, const std::string& resource)
{
    const Message response(cupsGetResponse(connection, resource.c_str()));
    if (!response || cupsLastError() > IPP_STATUS_OK_CONFLICTING) {
        return 0;
    }
    return ippGetInteger(ippFindAttribute(response.get(), "job-id", IPP_TAG_INTEGER), 0);
}

// What went wrong because of a cancellation is no failure.
SentJob stopped(SentJob sent, const Cancellation* cancellation)
{
    if (isCancelled(cancellation)) {
        sent.cancelled = true;
        sent.failure = {};
    }
    return sent;
}

} // namespace

std::string ppdResource(std::string_view queue)
{
    return queueResource(queue) + ".ppd";
}

QueueList listQueues(Cancellation* cancellation)
{
    QueueList list;
    list.server = cupsServer();
    ServerConnection connection(list.failure, cancellation);
    if (!connection) {
        return list;
    }
    connection.endAtOnceWhenCancelled();
    static const char* const kWanted[] = {"printer-name", "printer-info", "device-uri",
                                          "printer-make-and-model"};
    Message request(ippNewRequest(IPP_OP_CUPS_GET_PRINTERS));
    ippAddStrings(request.get(), IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes", 4,
                  nullptr, kWanted);
    ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr,
                 cupsUser());
    const Message response(cupsDoRequest(connection.get(), request.release(), "/"));
    const ipp_status_t status = cupsLastError();
    if (status == IPP_STATUS_ERROR_NOT_FOUND) {
        return list; // a server without a single queue
    }
    if (!response || status > IPP_STATUS_OK_CONFLICTING) {
        list.failure = serverSilent(cupsServer(), lastReason());
        return list;
    }
    std::optional<Queue> queue;
    bool raw = false;
    const auto finish = [&] {
        if (queue && !queue->name.empty()) {
            if (raw) {
                list.rawQueues.push_back(std::move(queue->name));
            } else {
                list.queues.push_back(std::move(*queue));
            }
        }
        queue.reset();
        raw = false;
    };
    for (ipp_attribute_t* attribute = ippFirstAttribute(response.get()); attribute != nullptr;
         attribute = ippNextAttribute(response.get())) {
        const char* const name = ippGetName(attribute);
        if (ippGetGroupTag(attribute) != IPP_TAG_PRINTER || name == nullptr) {
            finish();
            continue;
        }
        if (!queue) {
            queue.emplace();
        }
        const std::string_view known = name;
        if (known == "printer-name") {
            queue->name = textOf(attribute);
        } else if (known == "printer-info") {
            queue->info = textOf(attribute);
        } else if (known == "device-uri") {
            queue->deviceURI = textOf(attribute);
        } else if (known == "printer-make-and-model") {
            raw = isRaw(textOf(attribute));
        }
    }
    finish();

    connection.alive();
    const std::string first = defaultQueue(connection.get());
    for (std::size_t i = 1; i < list.queues.size(); ++i) {
        if (list.queues[i].name == first) {
            std::swap(list.queues[0], list.queues[i]);
            break;
        }
    }
    return list;
}

std::string fetchPPD(const std::string& queue, Failure& failure, Cancellation* cancellation)
{
    ServerConnection connection(failure, cancellation);
    if (!connection) {
        return {};
    }
    connection.endAtOnceWhenCancelled();
    const http_status_t status = askFor(connection.get(), ppdResource(queue));
    if (status != HTTP_STATUS_OK) {
        failure = status == HTTP_STATUS_ERROR ? serverSilent(cupsServer(), {})
                                              : printerWithoutPPD(queue, httpStatus(status));
        return {};
    }
    std::string bytes;
    char buffer[65536];
    // One byte more than may be used is enough to see that there is too much.
    while (bytes.size() <= kMaxPPDBytesWithSizes) {
        connection.alive();
        const ssize_t got = httpRead2(connection.get(), buffer, sizeof buffer);
        if (got <= 0) {
            break;
        }
        bytes.append(buffer, static_cast<std::size_t>(got));
    }
    if (bytes.size() <= kMaxPPDBytesWithSizes &&
        httpGetState(connection.get()) != HTTP_STATE_WAITING) {
        failure = serverSilent(cupsServer(), tr("it sent only a part of the PPD"));
        return {};
    }
    if (bytes.empty()) {
        failure = printerWithoutPPD(queue, "the server sent an empty file");
    }
    return bytes;
}

SentJob sendJob(const std::string& queue, const std::string& title,
                const std::vector<JobOption>& options, const std::string& documentPath,
                const std::string& documentName, Cancellation* cancellation, SendProgress* progress)
{
    SentJob sent;
    const int descriptor = open(documentPath.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    struct stat information = {};
    if (descriptor < 0 || fstat(descriptor, &information) != 0) {
        sent.failure = documentNotReadable(documentPath, std::strerror(errno));
        if (descriptor >= 0) {
            close(descriptor);
        }
        return sent;
    }
    const File document(fdopen(descriptor, "rb"));
    if (!S_ISREG(information.st_mode)) {
        sent.failure = documentNotReadable(documentPath, tr("it is not a regular file"));
        return sent;
    }
    if (progress != nullptr) {
        progress->total = static_cast<std::uint64_t>(information.st_size);
    }
    int job = 0;
    bool readable = true;
    {
        ServerConnection connection(sent.failure, cancellation);
        if (!connection) {
            return stopped(std::move(sent), cancellation);
        }
        OptionArray array;
        for (const JobOption& option : options) {
            array.add(option);
        }
        const std::string resource = queueResource(queue);
        const Message request = jobRequest(queue, title, documentName, array);
        connection.alive(kSendingSilence);
        http_status_t status = cupsSendRequest(connection.get(), request.get(), resource.c_str(),
                                               CUPS_LENGTH_VARIABLE);
        char buffer[65536];
        while (status == HTTP_STATUS_CONTINUE && !isCancelled(cancellation)) {
            const std::size_t got = std::fread(buffer, 1, sizeof buffer, document.get());
            if (got == 0) {
                readable = std::ferror(document.get()) == 0;
                break;
            }
            status = cupsWriteRequestData(connection.get(), buffer, got);
            connection.alive(kSendingSilence);
            if (progress != nullptr) {
                progress->sent += got;
            }
        }
        // Asking for the answer ends the document: not when it is not whole.
        if (readable && status == HTTP_STATUS_CONTINUE && !isCancelled(cancellation)) {
            connection.alive(kSendingSilence, kCreatingSilence);
            job = numberOfNewJob(connection.get(), resource);
        }
        if (job != 0 && !isCancelled(cancellation)) {
            sent.id = job;
            return sent;
        }
        sent.failure = readable ? jobRefused(queue, lastReason())
                                : documentNotReadable(documentPath, tr("reading stopped early"));
    }
    sent = stopped(std::move(sent), cancellation);
    if (job != 0) {
        sent.failure = cancelJob(queue, job);
    }
    return sent;
}

Failure cancelJob(const std::string& queue, int job)
{
    Failure failure;
    const ServerConnection connection(failure);
    if (connection &&
        cupsCancelJob2(connection.get(), queue.c_str(), job, 0) > IPP_STATUS_OK_CONFLICTING) {
        failure = jobNotCancelled(queue, job, lastReason());
    } else if (failure) {
        failure = jobNotCancelled(queue, job, failure.text);
    }
    return failure;
}

} // namespace dialog
