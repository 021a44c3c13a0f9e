// PrintServer.hpp - the CUPS server: its queues, their PPDs, and jobs.
//
// Every call opens its own connection and gives up after some seconds of silence, or soon after it
// was cancelled; without a cancellation (nullptr) it just waits.  From any thread.  The server is
// the one libcups finds (CUPS_SERVER, client.conf).
#pragma once

#include "dialog/Messages.hpp"
#include "dialog/background/Cancellation.hpp"
#include "dialog/job/JobOptions.hpp"

#include <atomic>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace dialog {

struct Queue
{
    std::string name;
    std::string info;      // for people; may be empty
    std::string deviceURI; // may be empty

    bool operator==(const Queue&) const = default;
};

struct QueueList
{
    std::vector<Queue> queues; // the server's default first
    std::string server;        // who was asked
    Failure failure;           // the server does not answer
    // The names of those without a PPD, which are not among `queues`.
    std::vector<std::string> rawQueues{};
};

QueueList listQueues(Cancellation* cancellation = nullptr);

// The bytes of the queue's PPD; empty, with `failure`, when it has none or not all of it came.
std::string fetchPPD(const std::string& queue, Failure& failure,
                     Cancellation* cancellation = nullptr);

// Bytes of the document; for another thread to look at.
struct SendProgress
{
    std::atomic<std::uint64_t> sent = 0;
    std::atomic<std::uint64_t> total = 0; // 0 before it is known
};

struct SentJob
{
    int id = 0; // of the server; 0 when the job was not taken
    bool cancelled = false;
    Failure failure; // of a cancelled job: it could not be taken back from the server
};

// Sends job and document as one: what breaks on the way, here or there, leaves no job on the
// server.
SentJob sendJob(const std::string& queue, const std::string& title,
                const std::vector<JobOption>& options, const std::string& documentPath,
                const std::string& documentName, Cancellation* cancellation = nullptr,
                SendProgress* progress = nullptr);

// The job is gone from the server, or `failure` of the answer says why not.
Failure cancelJob(const std::string& queue, int job);

// The path by which a server offers a queue's PPD, with everything escaped that is no plain
// character.
std::string ppdResource(std::string_view queue);

} // namespace dialog
