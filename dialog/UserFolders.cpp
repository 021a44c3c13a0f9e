#include "dialog/UserFolders.hpp"

#include <cstdlib>

namespace dialog {

namespace {

std::string_view environment(const char* name)
{
    const char* const value = std::getenv(name);
    return value == nullptr ? std::string_view{} : std::string_view{value};
}

} // namespace

std::string userFolder(std::string_view chosen, std::string_view home, std::string_view usual)
{
    if (chosen.starts_with('/')) {
        return std::string(chosen);
    }
    return home.empty() ? std::string() : std::string(home).append("/").append(usual);
}

std::string configFolder()
{
    return userFolder(environment("XDG_CONFIG_HOME"), environment("HOME"), ".config");
}

std::string cacheFolder()
{
    return userFolder(environment("XDG_CACHE_HOME"), environment("HOME"), ".cache");
}

} // namespace dialog
