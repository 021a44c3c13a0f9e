#include "dialog/job/OutputFolder.hpp"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <system_error>

#include <sys/stat.h>

namespace dialog {

namespace fs = std::filesystem;

namespace {

bool isLetterOrDigit(char c) noexcept
{
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool writeWhole(const fs::path& path, std::string_view bytes)
{
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    return file.good();
}

// Takes the half-made folder away again unless it was given its name.
class Scratch
{
  public:
    explicit Scratch(fs::path path) : path_(std::move(path)) {}
    ~Scratch()
    {
        if (!path_.empty()) {
            std::error_code ignored;
            fs::remove_all(path_, ignored);
        }
    }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;
    const fs::path& path() const noexcept { return path_; }
    void keep() noexcept { path_.clear(); }

  private:
    fs::path path_;
};

} // namespace

std::string documentExtension(std::string_view path)
{
    const std::size_t slash = path.rfind('/');
    const std::string_view name = slash == path.npos ? path : path.substr(slash + 1);
    const std::size_t dot = name.rfind('.');
    if (dot == name.npos || dot == 0 || dot + 1 == name.size()) {
        return {};
    }
    std::string extension(name.substr(dot));
    for (std::size_t i = 1; i < extension.size(); ++i) {
        char& c = extension[i];
        if (!isLetterOrDigit(c)) {
            return {};
        }
        if (c >= 'A' && c <= 'Z') {
            c = static_cast<char>(c - 'A' + 'a');
        }
    }
    return extension;
}

JobFolder writeJobFolder(const std::string& folder, const std::string& documentPath,
                         std::string_view documentName, std::string_view options,
                         std::string_view summary)
{
    std::error_code problem;
    fs::create_directories(folder, problem);
    if (problem) {
        return {{}, problem.message()};
    }
    std::string pattern = (fs::path(folder) / ".job-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) {
        return {{}, std::strerror(errno)};
    }
    Scratch scratch{fs::path(pattern)};
    chmod(pattern.c_str(), 0755);

    fs::copy_file(documentPath, scratch.path() / ("document" + documentExtension(documentName)),
                  problem);
    if (problem) {
        return {{}, problem.message()};
    }
    if (!writeWhole(scratch.path() / "options", options) ||
        !writeWhole(scratch.path() / "summary", summary)) {
        return {{}, "the disk may be full"};
    }
    // Renaming onto a folder with something in it fails, so two programs never share a number.
    for (int number = 1; number < 1000000; ++number) {
        const fs::path job = fs::path(folder) / ("job-" + std::to_string(number));
        if (fs::exists(fs::symlink_status(job, problem))) {
            continue;
        }
        fs::rename(scratch.path(), job, problem);
        if (!problem) {
            scratch.keep();
            return {job.string(), {}};
        }
        if (problem.value() != EEXIST && problem.value() != ENOTEMPTY &&
            problem.value() != ENOTDIR) {
            return {{}, problem.message()};
        }
    }
    return {{}, "it holds too many jobs"};
}

} // namespace dialog
