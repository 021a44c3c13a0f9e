#include "dialog/preview/Ruler.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace dialog {
namespace {

using pagesettings::Unit;

std::vector<std::string> numbers(const std::vector<Tick>& ticks)
{
    std::vector<std::string> found;
    for (const Tick& tick : ticks) {
        if (tick.kind == TickKind::Major) {
            found.push_back(tick.number);
        }
    }
    return found;
}

TEST(RulerTicks, CountsTensOfMillimetresWhereTenMillimetresAreFortyPoints)
{
    const std::vector<Tick> ticks = rulerTicks(30, 4, Unit::Millimetres);
    EXPECT_EQ(numbers(ticks), (std::vector<std::string>{"0", "10", "20", "30"}));
    ASSERT_EQ(ticks.size(), 31u); // a tick for every millimetre
    EXPECT_EQ(ticks[1], (Tick{4, TickKind::Minor, ""}));
    EXPECT_EQ(ticks[10], (Tick{40, TickKind::Major, "10"}));
    EXPECT_EQ(ticks[30], (Tick{120, TickKind::Major, "30"}));
}

TEST(RulerTicks, CountsInchesOfTwentyFiveAndAHalfMillimetres)
{
    const std::vector<Tick> ticks = rulerTicks(76.3, 1.5, Unit::Inches);
    // 76.3 mm are 3.003 inches; an inch is 38.1 points, an eighth 4.8.
    EXPECT_EQ(numbers(ticks), (std::vector<std::string>{"0", "1", "2", "3"}));
    ASSERT_EQ(ticks.size(), 25u);
    EXPECT_NEAR(ticks[8].x, 38.1, 0.001);
    EXPECT_NEAR(ticks[24].x, 114.3, 0.001);
}

TEST(RulerTicks, WritesHalfInchesWithADot)
{
    EXPECT_EQ(numbers(rulerTicks(30, 3, Unit::Inches)),
              (std::vector<std::string>{"0", "0.5", "1"}));
}

TEST(RulerTicks, HasATickAtAnEndThatRoundingHasMadeAHairTooShort)
{
    EXPECT_EQ(rulerTicks(0.1 + 0.2 + 9.7, 4, Unit::Millimetres).size(), 11u);
    EXPECT_EQ(numbers(rulerTicks(9.99999999, 4, Unit::Millimetres)).back(), "10");
    EXPECT_EQ(numbers(rulerTicks(9.9, 4, Unit::Millimetres)).back(), "0");
}

TEST(RulerTicks, KeepsItsDistancesAtEveryScale)
{
    for (const Unit unit : {Unit::Millimetres, Unit::Inches}) {
        for (double length = 5; length < 90'000; length *= 1.37) {
            const double scale = std::min(4.0, 248 / length);
            const std::vector<Tick> ticks = rulerTicks(length, scale, unit);
            ASSERT_FALSE(ticks.empty());
            ASSERT_LE(ticks.size(), 1 + 260 / 3u) << length;
            ASSERT_EQ(ticks.front(), (Tick{0, TickKind::Major, "0"}));
            double lastNumber = -30;
            for (std::size_t i = 0; i < ticks.size(); ++i) {
                if (i > 0) {
                    ASSERT_GE(ticks[i].x - ticks[i - 1].x, 3 - 1e-9) << length;
                }
                if (ticks[i].kind == TickKind::Major) {
                    ASSERT_GE(ticks[i].x - lastNumber, 30 - 1e-9) << length;
                    lastNumber = ticks[i].x;
                    // The number is where it says: an independent way round.
                    const double millimetres = unit == Unit::Inches
                                                   ? std::stod(ticks[i].number) / 0.0393701
                                                   : std::stod(ticks[i].number);
                    ASSERT_NEAR(ticks[i].x, millimetres * scale, 1e-6) << length;
                }
            }
            ASSERT_LE(ticks.back().x, length * scale + 0.001);
        }
    }
}

} // namespace
} // namespace dialog
