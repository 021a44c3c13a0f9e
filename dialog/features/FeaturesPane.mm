#include "dialog/features/FeaturesPane.h"

#include "dialog/PopUp.h"
#include "dialog/Text.h"
#include "dialog/Translate.hpp"
#include "dialog/features/FeatureValue.hpp"
#include "dialog/features/FeaturesLayout.hpp"
#include "dialog/keyboard/SpokenNames.h"
#include "dialog/longlist/LongPopUp.h"

#include <algorithm>

@interface FeatureRows : NSView <ControlNaming, SpokenNaming>
{
    struct Named
    {
        NSView* control; // a subview
        std::string name;
        std::string spoken;
    };
    std::vector<Named> names_;
}
- (void)name:(NSView*)control as:(const std::string&)name spoken:(const std::string&)spoken;
@end

@implementation FeatureRows
- (void)name:(NSView*)control as:(const std::string&)name spoken:(const std::string&)spoken
{
    names_.push_back({control, name, spoken});
}

- (NSString*)nameOfControl:(NSView*)control
{
    for (const Named& named : names_) {
        if (named.control == control) {
            return dialog::toNSString(named.name);
        }
    }
    return nil;
}

- (NSString*)spokenNameOfControl:(NSView*)control
{
    for (const Named& named : names_) {
        if (named.control == control) {
            return dialog::toNSString(named.spoken);
        }
    }
    return nil;
}

- (BOOL)isFlipped
{
    return YES;
}
@end

namespace {

NSRect toRect(const dialog::Frame& frame)
{
    return NSMakeRect(frame.x, frame.y, frame.width, frame.height);
}

NSString* labelText(const dialog::Feature& feature)
{
    return dialog::toNSString(dialog::filled(dialog::tr("{1}:"), {feature.title}));
}

double widthOf(NSString* text, NSFont* font)
{
    return [text sizeWithAttributes:@{NSFontAttributeName : font}].width;
}

NSTextField* makeLabel(NSString* text, NSFont* font, NSTextAlignment alignment, NSRect frame)
{
    NSTextField* const label = [[[NSTextField alloc] initWithFrame:frame] autorelease];
    [label setEditable:NO];
    [label setSelectable:NO];
    [label setBezeled:NO];
    [label setBordered:NO];
    [label setDrawsBackground:NO];
    [label setAlignment:alignment];
    [label setFont:font];
    [label setStringValue:text];
    return label;
}

NSButton* makeCheckBox(const std::string& title)
{
    NSButton* const box = [[[NSButton alloc] initWithFrame:NSZeroRect] autorelease];
    [box setButtonType:NSSwitchButton];
    [box setTitle:dialog::toNSString(title)];
    [box setFont:[NSFont systemFontOfSize:12]];
    [box setAlignment:NSLeftTextAlignment];
    return box;
}

NSPopUpButton* makePopUp(const dialog::Feature& feature)
{
    NSPopUpButton* const popUp = [[[LongPopUp alloc] initWithFrame:NSZeroRect
                                                         pullsDown:NO] autorelease];
    [popUp setAutoenablesItems:NO];
    [popUp setFont:[NSFont systemFontOfSize:12]];
    std::vector<std::string> titles;
    titles.reserve(feature.choices.size());
    for (const dialog::FeatureChoice& choice : feature.choices) {
        titles.push_back(choice.title);
    }
    dialog::fillPopUp(popUp, titles);
    return popUp;
}

std::vector<NSControl*> makeControls(const dialog::Feature& feature)
{
    switch (feature.kind) {
    case dialog::FeatureKind::Switch:
        return {makeCheckBox(feature.title)};
    case dialog::FeatureKind::PickMany: {
        std::vector<NSControl*> boxes;
        for (const dialog::FeatureChoice& choice : feature.choices) {
            boxes.push_back(makeCheckBox(choice.title));
        }
        return boxes;
    }
    case dialog::FeatureKind::PickOne:
        break;
    }
    return {makePopUp(feature)};
}

// For scripts: Feature and the keyword, and the choice's as well where it has a box of its own.
std::string nameOf(const dialog::Feature& feature, std::size_t choice)
{
    const std::string name = "Feature " + feature.keyword;
    return feature.kind == dialog::FeatureKind::PickMany
               ? name + " " + feature.choices[choice].keyword
               : name;
}

// A box of several says what it belongs to.
std::string spokenNameOf(const dialog::Feature& feature, std::size_t choice)
{
    return feature.kind == dialog::FeatureKind::PickMany
               ? dialog::filled(dialog::tr("{1}:"), {feature.title}) + " " +
                     feature.choices[choice].title
               : feature.title;
}

dialog::FeatureRow rowFor(const dialog::Feature& feature, NSFont* font)
{
    switch (feature.kind) {
    case dialog::FeatureKind::Switch:
        return {dialog::FeatureRowKind::Switch};
    case dialog::FeatureKind::PickMany:
        return {dialog::FeatureRowKind::PickMany, widthOf(labelText(feature), font),
                feature.choices.size()};
    case dialog::FeatureKind::PickOne:
        break;
    }
    return {dialog::FeatureRowKind::PickOne, widthOf(labelText(feature), font)};
}

bool showsHeadings(const dialog::Features& offered)
{
    return offered.size() > 1;
}

std::vector<dialog::FeatureRow> needsOf(const dialog::Features& offered)
{
    NSFont* const font = [NSFont systemFontOfSize:12];
    std::vector<dialog::FeatureRow> needs;
    for (const dialog::FeatureGroup& group : offered) {
        if (showsHeadings(offered)) {
            needs.push_back({dialog::FeatureRowKind::Heading});
        }
        for (const dialog::Feature& feature : group.features) {
            needs.push_back(rowFor(feature, font));
        }
    }
    return needs;
}

} // namespace

@interface FeaturesPane (Making)
- (void)addRows:(const dialog::Features&)offered
             to:(FeatureRows*)rows
         layout:(const dialog::FeaturesLayout&)layout;
- (void)add:(const dialog::Feature&)feature
         at:(const dialog::FeatureRowPlace&)place
         to:(FeatureRows*)rows;
- (void)chooseInRow:(std::size_t)index;
@end

// One for each row: a pop-up that was opened by the mouse does not say who sends the action.
@interface FeatureChooser : NSObject
{
    FeaturesPane* pane_; // not owned
    std::size_t row_;
}
@end

@implementation FeatureChooser
- (id)initWithPane:(FeaturesPane*)pane row:(std::size_t)row
{
    self = [super init];
    if (self != nil) {
        pane_ = pane;
        row_ = row;
    }
    return self;
}

- (void)choose:(id)sender
{
    [pane_ chooseInRow:row_];
}
@end

@implementation FeaturesPane

- (id)initWithFeatures:(const dialog::Features&)offered
                  size:(NSSize)size
                target:(id<FeaturesPaneTarget>)target
{
    self = [super init];
    if (self != nil) {
        target_ = target;
        choosers_ = [[NSMutableArray alloc] init];
        view_ = [[NSScrollView alloc] initWithFrame:NSMakeRect(0, 0, size.width, size.height)];
        [view_ setBorderType:NSNoBorder];
        [view_ setDrawsBackground:NO];
        const std::vector<dialog::FeatureRow> needs = needsOf(offered);
        dialog::FeaturesLayout layout = dialog::layOutFeatures(needs, size.width);
        if (layout.height > size.height) {
            [view_ setHasVerticalScroller:YES];
            layout = dialog::layOutFeatures(needs, [view_ contentSize].width);
        }
        FeatureRows* const rows = [[[FeatureRows alloc]
            initWithFrame:NSMakeRect(0, 0, [view_ contentSize].width, layout.height)] autorelease];
        [self addRows:offered to:rows layout:layout];
        [view_ setDocumentView:rows];
    }
    return self;
}

- (void)dealloc
{
    [self close];
    [view_ removeFromSuperview];
    [view_ release];
    [choosers_ release];
    [super dealloc];
}

- (void)close
{
    target_ = nil;
    for (const FeatureControls& row : rows_) {
        for (NSControl* control : row.controls) {
            [control setTarget:nil];
        }
    }
}

- (void)addRows:(const dialog::Features&)offered
             to:(FeatureRows*)rows
         layout:(const dialog::FeaturesLayout&)layout
{
    const bool hasHeadings = showsHeadings(offered);
    NSFont* const bold = [NSFont boldSystemFontOfSize:12];
    auto place = layout.rows.begin();
    for (const dialog::FeatureGroup& group : offered) {
        if (hasHeadings) {
            if (place->line.height > 0) {
                NSBox* const line = [[[NSBox alloc] initWithFrame:toRect(place->line)] autorelease];
                [line setBoxType:NSBoxSeparator];
                [rows addSubview:line];
            }
            [rows addSubview:makeLabel(dialog::toNSString(group.title), bold, NSLeftTextAlignment,
                                       toRect(place->label))];
            ++place;
        }
        for (const dialog::Feature& feature : group.features) {
            [self add:feature at:*place to:rows];
            ++place;
        }
    }
}

- (void)add:(const dialog::Feature&)feature
         at:(const dialog::FeatureRowPlace&)place
         to:(FeatureRows*)rows
{
    if (place.label.height > 0) {
        NSTextField* const label = makeLabel(labelText(feature), [NSFont systemFontOfSize:12],
                                             NSRightTextAlignment, toRect(place.label));
        [[label cell] setWraps:YES];
        [rows addSubview:label];
    }
    FeatureControls row{feature, makeControls(feature)};
    FeatureChooser* const chooser =
        [[[FeatureChooser alloc] initWithPane:self row:rows_.size()] autorelease];
    [choosers_ addObject:chooser];
    for (std::size_t i = 0; i < row.controls.size(); ++i) {
        NSControl* const control = row.controls[i];
        [control setFrame:toRect(place.controls[i])];
        [rows name:control as:nameOf(feature, i) spoken:spokenNameOf(feature, i)];
        [control setTarget:chooser];
        [control setAction:@selector(choose:)];
        [rows addSubview:control];
    }
    rows_.push_back(std::move(row));
}

- (NSView*)view
{
    return view_;
}

- (void)show:(const dialog::MarkedChoices&)marked
{
    for (const FeatureControls& row : rows_) {
        const std::vector<bool> chosen = dialog::chosenOf(row.feature, marked(row.feature.keyword));
        switch (row.feature.kind) {
        case dialog::FeatureKind::PickOne: {
            const auto found = std::find(chosen.begin(), chosen.end(), true);
            [(NSPopUpButton*)row.controls.front()
                selectItemAtIndex:found == chosen.end() ? -1 : found - chosen.begin()];
            break;
        }
        case dialog::FeatureKind::Switch:
            [(NSButton*)row.controls.front()
                setState:dialog::isSwitchedOn(row.feature, chosen) ? NSOnState : NSOffState];
            break;
        case dialog::FeatureKind::PickMany:
            for (std::size_t i = 0; i < chosen.size(); ++i) {
                [(NSButton*)row.controls[i] setState:chosen[i] ? NSOnState : NSOffState];
            }
            break;
        }
    }
}

- (void)chooseInRow:(std::size_t)index
{
    const FeatureControls& row = rows_[index];
    std::vector<bool> chosen(row.feature.choices.size());
    switch (row.feature.kind) {
    case dialog::FeatureKind::PickOne: {
        const NSInteger item = [(NSPopUpButton*)row.controls.front() indexOfSelectedItem];
        if (item >= 0) {
            chosen.at(static_cast<std::size_t>(item)) = true;
        }
        break;
    }
    case dialog::FeatureKind::Switch:
        chosen =
            dialog::switched(row.feature, [(NSButton*)row.controls.front() state] == NSOnState);
        break;
    case dialog::FeatureKind::PickMany:
        for (std::size_t i = 0; i < chosen.size(); ++i) {
            chosen[i] = [(NSButton*)row.controls[i] state] == NSOnState;
        }
        break;
    }
    // The pane may be closed by what follows.
    const dialog::Feature feature = row.feature;
    [target_ chooseFeature:feature.keyword choice:dialog::valueOf(feature, chosen)];
}

@end
