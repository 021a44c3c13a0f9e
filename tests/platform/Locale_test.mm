// Numbers under a locale with a decimal comma.  The locale is made here, in a folder of its own:
// a system need not have one.
#include <CoreFoundation/CoreFoundation.h>

#include <gtest/gtest.h>

#import <Foundation/Foundation.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace {

class DecimalComma : public testing::Test
{
  protected:
    void SetUp() override
    {
        // The toolkit looks at the locale from its second format on.
        [NSString stringWithFormat:@"%.1f", 1.5];
        char name[] = "/tmp/page-settings-locale-XXXXXX";
        ASSERT_NE(mkdtemp(name), nullptr);
        folder_ = name;
        const std::string command =
            "localedef -i de_DE -f UTF-8 " + folder_ + "/de_DE.UTF-8 >/dev/null 2>&1";
        ASSERT_EQ(std::system(command.c_str()), 0) << "localedef (package locales) made no locale";
        setenv("LOCPATH", folder_.c_str(), 1);
        ASSERT_NE(setlocale(LC_ALL, "de_DE.UTF-8"), nullptr);
    }

    void TearDown() override
    {
        setlocale(LC_ALL, "C");
        unsetenv("LOCPATH");
        if (!folder_.empty())
            std::filesystem::remove_all(folder_);
    }

    static std::string printed()
    {
        char text[16];
        std::snprintf(text, sizeof text, "%.1f", 100.5);
        return text;
    }

  private:
    std::string folder_;
};

} // namespace

TEST_F(DecimalComma, DoesNotReachAFormattedString)
{
    // Else the locale would prove nothing.
    ASSERT_EQ(printed(), "100,5");
    NSString* plain = [NSString stringWithFormat:@"%.1f", 100.5];
    ASSERT_TRUE([plain isEqualToString:@"100,5"]);

    CFStringRef text =
        CFStringCreateWithFormat(nullptr, nullptr, CFSTR("%.1f mm of %@"), 100.5, @"tape");
    EXPECT_TRUE([(NSString*)text isEqualToString:@"100.5 mm of tape"])
        << [(NSString*)text UTF8String];
    CFRelease(text);
}

TEST_F(DecimalComma, IsBackAfterAFormattedString)
{
    CFRelease(CFStringCreateWithFormat(nullptr, nullptr, CFSTR("%f"), 1.0));
    EXPECT_EQ(printed(), "100,5");
}

TEST_F(DecimalComma, DoesNotReachAPropertyList)
{
    CFDataRef xml = CFPropertyListCreateXMLData(nullptr, [NSNumber numberWithDouble:100.5]);
    ASSERT_NE(xml, nullptr);
    const std::string text(reinterpret_cast<const char*>(CFDataGetBytePtr(xml)),
                           static_cast<std::size_t>(CFDataGetLength(xml)));
    EXPECT_NE(text.find("<real>100.5</real>"), std::string::npos) << text;
    NSNumber* again = (id)CFPropertyListCreateFromXMLData(nullptr, xml, 0, nullptr);
    EXPECT_EQ([again doubleValue], 100.5);
    CFRelease(again);
    CFRelease(xml);
}
