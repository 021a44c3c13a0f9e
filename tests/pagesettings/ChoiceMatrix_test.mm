// The radio groups in a real window, used by real mouse and keys.
#include "support/PanelTest.hpp"

#include <cstdlib>

// What the toolkit asks a group for when the mouse rests on a choice.
@protocol TellsToolTips
- (NSString*)view:(NSView*)view
    stringForToolTip:(NSToolTipTag)tag
               point:(NSPoint)point
            userData:(void*)data;
@end

// Takes the group's action.
@interface ChoiceTarget : NSObject
{
  @public
    std::vector<NSInteger> rows; // selectedRow at each action
}
- (void)choose:(NSMatrix*)sender;
@end

@implementation ChoiceTarget
- (void)choose:(NSMatrix*)sender
{
    rows.push_back([sender selectedRow]);
}
@end

namespace {

using Rows = std::vector<NSInteger>;

constexpr double kWidth = 350;
constexpr double kHeight = 43;

void handleEvents(double quietSeconds)
{
    for (;;) {
        const ScopedPool pool;
        NSEvent* event =
            [NSApp nextEventMatchingMask:NSAnyEventMask
                               untilDate:[NSDate dateWithTimeIntervalSinceNow:quietSeconds]
                                  inMode:NSDefaultRunLoopMode
                                 dequeue:YES];
        if (event == nil)
            return;
        [NSApp sendEvent:event];
    }
}

bool run(const std::string& command)
{
    return std::system(command.c_str()) == 0;
}

NSWindow* sharedWindow()
{
    static NSWindow* window = nil;
    if (window != nil)
        return window;
    window = [[NSWindow alloc] initWithContentRect:NSMakeRect(200, 300, 400, 160)
                                         styleMask:NSTitledWindowMask
                                           backing:NSBackingStoreBuffered
                                             defer:NO];
    [window setReleasedWhenClosed:NO];
    [window setTitle:@"Choices"];
    [NSApp finishLaunching];
    [NSApp activateIgnoringOtherApps:YES];
    [window makeKeyAndOrderFront:nil];
    return window;
}

// A group of count choices as the interface file makes one, with a field before it.
class ChoiceMatrix : public testing::Test
{
  protected:
    void SetUp() override
    {
        window_ = sharedWindow();
        target_ = [[ChoiceTarget alloc] init];
        NSButtonCell* prototype = [[[NSButtonCell alloc] initTextCell:@""] autorelease];
        [prototype setButtonType:NSRadioButton];
        matrix_ = [[classNamed("PDEChoiceMatrix13_v100_") alloc]
              initWithFrame:NSMakeRect(20, 20, kWidth, kHeight)
                       mode:NSRadioModeMatrix
                  prototype:prototype
               numberOfRows:2
            numberOfColumns:1];
        [matrix_ setTarget:target_];
        [matrix_ setAction:@selector(choose:)];
        field_ = [[NSTextField alloc] initWithFrame:NSMakeRect(20, 100, 100, 24)];
        [[window_ contentView] addSubview:matrix_];
        [[window_ contentView] addSubview:field_];
        [field_ setNextKeyView:matrix_];
        [matrix_ setNextKeyView:field_];

        const char* const hasFocus = "test \"$(xdotool getwindowfocus getwindowname)\" = 'Choices'";
        for (int i = 0; i < 100 && !run(hasFocus); ++i)
            handleEvents(0.1);
        ASSERT_TRUE(run(hasFocus)) << "the window manager gives the window no keys";
    }

    void TearDown() override
    {
        [window_ makeFirstResponder:nil];
        [matrix_ removeFromSuperview];
        [field_ removeFromSuperview];
        handleEvents(0.1);
        [matrix_ release];
        [field_ release];
        [target_ release];
    }

    void setChoices(NSInteger count, NSString* prefix = @"")
    {
        [matrix_ renewRows:count columns:1];
        for (NSInteger row = 0; row < count; ++row)
            [[matrix_ cellAtRow:row column:0]
                setTitle:[NSString stringWithFormat:@"%@%ld", prefix, static_cast<long>(row)]];
        [matrix_ selectCellAtRow:0 column:0];
        [matrix_ display];
    }

    // A click at a place of the group, counted from its top left.
    void click(double x, double y)
    {
        const NSPoint inWindow = [matrix_ convertPoint:NSMakePoint(x, y) toView:nil];
        const NSPoint place = [window_ convertBaseToScreen:inWindow];
        const double height = NSHeight([[NSScreen mainScreen] frame]);
        // In the background: the toolkit handles a press until it sees the release.
        ASSERT_TRUE(run("xdotool mousemove " + std::to_string(static_cast<int>(place.x)) + " " +
                        std::to_string(static_cast<int>(height - place.y)) +
                        " sleep 0.1 mousedown 1 sleep 0.1 mouseup 1 &"));
        handleEvents(0.6);
    }

    void press(const std::string& keys)
    {
        ASSERT_TRUE(run("xdotool key --clearmodifiers --delay 20 " + keys));
        handleEvents(0.3);
    }

    void focus()
    {
        ASSERT_TRUE([window_ makeFirstResponder:matrix_]);
        handleEvents(0.1);
    }

    const Rows& actions() const { return target_->rows; }

    NSWindow* window_ = nil;
    NSMatrix* matrix_ = nil;
    NSTextField* field_ = nil;
    ChoiceTarget* target_ = nil;
};

} // namespace

TEST_F(ChoiceMatrix, KeepsOneColumnOfRowsForThePanel)
{
    setChoices(5);
    EXPECT_EQ([matrix_ numberOfRows], 5);
    EXPECT_EQ([matrix_ numberOfColumns], 1);
    EXPECT_EQ(textOf([[matrix_ cellAtRow:4 column:0] title]), "4");
}

TEST_F(ChoiceMatrix, ShowsTheFifthOfFiveChoicesInsideTheSlot)
{
    setChoices(5);
    const NSRect frame = [matrix_ cellFrameAtRow:4 column:0];
    EXPECT_TRUE(NSContainsRect([matrix_ bounds], frame)) << textOf(NSStringFromRect(frame));
    EXPECT_EQ(NSMinY(frame), 23);
}

TEST_F(ChoiceMatrix, ChoosesTheFifthOfFiveByAClick)
{
    setChoices(5);
    // Third column is 114 wide; the fifth choice is second in the lower line.
    click(118 + 8, 23 + 10);
    EXPECT_EQ(actions(), (Rows{4}));
    EXPECT_EQ([matrix_ selectedRow], 4);
    EXPECT_EQ([[matrix_ cellAtRow:4 column:0] state], NSOnState);
    EXPECT_EQ([[matrix_ cellAtRow:0 column:0] state], NSOffState);
}

TEST_F(ChoiceMatrix, ChoosesEachOfTwoQuickClicksOnDifferentChoices)
{
    setChoices(2);
    click(8, 33);
    click(8, 10);
    EXPECT_EQ(actions(), (Rows{1, 0}));
    EXPECT_EQ([matrix_ selectedRow], 0);
}

TEST_F(ChoiceMatrix, SendsNothingForAClickBesideTheChoices)
{
    setChoices(5);
    click(260, 33);
    click(8, 21);
    EXPECT_EQ(actions(), Rows{});
    EXPECT_EQ([matrix_ selectedRow], 0);
}

TEST_F(ChoiceMatrix, ReachesTheTenthOfTwelveChoicesByArrowKeys)
{
    setChoices(12);
    focus();
    press("Down Down Down");
    EXPECT_EQ(actions(), (Rows{3, 6, 9}));
    EXPECT_EQ([matrix_ selectedRow], 9);
    EXPECT_TRUE(NSContainsRect([matrix_ bounds], [matrix_ cellFrameAtRow:9 column:0]));
}

TEST_F(ChoiceMatrix, GoesSidewaysAndBackByArrowKeys)
{
    setChoices(5);
    focus();
    press("Right Right Right Left Up");
    EXPECT_EQ(actions(), (Rows{1, 2, 3, 2}));
    press("space");
    EXPECT_EQ(actions(), (Rows{1, 2, 3, 2}));
}

TEST_F(ChoiceMatrix, TakesTheFocusByTabAndPassesItOn)
{
    setChoices(3);
    ASSERT_TRUE([window_ makeFirstResponder:field_]);
    press("Tab");
    EXPECT_EQ([window_ firstResponder], matrix_);
    press("Tab");
    EXPECT_NE([window_ firstResponder], matrix_);
}

TEST_F(ChoiceMatrix, KeepsItsChoiceWhenTabPassesByInEitherDirection)
{
    setChoices(3);
    [matrix_ selectCellAtRow:2 column:0];
    ASSERT_TRUE([window_ makeFirstResponder:field_]);
    press("Tab");
    ASSERT_EQ([window_ firstResponder], matrix_);
    EXPECT_EQ([matrix_ selectedRow], 2);
    press("Tab");
    EXPECT_EQ([matrix_ selectedRow], 2);
    press("shift+Tab");
    EXPECT_EQ([matrix_ selectedRow], 2);
    EXPECT_EQ(actions(), Rows{});
}

TEST_F(ChoiceMatrix, ScrollsByItsScrollerWithoutChoosing)
{
    setChoices(12);
    NSScroller* scroller = nil;
    for (NSView* view in [matrix_ subviews]) {
        if ([view isKindOfClass:[NSScroller class]])
            scroller = (NSScroller*)view;
    }
    ASSERT_NE(scroller, nil);
    // The lower of the two buttons at the bottom.
    click(NSMidX([scroller frame]), kHeight - 6);
    EXPECT_EQ(NSMinY([matrix_ cellFrameAtRow:3 column:0]), 0);
    EXPECT_EQ(actions(), Rows{});
    click(8, 10);
    EXPECT_EQ(actions(), (Rows{3}));
}

TEST_F(ChoiceMatrix, HasNoScrollerForSixChoices)
{
    setChoices(12);
    setChoices(6);
    EXPECT_EQ([[matrix_ subviews] count], 0u);
}

TEST_F(ChoiceMatrix, ShowsAChoiceThatTheProgramSelects)
{
    setChoices(12);
    [matrix_ selectCellAtRow:11 column:0];
    EXPECT_TRUE(NSContainsRect([matrix_ bounds], [matrix_ cellFrameAtRow:11 column:0]));
    EXPECT_EQ(actions(), Rows{});
}

TEST_F(ChoiceMatrix, KeepsItsFrameWhateverTheNumberOfChoices)
{
    for (const NSInteger count : {0, 1, 2, 5, 12, 40}) {
        setChoices(count);
        [matrix_ sizeToCells];
        EXPECT_TRUE(NSEqualRects([matrix_ frame], NSMakeRect(20, 20, kWidth, kHeight))) << count;
    }
}

TEST_F(ChoiceMatrix, StaysDisabledOverANewNumberOfChoices)
{
    setChoices(2);
    [matrix_ setEnabled:NO];
    setChoices(5);
    EXPECT_FALSE([matrix_ isEnabled]);
    for (NSInteger row = 0; row < 5; ++row)
        EXPECT_FALSE([[matrix_ cellAtRow:row column:0] isEnabled]) << row;
    [matrix_ setEnabled:YES];
    EXPECT_TRUE([matrix_ isEnabled]);
    EXPECT_TRUE([[matrix_ cellAtRow:4 column:0] isEnabled]);
}

TEST_F(ChoiceMatrix, TakesNoClickAndNoFocusWhileDisabled)
{
    setChoices(2);
    [matrix_ setEnabled:NO];
    click(8, 33);
    EXPECT_EQ(actions(), Rows{});
    EXPECT_EQ([matrix_ selectedRow], 0);
    ASSERT_TRUE([window_ makeFirstResponder:field_]);
    press("Tab");
    EXPECT_NE([window_ firstResponder], matrix_);
}

TEST_F(ChoiceMatrix, FallsBackToTheFirstChoiceWhenTheChosenOneGoes)
{
    setChoices(5);
    [matrix_ selectCellAtRow:4 column:0];
    [matrix_ renewRows:3 columns:1];
    EXPECT_EQ([matrix_ selectedRow], 0);
    [matrix_ renewRows:5 columns:1];
    for (NSInteger row = 1; row < 5; ++row)
        EXPECT_EQ([[matrix_ cellAtRow:row column:0] state], NSOffState) << row;
}

TEST_F(ChoiceMatrix, KeepsTheChosenRowThatIsStillThere)
{
    setChoices(5);
    [matrix_ selectCellAtRow:2 column:0];
    [matrix_ renewRows:3 columns:1];
    EXPECT_EQ([matrix_ selectedRow], 2);
    EXPECT_EQ([[matrix_ cellAtRow:2 column:0] state], NSOnState);
}

TEST_F(ChoiceMatrix, KeepsLongTitlesReadable)
{
    setChoices(5, @"A title that is far too long for its column ");
    for (NSInteger row = 0; row < 5; ++row) {
        NSCell* const cell = [matrix_ cellAtRow:row column:0];
        EXPECT_GE([[cell font] pointSize], 11) << row;
        EXPECT_EQ([cell lineBreakMode], NSLineBreakByTruncatingTail) << row;
    }
    // The whole title is told by a tip.
    NSString* tip = [(id<TellsToolTips>)matrix_ view:matrix_ stringForToolTip:0
                                               point:NSMakePoint(8, 33)
                                            userData:NULL];
    EXPECT_EQ(textOf(tip), "A title that is far too long for its column 3");
}

TEST_F(ChoiceMatrix, TellsNothingOfATitleThatCanBeRead)
{
    setChoices(5, @"A ");
    [matrix_ display];
    NSString* tip = [(id<TellsToolTips>)matrix_ view:matrix_ stringForToolTip:0
                                               point:NSMakePoint(8, 33)
                                            userData:NULL];
    EXPECT_EQ(textOf(tip), "(nil)");
}

TEST_F(ChoiceMatrix, ShowsTheChoiceThatWasSelectedBeforeThereWereTitles)
{
    [matrix_ renewRows:20 columns:1];
    [matrix_ selectCellAtRow:19 column:0];
    for (NSInteger row = 0; row < 20; ++row)
        [[matrix_ cellAtRow:row column:0] setTitle:@"A title"];
    [matrix_ display];
    EXPECT_TRUE(NSContainsRect([matrix_ bounds], [matrix_ cellFrameAtRow:19 column:0]));
}

TEST_F(ChoiceMatrix, HoldsTwoThousandChoices)
{
    setChoices(2000);
    [matrix_ selectCellAtRow:1999 column:0];
    [matrix_ display];
    EXPECT_TRUE(NSContainsRect([matrix_ bounds], [matrix_ cellFrameAtRow:1999 column:0]));
    EXPECT_EQ([matrix_ selectedRow], 1999);
}
