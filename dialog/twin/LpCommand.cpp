#include "dialog/twin/LpCommand.hpp"

#include <filesystem>
#include <system_error>

namespace dialog {

namespace {

constexpr std::string_view kLettersAndDigits =
    "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";

bool isMadeOf(std::string_view text, std::string_view others) noexcept
{
    for (const char c : text) {
        if (kLettersAndDigits.find(c) == kLettersAndDigits.npos && others.find(c) == others.npos) {
            return false;
        }
    }
    return !text.empty();
}

} // namespace

std::string shellWord(std::string_view text)
{
    // Some shells look a command up for a word that begins with an equals sign.
    if (isMadeOf(text, "_-./:=,@%+") && text.front() != '=') {
        return std::string(text);
    }
    std::string word = "'";
    for (const char c : text) {
        if (c == '\'') {
            word += "'\\''";
        } else {
            word += c;
        }
    }
    return word + "'";
}

std::optional<std::string> lpOption(const JobOption& option)
{
    if (!isMadeOf(option.keyword, "_-./:@%+")) {
        return std::nullopt;
    }
    std::string text = option.keyword + "=";
    for (const char c : option.choice) {
        if (std::string_view(" \t\n\v\f\r\\'\"{}").find(c) != std::string_view::npos) {
            text += '\\';
        }
        text += c;
    }
    return text;
}

std::optional<std::string> lpCommand(const JobToShow& job)
{
    std::string line = "lp -d " + shellWord(job.queue) + " -t " + shellWord(job.title);
    for (const JobOption& option : job.options) {
        if (option.keyword == "copies") {
            line += " -n " + shellWord(option.choice);
            continue;
        }
        const std::optional<std::string> text = lpOption(option);
        if (!text) {
            return std::nullopt;
        }
        line += " -o " + shellWord(*text);
    }
    std::error_code problem;
    const std::filesystem::path whole = std::filesystem::absolute(job.path, problem);
    return line + " " + shellWord(problem ? job.path : whole.string());
}

} // namespace dialog
