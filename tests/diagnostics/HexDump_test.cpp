// Grouping bytes into lines of hexadecimal digits.

#include "diagnostics/HexDump.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace diagnostics;

namespace {

// "F:" before a full line, "R:" before the rest.
std::vector<std::string> lines(std::size_t count)
{
    std::vector<std::uint8_t> bytes;
    for (std::size_t i = 0; i < count; ++i)
        bytes.push_back(static_cast<std::uint8_t>(i));
    std::vector<std::string> result;
    forEachHexLine(
        bytes.data(), count,
        [&](std::string_view line) { result.push_back("F:" + std::string(line)); },
        [&](std::string_view line) { result.push_back("R:" + std::string(line)); });
    return result;
}

using Lines = std::vector<std::string>;
const std::string kFirst = "000102030405060708090a0b0c0d0e0f";
const std::string kSecond = "101112131415161718191a1b1c1d1e1f";

} // namespace

TEST(HexLine, WritesTwoLowerCaseDigitsAByte)
{
    HexLine line;
    EXPECT_TRUE(line.isEmpty());
    for (const int byte : {0x00, 0x0a, 0x9f, 0xff})
        line.append(static_cast<std::uint8_t>(byte));
    EXPECT_EQ(line.text(), "000a9fff");
    EXPECT_FALSE(line.isEmpty());
    line.clear();
    EXPECT_EQ(line.text(), "");
}

TEST(HexLine, TakesNoMoreThanSixteenBytes)
{
    HexLine line;
    for (int i = 0; i < 17; ++i) {
        EXPECT_EQ(line.isFull(), i >= 16);
        line.append(static_cast<std::uint8_t>(i));
    }
    EXPECT_EQ(line.text(), kFirst);
}

TEST(HexDump, HasNoLineWithoutBytes)
{
    EXPECT_EQ(lines(0), Lines{});
}

TEST(HexDump, PutsFifteenBytesIntoTheRest)
{
    EXPECT_EQ(lines(15), Lines{"R:" + kFirst.substr(0, 30)});
}

TEST(HexDump, EndsAMultipleOfSixteenBytesWithAnEmptyRest)
{
    EXPECT_EQ(lines(16), (Lines{"F:" + kFirst, "R:"}));
    EXPECT_EQ(lines(32), (Lines{"F:" + kFirst, "F:" + kSecond, "R:"}));
}

TEST(HexDump, PutsTheSeventeenthByteIntoTheRest)
{
    EXPECT_EQ(lines(17), (Lines{"F:" + kFirst, "R:10"}));
}
