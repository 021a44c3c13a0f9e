#include "dialog/preview/PictureRequest.hpp"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <utility>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace dialog {

namespace {

// A header, the pixels and the text; a program that writes more has gone wrong.
constexpr std::size_t kMostAnswer = 512 + kMostPixels + kMostText;
// Room for most answers, so that the program can end before anybody reads.
constexpr int kRoom = 1024 * 1024;

pid_t start(const std::string& program, int document, int answer)
{
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_adddup2(&files, document, STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&files, answer, STDOUT_FILENO);
    posix_spawn_file_actions_addopen(&files, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    std::string name = program;
    char* const words[] = {name.data(), nullptr};
    pid_t process = -1;
    if (posix_spawn(&process, program.c_str(), &files, nullptr, words, environ) != 0) {
        process = -1;
    }
    posix_spawn_file_actions_destroy(&files);
    return process;
}

} // namespace

PictureRequest::PictureRequest(const std::string& program, const std::string& document,
                               std::chrono::milliseconds patience)
    : deadline_(std::chrono::steady_clock::now() + patience)
{
    // Without waiting: a named pipe would hold the window up for ever.
    const int file = open(document.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    std::array<int, 2> ends{-1, -1};
    if (file >= 0 && pipe2(ends.data(), O_CLOEXEC) == 0) {
        answer_ = ends[0];
        fcntl(answer_, F_SETFL, O_NONBLOCK);
        fcntl(answer_, F_SETPIPE_SZ, kRoom);
        process_ = start(program, file, ends[1]);
        close(ends[1]);
    }
    if (file >= 0) {
        close(file);
    }
    if (process_ < 0) {
        finish();
    }
}

PictureRequest::~PictureRequest()
{
    kill();
    if (answer_ >= 0) {
        close(answer_);
    }
}

void PictureRequest::kill()
{
    if (process_ > 0) {
        ::kill(process_, SIGKILL);
        while (waitpid(process_, nullptr, 0) < 0 && errno == EINTR) {
        }
        process_ = -1;
    }
}

void PictureRequest::finish()
{
    // Killed in any case: who has closed its output has nothing more to say.
    kill();
    step_ = Step::Finished;
    if (auto picture = unpacked(bytes_)) {
        picture_ = std::move(*picture);
    }
    bytes_ = {};
}

void PictureRequest::read()
{
    std::array<char, 65536> piece{};
    while (step_ == Step::Running) {
        const ssize_t count = ::read(answer_, piece.data(), piece.size());
        if (count > 0 && bytes_.size() + static_cast<std::size_t>(count) <= kMostAnswer) {
            bytes_.append(piece.data(), static_cast<std::size_t>(count));
        } else if (count < 0 && errno == EINTR) {
            continue;
        } else if (count < 0 && errno == EAGAIN) {
            break;
        } else {
            finish();
        }
    }
    if (step_ == Step::Running && std::chrono::steady_clock::now() >= deadline_) {
        bytes_.clear();
        finish();
        picture_.problem = PictureProblem::TooSlow;
    }
}

std::optional<DocumentPicture> PictureRequest::poll()
{
    read();
    if (step_ != Step::Finished) {
        return std::nullopt;
    }
    step_ = Step::Given;
    return std::move(picture_);
}

std::optional<DocumentPicture> PictureRequest::wait()
{
    while (step_ == Step::Running) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
            deadline_ - std::chrono::steady_clock::now());
        struct pollfd waited = {answer_, POLLIN, 0};
        ::poll(&waited, 1, static_cast<int>(std::max<long long>(left.count(), 0)));
        read();
    }
    return poll();
}

} // namespace dialog
