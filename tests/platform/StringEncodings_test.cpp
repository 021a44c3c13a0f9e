#include "platform/StringEncodings.hpp"

#include <gtest/gtest.h>

using namespace printing;

TEST(StringEncodings, PairsTheCommonOnes)
{
    struct
    {
        std::uint32_t foundation;
        unsigned long toolkit;
    } const pairs[] = {{0x0000, 30},
                       {0x0600, 1},
                       {0x0201, 5},
                       {0x0500, 12},
                       {0x08000100, 4},
                       {0x0100, 10},
                       {0x0A01, 8},
                       {0x0920, 3},
                       {0x0B01, 2},
                       {0x0BFF, 7},
                       {0x14000100, 0x94000100UL}};
    for (const auto& pair : pairs) {
        EXPECT_EQ(toolkitEncoding(pair.foundation), pair.toolkit);
        EXPECT_EQ(foundationEncoding(pair.toolkit), pair.foundation);
    }
}

TEST(StringEncodings, PairsThePartsOfISO8859)
{
    constexpr struct
    {
        std::uint32_t part;
        unsigned long toolkit;
    } kParts[] = {{1, 5},  {2, 9},  {3, 51},  {4, 52},  {5, 22},  {6, 53},  {7, 54},
                  {8, 55}, {9, 57}, {10, 58}, {11, 59}, {13, 61}, {14, 62}, {15, 63}};
    for (const auto& [part, toolkit] : kParts) {
        EXPECT_EQ(toolkitEncoding(0x0200 + part), toolkit) << part;
        EXPECT_EQ(foundationEncoding(toolkit), 0x0200 + part) << part;
    }
}

TEST(StringEncodings, PairsCodePagesAndTheEncodingsOfEastAsia)
{
    constexpr struct
    {
        std::uint32_t foundation;
        unsigned long toolkit;
    } kPairs[] = {{0x0501, 15}, {0x0502, 11}, {0x0500, 12}, {0x0503, 13}, // Windows 1250 to 1253
                  {0x0504, 14}, {0x0021, 6},  {0x0A02, 50}, {0x0820, 21},
                  {0x0930, 56}, {0x0A03, 66}, {0x0940, 67}};
    for (const auto& [foundation, toolkit] : kPairs) {
        EXPECT_EQ(toolkitEncoding(foundation), toolkit);
        EXPECT_EQ(foundationEncoding(toolkit), foundation);
    }
}

TEST(StringEncodings, PairsWideCharactersOfEitherByteOrder)
{
    // The toolkit's own differ in the highest bit alone.
    for (const std::uint32_t foundation :
         {0x10000100u, 0x14000100u, 0x0c000100u, 0x18000100u, 0x1c000100u}) {
        const unsigned long toolkit = foundation | 0x80000000u;
        EXPECT_EQ(toolkitEncoding(foundation), toolkit);
        EXPECT_EQ(foundationEncoding(toolkit), foundation);
    }
}

TEST(StringEncodings, AnswerNoneForANumberNobodyGave)
{
    EXPECT_EQ(toolkitEncoding(0x7777), 0u);
    EXPECT_EQ(toolkitEncoding(kNoFoundationEncoding), 0u);
    EXPECT_EQ(foundationEncoding(0), 0xffffffffu);
    EXPECT_EQ(foundationEncoding(999), 0xffffffffu);
}
