// Memory.hpp - what the dialog remembers, in a file of the user's configuration folder.
//
// Reading takes the file as it stands.  A change is made under a lock: read again, change, write to
// a file beside it, replace; so of two dialogs neither loses what the other has kept, and a
// program that is killed leaves a whole file behind.  A file that cannot be understood is renamed,
// never overwritten.  Plain C++; nothing is kept open between two calls.
#pragma once

#include "dialog/memory/MemoryText.hpp"

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>

namespace dialog {

inline constexpr std::size_t kMostMemoryBytes = 4 * 1024 * 1024;

enum class MemoryProblem : std::uint8_t
{
    None,
    NoFolder,     // the user has no configuration folder
    NotReadable,  // `detail` says why
    NotWritable,  // `detail` says why
    Busy,         // another dialog did not let go of the file in time
    Newer,        // the file is left alone
    LeftDamaged,  // the file cannot be understood, nor renamed
    NameTaken,    // there is a preset of that name
    NoSuchPreset, // there is none of that name, any more
};

struct MemoryResult
{
    MemoryProblem problem = MemoryProblem::None;
    std::string path; // the file
    std::string detail;
    std::string setAside; // where a damaged file was put; empty when there was none

    bool done() const noexcept { return problem == MemoryProblem::None; }
};

class Memory
{
  public:
    // `configFolder` is that of userFolder(); empty: nothing is remembered.  `patience` is how long
    // another dialog is waited for.
    explicit Memory(const std::string& configFolder,
                    std::chrono::milliseconds patience = std::chrono::seconds(2));

    // Empty when there is nothing yet, and with a problem.
    MemoryText read(MemoryResult& result) const;

    MemoryResult keepLastUsed(const std::string& printer, const KeptValues& values) const;
    MemoryResult savePreset(const Preset& preset, bool replace) const;
    MemoryResult renamePreset(const std::string& from, const std::string& to) const;
    MemoryResult deletePreset(const std::string& name) const;

  private:
    using Change = std::function<MemoryProblem(MemoryText&)>;

    MemoryResult change(const Change& change) const;

    std::string folder_; // empty: none
    std::chrono::milliseconds patience_;
};

} // namespace dialog
