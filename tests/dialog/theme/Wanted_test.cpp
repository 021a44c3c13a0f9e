#include "dialog/theme/Wanted.hpp"

#include <gtest/gtest.h>

namespace {

using namespace dialog;

TEST(ParseAppearance, KnowsThreeWords)
{
    WantedAppearance wanted = WantedAppearance::Light;
    EXPECT_TRUE(parseAppearance("auto", wanted));
    EXPECT_EQ(wanted, WantedAppearance::Auto);
    EXPECT_TRUE(parseAppearance("dark", wanted));
    EXPECT_EQ(wanted, WantedAppearance::Dark);
    EXPECT_TRUE(parseAppearance("light", wanted));
    EXPECT_EQ(wanted, WantedAppearance::Light);
}

TEST(ParseAppearance, LeavesTheWishAloneForAnyOtherWord)
{
    WantedAppearance wanted = WantedAppearance::Dark;
    EXPECT_FALSE(parseAppearance("", wanted));
    EXPECT_FALSE(parseAppearance("Light", wanted));
    EXPECT_FALSE(parseAppearance("lights", wanted));
    EXPECT_EQ(wanted, WantedAppearance::Dark);
}

TEST(AppearanceWanted, IsWhatWasAskedForWhateverTheDesktopSays)
{
    EXPECT_EQ(appearance(WantedAppearance::Light, "Any:dark", ""), Appearance::Light);
    EXPECT_EQ(appearance(WantedAppearance::Dark, "Any", ""), Appearance::Dark);
}

TEST(AppearanceByItself, IsLightWhenTheDesktopSaysNothing)
{
    EXPECT_EQ(appearance(WantedAppearance::Auto, "", ""), Appearance::Light);
    EXPECT_EQ(appearance(WantedAppearance::Auto, "", "[Settings]\n"), Appearance::Light);
}

TEST(AppearanceByItself, FollowsAThemeNamedInTheEnvironment)
{
    EXPECT_EQ(appearance(WantedAppearance::Auto, "Adwaita:dark", ""), Appearance::Dark);
    EXPECT_EQ(appearance(WantedAppearance::Auto, "Breeze-Dark", ""), Appearance::Dark);
    EXPECT_EQ(appearance(WantedAppearance::Auto, "Adwaita", ""), Appearance::Light);
    EXPECT_EQ(appearance(WantedAppearance::Auto, "dark", ""), Appearance::Light);
}

TEST(AppearanceByItself, PutsTheEnvironmentAboveTheFile)
{
    EXPECT_EQ(
        appearance(WantedAppearance::Auto, "Adwaita", "gtk-application-prefer-dark-theme=1\n"),
        Appearance::Light);
}

TEST(AppearanceByItself, FollowsTheFile)
{
    EXPECT_EQ(appearance(WantedAppearance::Auto, "",
                         "[Settings]\r\n gtk-application-prefer-dark-theme = True\r\n"),
              Appearance::Dark);
    EXPECT_EQ(appearance(WantedAppearance::Auto, "", "gtk-theme-name=Yaru-dark"), Appearance::Dark);
    EXPECT_EQ(appearance(WantedAppearance::Auto, "", "gtk-application-prefer-dark-theme=0\n"),
              Appearance::Light);
    EXPECT_EQ(appearance(WantedAppearance::Auto, "", "gtk-theme-name=Darkroom\n"),
              Appearance::Light);
}

TEST(AppearanceByItself, IgnoresCommentsAndBrokenLines)
{
    EXPECT_EQ(appearance(WantedAppearance::Auto, "",
                         "#gtk-application-prefer-dark-theme=1\n=\n\n gtk-theme-name\n="),
              Appearance::Light);
}

} // namespace
