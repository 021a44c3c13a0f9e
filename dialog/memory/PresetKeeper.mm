#include "dialog/memory/PresetKeeper.h"

#include "dialog/PopUp.h"
#include "dialog/Text.h"
#include "dialog/Translate.hpp"
#include "dialog/UserFolders.hpp"
#include "dialog/memory/MemorySentences.hpp"
#include "dialog/preview/ControlActions.h"

#include <algorithm>
#include <cstdio>
#include <utility>

namespace {

constexpr NSTimeInterval kAlertInterval = 0.1; // between looks whether an alert is gone

} // namespace

@interface PresetKeeper (Steps)
- (void)fillPopUp;
- (void)fillPopUpWith:(const std::vector<dialog::PresetEntry>&)entries;
- (void)choosePreset:(id)sender;
- (void)takeEntry:(NSNumber*)number;
- (void)userDidSet:(NSNotification*)note;
- (void)settleAfter:(NSTimeInterval)delay;
- (void)settle;
- (void)ask:(dialog::PresetAction)action;
- (dialog::KeptValues)valuesNow;
- (void)reopenWith:(const std::optional<dialog::Start>&)start;
- (void)sayNotice;
@end

@implementation PresetKeeper

- (id)initWithCommandLine:(const dialog::CommandLine&)line
                    popUp:(NSPopUpButton*)popUp
                    owner:(id<PresetOwner>)owner
{
    self = [super init];
    if (self != nil) {
        session_ =
            std::make_unique<dialog::PresetSession>(line, dialog::Memory(dialog::configFolder()));
        isScript_ = line.printAtOnce;
        popUp_ = [popUp retain];
        [popUp_ setTarget:self];
        [popUp_ setAction:@selector(choosePreset:)];
        owner_ = owner;
        for (NSString* name in @[ NSTextDidEndEditingNotification, dialog::kControlHasActed ]) {
            [[NSNotificationCenter defaultCenter] addObserver:self selector:@selector(userDidSet:)
                                                         name:name
                                                       object:nil];
        }
        [self fillPopUp];
    }
    return self;
}

- (void)dealloc
{
    [NSObject cancelPreviousPerformRequestsWithTarget:self];
    [[NSNotificationCenter defaultCenter] removeObserver:self];
    [popUp_ setTarget:nil];
    [popUp_ release];
    [super dealloc];
}

- (dialog::Start)startOf:(const dialog::PrinterEntry&)printer
                   paper:(const std::string&)paper
                     ppd:(const dialog::PPDFile&)ppd
{
    return session_->openPrinter(dialog::memoryKey(printer), paper, ppd);
}

- (void)panelDidOpen
{
    PanelHost* const host = [owner_ presetHost];
    if (session_->state().base != dialog::PresetAction::Defaults) {
        [owner_ settlePresetValues]; // brings remembered lengths within the limits
    }
    const std::string misfits = session_->openedWith([self valuesNow], [host options], [host ppd]);
    isOpen_ = YES;
    [self fillPopUp];
    [self sayNotice];
    if (session_->presetMissing()) {
        [owner_ presetsSay:{dialog::noSuchPreset(session_->presetWanted()),
                            dialog::ExitStatus::CommandLine}];
    } else if (!misfits.empty()) {
        // A script must not get a job that lacks what it asked for.
        [owner_ presetsSay:{misfits, isScript_ ? dialog::ExitStatus::NotPrinted
                                               : dialog::ExitStatus::Printed}];
    }
}

- (void)panelDidClose
{
    isOpen_ = NO;
    [popUp_ setEnabled:NO];
}

- (void)userChosePrinter
{
    session_->forgetPreset();
}

- (BOOL)userChoseTape:(const std::string&)tape
{
    PanelHost* const host = [owner_ presetHost];
    const auto start = session_->chooseTape(tape, [host options], [host ppd]);
    [self reopenWith:start];
    return start.has_value();
}

- (void)valuesMayHaveChanged
{
    if (isOpen_ && session_->valuesAre([self valuesNow])) {
        [self fillPopUp];
    }
}

// A panel need not tell a number before it is asked for it.  Once a drag is over.
- (void)userDidSet:(NSNotification*)note
{
    [self settleAfter:0];
}

- (void)settleAfter:(NSTimeInterval)delay
{
    [NSObject cancelPreviousPerformRequestsWithTarget:self selector:@selector(settle) object:nil];
    [self performSelector:@selector(settle) withObject:nil afterDelay:delay];
}

// Not while something is being typed: the panel would correct it half-way.  Nor while it has an
// alert up, for the same: it would alert again.
- (void)settle
{
    if ([NSApp modalWindow] != nil) {
        [self settleAfter:kAlertInterval];
        return;
    }
    if (isOpen_ && ![[[owner_ presetWindow] firstResponder] isKindOfClass:[NSText class]]) {
        [owner_ settlePresetValues];
        [self valuesMayHaveChanged];
    }
}

- (void)jobBegins
{
    session_->jobBegins([self valuesNow]);
}

- (void)keepLastUsed
{
    session_->keepLastUsed();
    [self sayNotice];
}

- (dialog::KeptValues)valuesNow
{
    PanelHost* const host = [owner_ presetHost];
    return dialog::valuesOf([host paperName], [host options], [host ppd]);
}

// Filled anew only when another preset can be chosen: it is asked for with each change of a value.
- (void)fillPopUp
{
    std::vector<dialog::PresetEntry> entries = session_->menu();
    const bool isNew = entries != entries_;
    if (isNew) {
        [self fillPopUpWith:entries];
        entries_ = std::move(entries);
    }
    const auto selected =
        static_cast<NSInteger>(dialog::selectedEntry(entries_, session_->state()));
    if (isNew || selected != [popUp_ indexOfSelectedItem]) {
        [popUp_ selectItemAtIndex:selected];
    }
    if ([popUp_ isEnabled] != isOpen_) {
        [popUp_ setEnabled:isOpen_];
    }
}

// Through the menu itself, which takes equal titles; a row that stays a row keeps its item, for the
// toolkit measures every row with each one that comes.
- (void)fillPopUpWith:(const std::vector<dialog::PresetEntry>&)entries
{
    const auto isLine = [](const dialog::PresetEntry& entry) {
        return entry.action == dialog::PresetAction::None;
    };
    if (std::equal(entries.begin(), entries.end(), entries_.begin(), entries_.end(),
                   [&](const auto& a, const auto& b) { return isLine(a) == isLine(b); })) {
        for (std::size_t i = 0; i < entries.size(); ++i) {
            NSMenuItem* const item = (NSMenuItem*)[popUp_ itemAtIndex:static_cast<NSInteger>(i)];
            if (entries[i].title != entries_[i].title) {
                dialog::retitle(item, dialog::toNSString(entries[i].title));
            }
            if (!isLine(entries[i])) {
                [item setEnabled:entries[i].enabled];
            }
        }
        [popUp_ synchronizeTitleAndSelectedItem];
        return;
    }
    [popUp_ removeAllItems];
    NSMenu* const menu = [popUp_ menu];
    [menu setMenuChangedMessagesEnabled:NO];
    for (const dialog::PresetEntry& entry : entries) {
        if (isLine(entry)) {
            [menu addItem:[NSMenuItem separatorItem]];
            continue;
        }
        NSMenuItem* const item = [[NSMenuItem alloc] initWithTitle:dialog::toNSString(entry.title)
                                                            action:NULL
                                                     keyEquivalent:@""];
        [item setEnabled:entry.enabled];
        [menu addItem:item];
        [item release];
    }
    [menu setMenuChangedMessagesEnabled:YES];
}

// The list is still open when it tells what was chosen.
- (void)choosePreset:(id)sender
{
    [self performSelector:@selector(takeEntry:)
               withObject:[NSNumber numberWithInteger:[popUp_ indexOfSelectedItem]]
               afterDelay:0];
}

- (void)takeEntry:(NSNumber*)number
{
    const std::vector<dialog::PresetEntry> entries = session_->menu();
    const NSInteger index = [number integerValue];
    [self fillPopUp]; // an entry that only asks something does not stay selected
    if (!isOpen_ || index < 0 || static_cast<std::size_t>(index) >= entries.size()) {
        return;
    }
    const dialog::PresetEntry& entry = entries[static_cast<std::size_t>(index)];
    NSWindow* const window = [owner_ presetWindow];
    [window makeFirstResponder:popUp_]; // ends what is being typed
    [owner_ presetsSay:{}];
    switch (entry.action) {
    case dialog::PresetAction::SaveAs:
    case dialog::PresetAction::Rename:
    case dialog::PresetAction::Delete:
        [self ask:entry.action];
        break;
    case dialog::PresetAction::LastUsed:
    case dialog::PresetAction::Defaults:
    case dialog::PresetAction::Named: {
        PanelHost* const host = [owner_ presetHost];
        [self reopenWith:session_->choose(entry, [host paperName], [host ppd])];
        break;
    }
    case dialog::PresetAction::None:
        break;
    }
    [self fillPopUp];
    [self sayNotice];
    [window makeFirstResponder:popUp_];
}

- (void)reopenWith:(const std::optional<dialog::Start>&)start
{
    if (start) {
        [owner_ reopenWith:*start];
    }
}

- (void)ask:(dialog::PresetAction)action
{
    asking_ = action;
    [self settle];
    NSString* const name = dialog::toNSString(session_->state().name);
    NamePanel* panel = nil;
    if (action == dialog::PresetAction::SaveAs) {
        panel = [[NamePanel alloc] initWithTitle:dialog::localized("Save Preset")
                                        question:dialog::localized("Name:")
                                            name:name
                                            verb:dialog::localized("Save")
                                           taker:self];
    } else if (action == dialog::PresetAction::Rename) {
        panel = [[NamePanel alloc] initWithTitle:dialog::localized("Rename Preset")
                                        question:dialog::localized("Name:")
                                            name:name
                                            verb:dialog::localized("Rename")
                                           taker:self];
    } else {
        const std::string question = dialog::filled(dialog::tr("Delete the preset \"{1}\"?"),
                                                    {dialog::shown(session_->state().name, 150)});
        panel = [[NamePanel alloc] initWithTitle:dialog::localized("Delete Preset")
                                        question:dialog::toNSString(question)
                                            name:nil
                                            verb:dialog::localized("Delete")
                                           taker:self];
    }
    [panel runOver:[owner_ presetWindow]];
    [panel release];
}

- (dialog::NameAnswer)takeName:(const std::string&)typed replacing:(BOOL)replacing
{
    switch (asking_) {
    case dialog::PresetAction::SaveAs:
        return session_->saveAs(typed, replacing, [self valuesNow]);
    case dialog::PresetAction::Rename:
        return session_->rename(typed);
    default:
        return session_->remove();
    }
}

- (void)sayNotice
{
    const std::string notice = session_->takeNotice();
    if (!notice.empty()) {
        std::fprintf(stderr, "tape-print: %s\n", notice.c_str());
        [owner_ presetsSay:{notice, dialog::ExitStatus::Printed}];
    }
}

@end
