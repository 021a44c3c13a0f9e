#include "dialog/memory/MemoryFile.hpp"

#include "dialog/Descriptor.hpp"
#include "dialog/Translate.hpp"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace dialog {

namespace fs = std::filesystem;

namespace {

constexpr std::chrono::milliseconds kLockStep{2};
constexpr int kMostSetAside = 10000;

std::string folderOf(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    return slash == path.npos ? "." : slash == 0 ? "/" : path.substr(0, slash);
}

// A rename is on the disk once its folder is.
void flushFolder(const std::string& path) noexcept
{
    const Descriptor folder(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.get() >= 0) {
        fsync(folder.get());
    }
}

bool writeNew(const std::string& path, mode_t mode, std::string_view text) noexcept
{
    const Descriptor file(
        open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC, 0600));
    return file.get() >= 0 && fchmod(file.get(), mode) == 0 && writeAll(file.get(), text) &&
           fsync(file.get()) == 0;
}

} // namespace

FileText readFile(const std::string& path, std::size_t most)
{
    // Without waiting: a named pipe would hold the window up for ever.
    const Descriptor file(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (file.get() < 0) {
        return {std::nullopt, errno == ENOENT ? std::string() : std::strerror(errno)};
    }
    struct stat about = {};
    if (fstat(file.get(), &about) != 0 || !S_ISREG(about.st_mode)) {
        return {std::nullopt, tr("it is not a regular file")};
    }
    std::string text;
    char buffer[65536];
    while (text.size() <= most) {
        const ssize_t got = read(file.get(), buffer, sizeof buffer);
        if (got < 0 && errno == EINTR) {
            continue;
        }
        if (got < 0) {
            return {std::nullopt, std::strerror(errno)};
        }
        if (got == 0) {
            return {std::move(text), {}};
        }
        text.append(buffer, static_cast<std::size_t>(got));
    }
    return {std::nullopt, tr("it is too large")};
}

std::string linkTarget(const std::string& path)
{
    std::error_code problem;
    const fs::path found = fs::canonical(path, problem);
    if (!problem) {
        return found.string();
    }
    const fs::path target = fs::read_symlink(path, problem);
    return problem ? path : (fs::path(folderOf(path)) / target).string();
}

std::string replaceFile(const std::string& path, std::string_view text)
{
    struct stat about = {};
    const mode_t mode = stat(path.c_str(), &about) == 0 ? about.st_mode & 0777 : 0600;
    // Always the same name: what a killed program leaves is taken by the next one.
    const std::string fresh = path + ".new";
    if (!writeNew(fresh, mode, text) || std::rename(fresh.c_str(), path.c_str()) != 0) {
        const std::string reason = std::strerror(errno);
        unlink(fresh.c_str());
        return reason;
    }
    flushFolder(folderOf(path));
    return {};
}

std::string setFileAside(const std::string& path)
{
    std::error_code problem;
    for (int number = 1; number <= kMostSetAside; ++number) {
        const std::string place =
            path + ".damaged" + (number == 1 ? std::string() : "-" + std::to_string(number));
        if (fs::exists(fs::symlink_status(place, problem))) {
            continue;
        }
        return std::rename(path.c_str(), place.c_str()) == 0 ? place : std::string();
    }
    return {};
}

std::string makeFolder(const std::string& path)
{
    std::string reason;
    for (std::size_t end = path.find('/', 1);; end = path.find('/', end + 1)) {
        if (mkdir(path.substr(0, end).c_str(), 0700) != 0 && errno != EEXIST) {
            reason = std::strerror(errno);
        }
        if (end == path.npos) {
            break;
        }
    }
    struct stat about = {};
    if (stat(path.c_str(), &about) == 0) {
        return S_ISDIR(about.st_mode) ? std::string() : std::strerror(ENOTDIR);
    }
    return reason.empty() ? std::strerror(errno) : reason;
}

FileLock::FileLock(const std::string& path, std::chrono::milliseconds patience)
    : file_(open(path.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, 0600))
{
    if (file_ < 0) {
        reason_ = std::strerror(errno);
        return;
    }
    const auto deadline = std::chrono::steady_clock::now() + patience;
    while (!(held_ = flock(file_, LOCK_EX | LOCK_NB) == 0)) {
        if (errno != EWOULDBLOCK && errno != EINTR) {
            reason_ = std::strerror(errno);
            return;
        }
        if (std::chrono::steady_clock::now() >= deadline) {
            return;
        }
        std::this_thread::sleep_for(kLockStep);
    }
}

FileLock::~FileLock()
{
    if (file_ >= 0) {
        close(file_);
    }
}

} // namespace dialog
