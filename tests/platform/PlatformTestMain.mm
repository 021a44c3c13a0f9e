// PlatformTestMain.mm - a main program with an autorelease pool around every test.
#include <gtest/gtest.h>

#import <Foundation/Foundation.h>

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
// The toolkit's runtime keeps its class tables for the life of the process.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions()
{
    return "leak:objc_malloc\n"
           "leak:class_copyMethodList\n";
}
#endif
#endif

namespace {

class PoolPerTest : public testing::EmptyTestEventListener
{
    void OnTestStart(const testing::TestInfo&) override
    {
        pool_ = [[NSAutoreleasePool alloc] init];
    }

    void OnTestEnd(const testing::TestInfo&) override
    {
        [pool_ drain];
        pool_ = nil;
    }

    NSAutoreleasePool* pool_ = nil;
};

} // namespace

int main(int argc, char** argv)
{
    NSAutoreleasePool* pool = [[NSAutoreleasePool alloc] init];
    testing::InitGoogleTest(&argc, argv);
    testing::UnitTest::GetInstance()->listeners().Append(new PoolPerTest);
    const int status = RUN_ALL_TESTS();
    [pool drain];
    return status;
}
