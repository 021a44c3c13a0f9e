#include "dialog/features/FeaturesController.h"

#include "dialog/Text.h"
#include "dialog/features/ConflictText.hpp"
#include "dialog/features/FeatureSummary.hpp"
#include "dialog/features/FeatureValue.hpp"
#include "dialog/features/JobConflict.hpp"

@interface FeaturesController (Parts)
- (void)choose:(const std::string&)keyword choice:(const std::string&)choice;
- (void)refresh;
- (void)lookForConflicts;
- (void)sayConflictsSoon;
@end

@implementation FeaturesController

- (id)initWithWindow:(DialogWindow*)window
{
    self = [super init];
    if (self != nil) {
        window_ = window;
    }
    return self;
}

- (void)dealloc
{
    [self close];
    [super dealloc];
}

- (void)openHost:(PanelHost*)host panel:(LoadedPanel*)panel
{
    [self close];
    host_ = [host retain];
    panel_ = [panel retain];
    offered_ = dialog::offeredFeatures([host_ ppd]);
    // A panel chooses one, whatever the PPD would allow.
    for (dialog::FeatureGroup& group : offered_) {
        for (dialog::Feature& feature : group.features) {
            if (feature.kind == dialog::FeatureKind::PickMany &&
                [panel_ wantsOption:dialog::toNSString(feature.keyword)]) {
                feature.kind = dialog::FeatureKind::PickOne;
            }
        }
    }
    constraints_ = dialog::constraintsOf([host_ ppd]);
}

- (void)start
{
    order_.clear();
    [self lookForConflicts];
}

- (void)close
{
    [NSObject cancelPreviousPerformRequestsWithTarget:self];
    [pane_ close];
    [pane_ release];
    pane_ = nil;
    [panel_ release];
    panel_ = nil;
    [host_ release];
    host_ = nil;
    offered_.clear();
    constraints_.clear();
    remedy_.clear();
    order_.clear();
    [window_ showConflict:nil remedy:nil];
}

- (BOOL)hasFeatures
{
    return !offered_.empty();
}

- (NSView*)viewOfSize:(NSSize)size
{
    // The panel may have settled on another choice since it was last asked.
    NSError* error = nil;
    [[panel_ panel] saveValuesAndReturnError:&error];
    if (pane_ != nil && !NSEqualSizes([[pane_ view] frame].size, size)) {
        [pane_ close];
        [pane_ release];
        pane_ = nil;
    }
    if (pane_ == nil) {
        pane_ = [[FeaturesPane alloc] initWithFeatures:offered_ size:size target:self];
    }
    [self refresh];
    return [pane_ view];
}

- (void)refresh
{
    const dialog::PPDFile& ppd = [host_ ppd];
    [pane_ show:[&ppd](const std::string& keyword) { return ppd.markedChoices(keyword); }];
}

- (void)chooseFeature:(const std::string&)keyword choice:(const std::string&)choice
{
    [window_ showMessage:@"" isFailure:NO];
    [self choose:keyword choice:choice];
    const std::string kept = dialog::joinedChoices([host_ ppd].markedChoices(keyword));
    if (const dialog::Feature* const feature = dialog::findFeature(offered_, keyword);
        feature != nullptr && kept != choice) {
        [window_ showMessage:dialog::toNSString(dialog::choiceNotKept(*feature, kept))
                   isFailure:NO];
    }
    [self refresh];
}

// The panel is told as any dialog tells it, and then asked for its values: it may hold on to
// another choice, because one of its options goes by another.
- (void)choose:(const std::string&)keyword choice:(const std::string&)choice
{
    [host_ chooseOption:keyword choice:choice];
    NSString* const key = dialog::toNSString(keyword);
    if (![panel_ wantsOption:key]) {
        return;
    }
    [panel_ optionDidChange:key choice:dialog::toNSString(choice)];
    [[panel_ panel] updateUI];
    NSError* error = nil;
    [[panel_ panel] saveValuesAndReturnError:&error];
    dialog::noteChoice(order_, keyword);
}

- (void)optionDidChange:(const std::string&)keyword
{
    dialog::noteChoice(order_, keyword);
    if (constraints_.empty() && pane_ == nil) {
        return;
    }
    [self sayConflictsSoon];
}

// Not at once: the panel may be in the middle of a click, and the window changes its size.
- (void)sayConflictsSoon
{
    [NSObject cancelPreviousPerformRequestsWithTarget:self];
    [self performSelector:@selector(lookForConflicts) withObject:nil afterDelay:0 inModes:@[
        NSDefaultRunLoopMode, NSModalPanelRunLoopMode, NSEventTrackingRunLoopMode
    ]];
}

- (void)lookForConflicts
{
    const dialog::Marks marks = dialog::marksOf([host_ ppd], constraints_);
    const std::vector<dialog::Conflict> conflicts = dialog::conflictsIn(constraints_, marks);
    remedy_.clear();
    if (conflicts.empty()) {
        [window_ showConflict:nil remedy:nil];
        return;
    }
    const dialog::Features features = dialog::featuresOf([host_ ppd]);
    remedy_ = dialog::changesToResolve(conflicts.front(), features, constraints_, marks,
                                       dialog::lastChosenIn(conflicts.front(), order_));
    [window_ showConflict:dialog::toNSString(dialog::conflictSentence(conflicts, features))
                   remedy:dialog::toNSString(dialog::changesTitle(remedy_, features))];
}

- (void)resolveConflict
{
    const std::vector<dialog::Change> changes = remedy_;
    [window_ showMessage:@"" isFailure:NO];
    for (const dialog::Change& change : changes) {
        [self choose:change.keyword choice:dialog::joinedChoices(change.choices)];
    }
    [self refresh];
    [self lookForConflicts];
}

- (void)appendSummaryTo:(std::vector<dialog::SummaryLine>&)lines
{
    LoadedPanel* const panel = panel_;
    dialog::appendFeatureLines(lines, offered_, [host_ options],
                               [panel](const std::string& keyword) {
                                   return [panel wantsOption:dialog::toNSString(keyword)] == YES;
                               });
}

- (dialog::Failure)conflict
{
    return dialog::jobConflict([host_ ppd]);
}

@end
