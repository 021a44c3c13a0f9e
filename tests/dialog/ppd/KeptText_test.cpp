#include "dialog/ppd/KeptText.hpp"

#include <gtest/gtest.h>

#include <utility>

namespace dialog {
namespace {

// No two pieces of it are alike.
std::string longText(std::size_t size)
{
    std::string text;
    for (int i = 0; text.size() < size; ++i) {
        text += std::to_string(i) + '\n';
    }
    text.resize(size);
    return text;
}

TEST(KeptText, GivesBackAShortText)
{
    const KeptText kept("a tape\n");
    EXPECT_EQ(kept.text(), "a tape\n");
    EXPECT_EQ(kept.size(), 7u);
    EXPECT_FALSE(kept.isInFile());
}

TEST(KeptText, IsEmptyAtFirst)
{
    EXPECT_EQ(KeptText().text(), "");
    EXPECT_EQ(KeptText().size(), 0u);
}

TEST(KeptText, KeepsALongTextInAFileAndGivesItBackAsOftenAsItIsAsked)
{
    const std::string text = longText(3 * KeptText::kMostInMemory + 1);
    const KeptText kept(text);
    ASSERT_TRUE(kept.isInFile());
    EXPECT_EQ(kept.size(), text.size());
    EXPECT_TRUE(kept.text() == text);
    EXPECT_TRUE(kept.text() == text);
}

TEST(KeptText, KeepsInMemoryWhatIsJustNotTooLong)
{
    const std::string text = longText(KeptText::kMostInMemory);
    const KeptText kept(text);
    EXPECT_FALSE(kept.isInFile());
    EXPECT_TRUE(kept.text() == text);
    EXPECT_TRUE(KeptText(text + "x").isInFile());
}

TEST(KeptText, KeepsALongTextInMemoryWhereNoFileCanBeMade)
{
    const std::string text = longText(KeptText::kMostInMemory + 1);
    const KeptText kept(text, "/dev/null");
    EXPECT_FALSE(kept.isInFile());
    EXPECT_TRUE(kept.text() == text);
}

TEST(KeptText, MovesWithItsFile)
{
    const std::string text = longText(KeptText::kMostInMemory + 1);
    KeptText kept(text);
    const KeptText moved = std::move(kept);
    EXPECT_TRUE(moved.isInFile());
    EXPECT_TRUE(moved.text() == text);
}

} // namespace
} // namespace dialog
