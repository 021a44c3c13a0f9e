#include "ppd/ChoiceLookup.hpp"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>

using namespace ppd;

namespace {

const std::array<std::string_view, 3> kKeywords{"300dpi", "300x600dpi", "600dpi"};

std::ptrdiff_t marked(std::string_view keyword, std::size_t count = kKeywords.size())
{
    return indexOfMarked(keyword, count, [](std::size_t i) { return kKeywords[i]; });
}

std::ptrdiff_t defaultIn(const std::string& flags)
{
    return indexOfDefault(flags.size(), [&](std::size_t i) { return flags[i] == 'd'; });
}

} // namespace

TEST(IndexOfMarked, FindsTheKeyword)
{
    EXPECT_EQ(marked("300dpi"), 0);
    EXPECT_EQ(marked("600dpi"), 2);
}

TEST(IndexOfMarked, IsZeroForAKeywordThatIsNotInTheList)
{
    EXPECT_EQ(marked("1200dpi"), 0);
    EXPECT_EQ(marked("600DPI"), 0);
    EXPECT_EQ(marked("600"), 0);
    EXPECT_EQ(marked(""), 0);
    EXPECT_EQ(marked("600dpi", 0), 0);
    EXPECT_EQ(marked("600dpi", 2), 0);
}

TEST(IndexOfMarked, IsZeroForAKeywordBeyondASCIIEvenIfItIsListed)
{
    const std::array<std::string_view, 2> list{"300dpi", "\xff"};
    EXPECT_EQ(indexOfMarked("\xff", 2, [&](std::size_t i) { return list[i]; }), 0);
}

TEST(IndexOfDefault, FindsTheFirstDefault)
{
    EXPECT_EQ(defaultIn("d"), 0);
    EXPECT_EQ(defaultIn("..d."), 2);
    EXPECT_EQ(defaultIn(".dd"), 1);
}

TEST(IndexOfDefault, IsMinusOneWithoutADefaultYetZeroInAnEmptyList)
{
    EXPECT_EQ(defaultIn("..."), -1);
    EXPECT_EQ(defaultIn(""), 0);
}

TEST(DefaultKeyword, ComparesTheKeywordsExactly)
{
    EXPECT_TRUE(isDefaultKeyword("300dpi", "300dpi"));
    EXPECT_FALSE(isDefaultKeyword("300dpi", "300DPI"));
    EXPECT_FALSE(isDefaultKeyword("300dpi", "300dpi2"));
    EXPECT_FALSE(isDefaultKeyword("300dpi2", "300dpi"));
    EXPECT_FALSE(isDefaultKeyword("300dpi", ""));
    EXPECT_TRUE(isDefaultKeyword("", ""));
}

TEST(DefaultKeyword, Compares41CharactersAtMost)
{
    const std::string start(41, 'a');
    EXPECT_TRUE(isDefaultKeyword(start + "b", start + "c"));
    EXPECT_TRUE(isDefaultKeyword(start, start + "c"));
    const std::string shorter(40, 'a');
    EXPECT_FALSE(isDefaultKeyword(shorter + "b", shorter + "c"));
}

TEST(InList, ExcludesTheCountAndEverythingBelowZero)
{
    EXPECT_TRUE(isInList(0, 3));
    EXPECT_TRUE(isInList(2, 3));
    EXPECT_FALSE(isInList(3, 3));
    EXPECT_FALSE(isInList(-1, 3));
    EXPECT_FALSE(isInList(0, 0));
    EXPECT_FALSE(isInList(PTRDIFF_MAX, 3));
    EXPECT_FALSE(isInList(PTRDIFF_MIN, 3));
}

// Looks for the letter in "abcb" and counts the entries that it looks at.
struct Search
{
    std::optional<std::size_t> find(char letter)
    {
        looks = 0;
        return firstIndexFrom(place, count, [&](std::size_t i) {
            ++looks;
            return "abcb"[i] == letter;
        });
    }

    std::size_t place = 0;
    std::size_t count = 4;
    int looks = 0;
};

TEST(FirstIndexFrom, LooksOnceForWhatItFoundLast)
{
    Search search;
    EXPECT_EQ(search.find('c'), 2u);
    EXPECT_EQ(search.place, 2u);
    EXPECT_EQ(search.find('c'), 2u);
    EXPECT_EQ(search.looks, 1);
}

TEST(FirstIndexFrom, FindsTheFirstOfSeveral)
{
    Search search;
    EXPECT_EQ(search.find('c'), 2u);
    EXPECT_EQ(search.find('b'), 1u);
    EXPECT_EQ(search.find('a'), 0u);
    EXPECT_EQ(search.find('b'), 1u);
}

TEST(FirstIndexFrom, KeepsItsPlaceWhenNothingIsFound)
{
    Search search;
    EXPECT_EQ(search.find('c'), 2u);
    EXPECT_EQ(search.find('x'), std::nullopt);
    EXPECT_EQ(search.place, 2u);
    EXPECT_EQ(search.find('c'), 2u);
}

TEST(FirstIndexFrom, NeverLooksBehindTheEnd)
{
    Search search;
    search.place = 3;
    search.count = 2;
    EXPECT_EQ(search.find('b'), 1u);
    search.count = 0;
    EXPECT_EQ(search.find('b'), std::nullopt);
    EXPECT_EQ(search.looks, 0);
}

TEST(IndexToSave, StaysInsideTheList)
{
    EXPECT_EQ(indexToSave(-1, 3), 0u);
    EXPECT_EQ(indexToSave(PTRDIFF_MIN, 3), 0u);
    EXPECT_EQ(indexToSave(0, 3), 0u);
    EXPECT_EQ(indexToSave(2, 3), 2u);
    EXPECT_EQ(indexToSave(3, 3), 2u);
    EXPECT_EQ(indexToSave(PTRDIFF_MAX, 3), 2u);
    EXPECT_EQ(indexToSave(-1, 1), 0u);
}

TEST(IndexToSave, IsNoneForAnEmptyList)
{
    EXPECT_EQ(indexToSave(0, 0), std::nullopt);
    EXPECT_EQ(indexToSave(-1, 0), std::nullopt);
}

TEST(ASCII, EndsAt127)
{
    EXPECT_TRUE(isASCII(""));
    EXPECT_TRUE(isASCII("300x600dpi"));
    EXPECT_TRUE(isASCII("\x01\x7f"));
    EXPECT_FALSE(isASCII("\x80"));
    EXPECT_FALSE(isASCII("caf\xc3\xa9"));
}
