#include "dialog/background/RememberedPrinters.hpp"

#include "dialog/Descriptor.hpp"
#include "dialog/UserFolders.hpp"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace dialog {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kHeading = "tape-print printers 1";
constexpr std::string_view kServer = "server ";
constexpr std::string_view kQueue = "queue ";
constexpr std::string_view kInfo = "info ";
constexpr std::string_view kDevice = "device ";
constexpr std::string_view kEnd = "queues ";
constexpr std::size_t kMostBytes = std::size_t{1} << 20;

bool fitsOnALine(std::string_view text) noexcept
{
    return std::none_of(text.begin(), text.end(),
                        [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; });
}

// The next line that begins with `beginning`, without it; no value for any other line, or one
// without an end.
std::optional<std::string_view> takeLine(std::string_view& text, std::string_view beginning)
{
    const std::size_t end = text.find('\n');
    if (end == text.npos) {
        return std::nullopt;
    }
    const std::string_view line = text.substr(0, end);
    if (!line.starts_with(beginning) || !fitsOnALine(line)) {
        return std::nullopt;
    }
    text.remove_prefix(end + 1);
    return line.substr(beginning.size());
}

void addLine(std::string& text, std::string_view beginning, std::string_view rest)
{
    text.append(beginning).append(rest).append("\n");
}

std::string readText(const std::string& path)
{
    const int file = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    struct stat information = {};
    std::string text;
    if (file >= 0 && fstat(file, &information) == 0 && S_ISREG(information.st_mode)) {
        char buffer[16384];
        for (ssize_t got = 0;
             text.size() <= kMostBytes && (got = read(file, buffer, sizeof buffer)) > 0;) {
            text.append(buffer, static_cast<std::size_t>(got));
        }
    }
    if (file >= 0) {
        close(file);
    }
    return text.size() > kMostBytes ? std::string() : text;
}

} // namespace

std::string rememberedText(std::string_view server, const std::vector<Queue>& queues)
{
    std::string text;
    addLine(text, kHeading, {});
    addLine(text, kServer, server);
    std::size_t count = 0;
    for (const Queue& queue : queues) {
        if (fitsOnALine(queue.name + queue.info + queue.deviceURI)) {
            addLine(text, kQueue, queue.name);
            addLine(text, kInfo, queue.info);
            addLine(text, kDevice, queue.deviceURI);
            ++count;
        }
    }
    addLine(text, kEnd, std::to_string(count));
    return text;
}

std::optional<std::vector<Queue>> queuesOfText(std::string_view text, std::string_view server)
{
    if (takeLine(text, kHeading) != "" || takeLine(text, kServer) != server) {
        return std::nullopt;
    }
    std::vector<Queue> queues;
    while (const auto name = takeLine(text, kQueue)) {
        const auto info = takeLine(text, kInfo);
        const auto device = takeLine(text, kDevice);
        if (name->empty() || !info || !device) {
            return std::nullopt;
        }
        queues.push_back({std::string(*name), std::string(*info), std::string(*device)});
    }
    if (takeLine(text, kEnd) != std::to_string(queues.size()) || !text.empty()) {
        return std::nullopt;
    }
    return queues;
}

std::string rememberedPrintersPath()
{
    const std::string folder = cacheFolder();
    return folder.empty() ? folder : folder + "/page-settings/printers";
}

std::vector<Queue> recallPrinters(const std::string& path, std::string_view server)
{
    if (path.empty()) {
        return {};
    }
    return queuesOfText(readText(path), server).value_or(std::vector<Queue>{});
}

bool rememberPrinters(const std::string& path, std::string_view server,
                      const std::vector<Queue>& queues)
{
    const std::string text = rememberedText(server, queues);
    if (path.empty() || !fitsOnALine(server) || text.size() > kMostBytes) {
        return false;
    }
    if (readText(path) == text) {
        return true;
    }
    std::error_code problem;
    fs::create_directories(fs::path(path).parent_path(), problem);
    std::string scratch = path + ".XXXXXX";
    const int file = mkostemp(scratch.data(), O_CLOEXEC);
    if (file < 0) {
        return false;
    }
    const bool whole = writeAll(file, text) && fsync(file) == 0;
    if (close(file) != 0 || !whole || rename(scratch.c_str(), path.c_str()) != 0) {
        unlink(scratch.c_str());
        return false;
    }
    return true;
}

} // namespace dialog
