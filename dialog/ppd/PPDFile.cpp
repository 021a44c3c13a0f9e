#include "dialog/ppd/PPDFile.hpp"

#include "dialog/Descriptor.hpp"
#include "dialog/Translate.hpp"
#include "dialog/ppd/PPDSizes.hpp"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <optional>
#include <utility>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace dialog {

namespace {

// What checkPPD looked for in the text, asked of the record that libcups made of it.
bool customSizeIsALength(ppd_file_t* record) noexcept
{
    ppd_coption_t* const option = ppdFindCustomOption(record, "PageSize");
    if (option == nullptr) {
        return true;
    }
    for (const char* name : {"Width", "Height"}) {
        const ppd_cparam_t* const parameter = ppdFindCustomParam(option, name);
        if (parameter != nullptr && parameter->type != PPD_CUSTOM_POINTS) {
            return false;
        }
    }
    return true;
}

const ppd_choice_t* findChoice(const ppd_option_t& option, const std::string& keyword) noexcept
{
    for (int i = 0; i < option.num_choices; ++i) {
        if (std::strcmp(keyword.c_str(), option.choices[i].choice) == 0) {
            return &option.choices[i];
        }
    }
    return nullptr;
}

// libcups adds a mark to such an option and never takes one away.  So its own mark, which a panel
// reads back, is moved to the first of the choices as if there were one to pick, and the others are
// set beside it.
bool markSeveral(ppd_file_t* record, ppd_option_t& option, std::string_view choices)
{
    std::vector<bool> wanted(static_cast<std::size_t>(option.num_choices));
    const bool isListed = findChoice(option, std::string(choices)) != nullptr;
    if (isListed || choices != "None") {
        while (true) {
            const std::size_t comma = choices.find(',');
            const ppd_choice_t* const choice =
                findChoice(option, std::string(choices.substr(0, comma)));
            if (choice == nullptr) {
                return false;
            }
            wanted[static_cast<std::size_t>(choice - option.choices)] = true;
            if (comma == std::string_view::npos) {
                break;
            }
            choices.remove_prefix(comma + 1);
        }
    }
    const auto first = std::find(wanted.begin(), wanted.end(), true);
    if (first != wanted.end()) {
        option.ui = PPD_UI_PICKONE;
        ppdMarkOption(record, option.keyword, option.choices[first - wanted.begin()].choice);
        option.ui = PPD_UI_PICKMANY;
    }
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        option.choices[i].marked = wanted[i] ? 1 : 0;
    }
    return true;
}

bool lists(const ppd_option_t& option, std::string_view choice) noexcept
{
    return std::any_of(option.choices, option.choices + option.num_choices,
                       [&](const ppd_choice_t& listed) { return listed.choice == choice; });
}

} // namespace

bool offers(const ppd_option_t* option, std::string_view choice) noexcept
{
    if (option == nullptr || choice.empty()) {
        return false;
    }
    if (option->ui != PPD_UI_PICKMANY) {
        return lists(*option, choice);
    }
    bool all = true;
    for (std::size_t start = 0; all && start <= choice.size();) {
        const std::size_t comma = std::min(choice.find(',', start), choice.size());
        all = lists(*option, choice.substr(start, comma - start));
        start = comma + 1;
    }
    return all || choice == "None";
}

PPDFile::~PPDFile()
{
    if (record_ != nullptr) {
        ppdClose(record_);
    }
}

PPDFile::PPDFile(PPDFile&& other) noexcept
    : record_(std::exchange(other.record_, nullptr)), name_(std::move(other.name_)),
      text_(std::move(other.text_))
{
}

PPDFile& PPDFile::operator=(PPDFile&& other) noexcept
{
    std::swap(record_, other.record_);
    std::swap(name_, other.name_);
    std::swap(text_, other.text_);
    return *this;
}

PPDFile PPDFile::fromBytes(std::string_view name, std::string_view bytes, Failure& failure)
{
    const std::optional<PPDSizes> many =
        bytes.size() > kMaxPPDBytesWithSizes ? std::nullopt : PPDSizes::take(bytes);
    const std::string_view opened = many ? std::string_view(many->rest()) : bytes;
    const PPDCheckResult found = checkPPD(opened);
    if (found.fault != PPDFault::None) {
        failure = ppdRefused(name, found);
        return {};
    }
    // libcups reads exactly the bytes that were looked at, whatever becomes of the file meanwhile.
    Descriptor memory(memfd_create("ppd", MFD_CLOEXEC));
    if (memory.get() < 0 || !writeAll(memory.get(), opened) ||
        lseek(memory.get(), 0, SEEK_SET) != 0) {
        failure = ppdNotReadable(name, std::strerror(errno));
        return {};
    }
    PPDFile file(ppdOpenFd(memory.release()));
    if (file.record_ == nullptr) {
        int line = 0;
        const ppd_status_t status = ppdLastError(&line);
        failure = ppdDamaged(name, line, ppdErrorString(status));
        return {};
    }
    if (!customSizeIsALength(file.record_)) {
        failure = ppdRefused(name, {PPDFault::CustomSizeNotALength, 0});
        return {};
    }
    if (many && !many->addTo(*file.record_)) {
        failure = ppdDamaged(name, 0, {});
        return {};
    }
    ppdMarkDefaults(file.record_);
    file.name_ = name;
    file.text_ = KeptText(bytes);
    return file;
}

PPDFile PPDFile::reopened() const
{
    const std::optional<std::string> text = text_.text();
    Failure unlikely; // this text has been opened once
    return record_ == nullptr || !text ? PPDFile() : fromBytes(name_, *text, unlikely);
}

PPDFile PPDFile::fromPath(const std::string& path, Failure& failure)
{
    // Without waiting: a named pipe would hold the window up for ever.
    Descriptor file(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    struct stat information = {};
    if (file.get() < 0 || fstat(file.get(), &information) != 0) {
        failure = ppdNotReadable(path, std::strerror(errno));
        return {};
    }
    if (!S_ISREG(information.st_mode)) {
        failure = ppdNotReadable(path, tr("it is not a regular file"));
        return {};
    }
    std::string bytes;
    char buffer[65536];
    while (bytes.size() <= kMaxPPDBytesWithSizes) {
        const ssize_t got = read(file.get(), buffer, sizeof buffer);
        if (got < 0 && errno == EINTR) {
            continue;
        }
        if (got < 0) {
            failure = ppdNotReadable(path, std::strerror(errno));
            return {};
        }
        if (got == 0) {
            break;
        }
        bytes.append(buffer, static_cast<std::size_t>(got));
    }
    return fromBytes(path, bytes, failure);
}

bool PPDFile::mark(const std::string& keyword, const std::string& choice)
{
    if (record_ == nullptr) {
        return false;
    }
    ppd_option_t* const option = ppdFindOption(record_, keyword.c_str());
    if (option != nullptr && option->ui == PPD_UI_PICKMANY) {
        return markSeveral(record_, *option, choice);
    }
    if (option == nullptr || findChoice(*option, choice) == nullptr) {
        return false;
    }
    ppdMarkOption(record_, option->keyword, choice.c_str());
    return true;
}

std::string PPDFile::marked(const std::string& keyword) const
{
    const ppd_choice_t* const choice =
        record_ == nullptr ? nullptr : ppdFindMarkedChoice(record_, keyword.c_str());
    return choice == nullptr ? std::string() : std::string(choice->choice);
}

std::vector<std::string> PPDFile::markedChoices(const std::string& keyword) const
{
    std::vector<std::string> choices;
    const ppd_option_t* const option =
        record_ == nullptr ? nullptr : ppdFindOption(record_, keyword.c_str());
    for (int i = 0; option != nullptr && i < option->num_choices; ++i) {
        if (option->choices[i].marked != 0) {
            choices.emplace_back(option->choices[i].choice);
        }
    }
    return choices;
}

bool PPDFile::setDefault(const std::string& keyword, std::string_view choice)
{
    ppd_option_t* const option =
        record_ == nullptr ? nullptr : ppdFindOption(record_, keyword.c_str());
    if (option == nullptr || choice.size() >= sizeof option->defchoice) {
        return false;
    }
    std::memcpy(option->defchoice, choice.data(), choice.size());
    option->defchoice[choice.size()] = '\0';
    return true;
}

std::vector<PPDFile::Size> PPDFile::sizes() const
{
    std::vector<Size> result;
    const ppd_option_t* const option =
        record_ == nullptr ? nullptr : ppdFindOption(record_, "PageSize");
    if (option == nullptr) {
        return result;
    }
    result.reserve(static_cast<std::size_t>(option->num_choices));
    for (int i = 0; i < option->num_choices; ++i) {
        const ppd_choice_t& choice = option->choices[i];
        // The custom size has no dimensions of its own to choose.
        if (std::string_view(choice.choice) != "Custom") {
            result.push_back({choice.choice, choice.text});
        }
    }
    return result;
}

std::string PPDFile::modelName() const
{
    return record_ == nullptr || record_->nickname == nullptr ? std::string() : record_->nickname;
}

} // namespace dialog
