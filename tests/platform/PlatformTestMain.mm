// PlatformTestMain.mm - a main program with an autorelease pool around every test.
#include <CoreFoundation/CoreFoundation.h>

#include <gtest/gtest.h>

#import <Foundation/Foundation.h>

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#include <sanitizer/lsan_interface.h>
#define LOOKS_FOR_LEAKS 1

// The toolkit's runtime keeps its class tables, and the C library its locale folders, for the life
// of the process.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions()
{
    return "leak:objc_malloc\n"
           "leak:class_copyMethodList\n"
           "leak:argz_add_sep\n";
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

// Classes set themselves up when first used, and keep what they make for that.
void warmUp()
{
    NSAutoreleasePool* pool = [[NSAutoreleasePool alloc] init];
    NSArray* list =
        [NSArray arrayWithObjects:@"text", [NSData data], [NSDate date],
                                  [NSNumber numberWithDouble:0.5], [NSNumber numberWithBool:YES],
                                  [NSDictionary dictionary], [NSMutableArray array],
                                  [NSMutableData data], [NSMutableString string], nil];
    CFDataRef xml = CFPropertyListCreateXMLData(nullptr, list);
    CFRelease(CFPropertyListCreateFromXMLData(nullptr, xml, kCFPropertyListImmutable, nullptr));
    CFRelease(xml);
    CFRelease(CFURLCreateWithString(nullptr, CFSTR("usb://x"), nullptr));
    CFURLCreateWithString(nullptr, CFSTR("usb://a b"), nullptr);
    CFRelease(CFStringCreateWithFormat(nullptr, nullptr, CFSTR("%@ %f"), list, 0.5));
    CFGetTypeID([[[NSObject alloc] init] autorelease]);
    [pool drain];
}

} // namespace

int main(int argc, char** argv)
{
    NSAutoreleasePool* pool = [[NSAutoreleasePool alloc] init];
    testing::InitGoogleTest(&argc, argv);
#ifdef LOOKS_FOR_LEAKS
    __lsan_disable();
    warmUp();
    __lsan_enable();
#else
    (void)warmUp;
#endif
    testing::UnitTest::GetInstance()->listeners().Append(new PoolPerTest);
    const int status = RUN_ALL_TESTS();
    [pool drain];
    return status;
}
