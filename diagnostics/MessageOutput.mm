// Messages and hex dumps on standard error and file descriptors.

#include "diagnostics/DebugLog.h"
#include "diagnostics/HexDump.hpp"
#include "diagnostics/RecordText.hpp"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <memory>
#include <string_view>
#include <type_traits>
#include <unistd.h>

namespace {

struct Release
{
    void operator()(CFTypeRef object) const { CFRelease(object); }
};
template <class Ref>
using Owned = std::unique_ptr<std::remove_pointer_t<Ref>, Release>;

// Keeps a pipe that nobody reads from ending the process: writing to it is one more error that is
// left at that.
class WithoutPipeSignal
{
  public:
    WithoutPipeSignal()
        : pipe_(pipeSignal()), wasPending_(isPending()),
          isBlocked_(pthread_sigmask(SIG_BLOCK, &pipe_, &before_) == 0)
    {
    }
    ~WithoutPipeSignal()
    {
        if (!isBlocked_)
            return;
        if (!wasPending_ && isPending())
            sigwaitinfo(&pipe_, nullptr);
        pthread_sigmask(SIG_SETMASK, &before_, nullptr);
    }
    WithoutPipeSignal(const WithoutPipeSignal&) = delete;
    WithoutPipeSignal& operator=(const WithoutPipeSignal&) = delete;

  private:
    static sigset_t pipeSignal()
    {
        sigset_t pipe;
        sigemptyset(&pipe);
        sigaddset(&pipe, SIGPIPE);
        return pipe;
    }
    static bool isPending()
    {
        sigset_t pending;
        return sigpending(&pending) == 0 && sigismember(&pending, SIGPIPE) == 1;
    }

    const sigset_t pipe_;
    sigset_t before_;
    const bool wasPending_;
    const bool isBlocked_;
};

// Goes on after a part was written or a signal came in between; gives up on any other error.
void writeAll(int fd, std::string_view bytes)
{
    const WithoutPipeSignal quiet;
    while (!bytes.empty()) {
        const ssize_t written = write(fd, bytes.data(), bytes.size());
        if (written > 0)
            bytes.remove_prefix(static_cast<std::size_t>(written));
        else if (written == 0 || errno != EINTR)
            return;
    }
}

void writeToStandardError(std::string_view bytes)
{
    const WithoutPipeSignal quiet;
    while (!bytes.empty()) {
        errno = 0;
        bytes.remove_prefix(fwrite(bytes.data(), 1, bytes.size(), stderr));
        if (bytes.empty() || errno != EINTR)
            return;
        clearerr(stderr);
    }
}

// The message in UTF-8, with "?" for what UTF-8 cannot hold; null when it cannot be made.
Owned<CFDataRef> encodedMessage(CFStringRef format, va_list arguments)
{
    if (format == NULL)
        return nullptr;
    const Owned<CFStringRef> message(
        CFStringCreateWithFormatAndArguments(NULL, NULL, format, arguments));
    if (message == nullptr)
        return nullptr;
    return Owned<CFDataRef>(
        CFStringCreateExternalRepresentation(NULL, message.get(), kCFStringEncodingUTF8, '?'));
}

std::string_view bytesOf(CFDataRef data)
{
    return {reinterpret_cast<const char*>(CFDataGetBytePtr(data)),
            static_cast<std::size_t>(CFDataGetLength(data))};
}

bool isSilent(int level)
{
    return level > 0;
}

std::size_t countOf(const void* bytes, int count)
{
    return bytes != NULL ? static_cast<std::size_t>(std::max(count, 0)) : 0;
}

} // namespace

void debugLog(int level, CFStringRef format, ...)
{
    if (isSilent(level))
        return;
    writeToStandardError("DEBUG: ");
    va_list arguments;
    va_start(arguments, format);
    const Owned<CFDataRef> message = encodedMessage(format, arguments);
    va_end(arguments);
    if (message == nullptr)
        return;
    const std::string_view bytes = bytesOf(message.get());
    writeToStandardError(diagnostics::boundedText(bytes.data(), bytes.size()));
    writeToStandardError("\n");
}

void debugLogFd(int level, int fd, CFStringRef format, ...)
{
    if (isSilent(level))
        return;
    va_list arguments;
    va_start(arguments, format);
    const Owned<CFDataRef> message = encodedMessage(format, arguments);
    va_end(arguments);
    if (message == nullptr)
        return;
    writeAll(fd, bytesOf(message.get()));
    writeAll(fd, "\n");
}

void memoryCheck(int level, const void* bytes, int count)
{
    if (isSilent(level))
        return;
    const auto print = [](std::string_view line) {
        writeToStandardError("DEBUG:");
        writeToStandardError(line);
    };
    diagnostics::forEachHexLine(static_cast<const std::uint8_t*>(bytes), countOf(bytes, count),
                                print, print);
}

void memoryCheckFd(int level, int fd, const void* bytes, int count)
{
    if (isSilent(level))
        return;
    const auto print = [fd](std::string_view line) {
        if (line.empty())
            return;
        writeAll(fd, line);
        writeAll(fd, "\n");
    };
    diagnostics::forEachHexLine(static_cast<const std::uint8_t*>(bytes), countOf(bytes, count),
                                print, print);
}
