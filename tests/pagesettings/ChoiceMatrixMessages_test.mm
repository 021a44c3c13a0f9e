// The radio groups by the messages that the toolkit sends them: what they draw, measure and mark
// for drawing.  No event comes from the display server, and nothing waits for one.
#include "support/PanelTest.hpp"

#include <objc/runtime.h>

#include <memory>

// What the toolkit and the group itself are asked for, as far as tests use it.
@protocol ChoiceMessages
- (NSString*)view:(NSView*)view
    stringForToolTip:(NSToolTipTag)tag
               point:(NSPoint)point
            userData:(void*)data;
- (void)scrollerMoved:(id)sender;
@end

namespace {

using Rows = std::vector<NSInteger>;

struct Drawn
{
    std::string title;
    NSRect frame;
    BOOL hasFocusRing;
};

// What cells were asked for since the last clear().
struct CellLog
{
    std::vector<Drawn> drawn;
    int sizesAsked = 0;

    Texts titles() const
    {
        Texts all;
        for (const Drawn& one : drawn)
            all.push_back(one.title);
        return all;
    }
};
CellLog cellLog;

// What a group asked of the toolkit since the last clear.
struct TipLog
{
    std::vector<NSRect> added;
    std::vector<NSToolTipTag> removed;
    int refusals = 0; // that are still to come
};
TipLog tipLog;
Rows marks; // 1 for each time that the group was to be drawn again

} // namespace

// A choice whose title is the width that it asks for.
@interface WideCell : NSButtonCell
@end

@implementation WideCell
- (NSSize)cellSize
{
    ++cellLog.sizesAsked;
    return NSMakeSize([[self title] intValue], 16);
}

- (void)drawWithFrame:(NSRect)frame inView:(NSView*)view
{
    cellLog.drawn.push_back({textOf([self title]), frame, [self showsFirstResponder]});
    [self setControlView:view];
    [(NSControl*)view updateCell:self]; // as cells do when something about them changes
}
@end

@interface FocusWindow : NSWindow
{
  @public
    BOOL isKey;
}
@end

@implementation FocusWindow
- (BOOL)isKeyWindow
{
    return isKey;
}
@end

// Hears what the group leaves to others.
@interface Neighbour : NSView
{
  @public
    Texts heard;
}
@end

@implementation Neighbour
- (void)scrollWheel:(NSEvent*)event
{
    heard.push_back("wheel");
}

- (void)keyDown:(NSEvent*)event
{
    heard.push_back("key " + textOf([event characters]));
}
@end

@interface RowTarget : NSObject
{
  @public
    Rows rows; // selectedRow at each action
}
- (void)choose:(NSMatrix*)sender;
@end

@implementation RowTarget
- (void)choose:(NSMatrix*)sender
{
    rows.push_back([sender selectedRow]);
}
@end

// A turn of the wheel; the toolkit's own events come from the display server alone.
@interface WheelTurn : NSObject
{
  @public
    CGFloat upwards;
}
@end

@implementation WheelTurn
- (CGFloat)deltaY
{
    return upwards;
}
@end

namespace {

NSToolTipTag addTip(id, SEL, NSRect rect, id, void*)
{
    tipLog.added.push_back(rect);
    if (tipLog.refusals > 0) {
        --tipLog.refusals;
        return -1;
    }
    return 100 + static_cast<NSToolTipTag>(tipLog.added.size());
}

void removeTip(id, SEL, NSToolTipTag tag)
{
    tipLog.removed.push_back(tag);
}

void countMark(id self, SEL selector, BOOL flag)
{
    if (flag)
        marks.push_back(1);
    IMP const real = class_getMethodImplementation(class_getSuperclass([self class]), selector);
    reinterpret_cast<void (*)(id, SEL, BOOL)>(real)(self, selector, flag);
}

// The group's class with its calls of the toolkit in view.
Class watchedClass()
{
    static Class made = Nil;
    if (made != Nil)
        return made;
    Class const group = classNamed("PDEChoiceMatrix13_v100_");
    made = objc_allocateClassPair(group, "WatchedChoices", 0);
    const auto replace = [&](SEL selector, IMP with) {
        class_addMethod(made, selector, with,
                        method_getTypeEncoding(class_getInstanceMethod(group, selector)));
    };
    replace(@selector(addToolTipRect:owner:userData:), reinterpret_cast<IMP>(addTip));
    replace(@selector(removeToolTip:), reinterpret_cast<IMP>(removeTip));
    replace(@selector(setNeedsDisplay:), reinterpret_cast<IMP>(countMark));
    objc_registerClassPair(made);
    return made;
}

NSMatrix* newGroup(Class group, NSRect frame)
{
    WideCell* const prototype = [[[WideCell alloc] initTextCell:@""] autorelease];
    [prototype setButtonType:NSRadioButton];
    return [[group alloc] initWithFrame:frame mode:NSRadioModeMatrix prototype:prototype
                           numberOfRows:2
                        numberOfColumns:1];
}

NSString* textOfNumber(NSInteger number)
{
    return [NSString stringWithFormat:@"%ld", static_cast<long>(number)];
}

std::string text(NSRect rect)
{
    return textOf(NSStringFromRect(rect));
}

class ChoiceMessagesTest : public testing::Test
{
  protected:
    static FocusWindow* sharedWindow()
    {
        static FocusWindow* const shared =
            [[FocusWindow alloc] initWithContentRect:NSMakeRect(700, 100, 400, 200)
                                           styleMask:NSBorderlessWindowMask
                                             backing:NSBackingStoreBuffered
                                               defer:NO];
        return shared;
    }

    static void SetUpTestSuite() { [sharedWindow() orderFront:nil]; }
    static void TearDownTestSuite() { [sharedWindow() orderOut:nil]; }

    void SetUp() override
    {
        window_ = sharedWindow();
        window_->isKey = NO;
        around_ = [[Neighbour alloc] initWithFrame:NSMakeRect(0, 0, 400, 200)];
        group_ = newGroup(watchedClass(), NSMakeRect(20, 20, 350, 43));
        target_ = [[RowTarget alloc] init];
        [group_ setTarget:target_];
        [group_ setAction:@selector(choose:)];
        [around_ addSubview:group_];
        [[window_ contentView] addSubview:around_];
        tipLog = {};
        cellLog = {};
    }

    void TearDown() override
    {
        [window_ makeFirstResponder:nil];
        [around_ removeFromSuperview];
        [group_ release];
        [around_ release];
        [target_ release];
    }

    // Titles are the widths that they ask for.
    void setChoices(const Rows& widths)
    {
        [group_ renewRows:static_cast<NSInteger>(widths.size()) columns:1];
        for (std::size_t row = 0; row < widths.size(); ++row)
            setTitle(static_cast<NSInteger>(row), textOfNumber(widths[row]));
    }

    // Titles "10", "11", ...
    void setChoices(NSInteger count)
    {
        Rows widths;
        for (NSInteger row = 0; row < count; ++row)
            widths.push_back(10 + row);
        setChoices(widths);
    }

    void setTitle(NSInteger row, NSString* title)
    {
        [[group_ cellAtRow:row column:0] setTitle:title];
    }

    // Draws what is to be drawn, and forgets what was asked before.
    void draw()
    {
        cellLog = {};
        marks.clear();
        [window_ displayIfNeeded];
    }

    NSRect frame(NSInteger row) const { return [group_ cellFrameAtRow:row column:0]; }
    CGFloat fontSize(NSInteger row) const
    {
        return [[[group_ cellAtRow:row column:0] font] pointSize];
    }

    NSScroller* scroller() const
    {
        for (NSView* view in [group_ subviews]) {
            if ([view isKindOfClass:[NSScroller class]])
                return (NSScroller*)view;
        }
        return nil;
    }

    void press(NSString* characters, NSUInteger modifiers = 0)
    {
        [group_ keyDown:[NSEvent keyEventWithType:NSKeyDown location:NSZeroPoint
                                          modifierFlags:modifiers
                                              timestamp:0
                                           windowNumber:[window_ windowNumber]
                                                context:nil
                                             characters:characters
                            charactersIgnoringModifiers:characters
                                              isARepeat:NO
                                                keyCode:0]];
    }

    void press(unichar key, NSUInteger modifiers = 0)
    {
        press([NSString stringWithCharacters:&key length:1], modifiers);
    }

    void turnWheel(CGFloat upwards)
    {
        WheelTurn* const turn = [[[WheelTurn alloc] init] autorelease];
        turn->upwards = upwards;
        [group_ scrollWheel:(NSEvent*)turn];
    }

    NSEvent* mouse(NSEventType type, double x, double y) const
    {
        return [NSEvent mouseEventWithType:type
                                  location:[group_ convertPoint:NSMakePoint(x, y) toView:nil]
                             modifierFlags:0
                                 timestamp:0
                              windowNumber:[window_ windowNumber]
                                   context:nil
                               eventNumber:0
                                clickCount:1
                                  pressure:1];
    }

    // A press at one place of the group and the release at another.
    void drag(double fromX, double fromY, double toX, double toY)
    {
        [NSApp postEvent:mouse(NSLeftMouseDragged, toX, toY) atStart:NO];
        [NSApp postEvent:mouse(NSLeftMouseUp, toX, toY) atStart:NO];
        [group_ mouseDown:mouse(NSLeftMouseDown, fromX, fromY)];
        [NSApp discardEventsMatchingMask:NSAnyEventMask beforeEvent:nil];
    }

    const Rows& actions() const { return target_->rows; }
    const Texts& leftToOthers() const { return around_->heard; }

    FocusWindow* window_ = nil;
    Neighbour* around_ = nil;
    NSMatrix* group_ = nil;
    RowTarget* target_ = nil;
};

} // namespace

// Rows.

TEST_F(ChoiceMessagesTest, ShowsANewNumberOfChoicesAlsoBeyondTheTitlesThatItMeasures)
{
    setChoices(12);
    EXPECT_EQ(text(frame(11)), "{x = 220; y = 69; width = 106; height = 20}");
    [group_ renewRows:15 columns:1]; // the first titles stay
    EXPECT_EQ(text(frame(14)), "{x = 220; y = 92; width = 106; height = 20}");
}

TEST_F(ChoiceMessagesTest, HasOneMarkedChoiceInANewNumberWhateverWasMarkedBefore)
{
    setChoices(5);
    for (NSInteger row = 0; row < 5; ++row)
        [[group_ cellAtRow:row column:0] setState:NSOnState];
    [group_ selectCellAtRow:2 column:0];
    [group_ renewRows:3 columns:1];
    EXPECT_EQ([[group_ cellAtRow:0 column:0] state], NSOffState);
    EXPECT_EQ([[group_ cellAtRow:1 column:0] state], NSOffState);
    EXPECT_EQ([[group_ cellAtRow:2 column:0] state], NSOnState);
}

TEST_F(ChoiceMessagesTest, FallsBackToTheFirstFromTheChoiceJustBeyondTheNewNumber)
{
    setChoices(5);
    [group_ selectCellAtRow:3 column:0];
    [group_ renewRows:3 columns:1];
    EXPECT_EQ([group_ selectedRow], 0);
}

TEST_F(ChoiceMessagesTest, StartsWithTheFirstChoiceAfterHavingHadNone)
{
    [group_ renewRows:0 columns:1];
    EXPECT_EQ([group_ selectedRow], -1);
    EXPECT_EQ([group_ numberOfRows], 0);
    [group_ renewRows:2 columns:1];
    EXPECT_EQ([group_ selectedRow], 0);
    [group_ renewRows:2 columns:0];
    EXPECT_EQ([group_ selectedRow], -1);
}

TEST_F(ChoiceMessagesTest, MeasuresNoTitleWhileItIsBeingFilled)
{
    setChoices(5);
    for (NSInteger row = 0; row < 5; ++row)
        [group_ selectCellAtRow:row column:0];
    [group_ selectCell:[group_ cellAtRow:1 column:0]];
    [group_ putCell:[[[WideCell alloc] initTextCell:@"40"] autorelease] atRow:2 column:0];
    EXPECT_EQ(cellLog.sizesAsked, 0);
    draw();
    EXPECT_EQ(cellLog.sizesAsked, 5);
}

TEST_F(ChoiceMessagesTest, MeasuresItsTitlesOnceForAnyNumberOfDrawings)
{
    setChoices(5);
    draw();
    [group_ setNeedsDisplay:YES];
    draw();
    frame(4);
    EXPECT_EQ(cellLog.sizesAsked, 0);
}

TEST_F(ChoiceMessagesTest, ShowsACellThatIsPutInPlaceOfAnother)
{
    setChoices(2);
    draw();
    WideCell* const cell = [[[WideCell alloc] initTextCell:@"77"] autorelease];
    [group_ putCell:cell atRow:1 column:0];
    EXPECT_EQ([group_ cellAtRow:1 column:0], cell);
    EXPECT_TRUE([group_ needsDisplay]);
    EXPECT_EQ(text(frame(1)), "{x = 0; y = 23; width = 350; height = 20}");
    draw();
    EXPECT_EQ(cellLog.titles(), (Texts{"10", "77"}));
}

// What is drawn again, and where.

TEST_F(ChoiceMessagesTest, IsDrawnAgainAfterEveryChangeThatCanBeSeen)
{
    const std::vector<std::pair<const char*, std::function<void()>>> changes{
        {"another number", [&] { [group_ renewRows:8 columns:1]; }},
        {"a choice by its row", [&] { [group_ selectCellAtRow:5 column:0]; }},
        {"a choice by its cell", [&] { [group_ selectCell:[group_ cellAtRow:1 column:0]]; }},
        {"none chosen", [&] { [group_ selectCellAtRow:-1 column:-1]; }},
        {"scrolling", [&] { [group_ scrollCellToVisibleAtRow:7 column:0]; }},
        {"disabling", [&] { [group_ setEnabled:NO]; }},
        {"enabling", [&] { [group_ setEnabled:YES]; }},
        {"another size", [&] { [group_ setFrameSize:NSMakeSize(300, 43)]; }},
        {"sizing", [&] { [group_ sizeToCells]; }},
        {"pressing", [&] { [group_ highlightCell:YES atRow:6 column:0]; }},
        {"drawing one choice", [&] { [group_ drawCellAtRow:6 column:0]; }},
        {"a cell's own change", [&] { [group_ updateCell:[group_ cellAtRow:6 column:0]]; }},
        {"the focus", [&] { [group_ becomeFirstResponder]; }},
        {"the focus gone", [&] { [group_ resignFirstResponder]; }},
        {"the wheel", [&] { turnWheel(1); }},
        {"a key", [&] { press(NSRightArrowFunctionKey); }},
    };
    setChoices(12);
    for (const auto& [name, change] : changes) {
        draw();
        ASSERT_FALSE([group_ needsDisplay]) << name;
        change();
        EXPECT_TRUE([group_ needsDisplay]) << name;
    }
}

TEST_F(ChoiceMessagesTest, DoesNotAskToBeDrawnAgainWhileItIsBeingDrawn)
{
    setChoices(12);
    [group_ selectCellAtRow:11 column:0]; // scrolls when it is drawn
    draw();
    EXPECT_EQ(cellLog.drawn.size(), 6u);
    EXPECT_EQ(marks, Rows{});
    [group_ updateCell:[group_ cellAtRow:11 column:0]];
    EXPECT_EQ(marks, Rows{1});
}

TEST_F(ChoiceMessagesTest, LetsWhatIsBehindItShowThrough)
{
    EXPECT_FALSE([group_ isOpaque]);
}

TEST_F(ChoiceMessagesTest, DrawsEveryChoiceInItsPlace)
{
    setChoices(5);
    draw();
    EXPECT_EQ(cellLog.titles(), (Texts{"10", "11", "12", "13", "14"}));
    ASSERT_EQ(cellLog.drawn.size(), 5u);
    for (const Drawn& one : cellLog.drawn)
        EXPECT_FALSE(one.hasFocusRing) << one.title;
    // Three columns of (350 - 2 * 4) / 3 points.
    EXPECT_EQ(text(cellLog.drawn[0].frame), "{x = 0; y = 0; width = 114; height = 20}");
    EXPECT_EQ(text(cellLog.drawn[4].frame), "{x = 118; y = 23; width = 114; height = 20}");
}

TEST_F(ChoiceMessagesTest, DrawsTheChoicesInSightAlone)
{
    setChoices(12);
    draw();
    EXPECT_EQ(cellLog.titles(), (Texts{"10", "11", "12", "13", "14", "15"}));
    [group_ scrollCellToVisibleAtRow:8 column:0];
    draw();
    EXPECT_EQ(cellLog.titles(), (Texts{"13", "14", "15", "16", "17", "18"}));
    ASSERT_EQ(cellLog.drawn.size(), 6u);
    EXPECT_EQ(NSMinY(cellLog.drawn[0].frame), 0);
}

TEST_F(ChoiceMessagesTest, DrawsNothingOutsideADrawing)
{
    setChoices(2);
    draw();
    cellLog = {};
    [group_ drawCellAtRow:1 column:0];
    EXPECT_EQ(cellLog.titles(), Texts{});
    draw();
    EXPECT_EQ(cellLog.titles(), (Texts{"10", "11"}));
}

TEST_F(ChoiceMessagesTest, ShowsTheFocusOnTheChosenOneOfTheKeyWindow)
{
    setChoices(3);
    [group_ selectCellAtRow:1 column:0];
    for (const bool isKey : {false, true}) {
        for (const bool isFocused : {false, true}) {
            window_->isKey = isKey;
            [window_ makeFirstResponder:isFocused ? group_ : nil];
            [group_ setNeedsDisplay:YES];
            draw();
            ASSERT_EQ(cellLog.drawn.size(), 3u);
            EXPECT_FALSE(cellLog.drawn[0].hasFocusRing);
            EXPECT_EQ(cellLog.drawn[1].hasFocusRing, isKey && isFocused) << isKey << isFocused;
            EXPECT_FALSE(cellLog.drawn[2].hasFocusRing);
            EXPECT_FALSE([[group_ cellAtRow:1 column:0] showsFirstResponder]);
        }
    }
}

TEST_F(ChoiceMessagesTest, HighlightsTheChoiceThatIsPressed)
{
    setChoices(2);
    [group_ highlightCell:YES atRow:1 column:0];
    EXPECT_TRUE([[group_ cellAtRow:1 column:0] isHighlighted]);
    EXPECT_FALSE([[group_ cellAtRow:0 column:0] isHighlighted]);
    [group_ highlightCell:NO atRow:1 column:0];
    EXPECT_FALSE([[group_ cellAtRow:1 column:0] isHighlighted]);
}

// Where the choices stand.

TEST_F(ChoiceMessagesTest, HasOneColumnWhateverThePictureIs)
{
    setChoices(5);
    EXPECT_TRUE(NSEqualRects([group_ cellFrameAtRow:0 column:1], NSZeroRect));
    EXPECT_TRUE(NSEqualRects([group_ cellFrameAtRow:-1 column:0], NSZeroRect));
    EXPECT_TRUE(NSEqualRects([group_ cellFrameAtRow:5 column:0], NSZeroRect));
    EXPECT_EQ(text(frame(0)), "{x = 0; y = 0; width = 114; height = 20}");
}

TEST_F(ChoiceMessagesTest, TellsRowAndColumnOfAPoint)
{
    setChoices(5);
    NSInteger row = 7;
    NSInteger column = 7;
    EXPECT_TRUE([group_ getRow:&row column:&column forPoint:NSMakePoint(120, 30)]);
    EXPECT_EQ(row, 4);
    EXPECT_EQ(column, 0);
    EXPECT_FALSE([group_ getRow:&row column:&column forPoint:NSMakePoint(260, 30)]);
    EXPECT_EQ(row, -1);
    EXPECT_EQ(column, -1);
    EXPECT_TRUE([group_ getRow:NULL column:NULL forPoint:NSMakePoint(0, 0)]);
    EXPECT_FALSE([group_ getRow:NULL column:NULL forPoint:NSMakePoint(0, 21)]);
}

TEST_F(ChoiceMessagesTest, FitsItsChoicesIntoANewSize)
{
    setChoices(5);
    draw();
    [group_ setFrameSize:NSMakeSize(305, 43)];
    EXPECT_EQ(text([group_ frame]), "{x = 20; y = 20; width = 305; height = 43}");
    EXPECT_EQ(text(frame(2)), "{x = 206; y = 0; width = 99; height = 20}");
}

TEST_F(ChoiceMessagesTest, LeavesCellSizesAloneWhenWhatIsAroundItGrows)
{
    setChoices(12);
    [group_ setAutosizesCells:YES];
    [group_ setAutoresizingMask:NSViewWidthSizable];
    draw();
    const NSSize cell = [group_ cellSize];
    const NSSize spacing = [group_ intercellSpacing];
    [around_ setFrameSize:NSMakeSize(430, 200)];
    EXPECT_TRUE(NSEqualSizes([group_ cellSize], cell));
    EXPECT_TRUE(NSEqualSizes([group_ intercellSpacing], spacing));
    EXPECT_TRUE([group_ autosizesCells]);
    EXPECT_EQ(text([group_ frame]), "{x = 20; y = 20; width = 380; height = 43}");
    // Beside the scroller 358 points are left: three columns of 116 and two gaps.
    EXPECT_EQ(text(frame(2)), "{x = 240; y = 0; width = 116; height = 20}");
    EXPECT_EQ(text([scroller() frame]), "{x = 362; y = 0; width = 18; height = 43}");
    [group_ setAutosizesCells:NO];
    [around_ setFrameSize:NSMakeSize(400, 200)];
    EXPECT_FALSE([group_ autosizesCells]);
}

// What titles ask for.  A title gets one point more than its cell's width.

TEST_F(ChoiceMessagesTest, TakesTheSmallerFontOnlyWhereTheUsualOneDoesNotFit)
{
    setChoices(Rows{349});
    draw();
    EXPECT_EQ(fontSize(0), 12);
    setChoices(Rows{350});
    draw();
    EXPECT_EQ(fontSize(0), 11);
    setChoices(Rows{10, 10, 120, 115, 60, 106}); // columns of 116, 61, 121; 44 to share
    draw();
    EXPECT_EQ(fontSize(0), 12);
    EXPECT_EQ(fontSize(5), 12);
}

TEST_F(ChoiceMessagesTest, GivesColumnsTheWidthOfTheirWidestTitles)
{
    setChoices(Rows{10, 10, 120, 115, 60, 106});
    // 342 points; the widest titles ask for 116, 61 and 121, and a third of the rest is 14.
    EXPECT_EQ(text(frame(0)), "{x = 0; y = 0; width = 130; height = 20}");
    EXPECT_EQ(text(frame(1)), "{x = 134; y = 0; width = 75; height = 20}");
    EXPECT_EQ(text(frame(5)), "{x = 213; y = 23; width = 135; height = 20}");
}

TEST_F(ChoiceMessagesTest, GivesMoreChoicesThanItMeasuresEvenColumnsAndTheSmallerFont)
{
    setChoices(Rows{10, 10, 150, 10, 10, 10, 10});
    draw();
    EXPECT_EQ(NSWidth(frame(0)), 106);
    EXPECT_EQ(NSWidth(frame(2)), 106);
    EXPECT_EQ(cellLog.sizesAsked, 0);
    for (NSInteger row = 0; row < 7; ++row)
        EXPECT_EQ(fontSize(row), 11) << row;
}

TEST_F(ChoiceMessagesTest, MeasuresAgainWhenAnyTitleChanges)
{
    setChoices(6);
    for (NSInteger row = 0; row < 6; ++row) {
        EXPECT_EQ(NSWidth(frame(row)), 114) << row;
        setTitle(row, @"149"); // 150 of 342; the other two columns share the rest
        EXPECT_GE(NSWidth(frame(row)), 150) << row;
        setTitle(row, @"10");
    }
}

// The scroller.

TEST_F(ChoiceMessagesTest, ShowsInItsScrollerWhereItStands)
{
    setChoices(12);
    draw();
    ASSERT_NE(scroller(), nil);
    // Four lines, two of them in sight.
    EXPECT_EQ([scroller() knobProportion], 0.5);
    EXPECT_EQ([scroller() floatValue], 0);
    EXPECT_TRUE([scroller() isEnabled]);
    EXPECT_EQ([scroller() target], group_);
    EXPECT_EQ(textOf(NSStringFromSelector([scroller() action])), "scrollerMoved:");
    EXPECT_EQ(text([scroller() frame]), "{x = 332; y = 0; width = 18; height = 43}");
    [group_ scrollCellToVisibleAtRow:8 column:0];
    frame(8);
    EXPECT_EQ([scroller() floatValue], 0.5);
    EXPECT_EQ([scroller() knobProportion], 0.5);
    setChoices(24); // eight lines; the same one is the first in sight
    draw();
    EXPECT_EQ([scroller() knobProportion], 0.25);
}

TEST_F(ChoiceMessagesTest, KeepsItsScrollerForAsLongAsItScrolls)
{
    setChoices(12);
    draw();
    NSScroller* const first = scroller();
    setChoices(15);
    draw();
    EXPECT_EQ(scroller(), first);
    setChoices(6);
    draw();
    EXPECT_EQ(scroller(), nil);
    setChoices(12);
    draw();
    EXPECT_EQ(scroller(), first);
}

NSScrollerPart scrollerPart;

static NSScrollerPart givenPart(id, SEL)
{
    return scrollerPart;
}

TEST_F(ChoiceMessagesTest, GoesByOneLineForTheScrollersButtonsAndItsTrack)
{
    setChoices(15); // five lines: three places
    draw();
    const ReplacedMethod hitPart([NSScroller class], @selector(hitPart),
                                 reinterpret_cast<IMP>(givenPart));
    const auto hit = [&](NSScrollerPart part) {
        scrollerPart = part;
        [(id)group_ scrollerMoved:scroller()];
        return NSMinY(frame(0));
    };
    EXPECT_EQ(hit(NSScrollerIncrementLine), -23);
    EXPECT_EQ(hit(NSScrollerIncrementPage), -46);
    EXPECT_EQ(hit(NSScrollerDecrementLine), -23);
    EXPECT_EQ(hit(NSScrollerDecrementPage), 0);
    EXPECT_EQ(hit(NSScrollerDecrementPage), 0);
    [scroller() setFloatValue:1];
    EXPECT_EQ(hit(NSScrollerKnob), -69);
    EXPECT_EQ(hit(NSScrollerDecrementLine), -46);
    EXPECT_NEAR([scroller() floatValue], 2 / 3.0, 1e-6);
    EXPECT_EQ(actions(), Rows{});
}

TEST_F(ChoiceMessagesTest, GoesByOneLineForATurnOfTheWheel)
{
    setChoices(15);
    turnWheel(-1);
    EXPECT_EQ(NSMinY(frame(0)), -23);
    turnWheel(-0.5);
    EXPECT_EQ(NSMinY(frame(0)), -46);
    turnWheel(0); // to the side
    EXPECT_EQ(NSMinY(frame(0)), -46);
    turnWheel(1);
    EXPECT_EQ(NSMinY(frame(0)), -23);
    turnWheel(0.5);
    EXPECT_EQ(NSMinY(frame(0)), 0);
    EXPECT_EQ(leftToOthers(), Texts{"wheel"}); // the turn to the side
}

TEST_F(ChoiceMessagesTest, LeavesTheWheelToOthersWhereEverythingFits)
{
    setChoices(6);
    turnWheel(1);
    turnWheel(-1);
    EXPECT_EQ(leftToOthers(), (Texts{"wheel", "wheel"}));
    EXPECT_EQ(NSMinY(frame(0)), 0);
}

TEST_F(ChoiceMessagesTest, ScrollsToTheFirstChoiceAsToAnyOther)
{
    setChoices(12);
    [group_ scrollCellToVisibleAtRow:11 column:0];
    EXPECT_EQ(NSMinY(frame(11)), 23);
    [group_ scrollCellToVisibleAtRow:0 column:0];
    EXPECT_EQ(NSMinY(frame(0)), 0);
    [group_ scrollCellToVisibleAtRow:12 column:0];
    [group_ scrollCellToVisibleAtRow:-1 column:0];
    EXPECT_EQ(NSMinY(frame(0)), 0);
    [group_ selectCell:[group_ cellAtRow:10 column:0]];
    EXPECT_EQ([group_ selectedRow], 10);
    EXPECT_EQ(NSMinY(frame(10)), 23);
    turnWheel(1);
    EXPECT_EQ(NSMinY(frame(10)), 46); // scrolled to once, not ever again
}

// Tool tips.

TEST_F(ChoiceMessagesTest, HasAPlaceForATipOnEveryChoiceInSight)
{
    setChoices(12);
    draw();
    ASSERT_EQ(tipLog.added.size(), 6u);
    EXPECT_EQ(text(tipLog.added[5]), "{x = 220; y = 23; width = 106; height = 20}");
    EXPECT_EQ(tipLog.removed.size(), 0u);
    [group_ setNeedsDisplay:YES];
    draw();
    EXPECT_EQ(tipLog.added.size(), 6u);
}

TEST_F(ChoiceMessagesTest, MovesThePlacesForTipsWhenTheChoicesMove)
{
    using Tags = std::vector<NSToolTipTag>;
    setChoices(12);
    draw();
    turnWheel(-1);
    draw();
    EXPECT_EQ(tipLog.added.size(), 12u);
    EXPECT_EQ(tipLog.removed, (Tags{101, 102, 103, 104, 105, 106}));
    tipLog.removed.clear();
    setChoices(2);
    draw();
    EXPECT_EQ(tipLog.added.size(), 14u);
    EXPECT_EQ(tipLog.removed, (Tags{107, 108, 109, 110, 111, 112}));
    tipLog.removed.clear();
    setTitle(0, @"30");
    draw(); // nobody asked for that
    [group_ setNeedsDisplay:YES];
    draw();
    EXPECT_EQ(tipLog.added.size(), 16u);
    EXPECT_EQ(tipLog.removed, (Tags{113, 114}));
}

TEST_F(ChoiceMessagesTest, TriesAgainWhereTheToolkitRefusedATip)
{
    setChoices(2);
    tipLog.refusals = 1; // while the tip of something else is up
    draw();
    EXPECT_EQ(tipLog.added.size(), 2u);
    [group_ setNeedsDisplay:YES];
    draw();
    EXPECT_EQ(tipLog.added.size(), 4u);
    [group_ setNeedsDisplay:YES];
    draw();
    EXPECT_EQ(tipLog.added.size(), 4u);
}

TEST_F(ChoiceMessagesTest, TellsByATipOnlyATitleThatIsCutOff)
{
    const auto tipAt = [&](double x, double y) {
        return textOf([(id<ChoiceMessages>)group_ view:group_ stringForToolTip:0
                                                 point:NSMakePoint(x, y)
                                              userData:NULL]);
    };
    setChoices(Rows{349, 350});
    EXPECT_EQ(tipAt(8, 8), "(nil)");
    EXPECT_EQ(tipAt(8, 33), "350");
    EXPECT_EQ(tipAt(8, 21), "(nil)"); // between the two
}

// Mouse and keyboard.

TEST_F(ChoiceMessagesTest, ChoosesWhereTheMouseIsPressedAndReleased)
{
    setChoices(5);
    draw();
    drag(120, 30, 120, 30);
    EXPECT_EQ(actions(), Rows{4});
    EXPECT_TRUE([group_ needsDisplay]);
    draw();
    drag(8, 8, 8, 30); // from the first to the fourth
    EXPECT_EQ(actions().size(), 2u);
    EXPECT_EQ([group_ selectedRow], actions().back());
    EXPECT_TRUE([group_ needsDisplay]);
    for (NSInteger row = 0; row < 5; ++row)
        EXPECT_FALSE([[group_ cellAtRow:row column:0] isHighlighted]) << row;
}

TEST_F(ChoiceMessagesTest, TakesNoPressBesideTheChoicesOrWhileItIsDisabled)
{
    setChoices(5);
    drag(8, 21, 8, 30);
    drag(260, 30, 8, 30);
    [group_ setEnabled:NO];
    drag(8, 30, 8, 30);
    EXPECT_EQ(actions(), Rows{});
    EXPECT_EQ([group_ selectedRow], 0);
}

TEST_F(ChoiceMessagesTest, LeavesKeysWithModifiersAndOtherKeysToOthers)
{
    setChoices(5);
    for (const NSUInteger modifier : {NSCommandKeyMask, NSControlKeyMask, NSAlternateKeyMask}) {
        press(NSRightArrowFunctionKey, modifier);
        EXPECT_EQ([group_ selectedRow], 0) << modifier;
    }
    EXPECT_EQ(leftToOthers().size(), 3u);
    press(@"x");
    EXPECT_EQ(leftToOthers().back(), "key x");
    press(@"");
    EXPECT_EQ(leftToOthers().back(), "key ");
    EXPECT_EQ([group_ selectedRow], 0);
    EXPECT_EQ(actions(), Rows{});
}

TEST_F(ChoiceMessagesTest, ChoosesByArrowKeysAndTellsOfEachChoice)
{
    setChoices(12);
    press(NSRightArrowFunctionKey);
    press(NSDownArrowFunctionKey, NSShiftKeyMask);
    press(NSLeftArrowFunctionKey);
    press(NSUpArrowFunctionKey);
    press(NSUpArrowFunctionKey); // at the edge
    EXPECT_EQ(actions(), (Rows{1, 4, 3, 0}));
    EXPECT_EQ([group_ selectedRow], 0);
    EXPECT_EQ(leftToOthers(), Texts{});
}

TEST_F(ChoiceMessagesTest, ShowsTheChosenOneAgainForTheSpaceKey)
{
    setChoices(12);
    [group_ selectCellAtRow:1 column:0];
    turnWheel(-1);
    EXPECT_EQ(NSMinY(frame(1)), -23);
    press(@" ");
    EXPECT_EQ(NSMinY(frame(1)), 0);
    EXPECT_EQ([group_ selectedRow], 1);
    EXPECT_EQ(actions(), Rows{});
}

TEST_F(ChoiceMessagesTest, ChoosesTheFirstForTheSpaceKeyWhenNoneIsChosen)
{
    setChoices(3);
    [group_ setAllowsEmptySelection:YES];
    [group_ selectCellAtRow:-1 column:-1];
    ASSERT_EQ([group_ selectedRow], -1);
    press(@" ");
    EXPECT_EQ(actions(), Rows{0});
}

TEST_F(ChoiceMessagesTest, TakesNoKeysWhileItIsDisabledOrEmpty)
{
    setChoices(3);
    [group_ setEnabled:NO];
    press(NSDownArrowFunctionKey);
    EXPECT_EQ([group_ selectedRow], 0);
    [group_ setEnabled:YES];
    [group_ renewRows:0 columns:1];
    press(NSDownArrowFunctionKey);
    press(@" ");
    EXPECT_EQ(actions(), Rows{});
}

TEST_F(ChoiceMessagesTest, TakesTheFocusWhileThereIsAnythingToChoose)
{
    setChoices(1);
    EXPECT_TRUE([group_ acceptsFirstResponder]);
    EXPECT_TRUE([group_ becomeFirstResponder]);
    EXPECT_TRUE([group_ resignFirstResponder]);
    [group_ setEnabled:NO];
    EXPECT_FALSE([group_ acceptsFirstResponder]);
    [group_ setEnabled:YES];
    [group_ renewRows:0 columns:1];
    EXPECT_FALSE([group_ acceptsFirstResponder]);
}

// The end.

TEST_F(ChoiceMessagesTest, LeavesNothingBehindWhenItGoes)
{
    const auto live = [&] {
        const ScopedPool pool;
        NSMatrix* const group =
            newGroup(classNamed("PDEChoiceMatrix13_v100_"), NSMakeRect(0, 0, 300, 43));
        [around_ addSubview:group];
        [group renewRows:12 columns:1];
        [window_ displayIfNeeded];
        turnWheel(1);
        [group removeFromSuperview];
        [group release];
    };
    live(); // the toolkit keeps some for good
    const LivingObjects groups("PDEChoiceMatrix13_v100_");
    const LivingObjects scrollers("NSScroller");
    const LivingObjects arrays("GSMutableArray");
    const LivingObjects tips("GSTTProvider");
    const LivingObjects places("GSTrackingRect");
    for (int i = 0; i < 3; ++i)
        live();
    EXPECT_EQ(groups.count(), 0);
    EXPECT_EQ(scrollers.count(), 0);
    EXPECT_EQ(arrays.count(), 0);
    EXPECT_EQ(tips.count(), 0);
    EXPECT_EQ(places.count(), 0);
}

TEST_F(ChoiceMessagesTest, IsNotToldByAScrollerThatOutlivesIt)
{
    NSScroller* kept = nil;
    {
        const ScopedPool pool;
        setChoices(12);
        draw();
        kept = [scroller() retain];
        [group_ removeFromSuperview];
        [group_ release];
        group_ = nil;
    }
    EXPECT_EQ([kept target], nil);
    EXPECT_EQ([kept retainCount], 1u);
    [kept release];
    EXPECT_EQ(tipLog.removed.size(), tipLog.added.size());
}
