#include "dialog/theme/DesktopSettings.hpp"

#include "dialog/UserFolders.hpp"

#include <array>
#include <cstddef>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace dialog {

namespace {

std::string_view environment(const char* name)
{
    const char* const value = std::getenv(name);
    return value == nullptr ? std::string_view{} : std::string_view{value};
}

std::string settingsPath()
{
    const std::string folder = configFolder();
    return folder.empty() ? folder : folder + "/gtk-3.0/settings.ini";
}

constexpr std::size_t kMostBytes = 16384; // of a file that has a dozen lines

// The beginning of a regular file; 0 bytes when it cannot be read.
std::size_t readBeginning(const std::string& path, std::array<char, kMostBytes>& room)
{
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file < 0) {
        return 0;
    }
    struct stat about = {};
    ssize_t count = 0;
    if (::fstat(file, &about) == 0 && S_ISREG(about.st_mode)) {
        count = ::read(file, room.data(), room.size());
    }
    ::close(file);
    return count > 0 ? static_cast<std::size_t>(count) : 0;
}

} // namespace

Appearance appearanceOnThisDesktop(WantedAppearance wanted)
{
    if (wanted != WantedAppearance::Auto) {
        return appearance(wanted, {}, {});
    }
    std::array<char, kMostBytes> room;
    const std::size_t size = readBeginning(settingsPath(), room);
    return appearance(wanted, environment("GTK_THEME"), {room.data(), size});
}

} // namespace dialog
