// AccessKeys.hpp - the letter of a caption that, pressed with Alt, goes to its control.  Plain C++.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace dialog {

struct AccessKey
{
    char32_t letter = 0;   // as a key gives it, small where there are two; 0 for none
    std::size_t place = 0; // in UTF-16 units from the caption's beginning
};

// One for each caption (UTF-8), none twice: the first letter of its words that is still free, else
// any of its letters.  Captions that come first choose first.  A caption in letters that no key
// gives alone, as in Chinese, has none.
std::vector<AccessKey> accessKeys(const std::vector<std::string>& captions);

// A key's character as in AccessKey.
char32_t accessLetter(char32_t character) noexcept;

} // namespace dialog
