#include "dialog/Places.hpp"

#include <filesystem>
#include <string_view>
#include <system_error>

namespace dialog {

namespace {

std::string besideOrInstalled(const std::string& folder, std::string_view name,
                              std::string_view installed)
{
    const std::filesystem::path beside = std::filesystem::path(folder) / name;
    std::error_code problem;
    if (std::filesystem::exists(beside, problem)) {
        return beside.string();
    }
    return (std::filesystem::path(folder).parent_path() / installed).string();
}

} // namespace

std::string programFolder()
{
    std::error_code problem;
    return std::filesystem::read_symlink("/proc/self/exe", problem).parent_path().string();
}

std::string bundlePath(const std::string& programFolder)
{
    return besideOrInstalled(programFolder, "PageSettings.plugin",
                             "lib/GNUstep/Bundles/PageSettings.plugin");
}

std::string pictureProgram(const std::string& programFolder)
{
    return besideOrInstalled(programFolder, "tape-print-picture",
                             "lib/page-settings/tape-print-picture");
}

std::string cataloguesFolder(const std::string& programFolder)
{
    return besideOrInstalled(programFolder, "locale", "share/locale");
}

} // namespace dialog
