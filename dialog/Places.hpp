// Places.hpp - where the program's own files are: beside it in a build, else where an installation
// under the same prefix puts them.  Plain C++ and POSIX.
#pragma once

#include <string>

namespace dialog {

// The folder of the running program, without a slash at its end.
std::string programFolder();

// The panel's bundle, whether or not it is there.
std::string bundlePath(const std::string& programFolder);

// The program that makes pictures of documents, whether or not it is there.
std::string pictureProgram(const std::string& programFolder);

// The folder of the catalogues, whether or not it is there.
std::string cataloguesFolder(const std::string& programFolder);

} // namespace dialog
