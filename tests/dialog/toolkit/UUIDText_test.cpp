#include "dialog/toolkit/UUIDText.hpp"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

namespace {

using dialog::asRandomUUID;
using dialog::textOfUUID;
using dialog::UUIDBytes;

std::string text(const UUIDBytes& bytes)
{
    const dialog::UUIDText found = textOfUUID(bytes);
    return {found.data(), found.size()};
}

TEST(UUIDText, HasFiveGroupsOfCapitalDigits)
{
    EXPECT_EQ(text({0x01, 0x23, 0x45, 0x67, 0x89, 0xAB, 0xCD, 0xEF, 0xFE, 0xDC, 0xBA, 0x98, 0x76,
                    0x54, 0x32, 0x10}),
              "01234567-89AB-CDEF-FEDC-BA9876543210");
}

TEST(UUIDText, KeepsNoughtsInFront)
{
    EXPECT_EQ(text({}), "00000000-0000-0000-0000-000000000000");
    EXPECT_EQ(text({0, 0, 0, 1, 0, 2, 0, 3, 0, 4, 0, 0, 0, 0, 0, 5}),
              "00000001-0002-0003-0004-000000000005");
}

TEST(RandomUUID, SaysThatItWasMadeByChance)
{
    const UUIDBytes ofNoughts = asRandomUUID({});
    EXPECT_EQ(text(ofNoughts), "00000000-0000-4000-8000-000000000000");
    UUIDBytes ones;
    ones.fill(0xFF);
    EXPECT_EQ(text(asRandomUUID(ones)), "FFFFFFFF-FFFF-4FFF-BFFF-FFFFFFFFFFFF");
}

} // namespace
