#include "dialog/start/LibraryFiles.hpp"

#include <filesystem>
#include <system_error>
#include <utility>

#include <unistd.h>

namespace dialog {

namespace fs = std::filesystem;

LibraryFiles::LibraryFiles(const std::vector<std::string>& libraries, std::string_view kind)
{
    for (const std::string& library : libraries) {
        for (const char* const place : {"/Resources/", "/"}) {
            Folder folder{library + place, {}};
            folder.path += kind;
            std::error_code problem;
            fs::directory_iterator entry(folder.path, problem);
            for (; !problem && entry != fs::directory_iterator(); entry.increment(problem)) {
                std::string name = entry->path().filename().string();
                isWhole_ = isWhole_ && !name.ends_with(".lproj");
                folder.names.insert(std::move(name));
            }
            if (!folder.names.empty()) {
                folders_.push_back(std::move(folder));
            }
        }
    }
}

std::string LibraryFiles::find(std::string_view name) const
{
    const std::string wanted(name);
    for (const Folder& folder : folders_) {
        if (folder.names.contains(wanted)) {
            std::string path = folder.path + '/' + wanted;
            if (access(path.c_str(), R_OK) == 0) {
                return path;
            }
        }
    }
    return {};
}

} // namespace dialog
