#include "dialog/printers/ServerConnection.hpp"

namespace dialog {

namespace {

constexpr int kConnectMilliseconds = 3000;
// How often a wait looks whether it is to go on.
constexpr double kLookSeconds = 0.2;

const char* noPassword(const char*, http_t*, const char*, const char*, void*)
{
    return nullptr;
}

} // namespace

ServerConnection::ServerConnection(Failure& failure, Cancellation* cancellation)
    : cancellation_(cancellation)
{
    // libcups keeps this for each thread; its own way would ask on a terminal.
    cupsSetPasswordCB2(noPassword, nullptr);
    int* const flag = cancellation == nullptr ? nullptr : cancellation->flag();
    http_.reset(httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1,
                             kConnectMilliseconds, flag));
    if (!http_) {
        failure = serverSilent(cupsServer(), {});
        return;
    }
    alive();
    httpSetTimeout(http_.get(), kLookSeconds, goOn, this);
}

ServerConnection::~ServerConnection()
{
    if (cancellation_ != nullptr) {
        cancellation_->unwatch();
    }
}

void ServerConnection::alive(std::chrono::milliseconds silence,
                             std::chrono::milliseconds whenCancelled) noexcept
{
    silence_ = silence;
    whenCancelled_ = whenCancelled;
    lastLife_ = std::chrono::steady_clock::now();
}

void ServerConnection::endAtOnceWhenCancelled() noexcept
{
    if (cancellation_ != nullptr && http_) {
        cancellation_->watch(httpGetFd(http_.get()));
    }
}

int ServerConnection::goOn(http_t*, void* self)
{
    const auto* const connection = static_cast<const ServerConnection*>(self);
    const bool cancelled =
        connection->cancellation_ != nullptr && connection->cancellation_->cancelled();
    const auto borne = cancelled ? connection->whenCancelled_ : connection->silence_;
    return std::chrono::steady_clock::now() - connection->lastLife_ < borne ? 1 : 0;
}

} // namespace dialog
