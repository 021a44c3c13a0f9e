// OutputFolder.hpp - where a printer without a queue prints.
//
// Every job becomes a folder job-1, job-2, ... of its own with the document, the options (one
// keyword=choice per line) and the summary.  It appears whole or not at all.  Plain C++ and POSIX.
#pragma once

#include <string>
#include <string_view>

namespace dialog {

struct JobFolder
{
    std::string path;   // of the new folder; empty when it was not written
    std::string reason; // why not
};

// The file at `documentPath` is copied as "document" with the extension of `documentName`.  Missing
// folders are made.
JobFolder writeJobFolder(const std::string& folder, const std::string& documentPath,
                         std::string_view documentName, std::string_view options,
                         std::string_view summary);

// ".png" of "labels/a.PNG"; empty without one, or when it has other than letters and digits.
std::string documentExtension(std::string_view path);

} // namespace dialog
