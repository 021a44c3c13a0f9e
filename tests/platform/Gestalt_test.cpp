#include <CoreServices/CoreServices.h>

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

constexpr const char* kVariable = "PAGE_SETTINGS_SYSTEM_VERSION";

class GestaltCall : public testing::Test
{
  protected:
    void SetUp() override { unsetenv(kVariable); }
    void TearDown() override { unsetenv(kVariable); }

    static void expectRelease(SInt32 major, SInt32 minor, SInt32 bugFix)
    {
        SInt32 number = -1;
        EXPECT_EQ(Gestalt(0x73797331, &number), noErr);
        EXPECT_EQ(number, major);
        EXPECT_EQ(Gestalt(0x73797332, &number), noErr);
        EXPECT_EQ(number, minor);
        EXPECT_EQ(Gestalt(0x73797333, &number), noErr);
        EXPECT_EQ(number, bugFix);
    }
};

} // namespace

TEST_F(GestaltCall, AnswersTheReleaseThatTheToolkitFollows)
{
    expectRelease(10, 14, 0);
}

TEST_F(GestaltCall, AnswersTheReleaseThatTheVariableNames)
{
    setenv(kVariable, "10.4.11", 1);
    expectRelease(10, 4, 11);
    setenv(kVariable, "11", 1);
    expectRelease(11, 0, 0);
}

TEST_F(GestaltCall, TakesAnEmptyVariableForNone)
{
    setenv(kVariable, "", 1);
    expectRelease(10, 14, 0);
}

TEST_F(GestaltCall, FailsAndAnswersNothingForAMalformedVariable)
{
    for (const char* text : {"ten", "10.", "10.4.11.2", " 10.5"}) {
        setenv(kVariable, text, 1);
        SInt32 number = -1;
        EXPECT_EQ(Gestalt(gestaltSystemVersionMajor, &number), -5550) << text;
        EXPECT_EQ(Gestalt(gestaltSystemVersionMinor, &number), -5550) << text;
        EXPECT_EQ(Gestalt(gestaltSystemVersionBugFix, &number), -5550) << text;
        EXPECT_EQ(number, -1) << text;
    }
}

TEST_F(GestaltCall, RefusesOtherSelectorsAndANullResponse)
{
    SInt32 number = -1;
    EXPECT_EQ(Gestalt(0x73797376 /* 'sysv' */, &number), -5551);
    EXPECT_EQ(Gestalt(0, &number), -5551);
    EXPECT_EQ(number, -1);
    EXPECT_EQ(Gestalt(gestaltSystemVersionMajor, nullptr), -50);
}
