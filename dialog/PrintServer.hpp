// PrintServer.hpp - the CUPS server: its queues, their PPDs, and jobs.
//
// Every call opens its own connection and gives up after a few seconds of silence.  The server is
// the one libcups finds (CUPS_SERVER, client.conf).
#pragma once

#include "dialog/JobOptions.hpp"
#include "dialog/Messages.hpp"

#include <string>
#include <vector>

namespace dialog {

struct Queue
{
    std::string name;
    std::string info;      // for people; may be empty
    std::string deviceURI; // may be empty
};

struct QueueList
{
    std::vector<Queue> queues; // the server's default first
    Failure failure;           // the server does not answer
};

// Queues without a PPD of their own (raw ones) are left out.
QueueList listQueues();

// The bytes of the queue's PPD; empty, with `failure`, when it has none.
std::string fetchPPD(const std::string& queue, Failure& failure);

struct SentJob
{
    int id = 0; // of the server; 0 when the job was not taken
    Failure failure;
};

// Sends the document whole; a job whose document does not arrive whole is cancelled again.
SentJob sendJob(const std::string& queue, const std::string& title,
                const std::vector<JobOption>& options, const std::string& documentPath,
                const std::string& documentName);

// The path by which a server offers a queue's PPD, with everything escaped that is no plain
// character.
std::string ppdResource(std::string_view queue);

} // namespace dialog
