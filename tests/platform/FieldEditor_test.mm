// Real keys into real fields, under a display and a window manager.
#include <AppKit/AppKit.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <string>

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#include <sanitizer/lsan_interface.h>
#define LOOKS_FOR_LEAKS 1

extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions()
{
    return "leak:objc_malloc\n"
           "leak:class_copyMethodList\n";
}
#endif
#endif

// Refuses letters, and puts a large Q in place of a small one.
@interface KeyFormatter : NSFormatter
{
  @public
    int asked;
    NSString* proposed;
    NSRange proposedRange;
    NSString* original;
    NSRange originalRange;
}
@end

@implementation KeyFormatter

- (void)dealloc
{
    [proposed release];
    [original release];
    [super dealloc];
}

- (NSString*)stringForObjectValue:(id)object
{
    return [object description];
}

- (BOOL)getObjectValue:(id*)object forString:(NSString*)string errorDescription:(NSString**)error
{
    *object = string;
    return YES;
}

- (BOOL)isPartialStringValid:(NSString**)text
       proposedSelectedRange:(NSRange*)range
              originalString:(NSString*)before
       originalSelectedRange:(NSRange)rangeBefore
            errorDescription:(NSString**)error
{
    ++asked;
    [proposed release];
    proposed = [*text copy];
    proposedRange = *range;
    [original release];
    original = [before copy];
    originalRange = rangeBefore;
    if ([*text rangeOfString:@"q"].location != NSNotFound) {
        *text = [*text stringByReplacingOccurrencesOfString:@"q" withString:@"Q!"];
        *range = NSMakeRange([*text length], 0);
        return NO;
    }
    if ([*text rangeOfCharacterFromSet:[NSCharacterSet lowercaseLetterCharacterSet]].location ==
        NSNotFound)
        return YES;
    *error = @"no letters";
    return NO;
}

@end

// Knows the whole text alone.
@interface WholeTextFormatter : KeyFormatter
@end

@implementation WholeTextFormatter

- (BOOL)isPartialStringValid:(NSString*)text
            newEditingString:(NSString**)replacement
            errorDescription:(NSString**)error
{
    ++asked;
    return [text rangeOfString:@"x"].location == NSNotFound;
}

- (BOOL)isPartialStringValid:(NSString**)text
       proposedSelectedRange:(NSRange*)range
              originalString:(NSString*)before
       originalSelectedRange:(NSRange)rangeBefore
            errorDescription:(NSString**)error
{
    return [self isPartialStringValid:*text newEditingString:nullptr errorDescription:error];
}

@end

// Answers the field editor itself.
@interface StubbornField : NSTextField
{
  @public
    int asked;
}
@end

@implementation StubbornField

- (BOOL)textView:(NSTextView*)editor
    shouldChangeTextInRange:(NSRange)range
          replacementString:(NSString*)text
{
    ++asked;
    return NO;
}

@end

@interface FieldDelegate : NSObject <NSTextFieldDelegate>
{
  @public
    int changes;
    int refusals;
    NSString* refused;
    NSString* error;
}
@end

@implementation FieldDelegate

- (void)dealloc
{
    [refused release];
    [error release];
    [super dealloc];
}

- (void)controlTextDidChange:(NSNotification*)note
{
    ++changes;
}

- (void)control:(NSControl*)control
    didFailToValidatePartialString:(NSString*)text
                  errorDescription:(NSString*)reason
{
    ++refusals;
    [refused release];
    refused = [text copy];
    [error release];
    error = [reason copy];
}

@end

namespace {

class ScopedPool
{
  public:
    ScopedPool() = default;
    ~ScopedPool() { [pool_ drain]; }
    ScopedPool(const ScopedPool&) = delete;
    ScopedPool& operator=(const ScopedPool&) = delete;

  private:
    NSAutoreleasePool* pool_ = [[NSAutoreleasePool alloc] init];
};

void handleEvents(double seconds)
{
    NSDate* end = [NSDate dateWithTimeIntervalSinceNow:seconds];
    NSEvent* event = [NSApp nextEventMatchingMask:NSAnyEventMask untilDate:end
                                           inMode:NSDefaultRunLoopMode
                                          dequeue:YES];
    if (event != nil)
        [NSApp sendEvent:event];
}

bool waitFor(const std::function<bool()>& condition)
{
    NSDate* end = [NSDate dateWithTimeIntervalSinceNow:10];
    while (!condition()) {
        if ([end timeIntervalSinceNow] < 0)
            return false;
        handleEvents(0.02);
    }
    return true;
}

class FieldEditing : public testing::Test
{
  protected:
    // One window for all: a window manager takes its time to hand the keys from one to the next.
    static void SetUpTestSuite()
    {
        const ScopedPool pool;
        window_ = [[NSWindow alloc] initWithContentRect:NSMakeRect(100, 100, 300, 120)
                                              styleMask:NSTitledWindowMask
                                                backing:NSBackingStoreBuffered
                                                  defer:NO];
        [window_ setReleasedWhenClosed:NO];
        [window_ setTitle:@"Field editing"];
        [NSApp activateIgnoringOtherApps:YES];
        [window_ makeKeyAndOrderFront:nil];
    }

    static void TearDownTestSuite()
    {
        const ScopedPool pool;
        [window_ close];
        [window_ release];
        window_ = nil;
    }

    void SetUp() override
    {
        pool_ = [[NSAutoreleasePool alloc] init];
        delegate_ = [[FieldDelegate alloc] init];
        ASSERT_TRUE(waitFor([] { return [window_ isKeyWindow] && [NSApp isActive]; }));
        ASSERT_TRUE(waitFor([] {
            return std::system(
                       "test \"$(xdotool getwindowfocus getwindowname)\" = 'Field editing'") == 0;
        })) << "the window manager gives the window no keys";
    }

    void TearDown() override
    {
        [field_ setDelegate:nil];
        [window_ makeFirstResponder:nil];
        [field_ removeFromSuperview];
        [delegate_ release];
        [pool_ drain];
    }

    // A field that shows `text`, with the caret at its end.
    void edit(NSTextField* field, NSFormatter* formatter, NSString* text)
    {
        field_ = field;
        [field setFrame:NSMakeRect(20, 40, 200, 24)];
        [[field cell] setFormatter:formatter];
        [field setDelegate:delegate_];
        [field setStringValue:text];
        [[window_ contentView] addSubview:field];
        ASSERT_TRUE([window_ makeFirstResponder:field]);
        select(NSMakeRange([text length], 0));
    }

    void edit(NSFormatter* formatter, NSString* text)
    {
        edit([[[NSTextField alloc] init] autorelease], formatter, text);
    }

    NSTextView* editor() { return (NSTextView*)[window_ fieldEditor:NO forObject:field_]; }

    void select(NSRange range) { [editor() setSelectedRange:range]; }

    std::string shown() { return [[editor() string] UTF8String]; }

    static void press(const std::string& keys)
    {
        ASSERT_EQ(std::system(("xdotool key --clearmodifiers " + keys).c_str()), 0);
    }

    static inline NSWindow* window_ = nil;
    NSTextField* field_ = nil;
    FieldDelegate* delegate_ = nil;
    NSAutoreleasePool* pool_ = nil;
};

void expectRange(NSRange range, NSUInteger location, NSUInteger length)
{
    EXPECT_EQ(range.location, location);
    EXPECT_EQ(range.length, length);
}

std::string text(NSString* string)
{
    return string != nil ? [string UTF8String] : "(nil)";
}

} // namespace

TEST_F(FieldEditing, TakesEveryKeyWithoutAFormatter)
{
    edit(nil, @"");
    press("a 1 period");
    EXPECT_TRUE(waitFor([this] { return shown() == "a1."; })) << shown();
    EXPECT_EQ(delegate_->changes, 3);
    press("BackSpace");
    EXPECT_TRUE(waitFor([this] { return shown() == "a1"; })) << shown();
}

TEST_F(FieldEditing, AsksTheFormatterBeforeATypedCharacterStands)
{
    KeyFormatter* formatter = [[[KeyFormatter alloc] init] autorelease];
    edit(formatter, @"12");
    press("3");
    ASSERT_TRUE(waitFor([this] { return shown() == "123"; })) << shown();
    EXPECT_EQ(formatter->asked, 1);
    EXPECT_EQ(text(formatter->proposed), "123");
    expectRange(formatter->proposedRange, 3, 0);
    EXPECT_EQ(text(formatter->original), "12");
    expectRange(formatter->originalRange, 2, 0);
    EXPECT_EQ(delegate_->changes, 1);
    EXPECT_EQ(delegate_->refusals, 0);
}

TEST_F(FieldEditing, AsksWithTheSelectionThatIsReplaced)
{
    KeyFormatter* formatter = [[[KeyFormatter alloc] init] autorelease];
    edit(formatter, @"1234");
    select(NSMakeRange(1, 2));
    press("7");
    ASSERT_TRUE(waitFor([this] { return shown() == "174"; })) << shown();
    EXPECT_EQ(text(formatter->proposed), "174");
    expectRange(formatter->proposedRange, 2, 0);
    EXPECT_EQ(text(formatter->original), "1234");
    expectRange(formatter->originalRange, 1, 2);
}

TEST_F(FieldEditing, LeavesTextAndCaretWhenTheFormatterRefuses)
{
    KeyFormatter* formatter = [[[KeyFormatter alloc] init] autorelease];
    edit(formatter, @"12");
    select(NSMakeRange(1, 0));
    press("x");
    ASSERT_TRUE(waitFor([formatter] { return formatter->asked == 1; }));
    EXPECT_EQ(text(formatter->proposed), "1x2");
    EXPECT_EQ(shown(), "12");
    expectRange([editor() selectedRange], 1, 0);
    EXPECT_EQ(delegate_->changes, 0);
    EXPECT_EQ(delegate_->refusals, 1);
    EXPECT_EQ(text(delegate_->refused), "1x2");
    EXPECT_EQ(text(delegate_->error), "no letters");
    // The next good key goes in where the caret was.
    press("5");
    EXPECT_TRUE(waitFor([this] { return shown() == "152"; })) << shown();
}

TEST_F(FieldEditing, AsksAboutADeletionToo)
{
    KeyFormatter* formatter = [[[KeyFormatter alloc] init] autorelease];
    edit(formatter, @"12");
    press("BackSpace");
    ASSERT_TRUE(waitFor([this] { return shown() == "1"; })) << shown();
    EXPECT_EQ(formatter->asked, 1);
    EXPECT_EQ(text(formatter->proposed), "1");
    expectRange(formatter->proposedRange, 1, 0);
    EXPECT_EQ(text(formatter->original), "12");
    expectRange(formatter->originalRange, 2, 0);
}

TEST_F(FieldEditing, RefusesADeletionThatTheFormatterRefuses)
{
    KeyFormatter* formatter = [[[KeyFormatter alloc] init] autorelease];
    edit(formatter, @"xy");
    press("BackSpace");
    ASSERT_TRUE(waitFor([formatter] { return formatter->asked == 1; }));
    EXPECT_EQ(text(formatter->proposed), "x");
    EXPECT_EQ(shown(), "xy");
}

TEST_F(FieldEditing, PutsTheFormattersOwnTextInPlaceOfARefusedOne)
{
    KeyFormatter* formatter = [[[KeyFormatter alloc] init] autorelease];
    edit(formatter, @"1");
    press("q");
    ASSERT_TRUE(waitFor([this] { return shown() == "1Q!"; })) << shown();
    expectRange([editor() selectedRange], 3, 0);
    EXPECT_EQ(delegate_->changes, 1);
    press("2");
    EXPECT_TRUE(waitFor([this] { return shown() == "1Q!2"; })) << shown();
}

TEST_F(FieldEditing, AsksAboutPastedTextAsAWhole)
{
    KeyFormatter* formatter = [[[KeyFormatter alloc] init] autorelease];
    edit(formatter, @"1");
    [editor() insertText:@"2.5"];
    EXPECT_EQ(text(formatter->proposed), "12.5");
    expectRange(formatter->proposedRange, 4, 0);
    expectRange(formatter->originalRange, 1, 0);
    EXPECT_EQ(shown(), "12.5");
    [editor() insertText:@"abc"];
    EXPECT_EQ(formatter->asked, 2);
    EXPECT_EQ(shown(), "12.5");
}

TEST_F(FieldEditing, KeepsTheValueOfARefusedEditAtTheEndOfEditing)
{
    KeyFormatter* formatter = [[[KeyFormatter alloc] init] autorelease];
    edit(formatter, @"12");
    press("x 3");
    ASSERT_TRUE(waitFor([this] { return shown() == "123"; })) << shown();
    ASSERT_TRUE([window_ makeFirstResponder:nil]);
    EXPECT_EQ(text([field_ stringValue]), "123");
}

TEST_F(FieldEditing, HeedsAFormatterThatKnowsTheWholeTextAlone)
{
    WholeTextFormatter* formatter = [[[WholeTextFormatter alloc] init] autorelease];
    edit(formatter, @"1");
    press("x 2");
    ASSERT_TRUE(waitFor([this] { return shown() == "12"; })) << shown();
    EXPECT_EQ(delegate_->refusals, 1);
}

TEST_F(FieldEditing, LeavesAFieldThatAnswersItselfAlone)
{
    StubbornField* field = [[[StubbornField alloc] init] autorelease];
    KeyFormatter* formatter = [[[KeyFormatter alloc] init] autorelease];
    edit(field, formatter, @"12");
    press("3");
    ASSERT_TRUE(waitFor([field] { return field->asked == 1; }));
    EXPECT_EQ(shown(), "12");
    EXPECT_EQ(formatter->asked, 0);
}

TEST(TrackingAreas, HaveTheNotificationsName)
{
    EXPECT_EQ(text(NSViewDidUpdateTrackingAreasNotification),
              "NSViewDidUpdateTrackingAreasNotification");
}

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    NSAutoreleasePool* pool = [[NSAutoreleasePool alloc] init];
#ifdef LOOKS_FOR_LEAKS
    __lsan_disable();
#endif
    [NSApplication sharedApplication];
    [NSApp finishLaunching];
#ifdef LOOKS_FOR_LEAKS
    __lsan_enable();
#endif
    const int status = RUN_ALL_TESTS();
    [pool drain];
    return status;
}
