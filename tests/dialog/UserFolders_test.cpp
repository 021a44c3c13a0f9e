#include "dialog/UserFolders.hpp"

#include <gtest/gtest.h>

namespace dialog {
namespace {

TEST(UserFolder, IsTheChosenOneWhereThatIsAnAbsolutePath)
{
    EXPECT_EQ(userFolder("/settings/anna", "/house/anna", ".config"), "/settings/anna");
}

TEST(UserFolder, IsTheUsualOneInTheHomeWhereNoneOrARelativeOneIsChosen)
{
    EXPECT_EQ(userFolder("", "/house/anna", ".config"), "/house/anna/.config");
    EXPECT_EQ(userFolder("settings", "/house/anna", ".cache"), "/house/anna/.cache");
}

TEST(UserFolder, IsNoneWithoutAHome)
{
    EXPECT_EQ(userFolder("", "", ".config"), "");
    EXPECT_EQ(userFolder("settings", "", ".config"), "");
}

TEST(ConfigAndCacheFolder, AreReadFromTheirOwnVariables)
{
    ASSERT_EQ(setenv("HOME", "/house/anna", 1), 0);
    ASSERT_EQ(setenv("XDG_CONFIG_HOME", "/settings", 1), 0);
    ASSERT_EQ(unsetenv("XDG_CACHE_HOME"), 0);
    EXPECT_EQ(configFolder(), "/settings");
    EXPECT_EQ(cacheFolder(), "/house/anna/.cache");
    ASSERT_EQ(setenv("XDG_CACHE_HOME", "/quick", 1), 0);
    ASSERT_EQ(unsetenv("XDG_CONFIG_HOME"), 0);
    EXPECT_EQ(configFolder(), "/house/anna/.config");
    EXPECT_EQ(cacheFolder(), "/quick");
}

} // namespace
} // namespace dialog
