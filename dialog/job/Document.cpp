#include "dialog/job/Document.hpp"

#include "dialog/BuiltIn.hpp"
#include "dialog/Translate.hpp"
#include "dialog/job/JobOptions.hpp"

#include <cerrno>
#include <cstring>
#include <utility>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace dialog {

Document Document::open(const std::string& path)
{
    Document document;
    if (path.empty()) {
        const std::string_view label = sampleLabel();
        document.name_ = kSampleLabelName;
        document.memory_ = memfd_create("label", MFD_CLOEXEC);
        if (document.memory_ < 0 || write(document.memory_, label.data(), label.size()) !=
                                        static_cast<ssize_t>(label.size())) {
            document.failure_ = documentNotReadable(document.name_, std::strerror(errno));
        }
        document.path_ = "/proc/self/fd/" + std::to_string(document.memory_);
        return document;
    }
    document.path_ = path;
    document.name_ = jobTitle({}, path);
    // Without waiting: a named pipe would hold the window up for ever.
    const int file = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    struct stat information = {};
    if (file < 0 || fstat(file, &information) != 0) {
        document.failure_ = documentNotReadable(path, std::strerror(errno));
    } else if (!S_ISREG(information.st_mode)) {
        document.failure_ = documentNotReadable(path, tr("it is not a regular file"));
    }
    if (file >= 0) {
        close(file);
    }
    return document;
}

Document::~Document()
{
    if (memory_ >= 0) {
        close(memory_);
    }
}

Document::Document(Document&& other) noexcept
    : path_(std::move(other.path_)), name_(std::move(other.name_)),
      failure_(std::move(other.failure_)), memory_(std::exchange(other.memory_, -1))
{
}

} // namespace dialog
