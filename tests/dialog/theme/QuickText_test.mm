// Texts measured and drawn by the toolkit's typesetter and without it, side by side.

#include "dialog/theme/QuickText.h"

#include "support/ToolkitTest.h"

#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

@interface Sheet : NSView
{
  @public
    BOOL isFlipped_;
    NSArray* texts_;
    NSMutableDictionary* attributes_;
    int way_; // of drawing: 0 in a room, 1 at a point, 2 as a text field draws
    CGFloat room_;
}
@end

@implementation Sheet

- (BOOL)isFlipped
{
    return isFlipped_;
}

- (void)drawRect:(NSRect)rect
{
    [[NSColor whiteColor] set];
    NSRectFill([self bounds]);
    CGFloat y = 5;
    for (NSString* text in texts_) {
        const NSRect place = NSMakeRect(7.25, y, room_, 30);
        if (way_ == 1) {
            [text drawAtPoint:place.origin withAttributes:attributes_];
        } else if (way_ == 2) {
            [[[[NSAttributedString alloc] initWithString:text attributes:attributes_] autorelease]
                drawInRect:place];
        } else {
            [text drawInRect:place withAttributes:attributes_];
        }
        y += 26;
    }
}

@end

namespace {

constexpr CGFloat kWidth = 420;
double scaleAsked = 1;

NSArray* texts()
{
    return @[
        @"24 mm tape", @"Tape used 100.0 mm, of it 6.0 mm margins", @"The file does not fit", @"W",
        @"sample-tape (PPD file)", @" spaces at the ends ", @"Bandl\u00E4nge \u00D7 2",
        @"two\nlines", @"\u30C6\u30FC\u30D7", @"e\u0301 combined",
        @"\u05D0\u05D1\u05D2 from the right", @"",
        @"a text that is longer than its room, and goes on and on until it has to be cut or broken"
    ];
}

std::vector<NSTextAlignment> alignments()
{
    return {NSLeftTextAlignment, NSCenterTextAlignment, NSRightTextAlignment,
            NSNaturalTextAlignment, NSJustifiedTextAlignment};
}

NSMutableDictionary* attributes(NSFont* font, NSTextAlignment alignment)
{
    NSMutableParagraphStyle* const style =
        [[[NSParagraphStyle defaultParagraphStyle] mutableCopy] autorelease];
    [style setAlignment:alignment];
    [style setLineBreakMode:NSLineBreakByTruncatingTail];
    return [NSMutableDictionary dictionaryWithObjectsAndKeys:font, NSFontAttributeName, style,
                                                             NSParagraphStyleAttributeName,
                                                             [NSColor colorWithCalibratedRed:0.1
                                                                                       green:0.3
                                                                                        blue:0.6
                                                                                       alpha:1],
                                                             NSForegroundColorAttributeName, nil];
}

NSArray* fonts()
{
    return @[ [NSFont systemFontOfSize:9], [NSFont boldSystemFontOfSize:13] ];
}

class Stage
{
  public:
    Stage()
    {
        const CGFloat height = 20 + 26 * static_cast<CGFloat>([texts() count]);
        window_ = [[NSWindow alloc] initWithContentRect:NSMakeRect(50, 50, kWidth, height)
                                              styleMask:NSBorderlessWindowMask
                                                backing:NSBackingStoreBuffered
                                                  defer:NO];
        [window_ setReleasedWhenClosed:NO];
        sheet_ = [[[Sheet alloc] initWithFrame:NSMakeRect(0, 0, kWidth, height)] autorelease];
        sheet_->isFlipped_ = YES;
        sheet_->texts_ = texts();
        sheet_->room_ = 390;
        [window_ setContentView:sheet_];
        [window_ orderFront:nil];
    }
    ~Stage() { [window_ release]; }
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    Sheet* sheet() const { return sheet_; }
    std::string pixels() const
    {
        [window_ display];
        [sheet_ lockFocus];
        NSBitmapImageRep* const picture =
            [[[NSBitmapImageRep alloc] initWithFocusedViewRect:[sheet_ bounds]] autorelease];
        [sheet_ unlockFocus];
        return {reinterpret_cast<const char*>([picture bitmapData]),
                static_cast<std::size_t>([picture bytesPerRow] * [picture pixelsHigh])};
    }

  private:
    NSWindow* window_;
    Sheet* sheet_;
};

// Everything that is drawn, and everything that is measured, in the same order each time.
struct Looks
{
    std::vector<std::string> pictures;
    std::vector<std::string> names;
    std::vector<NSSize> sizes;
};

Looks looks()
{
    Looks all;
    const Stage stage;
    Sheet* const sheet = stage.sheet();
    for (NSFont* font in fonts()) {
        for (const NSTextAlignment alignment : alignments()) {
            sheet->attributes_ = attributes(font, alignment);
            for (NSString* text in texts()) {
                all.sizes.push_back([text sizeWithAttributes:sheet->attributes_]);
            }
            for (sheet->way_ = 0; sheet->way_ < 3; ++sheet->way_) {
                for (const BOOL flipped : {YES, NO}) {
                    sheet->isFlipped_ = flipped;
                    all.pictures.push_back(stage.pixels());
                    all.names.push_back(std::string([[font fontName] UTF8String]) + " " +
                                        std::to_string([font pointSize]) + ", aligned " +
                                        std::to_string(alignment) + ", way " +
                                        std::to_string(sheet->way_) +
                                        (flipped ? "" : ", counting from the bottom"));
                }
            }
        }
    }
    // What is not known here is the toolkit's.
    sheet->way_ = 0;
    sheet->isFlipped_ = YES;
    sheet->attributes_ = attributes([NSFont systemFontOfSize:12], NSLeftTextAlignment);
    [sheet->attributes_ setObject:[NSNumber numberWithInt:NSSingleUnderlineStyle]
                           forKey:NSUnderlineStyleAttributeName];
    all.pictures.push_back(stage.pixels());
    all.names.push_back("underlined");
    NSMutableParagraphStyle* const indented =
        [[[NSParagraphStyle defaultParagraphStyle] mutableCopy] autorelease];
    [indented setFirstLineHeadIndent:25];
    sheet->attributes_ = attributes([NSFont systemFontOfSize:12], NSLeftTextAlignment);
    [sheet->attributes_ setObject:indented forKey:NSParagraphStyleAttributeName];
    all.pictures.push_back(stage.pixels());
    all.names.push_back("indented");
    return all;
}

TEST(QuickText, LooksAndMeasuresLikeTheToolkitsToThePixel)
{
    const Looks before = looks();
    dialog::setTextQuickly();
    const Looks after = looks();
    ASSERT_EQ(before.pictures.size(), after.pictures.size());
    for (std::size_t i = 0; i < before.pictures.size(); ++i) {
        EXPECT_TRUE(before.pictures[i] == after.pictures[i]) << before.names[i];
    }
    ASSERT_EQ(before.sizes.size(), after.sizes.size());
    for (std::size_t i = 0; i < before.sizes.size(); ++i) {
        EXPECT_EQ(before.sizes[i].width, after.sizes[i].width) << i;
        EXPECT_EQ(before.sizes[i].height, after.sizes[i].height) << i;
    }
    // That something is drawn at all.
    EXPECT_NE(before.pictures[0], before.pictures[6]);
}

} // namespace

int main(int argc, char** argv, char** environment)
{
    testing::InitGoogleTest(&argc, argv);
    if (argc > 2 && std::string_view(argv[1]) == "--scale") {
        scaleAsked = std::strtod(argv[2], nullptr);
    }
    return runToolkitTests(argv, environment, {.scale = scaleAsked});
}
