// Every kind of control in one window, drawn and read back pixel by pixel.
//
//     TapeTheme_test [--scale 1.5] [--picture FILE.png [--dark]]
//
// With --picture it only writes what it would look at.

#include "dialog/theme/Drawing.h"
#include "dialog/theme/Metrics.hpp"
#include "dialog/theme/TapeTheme.h"

#include <AppKit/AppKit.h>
#include <GNUstepGUI/GSTheme.h>
#include <gtest/gtest.h>
#include <objc/runtime.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string_view>
#include <utility>

@interface TwoRows : NSObject
@end

// Counts how often it is drawn.
@interface Background : NSView
{
  @public
    int drawings_;
}
@end

@implementation Background
- (void)drawRect:(NSRect)rect
{
    ++drawings_;
}
@end

@implementation TwoRows
- (NSInteger)numberOfRowsInTableView:(NSTableView*)table
{
    return 2;
}
- (id)tableView:(NSTableView*)table
    objectValueForTableColumn:(NSTableColumn*)column
                          row:(NSInteger)row
{
    return row == 0 ? @"First" : @"Second";
}
@end

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#include <sanitizer/lsan_interface.h>
#define LOOKS_FOR_LEAKS 1
#endif
#endif

namespace {

using namespace dialog;

double scaleAsked = 1;

NSButton* button(NSString* title, NSString* key, NSRect frame)
{
    NSButton* const made = [[[NSButton alloc] initWithFrame:frame] autorelease];
    [made setBezelStyle:NSRoundedBezelStyle];
    [made setTitle:title];
    [made setKeyEquivalent:key];
    return made;
}

NSButton* checkBox(NSString* title, NSInteger state, CGFloat y)
{
    NSButton* const made =
        [[[NSButton alloc] initWithFrame:NSMakeRect(160, y, 110, 20)] autorelease];
    [made setButtonType:NSSwitchButton];
    [made setTitle:title];
    [made setAllowsMixedState:state == NSMixedState];
    [made setState:state];
    return made;
}

NSPopUpButton* popUp(NSRect frame)
{
    NSPopUpButton* const made = [[[NSPopUpButton alloc] initWithFrame:frame
                                                            pullsDown:NO] autorelease];
    [made addItemsWithTitles:@[ @"24 mm tape", @"12 mm tape" ]];
    return made;
}

NSEvent* nextEvent()
{
    return [NSApp nextEventMatchingMask:NSAnyEventMask untilDate:[NSDate distantPast]
                                 inMode:NSDefaultRunLoopMode
                                dequeue:YES];
}

// The toolkit forgets to free what the window manager tells it in events.
class LeaksDoNotCount
{
  public:
#ifdef LOOKS_FOR_LEAKS
    LeaksDoNotCount()
    {
        __lsan_disable();
    }
    ~LeaksDoNotCount()
    {
        __lsan_enable();
    }
#else
    LeaksDoNotCount() {}
#endif
    LeaksDoNotCount(const LeaksDoNotCount&) = delete;
    LeaksDoNotCount& operator=(const LeaksDoNotCount&) = delete;
};

void handleEvents()
{
    const LeaksDoNotCount hidden;
    while (NSEvent* const event = nextEvent()) {
        [NSApp sendEvent:event];
    }
}

// Fields put selected text on a pasteboard.  Its server has no part in drawing, and one that is
// slow to start would end a test by an exception.
id noPasteboard(id, SEL, NSString*)
{
    return nil;
}

void goWithoutPasteboard()
{
    const Method method =
        class_getClassMethod([NSPasteboard class], @selector(pasteboardWithName:));
    method_setImplementation(method, reinterpret_cast<IMP>(&noPasteboard));
}

// The window and what is in it, for one test.
struct Controls
{
    NSWindow* window;
    NSView* content;
    NSButton* standard = button(@"Print", @"\r", NSMakeRect(20, 20, 90, 26));
    NSButton* plain = button(@"Cancel", @"\e", NSMakeRect(120, 20, 90, 26));
    NSButton* disabled = button(@"Later", @"", NSMakeRect(220, 20, 90, 26));
    NSTextField* field =
        [[[NSTextField alloc] initWithFrame:NSMakeRect(20, 60, 80, 22)] autorelease];
    NSTextField* greyField =
        [[[NSTextField alloc] initWithFrame:NSMakeRect(120, 60, 80, 22)] autorelease];
    NSStepper* stepper =
        [[[NSStepper alloc] initWithFrame:NSMakeRect(210, 60, 16, 24)] autorelease];
    NSPopUpButton* popUpButton = popUp(NSMakeRect(20, 100, 160, 24));
    NSPopUpButton* greyPopUp = popUp(NSMakeRect(200, 100, 110, 24));
    NSSlider* slider = [[[NSSlider alloc] initWithFrame:NSMakeRect(20, 140, 200, 20)] autorelease];
    NSMatrix* matrix = nil;
    NSButton* checked = checkBox(@"Checked", NSOnState, 220);
    NSButton* unchecked = checkBox(@"Unchecked", NSOffState, 200);
    NSButton* mixed = checkBox(@"Mixed", NSMixedState, 180);
    NSBox* separator = [[[NSBox alloc] initWithFrame:NSMakeRect(20, 250, 290, 5)] autorelease];
    NSScrollView* scroll =
        [[[NSScrollView alloc] initWithFrame:NSMakeRect(20, 270, 180, 80)] autorelease];
    NSTableView* table =
        [[[NSTableView alloc] initWithFrame:NSMakeRect(0, 0, 160, 60)] autorelease];
    NSProgressIndicator* progress =
        [[[NSProgressIndicator alloc] initWithFrame:NSMakeRect(220, 300, 90, 10)] autorelease];
    TwoRows* rows = [[TwoRows alloc] init];

    Controls()
        : window([[NSWindow alloc] initWithContentRect:NSMakeRect(100, 100, 330, 370)
                                             styleMask:NSTitledWindowMask
                                               backing:NSBackingStoreBuffered
                                                 defer:NO]),
          content([window contentView])
    {
        [window setReleasedWhenClosed:NO];
        [disabled setEnabled:NO];
        [field setStringValue:@"100.0"];
        [greyField setStringValue:@"3.0"];
        [greyField setEnabled:NO];
        [greyPopUp setEnabled:NO];
        [slider setMinValue:0];
        [slider setMaxValue:100];
        [slider setFloatValue:50];
        NSButtonCell* const radio = [[[NSButtonCell alloc] init] autorelease];
        [radio setButtonType:NSRadioButton];
        matrix = [[[NSMatrix alloc] initWithFrame:NSMakeRect(20, 180, 120, 60)
                                             mode:NSRadioModeMatrix
                                        prototype:radio
                                     numberOfRows:3
                                  numberOfColumns:1] autorelease];
        [matrix setCellSize:NSMakeSize(120, 20)];
        [matrix setIntercellSpacing:NSZeroSize];
        [[matrix cellAtRow:0 column:0] setTitle:@"On"];
        [[matrix cellAtRow:1 column:0] setTitle:@"Off"];
        [[matrix cellAtRow:2 column:0] setTitle:@"Disabled"];
        [[matrix cellAtRow:2 column:0] setEnabled:NO];
        [matrix selectCellAtRow:0 column:0];
        [separator setBoxType:NSBoxSeparator];
        NSTableColumn* const column =
            [[[NSTableColumn alloc] initWithIdentifier:@"name"] autorelease];
        [[column headerCell] setStringValue:@"Name"];
        [column setWidth:150];
        [table addTableColumn:column];
        [table setDataSource:(id)rows];
        [scroll setHasVerticalScroller:YES];
        [scroll setBorderType:NSBezelBorder];
        [scroll setDocumentView:table];
        [table selectRowIndexes:[NSIndexSet indexSetWithIndex:1] byExtendingSelection:NO];
        [progress setIndeterminate:NO];
        [progress setMaxValue:100];
        [progress setDoubleValue:50];
        for (NSView* view in @[
                 standard, plain, disabled, field, greyField, stepper, popUpButton, greyPopUp,
                 slider, matrix, checked, unchecked, mixed, separator, scroll, progress
             ]) {
            [content addSubview:view];
        }
        {
            const LeaksDoNotCount hidden;
            [window makeKeyAndOrderFront:nil];
        }
        [window makeFirstResponder:nil];
        handleEvents();
        [window display];
    }

    ~Controls()
    {
        [table setDataSource:nil];
        const LeaksDoNotCount hidden;
        [window makeFirstResponder:nil];
        [window close];
        handleEvents();
        [window release];
        [rows release];
    }

    Controls(const Controls&) = delete;
    Controls& operator=(const Controls&) = delete;
};

// What the window shows, in pixels.
class Picture
{
  public:
    // Of the whole window, border and all: only its corner is sure to stand on a whole pixel, and
    // a picture of any other part can be blurred by as much.
    explicit Picture(const Controls& controls) : view_(controls.content)
    {
        NSView* const whole = [view_ superview];
        [controls.window displayIfNeeded];
        [whole lockFocus];
        pixels_ = [[NSBitmapImageRep alloc] initWithFocusedViewRect:[whole bounds]];
        [whole unlockFocus];
        scale_ = [pixels_ pixelsWide] / NSWidth([whole bounds]);
    }
    ~Picture() { [pixels_ release]; }
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    NSBitmapImageRep* pixels() const { return pixels_; }

    // Pixels in a point.
    CGFloat scale() const { return scale_; }

    // In the middle of the left edge of `frame`, a frame in the window's content: 0 is the
    // outermost pixel inside, 1 the next to the right.
    Color besideLeftEdge(NSRect frame, int right) const
    {
        const NSRect base = [view_ convertRect:frame toView:nil];
        return at(std::lround(NSMinX(base)) + right, static_cast<NSInteger>(NSMidY(base)));
    }

    // At a point of the window's content.
    Color atPoint(CGFloat x, CGFloat y) const
    {
        const NSPoint base = [view_ convertPoint:NSMakePoint(x, y) toView:nil];
        return at(static_cast<NSInteger>(base.x), static_cast<NSInteger>(base.y));
    }

    // How many pixels of `frame` are exactly of that colour.
    int count(NSRect frame, Color wanted) const
    {
        int found = 0;
        each(frame, [&](Color pixel) { found += pixel == wanted ? 1 : 0; });
        return found;
    }

    // The greatest contrast that a pixel of `frame` has to that colour.
    double greatestContrast(NSRect frame, Color other) const
    {
        double greatest = 1;
        each(frame, [&](Color pixel) { greatest = std::max(greatest, contrast(pixel, other)); });
        return greatest;
    }

  private:
    template <typename Visit>
    void each(NSRect frame, Visit visit) const
    {
        const NSRect base = [view_ convertRect:frame toView:nil];
        for (long y = std::lround(NSMinY(base)); y < std::lround(NSMaxY(base)); ++y) {
            for (long x = std::lround(NSMinX(base)); x < std::lround(NSMaxX(base)); ++x) {
                visit(at(x, y));
            }
        }
    }

    // Counted from the bottom left.
    Color at(NSInteger x, NSInteger y) const
    {
        NSUInteger samples[5] = {};
        [pixels_ getPixel:samples atX:x y:[pixels_ pixelsHigh] - 1 - y];
        return {static_cast<std::uint8_t>(samples[0]), static_cast<std::uint8_t>(samples[1]),
                static_cast<std::uint8_t>(samples[2])};
    }

    NSView* view_;
    NSBitmapImageRep* pixels_;
    CGFloat scale_;
};

class Theme : public testing::TestWithParam<Appearance>
{
  protected:
    void SetUp() override
    {
        pool_ = [[NSAutoreleasePool alloc] init];
        useTheme(GetParam());
    }
    void TearDown() override { [pool_ drain]; }

    static Color role(Role wanted) { return color(wanted, GetParam()); }

  private:
    NSAutoreleasePool* pool_ = nil;
};

INSTANTIATE_TEST_SUITE_P(LightAndDark, Theme, testing::Values(Appearance::Light, Appearance::Dark),
                         [](const auto& tested) {
                             return tested.param == Appearance::Dark ? "Dark" : "Light";
                         });

TEST_P(Theme, IsDrawnAtTheScaleAskedFor)
{
    const Controls controls;
    EXPECT_NEAR(Picture(controls).scale(), scaleAsked, 0.01);
    EXPECT_NEAR(pixelsPerPoint(controls.plain), scaleAsked, 0.01);
}

TEST_P(Theme, FillsTheWindowWithItsBackground)
{
    const Controls controls;
    EXPECT_EQ(Picture(controls).atPoint(320, 5), role(Role::Window));
}

TEST_P(Theme, FillsTheButtonThatReturnPressesAndNoOther)
{
    const Controls controls;
    const Picture picture(controls);
    EXPECT_EQ(picture.besideLeftEdge([controls.standard frame], 6), role(Role::Accent));
    EXPECT_EQ(picture.besideLeftEdge([controls.plain frame], 6), role(Role::Button));
    EXPECT_EQ(picture.besideLeftEdge([controls.disabled frame], 6), role(Role::Window));
    EXPECT_EQ([controls.standard image], nil);
}

TEST_P(Theme, WritesOnThatButtonInTheColourForIt)
{
    const Controls controls;
    EXPECT_TRUE([[[controls.standard cell] textColor] isEqual:themeColor(Role::OnAccent)]);
    EXPECT_TRUE([[[controls.plain cell] textColor] isEqual:themeColor(Role::Text)]);
    EXPECT_TRUE([[[controls.disabled cell] textColor] isEqual:themeColor(Role::TextDisabled)]);
    const NSRect inside = NSInsetRect([controls.standard frame], 6, 4);
    EXPECT_GT(Picture(controls).greatestContrast(inside, role(Role::Accent)), 3);
}

TEST_P(Theme, OutlinesAButtonByALineOfWholePixels)
{
    const Controls controls;
    const Picture picture(controls);
    const int width = static_cast<int>(std::lround(hairline(scaleAsked) * scaleAsked));
    for (int pixel = 0; pixel < width; ++pixel) {
        EXPECT_EQ(picture.besideLeftEdge([controls.plain frame], pixel), role(Role::Border));
    }
    EXPECT_EQ(picture.besideLeftEdge([controls.plain frame], width), role(Role::Button));
    EXPECT_EQ(picture.besideLeftEdge([controls.plain frame], -1), role(Role::Window));
}

TEST_P(Theme, OutlinesAFieldQuietlyWhenItIsDisabled)
{
    const Controls controls;
    const Picture picture(controls);
    EXPECT_EQ(picture.besideLeftEdge([controls.field frame], 0), role(Role::Border));
    EXPECT_EQ(picture.besideLeftEdge([controls.greyField frame], 0), role(Role::BorderQuiet));
}

TEST_P(Theme, DrawsARadioButtonThatIsOnFilledWithADot)
{
    const Controls controls;
    const Picture picture(controls);
    // The first row of three, 20 high each; its circle stands 7 from the left.
    const NSRect on = NSMakeRect(20, 220, 16, 20);
    const NSRect off = NSMakeRect(20, 200, 16, 20);
    const NSRect disabled = NSMakeRect(20, 180, 16, 20);
    EXPECT_EQ(picture.atPoint(27, 230), role(Role::OnAccent));
    EXPECT_GT(picture.count(on, role(Role::Accent)), 40);
    EXPECT_EQ(picture.atPoint(27, 210), role(Role::Surface));
    EXPECT_EQ(picture.count(off, role(Role::Accent)), 0);
    EXPECT_EQ(picture.count(disabled, role(Role::Accent)), 0);
    EXPECT_EQ(picture.atPoint(27, 190), role(Role::Window));
}

TEST_P(Theme, FillsACheckBoxThatIsOnOrMixed)
{
    const Controls controls;
    const Picture picture(controls);
    EXPECT_GT(picture.count(NSMakeRect(160, 220, 16, 20), role(Role::Accent)), 60);
    EXPECT_EQ(picture.count(NSMakeRect(160, 200, 16, 20), role(Role::Accent)), 0);
    EXPECT_GT(picture.count(NSMakeRect(160, 180, 16, 20), role(Role::Accent)), 60);
}

TEST_P(Theme, FillsTheSliderUpToItsKnob)
{
    const Controls controls;
    const Picture picture(controls);
    EXPECT_EQ(picture.atPoint(70, 150), role(Role::Accent));
    EXPECT_EQ(picture.atPoint(170, 150), role(Role::Track));
    EXPECT_EQ(picture.atPoint(120, 150), role(Role::Button)); // the knob, at half the range
}

TEST_P(Theme, FollowsTheSlidersValue)
{
    const Controls controls;
    [controls.slider setFloatValue:90];
    EXPECT_EQ(Picture(controls).atPoint(170, 150), role(Role::Accent));
}

TEST_P(Theme, HighlightsTheChosenRowOfATable)
{
    const Controls controls;
    EXPECT_GT(Picture(controls).count([controls.scroll frame], role(Role::Accent)), 200);
    [controls.table deselectAll:nil];
    EXPECT_EQ(Picture(controls).count([controls.scroll frame], role(Role::Accent)), 0);
}

TEST_P(Theme, FillsHalfOfAHalfDoneProgressBar)
{
    const Controls controls;
    const Picture picture(controls);
    EXPECT_EQ(picture.atPoint(240, 305), role(Role::Accent));
    EXPECT_EQ(picture.atPoint(290, 305), role(Role::Track));
}

TEST_P(Theme, ShowsTheFocusOnEveryKindOfControl)
{
    const Controls controls;
    for (NSView* view in @[
             controls.standard, controls.plain, controls.field, controls.popUpButton,
             controls.slider, controls.matrix, controls.checked
         ]) {
        ASSERT_TRUE([controls.window makeFirstResponder:nil]);
        const int before = Picture(controls).count([view frame], role(Role::Focus));
        ASSERT_TRUE([controls.window makeFirstResponder:view]) << [[view description] UTF8String];
        const int focused = Picture(controls).count([view frame], role(Role::Focus));
        ASSERT_TRUE([controls.window makeFirstResponder:nil]);
        const int after = Picture(controls).count([view frame], role(Role::Focus));
        EXPECT_NE(focused, before) << [[view description] UTF8String];
        EXPECT_EQ(after, before) << [[view description] UTF8String];
    }
}

TEST_P(Theme, ShowsTheFocusAroundAFieldByAThickerLine)
{
    const Controls controls;
    [controls.window makeFirstResponder:controls.field];
    const Picture picture(controls);
    EXPECT_EQ(picture.besideLeftEdge([controls.field frame], 0), role(Role::Focus));
    EXPECT_EQ(picture.besideLeftEdge([controls.field frame], 1), role(Role::Focus));
    EXPECT_EQ(picture.besideLeftEdge([controls.greyField frame], 0), role(Role::BorderQuiet));
}

TEST_P(Theme, TakesTheFocusOffAFieldThatTabLeaves)
{
    const Controls controls;
    [controls.field setNextKeyView:controls.slider];
    [controls.window makeFirstResponder:controls.field];
    ASSERT_EQ(Picture(controls).besideLeftEdge([controls.field frame], 1), role(Role::Focus));
    [controls.window sendEvent:[NSEvent keyEventWithType:NSKeyDown location:NSZeroPoint
                                                 modifierFlags:0
                                                     timestamp:0
                                                  windowNumber:[controls.window windowNumber]
                                                       context:nil
                                                    characters:@"\t"
                                   charactersIgnoringModifiers:@"\t"
                                                     isARepeat:NO
                                                       keyCode:23]];
    ASSERT_EQ([controls.window firstResponder], (NSResponder*)controls.slider);
    EXPECT_EQ(Picture(controls).count([controls.field frame], role(Role::Focus)), 0);
    EXPECT_EQ(Picture(controls).besideLeftEdge([controls.field frame], 0), role(Role::Border));
}

TEST_P(Theme, DrawsNothingBehindAPopUpThatShowsAnotherTitle)
{
    Background* const behind =
        [[[Background alloc] initWithFrame:NSMakeRect(0, 0, 400, 300)] autorelease];
    NSPopUpButton* const bordered =
        [[[NSPopUpButton alloc] initWithFrame:NSMakeRect(20, 200, 200, 24)
                                    pullsDown:NO] autorelease];
    NSPopUpButton* const bare = [[[NSPopUpButton alloc] initWithFrame:NSMakeRect(20, 20, 200, 24)
                                                            pullsDown:NO] autorelease];
    [[bare cell] setBordered:NO];
    for (NSPopUpButton* popUp : {bordered, bare}) {
        [popUp addItemsWithTitles:@[ @"First", @"Second" ]];
        [behind addSubview:popUp];
    }
    Controls controls;
    [controls.content addSubview:behind];
    [controls.window display];
    behind->drawings_ = 0;
    [bordered selectItemAtIndex:1];
    [controls.window displayIfNeeded];
    EXPECT_EQ(behind->drawings_, 0);
    // Without a border it is nothing but a text.
    [bare selectItemAtIndex:1];
    [controls.window displayIfNeeded];
    EXPECT_EQ(behind->drawings_, 1);
    [behind removeFromSuperview];
}

TEST_P(Theme, GivesTheToolkitsColoursToWhateverAsksForThem)
{
    for (const auto& [named, wanted] :
         {std::pair{[NSColor controlTextColor], Role::Text},
          std::pair{[NSColor disabledControlTextColor], Role::TextDisabled},
          std::pair{[NSColor textBackgroundColor], Role::Surface},
          std::pair{[NSColor windowBackgroundColor], Role::Window}}) {
        NSColor* const value = [named colorUsingColorSpaceName:NSCalibratedRGBColorSpace];
        EXPECT_NEAR([value redComponent] * 255, role(wanted).red, 0.5);
        EXPECT_NEAR([value greenComponent] * 255, role(wanted).green, 0.5);
        EXPECT_NEAR([value blueComponent] * 255, role(wanted).blue, 0.5);
    }
}

TEST_P(Theme, StaysWhenTheSettingsChange)
{
    GSTheme* const before = [GSTheme theme];
    NSUserDefaults* const defaults = [NSUserDefaults standardUserDefaults];
    [defaults setObject:@"Some other theme" forKey:@"GSTheme"];
    [[NSNotificationCenter defaultCenter] postNotificationName:NSUserDefaultsDidChangeNotification
                                                        object:defaults];
    EXPECT_EQ([GSTheme theme], before);
    [defaults removeObjectForKey:@"GSTheme"];
}

TEST_P(Theme, LeavesCellsThatItDoesNotDrawAlone)
{
    const SEL draw = @selector(drawWithFrame:inView:);
    const IMP common = class_getMethodImplementation([NSButtonCell class], draw);
    EXPECT_EQ(class_getMethodImplementation([NSMenuItemCell class], draw), common);
    EXPECT_NE(class_getMethodImplementation([NSPopUpButtonCell class], draw), common);
    const SEL color = @selector(textColor);
    EXPECT_NE(class_getMethodImplementation([NSButtonCell class], color),
              class_getMethodImplementation([NSCell class], color));
}

// Once through everything, so that what the toolkit keeps for good is there before leaks count.
void warmUp()
{
    const LeaksDoNotCount hidden;
    NSAutoreleasePool* const pool = [[NSAutoreleasePool alloc] init];
    for (int round = 0; round < 2; ++round) {
        useTheme(Appearance::Light);
        const Controls controls;
        [controls.window makeFirstResponder:controls.field];
        const Picture picture(controls);
    }
    [pool drain];
}

int writePicture(const char* path)
{
    const Controls controls;
    [controls.window makeFirstResponder:controls.popUpButton];
    const Picture picture(controls);
    NSData* const bytes = [picture.pixels() representationUsingType:NSPNGFileType properties:@{}];
    return [bytes writeToFile:[NSString stringWithUTF8String:path] atomically:YES] ? 0 : 1;
}

} // namespace

int main(int argc, char** argv, char** environment)
{
    const char* picture = nullptr;
    Appearance appearance = Appearance::Light;
    testing::InitGoogleTest(&argc, argv);
    for (int index = 1; index < argc; ++index) {
        const std::string_view word = argv[index];
        if (word == "--scale" && index + 1 < argc) {
            scaleAsked = std::strtod(argv[++index], nullptr);
        } else if (word == "--picture" && index + 1 < argc) {
            picture = argv[++index];
        } else if (word == "--dark") {
            appearance = Appearance::Dark;
        }
    }
    NSAutoreleasePool* pool = nil;
    {
        const LeaksDoNotCount hidden; // what the toolkit sets up for the life of the process
        pool = [[NSAutoreleasePool alloc] init];
        [NSProcessInfo initializeWithArguments:argv count:1 environment:environment];
        [[NSUserDefaults standardUserDefaults] registerDefaults:@{
            @"GSSuppressAppIcon" : @"YES",
            @"GSScaleFactor" : [NSNumber numberWithDouble:scaleAsked]
        }];
        [NSApplication sharedApplication];
    }
    goWithoutPasteboard();
    int status = 0;
    if (picture != nullptr) {
        useTheme(appearance);
        status = writePicture(picture);
    } else {
        warmUp();
        status = RUN_ALL_TESTS();
    }
    [pool drain];
    return status;
}
