#include "dialog/keyboard/AccessKeys.hpp"

#include <gtest/gtest.h>

#include <random>
#include <set>

namespace dialog {
namespace {

std::u32string letters(const std::vector<std::string>& captions)
{
    std::u32string result;
    for (const AccessKey& key : accessKeys(captions)) {
        result += key.letter == 0 ? U'-' : key.letter;
    }
    return result;
}

TEST(AccessKeys, AreTheFirstLettersThatAreFree)
{
    EXPECT_EQ(letters({"Printer:", "Tape:", "Presets:", "Copies:"}), U"ptrc");
    EXPECT_EQ(letters({"Tape", "Top edge", "Tap"}), U"tea"); // the second word before the first's o
    EXPECT_EQ(letters({"A", "a", ""}), U"a--");
    EXPECT_EQ(letters({"1: ", "(24 mm)"}), U"-m");
}

TEST(AccessKeys, KnowTheirPlaceInTheCaption)
{
    const auto keys = accessKeys({"Ps", "\xC3\x9C Ps", "\xF0\x9F\x8F\xB7 Tape"});
    EXPECT_EQ(keys[0].place, 0U);
    EXPECT_EQ(keys[1].letter, U'\u00FC');
    EXPECT_EQ(keys[1].place, 0U);
    EXPECT_EQ(keys[2].letter, U't');
    EXPECT_EQ(keys[2].place, 3U); // the picture takes two units
}

TEST(AccessKeys, TakeTheLettersOfOtherAlphabetsAndNoneOfScriptsWithoutKeys)
{
    EXPECT_EQ(letters({"\xD0\x9B\xD0\xB5\xD0\xBD\xD1\x82\xD0\xB0"}), U"\u043B");
    EXPECT_EQ(letters({"\xE6\x89\x93\xE5\x8D\xB0\xE6\x9C\xBA\xEF\xBC\x9A"}), U"-");
}

TEST(AccessKeys, AreNeverTheSameWhateverBytesTheCaptionsAre)
{
    std::mt19937 random(11);
    for (int round = 0; round < 2000; ++round) {
        std::vector<std::string> captions(1 + random() % 8);
        for (std::string& caption : captions) {
            for (unsigned i = 0; i < random() % 12; ++i) {
                caption +=
                    static_cast<char>(random() % 4 == 0 ? random() % 256 : 'a' + random() % 6);
            }
        }
        const auto keys = accessKeys(captions);
        ASSERT_EQ(keys.size(), captions.size());
        std::set<char32_t> seen;
        for (const AccessKey& key : keys) {
            EXPECT_TRUE(key.letter == 0 || seen.insert(key.letter).second);
        }
    }
}

TEST(AccessLetter, IsTheSmallOne)
{
    EXPECT_EQ(accessLetter(U'T'), U't');
    EXPECT_EQ(accessLetter(U't'), U't');
    EXPECT_EQ(accessLetter(U'\u00C4'), U'\u00E4');
    EXPECT_EQ(accessLetter(U'\u00D7'), U'\u00D7');
    EXPECT_EQ(accessLetter(U'\u0416'), U'\u0436');
    EXPECT_EQ(accessLetter(U'\u0401'), U'\u0451');
    EXPECT_EQ(accessLetter(U'4'), U'4');
}

} // namespace
} // namespace dialog
