#include "dialog/theme/Palette.hpp"

#include <gtest/gtest.h>

namespace {

using namespace dialog;

constexpr Appearance kBoth[] = {Appearance::Light, Appearance::Dark};
constexpr double kText = 4.5; // WCAG 2 AA, text
constexpr double kShape = 3;  // WCAG 2 AA, what tells a control and its state

double between(Role one, Role other, Appearance appearance)
{
    return contrast(color(one, appearance), color(other, appearance));
}

struct Pair
{
    Role front;
    Role back;
};

void expectAtLeast(double least, std::initializer_list<Pair> pairs)
{
    for (const Appearance appearance : kBoth) {
        for (const Pair& pair : pairs) {
            EXPECT_GE(between(pair.front, pair.back, appearance), least)
                << "role " << static_cast<int>(pair.front) << " on " << static_cast<int>(pair.back)
                << (appearance == Appearance::Dark ? ", dark" : ", light");
        }
    }
}

TEST(Luminance, IsNoughtForBlackAndOneForWhite)
{
    EXPECT_DOUBLE_EQ(luminance({0, 0, 0}), 0);
    EXPECT_NEAR(luminance({255, 255, 255}), 1, 1e-12);
}

TEST(Luminance, WeighsGreenMoreThanRedAndRedMoreThanBlue)
{
    EXPECT_NEAR(luminance({255, 0, 0}), 0.2126, 1e-12);
    EXPECT_NEAR(luminance({0, 255, 0}), 0.7152, 1e-12);
    EXPECT_NEAR(luminance({0, 0, 255}), 0.0722, 1e-12);
}

TEST(Luminance, IsLinearForTheDarkestGreys)
{
    // 10 / 255 = 0.0392 lies below the bend at 0.04045: divided by 12.92.
    EXPECT_NEAR(luminance({10, 10, 10}), 10 / 255.0 / 12.92, 1e-12);
}

TEST(Contrast, IsTwentyOneForBlackOnWhiteInEitherOrder)
{
    EXPECT_NEAR(contrast({0, 0, 0}, {255, 255, 255}), 21, 1e-9);
    EXPECT_NEAR(contrast({255, 255, 255}, {0, 0, 0}), 21, 1e-9);
}

TEST(Contrast, IsOneForEqualColours)
{
    EXPECT_DOUBLE_EQ(contrast({18, 52, 86}, {18, 52, 86}), 1);
}

TEST(Contrast, PutsTheLightestReadableGreyOnWhiteWhereTheGuidelinesPutIt)
{
    EXPECT_GE(contrast({0x76, 0x76, 0x76}, {255, 255, 255}), 4.5);
    EXPECT_LT(contrast({0x77, 0x77, 0x77}, {255, 255, 255}), 4.5);
}

TEST(Palette, KeepsTextReadableOnEverythingItStandsOn)
{
    expectAtLeast(kText, {{Role::Text, Role::Window},
                          {Role::Text, Role::Surface},
                          {Role::Text, Role::Button},
                          {Role::Text, Role::ButtonPressed},
                          {Role::Text, Role::Menu},
                          {Role::OnAccent, Role::Accent},
                          {Role::OnAccent, Role::AccentPressed},
                          {Role::OnSelection, Role::Selection},
                          {Role::Failure, Role::Window}});
}

TEST(Palette, KeepsDisabledTextReadableToo)
{
    expectAtLeast(kText, {{Role::TextDisabled, Role::Window},
                          {Role::TextDisabled, Role::Surface},
                          {Role::TextDisabled, Role::Menu},
                          {Role::TextDisabled, Role::Button}});
}

TEST(Palette, TellsDisabledTextFromTextAtAGlance)
{
    for (const Appearance appearance : kBoth) {
        EXPECT_GE(between(Role::Text, Role::Window, appearance),
                  1.5 * between(Role::TextDisabled, Role::Window, appearance));
    }
}

TEST(Palette, OutlinesControlsAndTheFocusClearlyAgainstWhatIsBehindThem)
{
    expectAtLeast(kShape, {{Role::Border, Role::Window},
                           {Role::Border, Role::Surface},
                           {Role::Border, Role::Button},
                           {Role::Focus, Role::Window},
                           {Role::Focus, Role::Surface},
                           {Role::Focus, Role::Button},
                           {Role::Accent, Role::Window},
                           {Role::Accent, Role::Surface},
                           {Role::Accent, Role::Menu}});
}

TEST(Palette, TellsThePressedAccentFromTheAccent)
{
    for (const Appearance appearance : kBoth) {
        EXPECT_GE(between(Role::Accent, Role::AccentPressed, appearance), 1.2);
    }
}

TEST(Palette, IsLightWhenLightAndDarkWhenDark)
{
    EXPECT_GT(luminance(color(Role::Window, Appearance::Light)), 0.8);
    EXPECT_LT(luminance(color(Role::Window, Appearance::Dark)), 0.05);
    EXPECT_LT(luminance(color(Role::Text, Appearance::Light)), 0.05);
    EXPECT_GT(luminance(color(Role::Text, Appearance::Dark)), 0.7);
}

} // namespace
