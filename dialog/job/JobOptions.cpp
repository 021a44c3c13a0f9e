#include "dialog/job/JobOptions.hpp"

#include "dialog/Messages.hpp"
#include "dialog/UTF8.hpp"

#include <algorithm>

namespace dialog {

namespace {

void appendOnOneLine(std::string& line, std::string_view text)
{
    for (const char byte : text) {
        switch (byte) {
        case '\n':
            line += "\\n";
            break;
        case '\r':
            line += "\\r";
            break;
        case '\\':
            line += "\\\\";
            break;
        default:
            line += byte;
        }
    }
}

} // namespace

void JobOptions::set(std::string_view keyword, std::string_view choice)
{
    if (keyword.empty()) {
        return;
    }
    for (JobOption& option : options_) {
        if (option.keyword == keyword) {
            option.choice = choice;
            return;
        }
    }
    options_.push_back({std::string(keyword), std::string(choice)});
}

void JobOptions::remove(std::string_view keyword)
{
    std::erase_if(options_, [&](const JobOption& option) { return option.keyword == keyword; });
}

const std::string* JobOptions::find(std::string_view keyword) const noexcept
{
    for (const JobOption& option : options_) {
        if (option.keyword == keyword) {
            return &option.choice;
        }
    }
    return nullptr;
}

std::vector<JobOption> optionsToSend(const JobOptions& chosen, std::string_view paper,
                                     std::int32_t copies)
{
    std::vector<JobOption> sent;
    if (!paper.empty()) {
        sent.push_back({"PageSize", std::string(paper)});
    }
    if (copies > 1) {
        sent.push_back({"copies", std::to_string(copies)});
    }
    for (const JobOption& option : chosen.all()) {
        const bool ownTape = option.keyword == "PageSize" && !paper.empty();
        const bool ownCopies = option.keyword == "copies";
        if (!ownTape && !ownCopies && !option.choice.empty()) {
            sent.push_back(option);
        }
    }
    return sent;
}

std::string optionLines(const std::vector<JobOption>& options)
{
    std::string lines;
    for (const JobOption& option : options) {
        appendOnOneLine(lines, option.keyword);
        lines += '=';
        appendOnOneLine(lines, option.choice);
        lines += '\n';
    }
    return lines;
}

std::string jobTitle(std::string_view title, std::string_view document)
{
    // A longer name, one with a line break or in another encoding a print server calls "Untitled".
    constexpr std::size_t kMost = 252;
    if (!title.empty()) {
        return shown(asUTF8(title), kMost);
    }
    const std::size_t end = document.find_last_not_of('/');
    if (end == std::string_view::npos) {
        return "Label";
    }
    const std::string_view path = document.substr(0, end + 1);
    const std::size_t slash = path.rfind('/');
    return shown(asUTF8(slash == std::string_view::npos ? path : path.substr(slash + 1)), kMost);
}

} // namespace dialog
