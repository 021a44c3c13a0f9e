#include "dialog/memory/PresetName.hpp"

#include <algorithm>

namespace dialog {

namespace {

bool isContinuation(char byte) noexcept
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

// The bytes of the character that begins at `text`'s first byte.
std::string_view firstCharacter(std::string_view text) noexcept
{
    std::size_t length = 1;
    while (length < text.size() && isContinuation(text[length])) {
        ++length;
    }
    return text.substr(0, length);
}

std::string_view lastCharacter(std::string_view text) noexcept
{
    std::size_t start = text.size() - 1;
    while (start > 0 && isContinuation(text[start])) {
        --start;
    }
    return text.substr(start);
}

bool isControl(std::string_view character) noexcept
{
    if (character.size() == 1) {
        const auto code = static_cast<unsigned char>(character.front());
        return code < 0x20 || code == 0x7F;
    }
    // U+0080 to U+009F, the separators of lines and of paragraphs
    return (character.size() == 2 && character.front() == '\xC2' && character.back() < '\xA0') ||
           character == "\u2028" || character == "\u2029";
}

bool isBlank(std::string_view character) noexcept
{
    if (isControl(character) || character == " ") {
        return true;
    }
    // U+2000 to U+200F: spaces of many widths, joiners and marks of direction
    if (character.size() == 3 && character.starts_with("\xE2\x80") && character.back() <= '\x8F') {
        return true;
    }
    constexpr std::string_view kBlanks[] = {"\u00A0", "\u1680", "\u202F", "\u205F",
                                            "\u2060", "\u3000", "\uFEFF"};
    return std::find(std::begin(kBlanks), std::end(kBlanks), character) != std::end(kBlanks);
}

} // namespace

std::string tidiedName(std::string_view typed)
{
    while (!typed.empty() && isBlank(firstCharacter(typed))) {
        typed.remove_prefix(firstCharacter(typed).size());
    }
    while (!typed.empty() && isBlank(lastCharacter(typed))) {
        typed.remove_suffix(lastCharacter(typed).size());
    }
    std::string name;
    while (!typed.empty()) {
        const std::string_view character = firstCharacter(typed);
        name += isControl(character) ? " " : character;
        typed.remove_prefix(character.size());
    }
    return name;
}

NameFault checkName(std::string_view name, std::span<const std::string> reserved) noexcept
{
    if (name.empty()) {
        return NameFault::Empty;
    }
    const auto letters = name.size() - static_cast<std::size_t>(
                                           std::count_if(name.begin(), name.end(), isContinuation));
    if (letters > kMostNameLetters) {
        return NameFault::TooLong;
    }
    return std::find(reserved.begin(), reserved.end(), name) == reserved.end()
               ? NameFault::None
               : NameFault::Reserved;
}

} // namespace dialog
