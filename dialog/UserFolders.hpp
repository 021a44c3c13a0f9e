// UserFolders.hpp - the folders that the desktop's convention gives a program.  Plain C++.
#pragma once

#include <string>
#include <string_view>

namespace dialog {

// `chosen` where it is an absolute path, else the folder `usual` in `home`; empty when there is no
// home either.
std::string userFolder(std::string_view chosen, std::string_view home, std::string_view usual);

// What the environment of this process says: XDG_CONFIG_HOME or ~/.config, XDG_CACHE_HOME or
// ~/.cache.  Empty when it names no home.  Nothing is made.
std::string configFolder();
std::string cacheFolder();

} // namespace dialog
