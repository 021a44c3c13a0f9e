#include "dialog/DialogWindow.h"

#include "dialog/ControlList.h"
#include "dialog/PopUp.h"
#include "dialog/SummaryView.h"
#include "dialog/Text.h"
#include "dialog/keyboard/KeyboardWindow.h"
#include "dialog/longlist/LongPopUp.h"
#include "dialog/preview/LabelPreview.h"
#include "dialog/theme/TapeTheme.h"

#include <algorithm>
#include <cmath>

namespace {

NSRect toRect(const dialog::Frame& frame)
{
    return NSMakeRect(frame.x, frame.y, frame.width, frame.height);
}

NSTextField* makeLabel(NSString* title, NSTextAlignment alignment)
{
    NSTextField* const label = [[NSTextField alloc] initWithFrame:NSZeroRect];
    [label setEditable:NO];
    [label setSelectable:NO];
    [label setBezeled:NO];
    [label setBordered:NO];
    [label setDrawsBackground:NO];
    [label setAlignment:alignment];
    [label setFont:[NSFont systemFontOfSize:12]];
    [label setStringValue:title];
    return label;
}

NSPopUpButton* makePopUp(id target, SEL action)
{
    LongPopUp* const popUp = [[LongPopUp alloc] initWithFrame:NSZeroRect pullsDown:NO];
    [popUp setAutoenablesItems:NO];
    [popUp setFont:[NSFont systemFontOfSize:12]];
    [popUp setTarget:target];
    [popUp setAction:action];
    return popUp;
}

NSButton* makeButton(NSString* title, NSString* key, id target, SEL action)
{
    NSButton* const button = [[NSButton alloc] initWithFrame:NSZeroRect];
    [button setTitle:title];
    [button setBezelStyle:NSRoundedBezelStyle];
    [button setFont:[NSFont systemFontOfSize:12]];
    [button setKeyEquivalent:key];
    [button setTarget:target];
    [button setAction:action];
    return button;
}

double widest(NSArray* titles)
{
    NSDictionary* const attributes = @{NSFontAttributeName : [NSFont systemFontOfSize:12]};
    double width = 0;
    for (NSString* title in titles) {
        width = std::max<double>(width, [title sizeWithAttributes:attributes].width);
    }
    return width;
}

// What the rectangle has of whole pixels, in points.
NSRect pixelsWithin(NSRect rect, CGFloat scale)
{
    const CGFloat left = std::ceil(NSMinX(rect) * scale);
    const CGFloat bottom = std::ceil(NSMinY(rect) * scale);
    return NSMakeRect(left / scale, bottom / scale,
                      (std::floor(NSMaxX(rect) * scale) - left) / scale,
                      (std::floor(NSMaxY(rect) * scale) - bottom) / scale);
}

bool isOpen(NSPopUpButton* popUp)
{
    return [[[[popUp menu] menuRepresentation] window] isVisible];
}

// nil when no pop-up in the view has its list open.
NSPopUpButton* openPopUpIn(NSView* view)
{
    if ([view isKindOfClass:[NSPopUpButton class]] && isOpen((NSPopUpButton*)view)) {
        return (NSPopUpButton*)view;
    }
    for (NSView* part in [view subviews]) {
        if (NSPopUpButton* const found = openPopUpIn(part)) {
            return found;
        }
    }
    return nil;
}

} // namespace

// Keys that come while the mouse holds a list open are meant for the list; the toolkit would give
// them to the window as soon as the mouse is let go, and Escape would end the dialog.
@interface ListKeepingWindow : KeyboardWindow
{
    BOOL wasTouched_;
}
- (BOOL)wasTouched;
@end

@implementation ListKeepingWindow

- (BOOL)wasTouched
{
    return wasTouched_;
}

- (void)sendEvent:(NSEvent*)event
{
    const NSEventType type = [event type];
    if (type == NSKeyDown || type == NSLeftMouseDown || type == NSScrollWheel) {
        wasTouched_ = YES;
    }
    const bool pressesPopUp =
        [event type] == NSLeftMouseDown &&
        [[[self contentView] hitTest:[event locationInWindow]] isKindOfClass:[NSPopUpButton class]];
    [super sendEvent:event];
    if (pressesPopUp) {
        while ([NSApp nextEventMatchingMask:NSKeyDownMask untilDate:[NSDate distantPast]
                                     inMode:NSEventTrackingRunLoopMode
                                    dequeue:YES] != nil) {
        }
    }
}

@end

@interface DialogWindow (Placing)
- (void)place;
- (double)conflictHeight;
- (void)setPane:(NSView*)view;
@end

@implementation DialogWindow

- (id)initWithController:(id<DialogActions>)controller
{
    self = [super init];
    if (self == nil) {
        return nil;
    }
    window_ =
        [[ListKeepingWindow alloc] initWithContentRect:NSMakeRect(0, 0, 560, 400)
                                             styleMask:NSTitledWindowMask | NSClosableWindowMask
                                               backing:NSBackingStoreBuffered
                                                 defer:YES];
    [window_ setReleasedWhenClosed:NO];
    [window_ setTitle:dialog::localized("Print Label")];
    [window_ setDelegate:(id)controller];

    printerLabel_ = makeLabel(dialog::localized("Printer:"), NSRightTextAlignment);
    tapeLabel_ = makeLabel(dialog::localized("Tape:"), NSRightTextAlignment);
    presetsLabel_ = makeLabel(dialog::localized("Presets:"), NSRightTextAlignment);
    copiesLabel_ = makeLabel(dialog::localized("Copies:"), NSRightTextAlignment);
    printer_ = makePopUp(controller, @selector(choosePrinter:));
    tape_ = makePopUp(controller, @selector(chooseTape:));
    presets_ = makePopUp(nil, NULL);
    chooser_ = makePopUp(controller, @selector(choosePane:));

    copies_ = [[NSTextField alloc] initWithFrame:NSZeroRect];
    [copies_ setAlignment:NSRightTextAlignment];
    [copies_ setFont:[NSFont systemFontOfSize:12]];
    [copies_ setDelegate:(id)controller];
    stepper_ = [[NSStepper alloc] initWithFrame:NSZeroRect];
    [stepper_ setValueWraps:NO];
    [stepper_ setIncrement:1];
    [stepper_ setTarget:controller];
    [stepper_ setAction:@selector(stepCopies:)];

    box_ = [[NSBox alloc] initWithFrame:NSZeroRect];
    [box_ setTitlePosition:NSNoTitle];
    [box_ setBorderType:NSGrooveBorder];

    conflict_ = [[ConflictBar alloc] initWithTarget:controller action:@selector(resolveConflict:)];
    [conflict_ setHidden:YES];

    message_ = makeLabel(@"", NSLeftTextAlignment);
    [message_ setFont:[NSFont systemFontOfSize:11]];
    [[message_ cell] setWraps:YES];
    progress_ = [[NSProgressIndicator alloc] initWithFrame:NSZeroRect];
    [progress_ setIndeterminate:NO];
    [progress_ setMinValue:0];
    [progress_ setMaxValue:1];
    [progress_ setHidden:YES];
    copyCommand_ =
        makeButton(dialog::localized("Copy as Command"), @"", controller, @selector(copyCommand:));
    cancel_ = makeButton(dialog::localized("Cancel"), @"\e", controller, @selector(cancelDialog:));
    print_ = makeButton(dialog::localized("Print"), @"\r", controller, @selector(printDialog:));

    NSView* const content = [window_ contentView];
    for (NSView* view in @[
             printerLabel_, printer_, tapeLabel_, tape_, presetsLabel_, presets_, copiesLabel_,
             copies_, stepper_, chooser_, box_, conflict_, message_, progress_, copyCommand_,
             cancel_, print_
         ]) {
        [content addSubview:view];
    }
    [chooser_ setToolTip:dialog::localized("Settings shown")];
    [window_ setParts:self];
    [window_ letCaptions:@[ printerLabel_, tapeLabel_, presetsLabel_, copiesLabel_ ]
                  leadTo:@[ printer_, tape_, presets_, copies_ ]];
    paneSize_ = NSMakeSize(520, 330);
    words_.labels = widest(@[
        [printerLabel_ stringValue], [tapeLabel_ stringValue], [presetsLabel_ stringValue],
        [copiesLabel_ stringValue]
    ]);
    words_.buttons = widest(@[
        dialog::localized("Cancel"), dialog::localized("Print"), dialog::localized("Close"),
        dialog::localized("Cancel Job")
    ]);
    words_.copyCommand = widest(@[ [copyCommand_ title] ]);
    [self place];
    [window_ center];
    return self;
}

- (void)dealloc
{
    [window_ setDelegate:nil];
    [window_ setParts:nil];
    [copies_ setDelegate:nil];
    [pane_ removeFromSuperview];
    for (NSView* view in @[
             printerLabel_, printer_, tapeLabel_, tape_, presetsLabel_, presets_, copiesLabel_,
             copies_, stepper_, chooser_, box_, conflict_, message_, progress_, copyCommand_,
             cancel_, print_
         ]) {
        [view release];
    }
    [pane_ release];
    [[preview_ view] removeFromSuperview];
    [preview_ release];
    [window_ release];
    [super dealloc];
}

- (NSWindow*)window
{
    return window_;
}

- (NSView*)focusedView
{
    return [window_ focusedView];
}

- (void)giveKeyboardTo:(NSView*)control
{
    if (control != nil && control != [window_ focusedView]) {
        [window_ makeFirstResponder:control];
    }
}

- (void)endTyping
{
    [window_ endTyping];
}

- (std::vector<NSView*>)keyboardParts
{
    std::vector<NSView*> parts = {printer_, tape_, presets_, copies_, chooser_};
    if (pane_ != nil) {
        parts.push_back(pane_);
    }
    parts.insert(parts.end(), {conflict_, copyCommand_, cancel_, print_});
    return parts;
}

- (NSPopUpButton*)pages
{
    return chooser_;
}

- (NSPopUpButton*)printerPopUp
{
    return printer_;
}

- (NSPopUpButton*)tapePopUp
{
    return tape_;
}

- (NSPopUpButton*)presetsPopUp
{
    return presets_;
}

- (NSPopUpButton*)chooser
{
    return chooser_;
}

- (NSTextField*)copiesField
{
    return copies_;
}

- (NSStepper*)stepper
{
    return stepper_;
}

- (NSTextField*)messageField
{
    return message_;
}

- (NSButton*)printButton
{
    return print_;
}

- (void)fill:(NSPopUpButton*)popUp with:(const std::vector<std::string>&)titles
{
    dialog::fillPopUp(popUp, titles);
}

- (void)showPanelView:(NSView*)view
{
    paneSize_ = [view frame].size;
    [self setPane:view];
    [self place];
    [[NSNotificationCenter defaultCenter]
        postNotificationName:NSViewDidUpdateTrackingAreasNotification
                      object:view];
}

- (void)panelViewDidResize
{
    if (pane_ != nil && !NSEqualSizes(paneSize_, [pane_ frame].size)) {
        paneSize_ = [pane_ frame].size;
        [self place];
    }
}

- (void)showSummary:(const std::vector<dialog::SummaryLine>&)lines title:(NSString*)title
{
    [self setPane:dialog::summaryView(lines, title, paneSize_)];
    [self place];
}

- (void)showSentence:(NSString*)sentence
{
    NSView* const room = [[[NSView alloc]
        initWithFrame:NSMakeRect(0, 0, paneSize_.width, paneSize_.height)] autorelease];
    NSTextField* const label = makeLabel(sentence, NSCenterTextAlignment);
    [[label cell] setWraps:YES];
    [label setFrame:NSMakeRect(20, paneSize_.height / 2 - 40, paneSize_.width - 40, 80)];
    [room addSubview:label];
    [label release];
    [self setPane:room];
    [self place];
}

- (void)showView:(NSView*)view
{
    [self setPane:view];
    [self place];
}

- (NSSize)paneSize
{
    return paneSize_;
}

- (void)showConflict:(NSString*)sentence remedy:(NSString*)title
{
    if (sentence == nil && [conflict_ isHidden]) {
        return;
    }
    if (sentence == nil && [[window_ firstResponder] isKindOfClass:[NSView class]] &&
        [(NSView*)[window_ firstResponder] isDescendantOf:conflict_]) {
        [window_ makeFirstResponder:chooser_];
    }
    [conflict_ setHidden:sentence == nil];
    [conflict_ showSentence:sentence == nil ? @"" : sentence remedy:title];
    [self place];
}

- (void)setPane:(NSView*)view
{
    if (view == pane_) {
        return;
    }
    [pane_ removeFromSuperview];
    [pane_ release];
    pane_ = [view retain];
    [[window_ contentView] addSubview:pane_];
}

- (double)conflictHeight
{
    return [conflict_ isHidden]
               ? 0
               : [conflict_
                     heightForWidth:dialog::conflictWidth({static_cast<double>(paneSize_.width),
                                                           static_cast<double>(paneSize_.height)})];
}

- (void)place
{
    const dialog::WindowLayout layout = dialog::layOut(
        {static_cast<double>(paneSize_.width), static_cast<double>(paneSize_.height)}, words_,
        [self conflictHeight]);
    const NSRect content = NSMakeRect(0, 0, layout.content.width, layout.content.height);
    const NSRect now = [window_ frame];
    NSRect frame = [NSWindow frameRectForContentRect:content styleMask:[window_ styleMask]];
    frame.origin = NSMakePoint(NSMinX(now), NSMaxY(now) - NSHeight(frame));
    if (!NSEqualSizes(now.size, frame.size)) {
        [window_ setFrame:frame display:NO];
    }
    [printerLabel_ setFrame:toRect(layout.printerLabel)];
    [printer_ setFrame:toRect(layout.printerPopUp)];
    [tapeLabel_ setFrame:toRect(layout.tapeLabel)];
    [tape_ setFrame:toRect(layout.tapePopUp)];
    [presetsLabel_ setFrame:toRect(layout.presetsLabel)];
    [presets_ setFrame:toRect(layout.presetsPopUp)];
    [copiesLabel_ setFrame:toRect(layout.copiesLabel)];
    [copies_ setFrame:toRect(layout.copiesField)];
    [stepper_ setFrame:toRect(layout.copiesStepper)];
    [chooser_ setFrame:toRect(layout.chooser)];
    [box_ setFrame:toRect(layout.box)];
    [[preview_ view] setFrame:toRect(layout.preview)];
    [conflict_ setFrame:toRect(layout.conflict)];
    [message_ setFrame:toRect(layout.message)];
    [progress_ setFrame:toRect(layout.progress)];
    [copyCommand_ setFrame:toRect(layout.copyCommand)];
    [cancel_ setFrame:toRect(layout.cancel)];
    [print_ setFrame:toRect(layout.print)];
    [pane_ setFrameOrigin:toRect(layout.pane).origin];
    [[window_ contentView] setNeedsDisplay:YES];
}

- (void)showPreview:(LabelPreview*)preview
{
    preview_ = [preview retain];
    [[window_ contentView] addSubview:[preview_ view]];
    [self place];
}

- (BOOL)wasTouched
{
    return [window_ wasTouched];
}

- (BOOL)hasOpenList
{
    return openPopUpIn([window_ contentView]) != nil;
}

- (BOOL)takeFromOpenList
{
    NSPopUpButton* const popUp = openPopUpIn([window_ contentView]);
    const NSInteger chosen = [[[popUp menu] menuRepresentation] highlightedItemIndex];
    [[popUp cell] dismissPopUp];
    if (popUp != nil && chosen >= 0 && [[popUp itemAtIndex:chosen] isEnabled]) {
        [[popUp menu] performActionForItemAtIndex:chosen];
    }
    return popUp != nil;
}

- (BOOL)closeOpenList
{
    NSPopUpButton* const popUp = openPopUpIn([window_ contentView]);
    [[popUp cell] dismissPopUp];
    return popUp != nil;
}

- (void)showMessage:(NSString*)text isFailure:(BOOL)isFailure
{
    [message_ setTextColor:isFailure ? dialog::themeColor(dialog::Role::Failure)
                                     : [NSColor controlTextColor]];
    [message_ setStringValue:text];
    [message_ setToolTip:[text length] == 0 ? nil : text];
}

- (void)offer:(const dialog::JobOffer&)offer
{
    [printer_ setEnabled:offer.settings];
    [tape_ setEnabled:offer.settings && [tape_ numberOfItems] > 0];
    [copies_ setEnabled:offer.settings];
    [stepper_ setEnabled:offer.settings];
    [copyCommand_ setEnabled:offer.settings];
    [print_ setEnabled:offer.print != dialog::PrintButton::Waits];
    [print_ setTitle:offer.print == dialog::PrintButton::Closes ? dialog::localized("Close")
                                                                : dialog::localized("Print")];
    [cancel_ setTitle:offer.print == dialog::PrintButton::Closes ? dialog::localized("Cancel Job")
                                                                 : dialog::localized("Cancel")];
    // A button that changes while it is being pressed stays drawn as pressed.
    for (NSButton* button in @[ cancel_, print_ ]) {
        [button setState:NSOffState];
        [button highlight:NO];
    }
    [progress_ setHidden:!offer.bar];
}

- (void)showProgress:(double)fraction
{
    [progress_ setDoubleValue:fraction];
}

- (BOOL)writePicture:(NSString*)path
{
    // Through the view around the content, whose corner lies on a whole pixel at every scale.  The
    // content's own may lie between two, and the picture would be blurred.
    NSView* const content = [window_ contentView];
    NSView* const frame = [content superview];
    [window_ display];
    [frame lockFocus];
    NSBitmapImageRep* const picture = [[NSBitmapImageRep alloc]
        initWithFocusedViewRect:pixelsWithin([content frame], [window_ userSpaceScaleFactor])];
    [frame unlockFocus];
    NSData* const bytes = [picture representationUsingType:NSPNGFileType properties:@{}];
    const BOOL written = [bytes writeToFile:path atomically:YES];
    [picture release];
    return written;
}

- (NSString*)visibleControls
{
    const dialog::ControlNames names = {{printer_, "Printer"},
                                        {tape_, "Tape"},
                                        {presets_, "Presets"},
                                        {copies_, "Copies"},
                                        {stepper_, "Copies Stepper"},
                                        {chooser_, "Pane"},
                                        {[conflict_ sentenceField], "Conflict"},
                                        {[conflict_ remedyButton], "Resolve"},
                                        {message_, "Message"},
                                        {progress_, "Progress"},
                                        {[preview_ pictureControl], "Label Picture"},
                                        {[preview_ sizeField], "Label Size"},
                                        {[preview_ usedField], "Tape Used"},
                                        {[preview_ remarksField], "Document Remarks"},
                                        {copyCommand_, "Copy as Command"},
                                        {cancel_, "Cancel"},
                                        {print_, "Print"}};
    return dialog::visibleControls([window_ focusedView], names);
}

@end
