// Edges on whole pixels, and lines of text.
//
//     Drawing_test [--scale 1.5]

#include "dialog/theme/Drawing.h"
#include "dialog/theme/TapeTheme.h"

#include "support/ToolkitTest.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string_view>

@interface Paper : NSView
{
  @public
    BOOL isFlipped_;
    NSString* text_;
    NSRect place_;
    dialog::Role role_;
}
@end

@implementation Paper

- (BOOL)isFlipped
{
    return isFlipped_;
}

- (void)drawRect:(NSRect)rect
{
    [[NSColor whiteColor] set];
    NSRectFill([self bounds]);
    dialog::drawLine(text_, place_, [NSFont systemFontOfSize:13], role_);
}

@end

namespace {

using namespace dialog;

double scaleAsked = 1;

class Stage
{
  public:
    Stage()
        : window_([[NSWindow alloc] initWithContentRect:NSMakeRect(50, 50, 200, 60)
                                              styleMask:NSBorderlessWindowMask
                                                backing:NSBackingStoreBuffered
                                                  defer:NO]),
          paper_([[[Paper alloc] initWithFrame:NSMakeRect(0, 0, 200, 60)] autorelease])
    {
        [window_ setReleasedWhenClosed:NO];
        [window_ setContentView:paper_];
        [window_ orderFront:nil];
    }
    ~Stage()
    {
        [window_ orderOut:nil];
        [window_ release];
    }
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    Paper* paper() const { return paper_; }

    NSView* part(NSRect frame, BOOL isFlipped) const
    {
        Paper* const part = [[[Paper alloc] initWithFrame:frame] autorelease];
        part->isFlipped_ = isFlipped;
        [paper_ addSubview:part];
        return part;
    }

    NSBitmapImageRep* drawn(NSString* text, NSRect place, Role role = Role::Text) const
    {
        paper_->text_ = text;
        paper_->place_ = place;
        paper_->role_ = role;
        [window_ display];
        [paper_ lockFocus];
        NSBitmapImageRep* const picture =
            [[[NSBitmapImageRep alloc] initWithFocusedViewRect:[paper_ bounds]] autorelease];
        [paper_ unlockFocus];
        return picture;
    }

  private:
    NSWindow* window_;
    Paper* paper_;
};

Color pixel(NSBitmapImageRep* picture, long x, long y)
{
    NSUInteger samples[5] = {};
    [picture getPixel:samples atX:x y:y];
    return {static_cast<std::uint8_t>(samples[0]), static_cast<std::uint8_t>(samples[1]),
            static_cast<std::uint8_t>(samples[2])};
}

// How many pixels from column `first` to before column `end` are not white.
long ink(NSBitmapImageRep* picture, long first, long end)
{
    long count = 0;
    for (long x = first; x < end; ++x) {
        for (long y = 0; y < [picture pixelsHigh]; ++y) {
            count += pixel(picture, x, y) == Color{255, 255, 255} ? 0 : 1;
        }
    }
    return count;
}

long inkIn(NSBitmapImageRep* picture)
{
    return ink(picture, 0, [picture pixelsWide]);
}

bool isSame(NSBitmapImageRep* one, NSBitmapImageRep* other)
{
    return [[one TIFFRepresentation] isEqualToData:[other TIFFRepresentation]];
}

void expectNear(NSRect found, NSRect expected)
{
    EXPECT_NEAR(NSMinX(found), NSMinX(expected), 1e-4);
    EXPECT_NEAR(NSMinY(found), NSMinY(expected), 1e-4);
    EXPECT_NEAR(NSWidth(found), NSWidth(expected), 1e-4);
    EXPECT_NEAR(NSHeight(found), NSHeight(expected), 1e-4);
}

NSRect atScale(NSRect one, NSRect oneAndAHalf, NSRect two)
{
    return scaleAsked == 1 ? one : scaleAsked == 2 ? two : oneAndAHalf;
}

TEST(PixelGrid, TakesWholePointsWithoutAWindow)
{
    NSView* const view = [[[NSView alloc] initWithFrame:NSMakeRect(0.5, 0.5, 50, 20)] autorelease];
    expectNear(PixelGrid(view).snapped(NSMakeRect(0.4, 0.6, 1.2, 1)), NSMakeRect(0, 0, 2, 2));
}

// From x 1.3 to 3.3 and y 0.4 to 3.7 in a view whose corner is at 7, 3 of the window: at one and a
// half pixels from 12.45 to 15.45 and 5.1 to 10.05, which is next to 12 to 15 and 5 to 10.
TEST(PixelGrid, MovesEveryEdgeToTheNearestPixelOfTheWindow)
{
    const Stage stage;
    const PixelGrid grid(stage.part(NSMakeRect(7, 3, 50, 20), NO));
    expectNear(grid.snapped(NSMakeRect(1.3, 0.4, 2, 3.3)),
               atScale(NSMakeRect(1, 0, 2, 4), NSMakeRect(1, 1.0 / 3, 2, 10.0 / 3),
                       NSMakeRect(1.5, 0.5, 2, 3)));
}

// The upper edge is at 23.5 of the window: at one and a half pixels, 35.25, y goes from 34.65 to
// 29.7, which is next to 35 and 30.
TEST(PixelGrid, CountsDownwardsInAFlippedView)
{
    const Stage stage;
    const PixelGrid grid(stage.part(NSMakeRect(7, 3, 50, 20.5), YES));
    expectNear(grid.snapped(NSMakeRect(1.3, 0.4, 2, 3.3)),
               atScale(NSMakeRect(1, 0.5, 2, 3), NSMakeRect(1, 1.0 / 6, 2, 10.0 / 3),
                       NSMakeRect(1.5, 0.5, 2, 3)));
}

TEST(OnPixels, IsTheGridOfOneRectangle)
{
    const Stage stage;
    expectNear(onPixels(NSMakeRect(1.3, 0.4, 2, 3.3), stage.part(NSMakeRect(7, 3, 50, 20), NO)),
               atScale(NSMakeRect(1, 0, 2, 4), NSMakeRect(1, 1.0 / 3, 2, 10.0 / 3),
                       NSMakeRect(1.5, 0.5, 2, 3)));
}

TEST(ThinLine, IsAWholeNumberOfPixelsOfTheWindow)
{
    const Stage stage;
    EXPECT_NEAR(pixelsPerPoint(stage.paper()), scaleAsked, 1e-6);
    const double pixels = thinLine(stage.paper()) * scaleAsked;
    EXPECT_NEAR(pixels, std::round(pixels), 1e-6);
    EXPECT_EQ(pixelsPerPoint([[[NSView alloc] init] autorelease]), 1);
}

TEST(LineDrawer, PutsTheTextInTheMiddleOfAnyHeight)
{
    const Stage stage;
    for (const BOOL isFlipped : {NO, YES}) {
        stage.paper()->isFlipped_ = isFlipped;
        NSBitmapImageRep* const high = stage.drawn(@"24 mm tape", NSMakeRect(10, 10, 150, 40));
        EXPECT_GT(inkIn(high), 0);
        EXPECT_TRUE(isSame(high, stage.drawn(@"24 mm tape", NSMakeRect(10, 20, 150, 20))));
        EXPECT_FALSE(isSame(high, stage.drawn(@"24 mm tape", NSMakeRect(10, 10, 150, 20))));
    }
}

TEST(LineDrawer, CutsALongTextAtTheEndWithAnEllipsis)
{
    const Stage stage;
    const auto cutTo = [&](NSString* text, double width) {
        return stage.drawn(text, NSMakeRect(10, 10, width, 40));
    };
    NSDictionary* const attributes = @{NSFontAttributeName : [NSFont systemFontOfSize:13]};
    for (NSString* text : {@"a long text without end", @"llllllllllllllllllllll"}) {
        NSString* const whole = [text substringToIndex:9];
        NSString* const shown = [whole stringByAppendingString:@"\u2026"];
        const double width = [shown sizeWithAttributes:attributes].width;
        NSBitmapImageRep* const expected = cutTo(shown, 180);
        EXPECT_TRUE(isSame(cutTo(text, width), expected));
        EXPECT_FALSE(isSame(cutTo(text, width - 0.5), expected));
        EXPECT_FALSE(isSame(cutTo(whole, 180), expected));
        EXPECT_TRUE(isSame(cutTo(whole, width), cutTo(whole, 180)));
    }
    const double alone = [@"\u2026" sizeWithAttributes:attributes].width;
    EXPECT_TRUE(isSame(cutTo(@"a long text", alone + 1), cutTo(@"\u2026", 180)));
}

TEST(LineDrawer, CutsNoLetterInTwo)
{
    const Stage stage;
    NSString* const shown = @"to\u2026";
    NSDictionary* const attributes = @{NSFontAttributeName : [NSFont systemFontOfSize:13]};
    const double width = [shown sizeWithAttributes:attributes].width;
    NSBitmapImageRep* const expected = stage.drawn(shown, NSMakeRect(10, 10, 180, 40));
    // An o with an accent of its own, which has no width.
    EXPECT_TRUE(
        isSame(stage.drawn(@"too\u0301 long", NSMakeRect(10, 10, width + 4, 40)), expected));
}

TEST(LineDrawer, WritesInTheColourOfTheRole)
{
    const Stage stage;
    // A letter that is a block without gaps.
    for (const Role role : {Role::Text, Role::Accent, Role::Failure}) {
        NSBitmapImageRep* const picture =
            stage.drawn(@"\u2588\u2588\u2588", NSMakeRect(10, 10, 100, 40), role);
        EXPECT_EQ(pixel(picture, std::lround(22 * scaleAsked), [picture pixelsHigh] / 2),
                  color(role, Appearance::Light));
    }
}

TEST(LineDrawer, DrawsNothingWithoutATextOrRoom)
{
    const Stage stage;
    EXPECT_EQ(inkIn(stage.drawn(@"", NSMakeRect(10, 10, 100, 40))), 0);
    EXPECT_EQ(inkIn(stage.drawn(nil, NSMakeRect(10, 10, 100, 40))), 0);
    EXPECT_EQ(inkIn(stage.drawn(@"24 mm", NSMakeRect(10, 10, 0, 40))), 0);
    EXPECT_EQ(inkIn(stage.drawn(@"24 mm", NSMakeRect(10, 10, 100, 0))), 0);
}

} // namespace

int main(int argc, char** argv, char** environment)
{
    testing::InitGoogleTest(&argc, argv);
    if (argc > 2 && std::string_view(argv[1]) == "--scale") {
        scaleAsked = std::strtod(argv[2], nullptr);
    }
    return runToolkitTests(argv, environment, {.scale = scaleAsked, .withApplication = [] {
                                                   useTheme(Appearance::Light);
                                               }});
}
