#include "support/PanelTest.hpp"

#include <cstddef>

namespace {

struct Entry
{
    int32_t identifier;
    NSString* key;
    int32_t flag;
};

const Entry* table(const char* name)
{
    return static_cast<const Entry*>(exportedSymbol(name));
}

uint32_t count(const Entry* entries, std::size_t size)
{
    return exported<uint32_t (*)(const Entry*, std::size_t)>("Get_MenuCount")(entries, size);
}

std::string key(int32_t identifier, const Entry* entries, std::size_t size)
{
    return textOf(exported<NSString* (*)(int32_t, const Entry*, std::size_t)>("Get_MenuKeyStr")(
        identifier, entries, size));
}

} // namespace

TEST(MenuTables, HoldTheirEntriesInOrder)
{
    const Entry* options = table("OP_MENU");
    const Entry* qualities = table("QUAL_MENU");
    ASSERT_NE(options, nullptr);
    ASSERT_NE(qualities, nullptr);
    const std::string optionKeys[] = {"OPT1_KEY", "OPT2_KEY", "OPT3_KEY"};
    const std::string qualityKeys[] = {"QUAL1_KEY", "QUAL2_KEY", "QUAL3_KEY"};
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(options[i].identifier, i + 1);
        EXPECT_EQ(textOf(options[i].key), optionKeys[i]);
        EXPECT_EQ(options[i].flag, 0);
        EXPECT_EQ(qualities[i].identifier, i + 101);
        EXPECT_EQ(textOf(qualities[i].key), qualityKeys[i]);
        EXPECT_EQ(qualities[i].flag, 0);
    }
}

TEST(MenuCount, DividesTheSizeByThatOfAnEntry)
{
    static_assert(sizeof(Entry) == 24);
    EXPECT_EQ(count(table("OP_MENU"), 72), 3u);
    EXPECT_EQ(count(table("OP_MENU"), 71), 2u);
    EXPECT_EQ(count(table("OP_MENU"), 24), 1u);
    EXPECT_EQ(count(table("OP_MENU"), 23), 0u);
    EXPECT_EQ(count(table("OP_MENU"), 0), 0u);
}

TEST(MenuKey, IsFoundByTheIdentifierOfItsTable)
{
    EXPECT_EQ(key(1, table("OP_MENU"), 72), "OPT1_KEY");
    EXPECT_EQ(key(3, table("OP_MENU"), 72), "OPT3_KEY");
    EXPECT_EQ(key(101, table("QUAL_MENU"), 72), "QUAL1_KEY");
    EXPECT_EQ(key(102, table("QUAL_MENU"), 72), "QUAL2_KEY");
}

TEST(MenuKey, IsNotFoundForAnotherIdentifier)
{
    EXPECT_EQ(key(4, table("OP_MENU"), 72), "(nil)");
    EXPECT_EQ(key(0, table("OP_MENU"), 72), "(nil)");
    EXPECT_EQ(key(-1, table("OP_MENU"), 72), "(nil)");
    EXPECT_EQ(key(102, table("OP_MENU"), 72), "(nil)");
    EXPECT_EQ(key(2, table("QUAL_MENU"), 72), "(nil)");
}

TEST(MenuKey, IsSearchedForWithinTheSizeOnly)
{
    EXPECT_EQ(key(3, table("OP_MENU"), 71), "(nil)");
    EXPECT_EQ(key(1, table("OP_MENU"), 24), "OPT1_KEY");
    EXPECT_EQ(key(1, table("OP_MENU"), 23), "(nil)");
    EXPECT_EQ(key(1, table("OP_MENU"), 0), "(nil)");
}

TEST(MenuKey, IsNotFoundWithoutATable)
{
    EXPECT_EQ(key(1, nullptr, 72), "(nil)");
}

TEST(MenuKey, IsTheFirstWhoseFlagIsZero)
{
    const Entry entries[] = {
        {5, @"flagged", 1}, {5, @"first", 0}, {5, @"second", 0}, {6, @"flagged below zero", -1}};
    EXPECT_EQ(key(5, entries, sizeof entries), "first");
    EXPECT_EQ(key(6, entries, sizeof entries), "(nil)");
}
