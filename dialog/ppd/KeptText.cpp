#include "dialog/ppd/KeptText.hpp"

#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace dialog {

namespace {

Descriptor fileWithoutName(const std::string& folder)
{
    std::error_code problem;
    const std::string place =
        folder.empty() ? std::filesystem::temp_directory_path(problem).string() : folder;
    return Descriptor(open(place.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0600));
}

} // namespace

KeptText::KeptText(std::string_view text, const std::string& folder) : size_(text.size())
{
    if (size_ > kMostInMemory) {
        Descriptor file = fileWithoutName(folder);
        if (file.get() >= 0 && writeAll(file.get(), text)) {
            file_ = std::move(file);
            return;
        }
    }
    text_ = text;
}

std::optional<std::string> KeptText::text() const
{
    if (!isInFile()) {
        return text_;
    }
    std::string read(size_, '\0');
    for (std::size_t done = 0; done < size_;) {
        const ssize_t count =
            pread(file_.get(), read.data() + done, size_ - done, static_cast<off_t>(done));
        if (count > 0) {
            done += static_cast<std::size_t>(count);
        } else if (count == 0 || errno != EINTR) {
            return std::nullopt;
        }
    }
    return read;
}

} // namespace dialog
