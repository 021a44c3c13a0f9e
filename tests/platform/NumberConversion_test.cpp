#include "platform/NumberConversion.hpp"

#include <gtest/gtest.h>

using printing::convertNumber;

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

template <typename To, typename From>
void expectConversion(From from, To value, bool exact)
{
    const auto converted = convertNumber<To>(from);
    EXPECT_EQ(converted.value, value) << from;
    EXPECT_EQ(converted.exact, exact) << from;
}

} // namespace

TEST(ConvertNumber, KeepsAnIntegerThatFits)
{
    expectConversion<std::int8_t>(std::int64_t{127}, 127, true);
    expectConversion<std::int8_t>(std::int64_t{-128}, -128, true);
    expectConversion<std::int32_t>(std::int64_t{2147483647}, 2147483647, true);
    expectConversion<std::int64_t>(std::int64_t{INT64_MIN}, INT64_MIN, true);
}

TEST(ConvertNumber, EndsAnIntegerAtTheLimitOfTheType)
{
    expectConversion<std::int8_t>(std::int64_t{128}, 127, false);
    expectConversion<std::int16_t>(std::int64_t{-32769}, -32768, false);
    expectConversion<std::int32_t>(std::int64_t{4294967297}, 2147483647, false);
}

TEST(ConvertNumber, CutsTheFractionTowardZero)
{
    expectConversion<std::int32_t>(2.75, 2, false);
    expectConversion<std::int32_t>(-2.75, -2, false);
    expectConversion<std::int32_t>(-3.0, -3, true);
}

TEST(ConvertNumber, EndsADoubleAtTheLimitOfTheType)
{
    expectConversion<std::int32_t>(1e60, 2147483647, false);
    expectConversion<std::int32_t>(2147483648.0, 2147483647, false);
    expectConversion<std::int32_t>(-2147483648.0, INT32_MIN, true);
    expectConversion<std::int64_t>(9223372036854775808.0, INT64_MAX, false);
    expectConversion<std::int64_t>(-9223372036854775808.0, INT64_MIN, true);
    expectConversion<std::int64_t>(kInfinity, INT64_MAX, false);
    expectConversion<std::int64_t>(-kInfinity, INT64_MIN, false);
}

TEST(ConvertNumber, MakesZeroOfWhatIsNoNumber)
{
    expectConversion<std::int32_t>(kNotANumber, 0, false);
}

TEST(ConvertNumber, NarrowsToAFloat)
{
    expectConversion<float>(0.5, 0.5f, true);
    expectConversion<float>(0.1, 0.1f, false);
    expectConversion<float>(1e300, std::numeric_limits<float>::max(), false);
    expectConversion<float>(-1e300, std::numeric_limits<float>::lowest(), false);
    expectConversion<float>(kInfinity, std::numeric_limits<float>::infinity(), true);
    const auto nothing = convertNumber<float>(kNotANumber);
    EXPECT_TRUE(std::isnan(nothing.value));
    EXPECT_TRUE(nothing.exact);
}

TEST(ConvertNumber, KnowsWhichIntegersAFloatingPointTypeHolds)
{
    expectConversion<float>(std::int64_t{16777216}, 16777216.0f, true);
    expectConversion<float>(std::int64_t{16777217}, 16777216.0f, false);
    expectConversion<double>(std::int64_t{9007199254740993}, 9007199254740992.0, false);
    expectConversion<double>(std::int64_t{INT64_MAX}, 9223372036854775808.0, false);
    expectConversion<double>(std::int64_t{INT64_MIN}, -9223372036854775808.0, true);
}
