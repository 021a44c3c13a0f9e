#include "dialog/preview/LabelPreview.h"

#include "dialog/Text.h"
#include "dialog/job/WantedLength.hpp"
#include "dialog/preview/ControlActions.h"
#include "dialog/preview/Sentences.hpp"
#include "dialog/theme/TapeTheme.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace {

constexpr NSTimeInterval kLookInterval = 0.01;
constexpr CGFloat kInset = 12;
constexpr CGFloat kLine = 17;
constexpr CGFloat kRemarkLine = 15;
constexpr CGFloat kUsed = 2 * kRemarkLine;
constexpr CGFloat kRemarks = 6 * kRemarkLine;
constexpr CGFloat kGap = 6;

NSArray* everyMode()
{
    return @[ NSDefaultRunLoopMode, NSModalPanelRunLoopMode, NSEventTrackingRunLoopMode ];
}

NSTextField* newLine(NSView* parent, NSFont* font)
{
    NSTextField* const field = [[NSTextField alloc] initWithFrame:NSZeroRect];
    [field setEditable:NO];
    [field setSelectable:NO];
    [field setBezeled:NO];
    [field setBordered:NO];
    // Opaque, so that another text draws nothing else anew.
    [field setDrawsBackground:YES];
    [field setBackgroundColor:dialog::themeColor(dialog::Role::Window)];
    [field setFont:font];
    [parent addSubview:field];
    return field;
}

// The toolkit draws a field again also for what it shows already.
void say(NSTextField* field, NSString* text, NSColor* color)
{
    if (![[field stringValue] isEqualToString:text]) {
        [field setStringValue:text];
    }
    if (![[field textColor] isEqual:color]) {
        [field setTextColor:color];
    }
}

// Asking the field itself would end what is being typed.
std::string textOf(NSTextField* field)
{
    NSText* const editor = [field currentEditor];
    return dialog::toString(editor == nil ? [[field cell] stringValue] : [editor string]);
}

void collectFields(NSView* view, NSMutableArray* fields)
{
    for (NSView* part in [view subviews]) {
        if ([part isHidden]) {
            continue;
        }
        if ([part isKindOfClass:[NSTextField class]] && [(NSTextField*)part isEditable]) {
            [fields addObject:part];
        }
        collectFields(part, fields);
    }
}

// The texts of what can be typed into, from the top down.
std::vector<std::string> fieldTexts(NSView* view)
{
    NSMutableArray* const fields = [NSMutableArray array];
    collectFields(view, fields);
    std::vector<std::pair<CGFloat, std::string>> found;
    for (NSTextField* field in fields) {
        const NSRect frame = [field convertRect:[field bounds] toView:view];
        found.emplace_back([view isFlipped] ? NSMinY(frame) : -NSMinY(frame), textOf(field));
    }
    std::stable_sort(found.begin(), found.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<std::string> texts;
    texts.reserve(found.size());
    for (auto& [height, text] : found) {
        texts.push_back(std::move(text));
    }
    return texts;
}

double told(PanelHost* host, std::string_view keyword)
{
    const std::string* const choice = [host options].find(keyword);
    return choice == nullptr ? 0 : dialog::parseMillimetres(*choice).value_or(0);
}

} // namespace

@interface LabelPreview (Parts)
- (void)place;
- (void)lookForDocument:(NSTimer*)timer;
- (void)takeDocument:(dialog::DocumentPicture)picture;
- (void)stopWaiting;
- (void)roomDidChange:(NSNotification*)note;
- (void)textDidChange:(NSNotification*)note;
- (void)textDidEndEditing:(NSNotification*)note;
- (void)controlHasActed:(NSNotification*)note;
- (void)refreshNow:(id)ignored;
- (std::optional<dialog::Label>)label;
@end

@implementation LabelPreview

- (id)initWithRequest:(std::unique_ptr<dialog::PictureRequest>&&)request
{
    self = [super init];
    if (self == nil) {
        return nil;
    }
    box_ = [[NSBox alloc] initWithFrame:NSMakeRect(0, 0, 300, 300)];
    [box_ setTitlePosition:NSNoTitle];
    [box_ setBorderType:NSGrooveBorder];
    [box_ setContentViewMargins:NSZeroSize];
    NSView* const content = [box_ contentView];
    size_ = newLine(content, [NSFont systemFontOfSize:12]);
    [size_ setAlignment:NSCenterTextAlignment];
    picture_ = [[LabelView alloc] initWithFrame:NSZeroRect];
    [content addSubview:picture_];
    used_ = newLine(content, [NSFont systemFontOfSize:11]);
    [[used_ cell] setWraps:YES];
    remarks_ = newLine(content, [NSFont systemFontOfSize:11]);
    [[remarks_ cell] setWraps:YES];
    [content setPostsFrameChangedNotifications:YES];

    NSNotificationCenter* const center = [NSNotificationCenter defaultCenter];
    [center addObserver:self selector:@selector(roomDidChange:)
                   name:NSViewFrameDidChangeNotification
                 object:content];
    [center addObserver:self selector:@selector(textDidChange:) name:NSTextDidChangeNotification
                 object:nil];
    [center addObserver:self selector:@selector(textDidChange:) name:NSTextDidEndEditingNotification
                 object:nil];
    [center addObserver:self selector:@selector(controlHasActed:) name:dialog::kControlHasActed
                 object:nil];

    request_ = std::move(request);
    if (request_) {
        waiting_ = [NSTimer timerWithTimeInterval:kLookInterval target:self
                                         selector:@selector(lookForDocument:)
                                         userInfo:nil
                                          repeats:YES];
        for (NSString* mode in everyMode()) {
            [[NSRunLoop currentRunLoop] addTimer:waiting_ forMode:mode];
        }
    }
    [self place];
    [self refresh];
    return self;
}

- (void)dealloc
{
    [[NSNotificationCenter defaultCenter] removeObserver:self];
    [NSObject cancelPreviousPerformRequestsWithTarget:self];
    [waiting_ invalidate];
    [host_ release];
    [panelView_ release];
    for (NSView* view in @[ size_, picture_, used_, remarks_, box_ ]) {
        [view release];
    }
    [super dealloc];
}

- (NSView*)view
{
    return box_;
}

- (NSControl*)pictureControl
{
    return picture_;
}

- (NSControl*)sizeField
{
    return size_;
}

- (NSControl*)usedField
{
    return used_;
}

- (NSControl*)remarksField
{
    return remarks_;
}

- (void)roomDidChange:(NSNotification*)note
{
    [self place];
    [self refresh];
}

- (void)place
{
    const NSSize room = [[box_ contentView] bounds].size;
    const CGFloat width = room.width - 2 * kInset;
    [remarks_ setFrame:NSMakeRect(kInset, kInset, width, kRemarks)];
    CGFloat y = kInset + kRemarks + kGap;
    [used_ setFrame:NSMakeRect(kInset, y, width, kUsed)];
    y += kUsed + kGap;
    const CGFloat top = room.height - kInset - kLine;
    [size_ setFrame:NSMakeRect(kInset, top, width, kLine)];
    [picture_ setFrame:NSMakeRect(kInset, y, width, std::max<CGFloat>(0, top - kGap - y))];
}

#pragma mark The document

- (void)lookForDocument:(NSTimer*)timer
{
    [self lookForDocument];
}

- (void)lookForDocument
{
    if (request_) {
        if (auto picture = request_->poll()) {
            [self takeDocument:std::move(*picture)];
        }
    }
}

- (void)finishDocument
{
    if (request_) {
        if (auto picture = request_->wait()) {
            [self takeDocument:std::move(*picture)];
        }
    }
}

- (void)takeDocument:(dialog::DocumentPicture)picture
{
    [self stopWaiting];
    document_ = std::make_shared<const dialog::DocumentPicture>(std::move(picture));
    [picture_ setDocument:document_];
    [self refresh];
}

- (void)stopWaiting
{
    [waiting_ invalidate];
    waiting_ = nil;
    request_.reset();
}

#pragma mark The panel

- (void)showPanel:(NSView*)view host:(PanelHost*)host
{
    [self forgetPanel];
    panelView_ = [view retain];
    host_ = [host retain];
    [self refresh];
}

- (void)forgetPanel
{
    [panelView_ release];
    panelView_ = nil;
    [host_ release];
    host_ = nil;
    follower_.forget();
    [self refresh];
}

// Of a field in the panel; the window's other fields change nothing here.  Looked at now, so that
// no character is missed, and again later.
- (void)textDidChange:(NSNotification*)note
{
    id const field = [[note object] delegate];
    if ([field isKindOfClass:[NSView class]] && panelView_ != nil &&
        [(NSView*)field isDescendantOf:panelView_]) {
        [self refresh];
        [self refreshSoon];
    }
}

- (void)textDidEndEditing:(NSNotification*)note
{
    [self refreshSoon];
}

- (void)controlHasActed:(NSNotification*)note
{
    [self refresh];
    [self refreshSoon];
}

// Once the panel is through with the change itself: it may correct what was typed.
- (void)refreshSoon
{
    if (!refreshIsDue_) {
        refreshIsDue_ = true;
        [self performSelector:@selector(refreshNow:) withObject:nil afterDelay:0
                      inModes:everyMode()];
    }
}

- (void)refreshNow:(id)ignored
{
    refreshIsDue_ = false;
    [self refresh];
}

- (std::optional<dialog::Label>)label
{
    if (panelView_ == nil) {
        return std::nullopt;
    }
    ppd_file_t* const ppd = [host_ ppd].record();
    const auto tape = dialog::tapeFacts(ppd, [host_ paperName]);
    if (!tape) {
        return std::nullopt;
    }
    const dialog::LengthAndMargin values = {told(host_, dialog::kTapeLengthOption),
                                            told(host_, dialog::kMarginOption)};
    return follower_.follow(*tape, dialog::lengthRules(ppd), values, fieldTexts(panelView_));
}

- (void)refresh
{
    const std::optional<dialog::Label> label = [self label];
    if (!label) {
        NSString* const nothing = dialog::localized("No label to show");
        [picture_ show:std::nullopt place:{} unit:{} sentence:nothing];
        say(size_, nothing, dialog::themeColor(dialog::Role::TextDisabled));
        say(used_, @"", [NSColor controlTextColor]);
        say(remarks_, @"", [NSColor controlTextColor]);
        return;
    }
    const pagesettings::Unit unit = dialog::lengthRules([host_ ppd].record()).unit;
    const auto document = document_ ? dialog::sizeOf(*document_) : std::nullopt;
    dialog::Placement place;
    if (document) {
        place = dialog::placeDocument(*label, *document);
    }
    const dialog::Placement* const placed = document ? &place : nullptr;
    const NSSize room = [picture_ bounds].size;
    const std::string size = dialog::sizeSentence(*label, unit);
    const std::string used = dialog::tapeUsedSentence(*label, unit);
    const std::string remarks =
        document_ ? dialog::documentSentence(*label, *document_, placed, unit) : std::string();

    say(size_, dialog::toNSString(size), [NSColor controlTextColor]);
    say(used_, dialog::toNSString(used), [NSColor controlTextColor]);
    say(remarks_, dialog::toNSString(remarks),
        placed != nullptr && dialog::isWarning(place) ? dialog::themeColor(dialog::Role::Failure)
                                                      : [NSColor controlTextColor]);
    [picture_ show:dialog::layOutPicture(
                       {static_cast<double>(room.width), static_cast<double>(room.height)}, *label,
                       placed, unit)
             place:place
              unit:dialog::unitName(unit)
          sentence:dialog::toNSString(dialog::pictureSentence(*label, remarks, unit))];
}

@end
