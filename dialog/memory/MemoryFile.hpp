// MemoryFile.hpp - reading, locking and replacing a file that several programs share.  Plain C++.
#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace dialog {

struct FileText
{
    std::optional<std::string> text; // none: there is no such file, or it could not be read
    std::string reason;              // why it could not be read; empty otherwise
};

// A regular file of at most `most` bytes.
FileText readFile(const std::string& path, std::size_t most);

// Where a link leads, even to a file that does not exist yet; any other path as it is.
std::string linkTarget(const std::string& path);

// Writes a file beside it and puts that in its place, so that `path` is at any moment the old text
// or the new one.  A new file is the user's alone; an old one keeps its mode.  For whoever holds
// the lock.  Empty, or why it could not be done.
std::string replaceFile(const std::string& path, std::string_view text);

// Renames to the first free of "path.damaged", "path.damaged-2", ...  For whoever holds the lock.
// Where it is now; empty when it could not be renamed.
std::string setFileAside(const std::string& path);

// The folder and those above it, for the user alone.  Empty, or why it could not be done.
std::string makeFolder(const std::string& path);

// Held until its end.
class FileLock
{
  public:
    FileLock(const std::string& path, std::chrono::milliseconds patience);
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    bool held() const noexcept { return held_; }
    // Why the lock's file cannot be had; empty when another program holds it.
    const std::string& reason() const noexcept { return reason_; }

  private:
    int file_ = -1;
    bool held_ = false;
    std::string reason_;
};

} // namespace dialog
