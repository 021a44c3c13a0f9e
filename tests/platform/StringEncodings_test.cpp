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

TEST(StringEncodings, AnswerNoneForANumberNobodyGave)
{
    EXPECT_EQ(toolkitEncoding(0x7777), 0u);
    EXPECT_EQ(toolkitEncoding(kNoFoundationEncoding), 0u);
    EXPECT_EQ(foundationEncoding(0), 0xffffffffu);
    EXPECT_EQ(foundationEncoding(999), 0xffffffffu);
}
