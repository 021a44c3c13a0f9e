// ServerConnection.hpp - one connection to the CUPS server that never waits for ever.
//
// The server is the one libcups finds (CUPS_SERVER, client.conf).  A password is never asked for.
// To be used by the thread that made it.
#pragma once

#include "dialog/Messages.hpp"
#include "dialog/background/Cancellation.hpp"

#include <chrono>
#include <memory>

#include <cups/cups.h>

namespace dialog {

class ServerConnection
{
  public:
    // Without an answer the connection is false and `failure` says so.  `cancellation` may be
    // nullptr, and outlives the connection.
    explicit ServerConnection(Failure& failure, Cancellation* cancellation = nullptr);
    ~ServerConnection();
    ServerConnection(const ServerConnection&) = delete;
    ServerConnection& operator=(const ServerConnection&) = delete;

    explicit operator bool() const noexcept { return http_ != nullptr; }
    http_t* get() const noexcept { return http_.get(); }

    // Something came or went: patience begins anew.  Silence is borne for `silence`; once
    // cancelled, only for `whenCancelled`.
    void alive(std::chrono::milliseconds silence = kSilence,
               std::chrono::milliseconds whenCancelled = {}) noexcept;

    // Cancelling ends a wait at once, even one in which bytes keep trickling.
    void endAtOnceWhenCancelled() noexcept;

    static constexpr std::chrono::milliseconds kSilence{10000};

  private:
    struct Close
    {
        void operator()(http_t* connection) const noexcept { httpClose(connection); }
    };
    static int goOn(http_t* connection, void* self);

    Cancellation* cancellation_;
    std::unique_ptr<http_t, Close> http_;
    std::chrono::steady_clock::time_point lastLife_;
    std::chrono::milliseconds silence_ = kSilence;
    std::chrono::milliseconds whenCancelled_{};
};

} // namespace dialog
