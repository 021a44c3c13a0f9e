#include "dialog/features/ConflictBar.h"

#include "dialog/features/ConflictBarLayout.hpp"
#include "dialog/theme/TapeTheme.h"

namespace {

// What the field keeps free at both sides of its text.
constexpr double kAroundText = 6;

NSRect toRect(const dialog::Frame& frame)
{
    return NSMakeRect(frame.x, frame.y, frame.width, frame.height);
}

} // namespace

@interface ConflictBar (Placing)
- (void)place;
- (double)titleWidth;
- (double)textHeightForWidth:(double)width;
@end

@implementation ConflictBar

- (id)initWithTarget:(id)target action:(SEL)action
{
    self = [super initWithFrame:NSZeroRect];
    if (self != nil) {
        sentence_ = [[NSTextField alloc] initWithFrame:NSZeroRect];
        [sentence_ setEditable:NO];
        [sentence_ setSelectable:NO];
        [sentence_ setBezeled:NO];
        [sentence_ setBordered:NO];
        [sentence_ setDrawsBackground:NO];
        [sentence_ setFont:[NSFont systemFontOfSize:12]];
        [sentence_ setTextColor:dialog::themeColor(dialog::Role::Failure)];
        [[sentence_ cell] setWraps:YES];
        remedy_ = [[NSButton alloc] initWithFrame:NSZeroRect];
        [remedy_ setBezelStyle:NSRoundedBezelStyle];
        [remedy_ setFont:[NSFont systemFontOfSize:12]];
        [[remedy_ cell] setLineBreakMode:NSLineBreakByTruncatingTail];
        [remedy_ setTarget:target];
        [remedy_ setAction:action];
        [self addSubview:sentence_];
        [self addSubview:remedy_];
    }
    return self;
}

- (void)dealloc
{
    [remedy_ setTarget:nil];
    [sentence_ release];
    [remedy_ release];
    [super dealloc];
}

- (NSTextField*)sentenceField
{
    return sentence_;
}

- (NSButton*)remedyButton
{
    return remedy_;
}

- (void)showSentence:(NSString*)sentence remedy:(NSString*)title
{
    [sentence_ setStringValue:sentence];
    [sentence_ setToolTip:sentence];
    [remedy_ setTitle:title == nil ? @"" : title];
    [remedy_ setToolTip:title];
    [remedy_ setHidden:[title length] == 0];
    [self place];
}

- (void)setFrame:(NSRect)frame
{
    [super setFrame:frame];
    [self place];
}

- (double)titleWidth
{
    NSDictionary* const attributes = @{NSFontAttributeName : [remedy_ font]};
    return [remedy_ isHidden] ? 0 : [[remedy_ title] sizeWithAttributes:attributes].width;
}

- (double)textHeightForWidth:(double)width
{
    if (width <= kAroundText) {
        return 0; // not placed yet, and the toolkit complains of such a width
    }
    NSDictionary* const attributes = @{NSFontAttributeName : [sentence_ font]};
    NSAttributedString* const text =
        [[[NSAttributedString alloc] initWithString:[sentence_ stringValue]
                                         attributes:attributes] autorelease];
    const NSRect needed = [text boundingRectWithSize:NSMakeSize(width - kAroundText, 1000)
                                             options:NSStringDrawingUsesLineFragmentOrigin];
    return NSHeight(needed);
}

- (double)heightForWidth:(double)width
{
    const dialog::Frame sentence =
        dialog::layOutConflictBar({width, 0}, [self titleWidth]).sentence;
    return dialog::conflictBarHeight([self textHeightForWidth:sentence.width]);
}

- (void)place
{
    const NSSize size = [self bounds].size;
    const dialog::ConflictBarLayout layout = dialog::layOutConflictBar(
        {static_cast<double>(size.width), static_cast<double>(size.height)}, [self titleWidth]);
    [sentence_ setFrame:toRect(dialog::sentenceInTheMiddle(
                            layout.sentence, [self textHeightForWidth:layout.sentence.width]))];
    [remedy_ setFrame:toRect(layout.remedy)];
    [self setNeedsDisplay:YES];
}

@end
