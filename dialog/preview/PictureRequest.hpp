// PictureRequest.hpp - asks tape-print-picture for a document's picture, without waiting for it.
//
//     PictureRequest request(program, path);
//     if (const auto picture = request.poll()) { ... }
//
// Plain C++.
#pragma once

#include "dialog/preview/DocumentPicture.hpp"

#include <chrono>
#include <optional>
#include <string>

#include <sys/types.h>

namespace dialog {

class PictureRequest
{
  public:
    // `document` is opened at once; it may go away afterwards.
    PictureRequest(const std::string& program, const std::string& document,
                   std::chrono::milliseconds patience = std::chrono::seconds(15));
    // Ends the program where it still runs.
    ~PictureRequest();
    PictureRequest(const PictureRequest&) = delete;
    PictureRequest& operator=(const PictureRequest&) = delete;

    // The picture, or why there is none, exactly once; no value before and after.
    std::optional<DocumentPicture> poll();

    // Waits for it.  No value only when poll() has given it before.
    std::optional<DocumentPicture> wait();

  private:
    enum class Step
    {
        Running,
        Finished,
        Given,
    };

    void read();
    void finish();
    void kill();

    Step step_ = Step::Running;
    pid_t process_ = -1;
    int answer_ = -1; // the reading end
    std::string bytes_;
    std::chrono::steady_clock::time_point deadline_;
    DocumentPicture picture_; // once finished
};

} // namespace dialog
