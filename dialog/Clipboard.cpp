#include "dialog/Clipboard.hpp"

#include <chrono>
#include <csignal>
#include <thread>

#include <fcntl.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace dialog {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kPatience{2000};
constexpr std::chrono::milliseconds kStep{5};

// In memory: a program that ends early cannot break a pipe to it.  -1 when there is no room.
int fileWith(const std::string& text)
{
    const int file = memfd_create("clipboard", MFD_CLOEXEC);
    if (file < 0) {
        return -1;
    }
    const bool whole = write(file, text.data(), text.size()) == static_cast<ssize_t>(text.size());
    if (!whole || lseek(file, 0, SEEK_SET) != 0) {
        close(file);
        return -1;
    }
    return file;
}

// Whether the process ends well in time; one that does not is killed.
bool endsWell(pid_t process)
{
    const Clock::time_point deadline = Clock::now() + kPatience;
    int status = 0;
    while (waitpid(process, &status, WNOHANG) == 0) {
        if (Clock::now() >= deadline) {
            kill(process, SIGKILL);
            waitpid(process, &status, 0);
            return false;
        }
        std::this_thread::sleep_for(kStep);
    }
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

} // namespace

bool copyToClipboard(const std::string& text)
{
    const int input = fileWith(text);
    if (input < 0) {
        return false;
    }
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_adddup2(&files, input, STDIN_FILENO);
    // It goes on in the background; whoever waits for the end of our output need not wait for it.
    posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&files, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    std::string words[] = {"xclip", "-selection", "clipboard"};
    char* arguments[] = {words[0].data(), words[1].data(), words[2].data(), nullptr};
    pid_t process = 0;
    const bool begun =
        posix_spawnp(&process, arguments[0], &files, nullptr, arguments, environ) == 0;
    posix_spawn_file_actions_destroy(&files);
    close(input);
    return begun && endsWell(process);
}

} // namespace dialog
