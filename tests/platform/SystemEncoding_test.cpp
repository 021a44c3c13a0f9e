#include <CoreFoundation/CoreFoundation.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

TEST(SystemEncoding, IsTheOneThatTheToolkitWasTold)
{
    const char* expected = std::getenv("EXPECTED_SYSTEM_ENCODING");
    ASSERT_NE(expected, nullptr);
    EXPECT_EQ(std::to_string(CFStringGetSystemEncoding()), expected);
}
