// KeptText.hpp - a text that may be needed once more: a long one is kept in a file.  Plain C++ and
// POSIX.
#pragma once

#include "dialog/Descriptor.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace dialog {

class KeptText
{
  public:
    // In bytes; a longer text goes into a file without a name, which ends with this object.
    static constexpr std::size_t kMostInMemory = std::size_t{1024} * 1024;

    KeptText() = default; // an empty text
    // Where no file can be had, the text is kept in memory all the same.  `folder` is where to make
    // it; empty for the system's folder of temporary files.
    explicit KeptText(std::string_view text, const std::string& folder = {});

    std::size_t size() const noexcept { return size_; }
    bool isInFile() const noexcept { return file_.get() >= 0; }

    // No value when the file cannot be read any more.
    std::optional<std::string> text() const;

  private:
    std::size_t size_ = 0;
    std::string text_; // empty while it is in the file
    Descriptor file_{-1};
};

} // namespace dialog
