#import "pagesettings/PDEChoiceMatrix.h"

#include <algorithm>
#include <limits>

namespace {

constexpr CGFloat kFontSize = 12;
constexpr CGFloat kTightFontSize = 11;
constexpr NSToolTipTag kNoToolTip = -1;

NSRect rectOf(const ChoiceFrame& frame)
{
    return NSMakeRect(frame.x, frame.y, frame.width, frame.height);
}

float widthOf(NSCell* cell)
{
    // A point for the rounding of glyph positions when it is drawn.
    return static_cast<float>([cell cellSize].width) + 1;
}

// Sets a flag while it lives.
class Raised
{
  public:
    explicit Raised(BOOL& flag) : flag_(flag), before_(flag) { flag_ = YES; }
    ~Raised() { flag_ = before_; }
    Raised(const Raised&) = delete;
    Raised& operator=(const Raised&) = delete;

  private:
    BOOL& flag_;
    BOOL before_;
};

} // namespace

@interface PDEChoiceMatrix13_v100_ (Picture)
- (void)takeToolTipsAway;
- (TitleHashes)titles;
- (const ChoiceGrid&)grid;
- (void)showRow:(NSInteger)row;
- (void)measure;
- (void)placeScroller;
- (void)placeToolTips;
- (void)scrollToLine:(int32_t)line;
- (void)forgetPicture;
- (void)enableCells;
@end

@implementation PDEChoiceMatrix13_v100_

- (void)dealloc
{
    [self takeToolTipsAway];
    [mToolTipTags release];
    [mScroller setTarget:nil];
    [mScroller release];
    [super dealloc];
}

// MARK: Rows

- (void)renewRows:(NSInteger)rows columns:(NSInteger)columns
{
    const NSInteger selected = [self selectedRow];
    [super renewRows:rows columns:columns];
    [self enableCells];
    [self forgetPicture];
    // A cell taken out of use keeps its mark, and would show it when it comes back.
    for (NSCell* cell in [self cells])
        [cell setState:NSOffState];
    [self selectCellAtRow:(selected < rows ? std::max<NSInteger>(selected, 0) : 0) column:0];
}

- (void)putCell:(NSCell*)cell atRow:(NSInteger)row column:(NSInteger)column
{
    const Raised inToolkit(mInToolkit);
    [super putCell:cell atRow:row column:column];
    [self setNeedsDisplay:YES];
}

- (void)selectCellAtRow:(NSInteger)row column:(NSInteger)column
{
    const Raised inToolkit(mInToolkit);
    [super selectCellAtRow:row column:column];
    [self showRow:row];
}

- (void)selectCell:(NSCell*)cell
{
    const Raised inToolkit(mInToolkit);
    [super selectCell:cell];
    [self showRow:[self selectedRow]];
}

- (void)scrollCellToVisibleAtRow:(NSInteger)row column:(NSInteger)column
{
    [self showRow:row];
}

// MARK: Enabled

- (BOOL)isEnabled
{
    return !mDisabled;
}

- (void)setEnabled:(BOOL)enabled
{
    mDisabled = !enabled;
    [self enableCells];
}

// MARK: Picture

- (BOOL)isOpaque
{
    return NO;
}

- (void)sizeToCells
{
    [self forgetPicture];
}

- (void)setFrameSize:(NSSize)size
{
    [super setFrameSize:size];
    [self forgetPicture];
}

// The toolkit's own version spreads a change of size over cell sizes and spacing, which have no
// meaning here.
- (void)resizeWithOldSuperviewSize:(NSSize)oldSize
{
    const BOOL autosizes = [self autosizesCells];
    [self setAutosizesCells:NO];
    [super resizeWithOldSuperviewSize:oldSize];
    [self setAutosizesCells:autosizes];
    [self forgetPicture];
}

- (NSRect)cellFrameAtRow:(NSInteger)row column:(NSInteger)column
{
    // All of them will be drawn again.
    if (mInToolkit)
        return NSZeroRect;
    if (column != 0)
        return NSZeroRect;
    return rectOf(frameOfChoice([self grid], static_cast<int32_t>(row)));
}

- (BOOL)getRow:(NSInteger*)row column:(NSInteger*)column forPoint:(NSPoint)point
{
    const int32_t index =
        choiceAt([self grid], static_cast<float>(point.x), static_cast<float>(point.y));
    if (row)
        *row = index;
    if (column)
        *column = index == kNoChoice ? -1 : 0;
    return index != kNoChoice;
}

// A choice has no cursor of its own; the toolkit would ask where each of them stands.
- (void)resetCursorRects
{
}

- (void)drawRect:(NSRect)rect
{
    const Raised drawing(mDrawing);
    [self grid];
    [self placeToolTips];
    const int32_t end = endOfVisibleChoices(mGrid);
    for (int32_t row = firstVisibleChoice(mGrid); row < end; ++row)
        [self drawCellAtRow:row column:0];
}

- (void)drawCellAtRow:(NSInteger)row column:(NSInteger)column
{
    const NSRect frame = [self cellFrameAtRow:row column:column];
    if (!mDrawing) {
        [self setNeedsDisplayInRect:frame];
        return;
    }
    NSCell* const cell = [self cellAtRow:row column:column];
    [cell setShowsFirstResponder:(row == [self selectedRow] && [[self window] isKeyWindow] &&
                                  [[self window] firstResponder] == self)];
    [cell drawWithFrame:frame inView:self];
    [cell setShowsFirstResponder:NO];
}

- (void)highlightCell:(BOOL)highlight atRow:(NSInteger)row column:(NSInteger)column
{
    [[self cellAtRow:row column:column] setHighlighted:highlight];
    [self setNeedsDisplayInRect:[self cellFrameAtRow:row column:column]];
}

- (void)updateCell:(NSCell*)cell
{
    if (!mDrawing)
        [self setNeedsDisplay:YES];
}

// MARK: Mouse and keyboard

- (void)mouseDown:(NSEvent*)event
{
    const NSPoint point = [self convertPoint:[event locationInWindow] fromView:nil];
    if ([self isEnabled] && [self getRow:NULL column:NULL forPoint:point])
        [super mouseDown:event];
}

- (void)scrollWheel:(NSEvent*)event
{
    const ChoiceGrid& grid = [self grid];
    const CGFloat upwards = [event deltaY];
    if (grid.scrolls && upwards > 0)
        [self scrollToLine:grid.firstLine - 1];
    else if (grid.scrolls && upwards < 0)
        [self scrollToLine:grid.firstLine + 1];
    else
        [super scrollWheel:event];
}

- (void)keyDown:(NSEvent*)event
{
    const NSUInteger modifiers = NSCommandKeyMask | NSControlKeyMask | NSAlternateKeyMask;
    NSString* const characters = [event characters];
    if ([characters length] == 0 || ([event modifierFlags] & modifiers) != 0) {
        [super keyDown:event];
        return;
    }

    const ChoiceGrid& grid = [self grid];
    const auto selected = static_cast<int32_t>([self selectedRow]);
    int32_t next = kNoChoice;
    switch ([characters characterAtIndex:0]) {
    case NSUpArrowFunctionKey:
        next = choiceAfterMove(grid, selected, ChoiceMove::Up);
        break;
    case NSDownArrowFunctionKey:
        next = choiceAfterMove(grid, selected, ChoiceMove::Down);
        break;
    case NSLeftArrowFunctionKey:
        next = choiceAfterMove(grid, selected, ChoiceMove::Left);
        break;
    case NSRightArrowFunctionKey:
        next = choiceAfterMove(grid, selected, ChoiceMove::Right);
        break;
    case ' ':
        next = choiceAfterMove(grid, selected, ChoiceMove::Stay);
        break;
    default:
        [super keyDown:event];
        return;
    }
    if (![self isEnabled])
        return;
    if (next == selected) {
        [self showRow:next];
        return;
    }
    [self selectCellAtRow:next column:0];
    [self sendAction];
}

- (BOOL)acceptsFirstResponder
{
    return [self isEnabled] && [self numberOfRows] > 0;
}

// Does not scroll to the chosen one: the focus may come by a click, which must hit what the user
// sees under the mouse.
- (BOOL)becomeFirstResponder
{
    [self setNeedsDisplay:YES];
    return [super becomeFirstResponder];
}

- (BOOL)resignFirstResponder
{
    [self setNeedsDisplay:YES];
    return [super resignFirstResponder];
}

@end

@implementation PDEChoiceMatrix13_v100_ (Picture)

// Titles are set cell by cell, of which the matrix hears nothing.
- (TitleHashes)titles
{
    TitleHashes titles{};
    NSInteger row = 0;
    for (NSUInteger& title : titles)
        title = [[[self cellAtRow:row++ column:0] title] hash];
    return titles;
}

- (const ChoiceGrid&)grid
{
    [self measure];
    const auto row = static_cast<int32_t>(mRowToShow - 1);
    mRowToShow = 0;
    [self scrollToLine:firstLineShowing(mGrid, row)];
    return mGrid;
}

// Done when somebody asks where the choices stand: a group that is being filled is selected in
// several times before it has its titles, and to measure them is most of what it costs.
- (void)showRow:(NSInteger)row
{
    mRowToShow = row + 1;
    [self setNeedsDisplay:YES];
}

- (void)measure
{
    const TitleHashes titles = [self titles];
    if (mGridIsValid && mGridTitles == titles)
        return;
    mGridIsValid = YES;
    mGridTitles = titles;

    const NSSize size = [self bounds].size;
    const auto width = static_cast<float>(size.width);
    const auto height = static_cast<float>(size.height);
    const auto count = static_cast<int32_t>(
        std::min<NSInteger>([self numberOfRows], std::numeric_limits<int32_t>::max()));
    const bool measured = count <= static_cast<int32_t>(titles.size());

    // The smaller font only where the usual one does not fit.
    for (const CGFloat points : {kFontSize, kTightFontSize}) {
        if (!measured && points == kFontSize)
            continue;
        NSFont* const font = [NSFont systemFontOfSize:points];
        ColumnWishes wishes{};
        int32_t row = 0;
        for (NSCell* cell in [self cells]) {
            if (![[cell font] isEqual:font])
                [cell setFont:font];
            if ([cell lineBreakMode] != NSLineBreakByTruncatingTail)
                [cell setLineBreakMode:NSLineBreakByTruncatingTail];
            float& wish = wishes[row++ % columnsForChoices(count)];
            if (measured)
                wish = std::max(wish, widthOf(cell));
        }
        mGrid = layOutChoices(count, width, height, mGrid.firstLine, wishes);
        if (meetsWishes(mGrid, wishes))
            break;
    }
    [self placeScroller];
    mToolTipsStand = NO;
}

- (void)placeScroller
{
    if (!mGrid.scrolls) {
        [mScroller removeFromSuperview];
        return;
    }
    const NSSize size = [self bounds].size;
    const NSRect frame = rectOf(
        frameOfScroller(mGrid, static_cast<float>(size.width), static_cast<float>(size.height)));
    if (!mScroller) {
        mScroller = [[NSScroller alloc] initWithFrame:frame];
        [mScroller setTarget:self];
        [mScroller setAction:@selector(scrollerMoved:)];
    }
    [mScroller setFrame:frame];
    [mScroller setEnabled:YES];
    [mScroller setFloatValue:scrollerValue(mGrid) knobProportion:scrollerKnob(mGrid)];
    if ([mScroller superview] != self)
        [self addSubview:mScroller];
}

- (void)scrollerMoved:(id)sender
{
    switch ([mScroller hitPart]) {
    case NSScrollerDecrementLine:
    case NSScrollerDecrementPage:
        [self scrollToLine:mGrid.firstLine - 1];
        break;
    case NSScrollerIncrementLine:
    case NSScrollerIncrementPage:
        [self scrollToLine:mGrid.firstLine + 1];
        break;
    default:
        [self scrollToLine:firstLineAtScrollerValue(mGrid, [mScroller floatValue])];
        break;
    }
}

// Every choice has a place for a tip; whether it needs one is measured when the mouse rests there.
- (void)placeToolTips
{
    if (mToolTipsStand)
        return;
    mToolTipsStand = YES;
    [self takeToolTipsAway];
    if (!mToolTipTags)
        mToolTipTags = [[NSMutableArray alloc] init];
    const int32_t end = endOfVisibleChoices(mGrid);
    for (int32_t row = firstVisibleChoice(mGrid); row < end; ++row) {
        const NSToolTipTag tag = [self addToolTipRect:rectOf(frameOfChoice(mGrid, row)) owner:self
                                             userData:NULL];
        // While another tip is up the toolkit refuses: the next drawing tries again.
        mToolTipsStand = mToolTipsStand && tag != kNoToolTip;
        [mToolTipTags addObject:[NSNumber numberWithInteger:tag]];
    }
}

// One by one: taken away all at once, the toolkit skips and leaks every other one.
- (void)takeToolTipsAway
{
    for (NSNumber* tag in mToolTipTags)
        [self removeToolTip:[tag integerValue]];
    [mToolTipTags removeAllObjects];
}

- (NSString*)view:(NSView*)view
    stringForToolTip:(NSToolTipTag)tag
               point:(NSPoint)point
            userData:(void*)data
{
    NSInteger row = kNoChoice;
    if (![self getRow:&row column:NULL forPoint:point])
        return nil;
    // A choice that does not fit tells its whole title.
    NSCell* const cell = [self cellAtRow:row column:0];
    return widthOf(cell) > NSWidth([self cellFrameAtRow:row column:0]) ? [cell title] : nil;
}

- (void)scrollToLine:(int32_t)line
{
    const int32_t clamped = clampedFirstLine(mGrid, line);
    if (clamped == mGrid.firstLine)
        return;
    mGrid.firstLine = clamped;
    [mScroller setFloatValue:scrollerValue(mGrid) knobProportion:scrollerKnob(mGrid)];
    mToolTipsStand = NO;
    if (!mDrawing)
        [self setNeedsDisplay:YES];
}

- (void)forgetPicture
{
    mGridIsValid = NO;
    [self setNeedsDisplay:YES];
}

- (void)enableCells
{
    for (NSCell* cell in [self cells])
        [cell setEnabled:!mDisabled];
}

@end
