#import "pagesettings/PDEChoiceMatrix.h"

#include <algorithm>
#include <limits>

namespace {

// Above that the titles are not measured; such a group scrolls, in even columns.
constexpr NSInteger kMostMeasured = 2 * kMostColumns;
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

} // namespace

@interface PDEChoiceMatrix13_v100_ (Picture)
- (void)takeToolTipsAway;
- (NSUInteger)titles;
- (const ChoiceGrid&)grid;
- (int32_t)takeRowToScroll;
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
    for (NSInteger row = 0; row < rows; ++row)
        [[self cellAtRow:row column:0] setState:NSOffState];
    if (rows > 0 && columns > 0)
        [self selectCellAtRow:(selected >= 0 && selected < rows ? selected : 0) column:0];
}

- (void)putCell:(NSCell*)cell atRow:(NSInteger)row column:(NSInteger)column
{
    mInToolkit = YES;
    [super putCell:cell atRow:row column:column];
    mInToolkit = NO;
    [self setNeedsDisplay:YES];
}

- (void)selectCellAtRow:(NSInteger)row column:(NSInteger)column
{
    mInToolkit = YES;
    [super selectCellAtRow:row column:column];
    mInToolkit = NO;
    [self scrollCellToVisibleAtRow:row column:column];
    [self setNeedsDisplay:YES];
}

- (void)selectCell:(NSCell*)cell
{
    mInToolkit = YES;
    [super selectCell:cell];
    mInToolkit = NO;
    [self scrollCellToVisibleAtRow:[self selectedRow] column:0];
    [self setNeedsDisplay:YES];
}

// Done when somebody asks where the choices stand: a group that is being filled is selected in
// several times before it has its titles, and to measure them is most of what it costs.
- (void)scrollCellToVisibleAtRow:(NSInteger)row column:(NSInteger)column
{
    if (row < 0 || row >= [self numberOfRows])
        return;
    mRowToScroll = row + 1;
    [self setNeedsDisplay:YES];
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
    [self setNeedsDisplay:YES];
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
    const ChoiceGrid& grid = [self grid];
    if (column != 0 || row < 0 || row >= grid.count)
        return NSZeroRect;
    return rectOf(frameOfChoice(grid, static_cast<int32_t>(row)));
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
    mDrawing = YES;
    [self grid];
    [self placeToolTips];
    const int32_t end = endOfVisibleChoices(mGrid);
    for (int32_t row = firstVisibleChoice(mGrid); row < end; ++row)
        [self drawCellAtRow:row column:0];
    mDrawing = NO;
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
    NSInteger row = -1;
    NSInteger column = -1;
    if (![self isEnabled] || ![self getRow:&row column:&column forPoint:point])
        return;
    [super mouseDown:event];
    [self setNeedsDisplay:YES];
}

- (void)scrollWheel:(NSEvent*)event
{
    const ChoiceGrid& grid = [self grid];
    if (grid.scrolls && [event deltaY] != 0)
        [self scrollToLine:grid.firstLine + ([event deltaY] > 0 ? -1 : 1)];
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
        // The chosen one stays chosen; with none, the first.
        next = selected < 0 ? choiceAfterMove(grid, kNoChoice, ChoiceMove::Right) : selected;
        break;
    default:
        [super keyDown:event];
        return;
    }
    if (![self isEnabled] || next == kNoChoice)
        return;
    if (next == selected) {
        [self scrollCellToVisibleAtRow:next column:0];
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
- (NSUInteger)titles
{
    NSUInteger titles = 0;
    const NSInteger measured = std::min([self numberOfRows], kMostMeasured);
    for (NSInteger row = 0; row < measured; ++row)
        titles = titles * 31 + [[[self cellAtRow:row column:0] title] hash];
    return titles;
}

- (const ChoiceGrid&)grid
{
    [self measure];
    if (const int32_t row = [self takeRowToScroll]; row >= 0)
        [self scrollToLine:firstLineShowing(mGrid, row)];
    return mGrid;
}

// -1: none.
- (int32_t)takeRowToScroll
{
    const auto row = static_cast<int32_t>(mRowToScroll - 1);
    mRowToScroll = 0;
    return row < mGrid.count ? row : -1;
}

- (void)measure
{
    const NSUInteger titles = [self titles];
    if (mGridIsValid && mGridTitles == titles)
        return;
    mGridIsValid = YES;
    mGridTitles = titles;

    const NSSize size = [self bounds].size;
    const auto width = static_cast<float>(size.width);
    const auto height = static_cast<float>(size.height);
    const auto count = static_cast<int32_t>(
        std::min<NSInteger>([self numberOfRows], std::numeric_limits<int32_t>::max()));
    const bool measured = count <= kMostMeasured;

    // The smaller font only where the usual one does not fit.
    for (const CGFloat points : {kFontSize, kTightFontSize}) {
        if (!measured && points == kFontSize)
            continue;
        NSFont* const font = [NSFont systemFontOfSize:points];
        for (int32_t row = 0; row < count; ++row) {
            NSCell* const cell = [self cellAtRow:row column:0];
            if (![[cell font] isEqual:font])
                [cell setFont:font];
            if ([cell lineBreakMode] != NSLineBreakByTruncatingTail)
                [cell setLineBreakMode:NSLineBreakByTruncatingTail];
        }
        ColumnWishes wishes{};
        if (measured) {
            for (int32_t row = 0; row < count; ++row) {
                float& wish = wishes[row % columnsForChoices(count)];
                wish = std::max(wish, widthOf([self cellAtRow:row column:0]));
            }
        }
        mGrid = layOutChoices(count, width, height, mGrid.firstLine, wishes);
        bool fits = measured;
        for (int32_t column = 0; column < mGrid.columns; ++column)
            fits = fits && wishes[column] <= mGrid.columnWidth[column];
        if (fits)
            break;
    }
    if (const int32_t row = [self takeRowToScroll]; row >= 0)
        mGrid.firstLine = clampedFirstLine(mGrid, firstLineShowing(mGrid, row));
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
    NSInteger row = -1;
    NSInteger column = -1;
    if (![self getRow:&row column:&column forPoint:point])
        return nil;
    // A choice that does not fit tells its whole title.
    NSCell* const cell = [self cellAtRow:row column:column];
    const ChoiceFrame frame = frameOfChoice(mGrid, static_cast<int32_t>(row));
    return widthOf(cell) > frame.width ? [cell title] : nil;
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
    const NSInteger rows = [self numberOfRows];
    const NSInteger columns = [self numberOfColumns];
    for (NSInteger row = 0; row < rows; ++row) {
        for (NSInteger column = 0; column < columns; ++column)
            [[self cellAtRow:row column:column] setEnabled:!mDisabled];
    }
}

@end
