#include "dialog/keyboard/AccessKeys.hpp"

#include <algorithm>

namespace dialog {

namespace {

constexpr char32_t kFirstOutsideTheBasicPlane = 0x10000;

struct Letter
{
    char32_t letter;
    std::size_t place;
    bool beginsWord;
};

// Advances `at`; 0xFFFD for what is no UTF-8.
char32_t next(const std::string& text, std::size_t& at) noexcept
{
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char first = byte(at++);
    if (first < 0x80) {
        return first;
    }
    const std::size_t more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : first >= 0xC0 ? 1 : 0;
    char32_t character = first & (0x3FU >> more);
    for (std::size_t i = 0; i < more; ++i) {
        if (at >= text.size() || (byte(at) & 0xC0U) != 0x80U) {
            return 0xFFFD;
        }
        character = (character << 6U) | (byte(at++) & 0x3FU);
    }
    return more == 0 ? 0xFFFD : character;
}

// Letters of the alphabets that a keyboard has a key for each of: Latin, Greek, Cyrillic.
bool isKeyLetter(char32_t c) noexcept
{
    const bool latin = (c >= U'a' && c <= U'z') || (c >= 0xDF && c <= 0x17F && c != 0xF7);
    const bool greekOrCyrillic = (c >= 0x3B1 && c <= 0x3C9) || (c >= 0x430 && c <= 0x45F);
    return latin || greekOrCyrillic;
}

std::vector<Letter> lettersOf(const std::string& caption)
{
    std::vector<Letter> letters;
    bool inWord = false;
    std::size_t place = 0;
    for (std::size_t at = 0; at < caption.size();) {
        const char32_t character = next(caption, at);
        const char32_t letter = accessLetter(character);
        const bool counts = isKeyLetter(letter);
        if (counts) {
            letters.push_back({letter, place, !inWord});
        }
        inWord = counts;
        place += character >= kFirstOutsideTheBasicPlane ? 2 : 1;
    }
    std::stable_partition(letters.begin(), letters.end(),
                          [](const Letter& letter) { return letter.beginsWord; });
    return letters;
}

} // namespace

char32_t accessLetter(char32_t c) noexcept
{
    if ((c >= U'A' && c <= U'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7) ||
        (c >= 0x391 && c <= 0x3A9) || (c >= 0x410 && c <= 0x42F)) {
        return c + 32;
    }
    return c >= 0x400 && c <= 0x40F ? c + 80 : c;
}

std::vector<AccessKey> accessKeys(const std::vector<std::string>& captions)
{
    std::vector<AccessKey> keys;
    keys.reserve(captions.size());
    for (const std::string& caption : captions) {
        AccessKey key;
        for (const Letter& letter : lettersOf(caption)) {
            if (std::none_of(keys.begin(), keys.end(), [&](const AccessKey& taken) {
                    return taken.letter == letter.letter;
                })) {
                key = {letter.letter, letter.place};
                break;
            }
        }
        keys.push_back(key);
    }
    return keys;
}

} // namespace dialog
