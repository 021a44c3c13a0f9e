#include "dialog/toolkit/QuickInterface.h"

#include "support/FoundationTest.h"

#include <AppKit/AppKit.h>
#include <GNUstepGUI/GSXibKeyedUnarchiver.h>

#include <dlfcn.h>
#include <fcntl.h>

#include <cstdarg>
#include <cstddef>
#include <set>
#include <string>
#include <string_view>

namespace {

int timesOpened = 0; // the device of random bytes
int timesRead = 0;   // a whole document

class QuickInterface : public testing::Test
{
  protected:
    QuickInterface() : pool_([[NSAutoreleasePool alloc] init])
    {
        dialog::readInterfaceFilesQuickly();
        dialog::readInterfaceFilesQuickly();
    }
    ~QuickInterface() override { [pool_ drain]; }

  private:
    NSAutoreleasePool* pool_;
};

std::string newName()
{
    return [[[NSUUID UUID] UUIDString] UTF8String];
}

NSMutableData* file(std::string_view text)
{
    return [NSMutableData dataWithBytes:text.data() length:text.size()];
}

BOOL isNewFormat(NSData* data)
{
    return [GSXibKeyedUnarchiver checkXib5:data];
}

NSPredicate* isAction()
{
    return [NSPredicate predicateWithFormat:@"kind == 'action'"];
}

TEST_F(QuickInterface, GivesNamesByChanceOfWhichNoTwoAreAlike)
{
    std::set<std::string> names;
    for (int i = 0; i < 1000; ++i) {
        const std::string name = newName();
        EXPECT_TRUE(names.insert(name).second) << name;
        ASSERT_EQ(name.size(), 36U);
        EXPECT_EQ(name[14], '4') << name;
        EXPECT_NE(std::string_view("89AB").find(name[19]), std::string_view::npos) << name;
    }
}

TEST_F(QuickInterface, OpensNoFileForAName)
{
    timesOpened = 0;
    newName();
    EXPECT_EQ(timesOpened, 0);
}

TEST_F(QuickInterface, WritesANameAsTheToolkitReadsIt)
{
    NSString* const text = @"0F1E2D3C-4B5A-6978-8796-A5B4C3D2E1F0";
    NSUUID* const read = [[[NSUUID alloc] initWithUUIDString:text] autorelease];
    EXPECT_TRUE([[read UUIDString] isEqualToString:text]);
}

TEST_F(QuickInterface, ParsesAConditionOfTheProgramsCodeOnce)
{
    EXPECT_EQ(isAction(), isAction());
    EXPECT_TRUE([isAction() evaluateWithObject:@{@"kind" : @"action"}]);
    EXPECT_FALSE([isAction() evaluateWithObject:@{@"kind" : @"outlet"}]);
}

TEST_F(QuickInterface, KeepsAConditionForThosePoolsThatEndLater)
{
    NSAutoreleasePool* const pool = [[NSAutoreleasePool alloc] init];
    NSPredicate* const first = [NSPredicate predicateWithFormat:@"number > 4"];
    [pool drain];
    EXPECT_EQ([NSPredicate predicateWithFormat:@"number > 4"], first);
    EXPECT_TRUE([first evaluateWithObject:@{@"number" : @5}]);
    EXPECT_FALSE([first evaluateWithObject:@{@"number" : @4}]);
}

TEST_F(QuickInterface, FillsThePlacesOfAConditionEachTime)
{
    for (int number = 1; number <= 3; ++number) {
        NSPredicate* const isNumber = [NSPredicate predicateWithFormat:@"number == %d", number];
        for (int other = 1; other <= 3; ++other) {
            EXPECT_EQ([isNumber evaluateWithObject:@{@"number" : [NSNumber numberWithInt:other]}],
                      static_cast<BOOL>(other == number));
        }
    }
}

TEST_F(QuickInterface, ParsesATextThatMayChangeAnew)
{
    NSMutableString* const format = [NSMutableString stringWithString:@"kind == 'action'"];
    NSPredicate* const before = [NSPredicate predicateWithFormat:format];
    [format setString:@"kind == 'outlet'"];
    NSPredicate* const after = [NSPredicate predicateWithFormat:format];
    EXPECT_TRUE([before evaluateWithObject:@{@"kind" : @"action"}]);
    EXPECT_TRUE([after evaluateWithObject:@{@"kind" : @"outlet"}]);
}

TEST_F(QuickInterface, ReadsAFileForItsFormatOnce)
{
    timesRead = 0;
    EXPECT_TRUE(isNewFormat(file("<document><objects/></document>")));
    EXPECT_EQ(timesRead, 1);
    EXPECT_TRUE(isNewFormat(file("<document><objects/></document>")));
    EXPECT_EQ(timesRead, 1);
}

TEST_F(QuickInterface, TellsTheFormatsOfFilesThatTakeTurns)
{
    for (int time = 0; time < 2; ++time) {
        EXPECT_TRUE(isNewFormat(file("<document/>")));
        EXPECT_FALSE(isNewFormat(file("<archive/>")));
        EXPECT_FALSE(isNewFormat(file("<document>")));
    }
}

TEST_F(QuickInterface, ReadsAFileAnewThatHasChanged)
{
    NSMutableData* const changing = file("<document/>");
    EXPECT_TRUE(isNewFormat(changing));
    [changing setData:file("<archive/>")];
    EXPECT_FALSE(isNewFormat(changing));
}

} // namespace

// In front of the C library's own, and counted.
extern "C" __attribute__((visibility("default"))) int open(const char* path, int flags, ...)
{
    static const auto real =
        reinterpret_cast<int (*)(const char*, int, ...)>(dlsym(RTLD_NEXT, "open"));
    timesOpened += std::string_view(path) == "/dev/urandom" ? 1 : 0;
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return real(path, flags, mode);
}

// The same for whole documents.
extern "C" __attribute__((visibility("default"))) void*
xmlReadMemory(const char* text, int length, const char* place, const char* encoding, int options)
{
    static const auto real =
        reinterpret_cast<decltype(&xmlReadMemory)>(dlsym(RTLD_NEXT, "xmlReadMemory"));
    ++timesRead;
    return real(text, length, place, encoding, options);
}

int main(int argc, char** argv)
{
    return runFoundationTests(argc, argv);
}
