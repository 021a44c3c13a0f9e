// Document.hpp - what is printed: a file of the user's, or the sample label.
#pragma once

#include "dialog/Messages.hpp"

#include <string>

namespace dialog {

class Document
{
  public:
    // An empty path is the sample label.  The result is not ok() when the file is no regular one or
    // cannot be read.
    static Document open(const std::string& path);
    ~Document();
    Document(Document&& other) noexcept;
    Document& operator=(Document&&) = delete;
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    bool ok() const noexcept { return !failure_; }
    const Failure& failure() const noexcept { return failure_; }
    // Where the bytes are; valid as long as the document.
    const std::string& path() const noexcept { return path_; }
    // Without a folder.
    const std::string& name() const noexcept { return name_; }

  private:
    Document() = default;

    std::string path_;
    std::string name_;
    Failure failure_;
    int memory_ = -1; // of the sample label
};

} // namespace dialog
