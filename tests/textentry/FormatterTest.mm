#include "textentry/FormatterTest.hpp"

#include <GNUstepGUI/GSDisplayServer.h>
#include <objc/runtime.h>

namespace {

int beeps = 0;

void countBeep(id, SEL)
{
    ++beeps;
}

} // namespace

int takeBeeps()
{
    static const bool isCounting = [] {
        Method beep = class_getInstanceMethod([GSCurrentServer() class], @selector(beep));
        EXPECT_TRUE(beep != nullptr) << "no display server to beep";
        method_setImplementation(beep, reinterpret_cast<IMP>(countBeep));
        return true;
    }();
    (void)isCounting;
    const int taken = beeps;
    beeps = 0;
    return taken;
}

@interface RefusalObserver : NSObject
{
  @public
    std::vector<Posted>* posted;
}
- (void)note:(NSNotification*)notification;
@end

@implementation RefusalObserver
- (void)note:(NSNotification*)notification
{
    posted->push_back(
        {[[notification name] UTF8String], [notification object], [notification userInfo] != nil});
}
@end

RefusalListener::RefusalListener()
{
    RefusalObserver* observer = [[RefusalObserver alloc] init];
    observer->posted = &posted;
    for (NSString* name in @[ @"InvalidCharacterNotification", @"FormatErrorNotification" ]) {
        [[NSNotificationCenter defaultCenter] addObserver:observer selector:@selector(note:)
                                                     name:name
                                                   object:nil];
    }
    observer_ = observer;
}

RefusalListener::~RefusalListener()
{
    [[NSNotificationCenter defaultCenter] removeObserver:observer_];
    [observer_ release];
}

PDEFormatter* formatterWithStyle(int32_t style)
{
    return [[[classNamed("PDEFormatter") alloc] initWithStyle:style] autorelease];
}

KeyAnswer ask(PDEFormatter* formatter, NSString* proposed, NSRange proposedRange,
              NSString* original, NSRange originalRange)
{
    RefusalListener listener;
    takeBeeps();
    NSString* text = proposed;
    NSString* error = @"untouched";
    const NSRange before = proposedRange;
    KeyAnswer answer;
    answer.accepted = [formatter isPartialStringValid:&text proposedSelectedRange:&proposedRange
                                       originalString:original
                                originalSelectedRange:originalRange
                                     errorDescription:&error];
    answer.beeps = takeBeeps();
    answer.posted = listener.posted;
    EXPECT_EQ(text, proposed) << "the check changed the text";
    EXPECT_TRUE(NSEqualRanges(before, proposedRange)) << "the check changed the range";
    EXPECT_EQ(error, @"untouched") << "the check wrote an error";
    return answer;
}

KeyAnswer typeInto(PDEFormatter* formatter, NSString* original, NSString* typed,
                   std::optional<NSRange> selected)
{
    const NSRange range = selected.value_or(NSMakeRange([original length], 0));
    NSMutableString* proposed = [NSMutableString string];
    if (original != nil)
        [proposed setString:original];
    [proposed replaceCharactersInRange:range withString:typed];
    return ask(formatter, proposed, NSMakeRange(range.location + [typed length], 0), original,
               range);
}

// The toolkit makes a string with half of a surrogate pair only one character at a time.
NSString* stringOf(const std::u16string& text)
{
    NSMutableString* result = [NSMutableString string];
    for (const char16_t character : text)
        [result appendFormat:@"%C", static_cast<unichar>(character)];
    EXPECT_EQ([result length], text.size());
    return result;
}
