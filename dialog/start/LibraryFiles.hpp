// LibraryFiles.hpp - the toolkit's search through its libraries for a file of one kind, each folder
// read once.
//
// A library has its files of a kind in Resources/KIND or, if they are not there, in KIND, and may
// have others for a language in folders within those.  Plain C++ and POSIX.
#pragma once

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace dialog {

class LibraryFiles
{
  public:
    LibraryFiles() = default; // of no library

    // `libraries` are absolute paths in the order of the search.  Their folders are read now; one
    // that is not there, or cannot be read, holds nothing.
    LibraryFiles(const std::vector<std::string>& libraries, std::string_view kind);

    // Whether find() knows all that there is: where languages have files of their own, it does not.
    bool isWhole() const noexcept { return isWhole_; }

    // The path of the first file of that name that can be read; empty when there is none.  A file
    // that came later is not found, as the toolkit would not find it.
    std::string find(std::string_view name) const;

  private:
    struct Folder
    {
        std::string path;
        std::unordered_set<std::string> names;
    };
    std::vector<Folder> folders_; // those that hold something
    bool isWhole_ = true;
};

} // namespace dialog
