#include "dialog/DialogController.h"

#include "dialog/CopyCommand.h"
#include "dialog/DialogController+Job.h"
#include "dialog/DialogController+Printers.h"
#include "dialog/Places.hpp"
#include "dialog/Text.h"
#include "dialog/Translate.hpp"
#include "dialog/background/Leaving.hpp"
#include "dialog/job/Document.hpp"
#include "dialog/job/JobPageSize.hpp"
#include "dialog/keyboard/CopiesStep.hpp"
#include "dialog/start/InputMethod.h"
#include "dialog/toolkit/WindowServer.h"
#include "dialog/twin/Twin.hpp"

#include <cstdio>

namespace {

// Long enough for the window manager to have placed the window.
constexpr NSTimeInterval kShownDelay = 0.4;
constexpr NSTimeInterval kListingInterval = 0.1;

} // namespace

@interface DialogController (Steps)
- (void)report:(const dialog::Failure&)failure;
- (void)checkDocument;
- (void)closePanel;
- (void)openPanel;
- (void)fillTapes;
- (void)showPane:(dialog::PaneKind)kind;
- (dialog::PaneKind)paneShown;
- (std::vector<dialog::SummaryLine>)summaryLines;
- (void)windowWasShown:(id)ignored;
- (void)takePicture;
- (void)writeControls:(NSTimer*)timer;
- (BOOL)printNow;
- (dialog::Failure)prepareJob:(dialog::JobTicket&)ticket;
- (void)stopWithStatus:(dialog::ExitStatus)status;
@end

@implementation DialogController

- (id)initWithCommandLine:(const dialog::CommandLine&)line
{
    self = [super init];
    if (self != nil) {
        line_ = line;
        status_ = dialog::ExitStatus::Printed;
        if (line_.plugin.empty()) {
            line_.plugin = dialog::bundlePath(dialog::programFolder());
        }
        line_.paper = dialog::paperOf(line_);
        [self beginLooking];
        if (const auto document = dialog::Document::open(line_.document); document.ok()) {
            picture_ = std::make_unique<dialog::PictureRequest>(
                dialog::pictureProgram(dialog::programFolder()), document.path());
        }
    }
    return self;
}

- (void)dealloc
{
    [NSObject cancelPreviousPerformRequestsWithTarget:self];
    [self closePanel];
    [host_ setDelegate:nil];
    [host_ release];
    [features_ release];
    [preview_ release];
    [presets_ release];
    [window_ release];
    [super dealloc];
}

- (dialog::ExitStatus)status
{
    return status_;
}

- (void)applicationDidFinishLaunching:(NSNotification*)notification
{
    window_ = [[DialogWindow alloc] initWithController:self];
    features_ = [[FeaturesController alloc] initWithWindow:window_];
    [[window_ copiesField] setIntValue:line_.copies];
    [[window_ stepper] setMinValue:dialog::kMinCopies];
    [[window_ stepper] setMaxValue:dialog::kMaxCopies];
    [[window_ stepper] setIntValue:line_.copies];

    preview_ = [[LabelPreview alloc] initWithRequest:std::move(picture_)];
    [window_ showPreview:preview_];

    presets_ = [[PresetKeeper alloc] initWithCommandLine:line_ popUp:[window_ presetsPopUp]
                                                   owner:self];
    [self showFirstPrinters];
    [preview_ lookForDocument];
    [[window_ window] center];
    [NSApp activateIgnoringOtherApps:YES];
    {
        const dialog::WithoutIcons iconComesLater;
        [[window_ window] makeKeyAndOrderFront:nil];
    }
    // With the mark of the keyboard, before what was needed to open the panel is tidied up.
    [[window_ window] displayIfNeeded];
    [self performSelector:@selector(windowWasShown:) withObject:nil afterDelay:kShownDelay];
}

// Words on the command line are the dialog's own business; the toolkit must not look for an
// application that opens them.
- (BOOL)application:(NSApplication*)application openFile:(NSString*)path
{
    return YES;
}

- (BOOL)windowShouldClose:(id)sender
{
    if (![self leaveWaitingJob]) {
        [self stopWithStatus:status_ == dialog::ExitStatus::Printed ? dialog::ExitStatus::Cancelled
                                                                    : status_];
    }
    return NO;
}

- (void)report:(const dialog::Failure&)failure
{
    std::fprintf(stderr, "tape-print: %s\n", failure.text.c_str());
    [window_ showMessage:dialog::toNSString(failure.text) isFailure:YES];
    status_ = failure.status;
}

- (void)checkDocument
{
    if (const dialog::Document document = dialog::Document::open(line_.document); !document.ok()) {
        [self report:document.failure()];
    }
}

- (void)fillTapes
{
    sizes_ = [host_ ppd].sizes();
    const std::string chosen = [host_ paperName];
    std::vector<std::string> titles;
    titles.reserve(sizes_.size());
    std::size_t selected = 0;
    for (const dialog::PPDFile::Size& size : sizes_) {
        if (size.name == chosen) {
            selected = titles.size();
        }
        titles.push_back(size.title);
    }
    [window_ fill:[window_ tapePopUp] with:titles];
    if (!titles.empty()) {
        [[window_ tapePopUp] selectItemAtIndex:static_cast<NSInteger>(selected)];
    }
}

- (void)openPanel
{
    panelFailure_ = {};
    loaded_ = [[LoadedPanel panelFromBundle:line_.plugin host:host_ failure:panelFailure_] retain];
    [features_ openHost:host_ panel:loaded_];
    panes_ = dialog::panesFor(dialog::toString([loaded_ name]), [features_ hasFeatures]);
    std::vector<std::string> titles;
    for (const dialog::Pane& pane : panes_) {
        titles.push_back(pane.title);
    }
    [window_ fill:[window_ chooser] with:titles];
    [self showPane:dialog::PaneKind::Panel];
    if (loaded_ != nil) {
        // The first show starts from the printer's defaults and saves them; what was wanted comes
        // after.  Restoring also lets the panel take note of every choice for its summary.
        [[loaded_ panel] willShow];
        [host_ applyWanted];
        NSError* error = nil;
        [[loaded_ panel] restoreValuesAndReturnError:&error];
        [preview_ showPanel:[loaded_ view] host:host_];
        [presets_ panelDidOpen];
    } else {
        [self report:panelFailure_];
    }
    [features_ start];
}

- (void)closePanel
{
    [features_ close];
    if (loaded_ == nil) {
        return;
    }
    [window_ endTyping];
    [presets_ panelDidClose];
    [[loaded_ panel] printWindowWillClose:NO];
    [window_ showSentence:@""];
    [preview_ forgetPanel];
    [loaded_ release];
    loaded_ = nil;
}

- (void)showPane:(dialog::PaneKind)kind
{
    if (panes_.empty()) {
        return;
    }
    const std::size_t index = dialog::findPane(panes_, kind).value_or(0);
    [[window_ chooser] selectItemAtIndex:static_cast<NSInteger>(index)];
    switch (panes_[index].kind) {
    case dialog::PaneKind::Summary:
        [window_ showSummary:[self summaryLines] title:[[window_ chooser] itemTitleAtIndex:0]];
        break;
    case dialog::PaneKind::Features:
        [window_ showView:[features_ viewOfSize:[window_ paneSize]]];
        break;
    case dialog::PaneKind::Panel:
        if (loaded_ != nil) {
            [window_ showPanelView:[loaded_ view]];
        } else {
            [window_ showSentence:dialog::toNSString(panelFailure_.text)];
        }
        break;
    }
}

- (dialog::PaneKind)paneShown
{
    const NSInteger index = [[window_ chooser] indexOfSelectedItem];
    return index >= 0 && static_cast<std::size_t>(index) < panes_.size()
               ? panes_[static_cast<std::size_t>(index)].kind
               : dialog::PaneKind::Panel;
}

- (std::vector<dialog::SummaryLine>)summaryLines
{
    std::vector<dialog::SummaryLine> lines;
    NSDictionary* const summary = [[loaded_ panel] summaryInfo];
    NSArray* const order = [summary objectForKey:kSummaryDisplayOrder];
    for (NSString* title in order) {
        NSString* const value = [summary objectForKey:title];
        if ([value isKindOfClass:[NSString class]]) {
            lines.push_back({dialog::toString(title), dialog::toString(value)});
        }
    }
    [features_ appendSummaryTo:lines];
    return lines;
}

- (void)panelViewDidResize
{
    [window_ panelViewDidResize];
}

- (void)panelDidTellOption
{
    [preview_ refreshSoon];
    [presets_ valuesMayHaveChanged];
}

- (PanelHost*)presetHost
{
    return host_;
}

- (NSWindow*)presetWindow
{
    return [window_ window];
}

- (void)settlePresetValues
{
    NSError* error = nil;
    [[loaded_ panel] saveValuesAndReturnError:&error];
}

- (void)reopenWith:(const dialog::Start&)start
{
    const dialog::PaneKind pane = [self paneShown];
    const dialog::PrinterEntry& printer = printers_[current_];
    [self closePanel];
    [host_ setDelegate:nil];
    PanelHost* const before = host_;
    host_ = [[PanelHost alloc] initWithPrinter:printer.name deviceURI:printer.deviceURI
                                           ppd:[before ppd].reopened()
                                         paper:start.tape
                                        wanted:start.options];
    [before release];
    [host_ setDelegate:self];
    [self fillTapes];
    [self openPanel];
    [self showPane:pane];
}

- (void)presetsSay:(const dialog::Failure&)failure
{
    if (failure.status != dialog::ExitStatus::Printed) {
        [self report:failure];
    } else {
        [window_ showMessage:dialog::toNSString(failure.text) isFailure:NO];
    }
}

- (void)optionDidChange:(const std::string&)keyword
{
    [features_ optionDidChange:keyword];
    [presets_ valuesMayHaveChanged];
}

- (void)resolveConflict:(id)sender
{
    [features_ resolveConflict];
    if ([self paneShown] == dialog::PaneKind::Summary) {
        [self showPane:dialog::PaneKind::Summary];
    }
}

- (void)choosePrinter:(id)sender
{
    const NSInteger index = [[window_ printerPopUp] indexOfSelectedItem];
    [window_ giveKeyboardTo:[window_ printerPopUp]];
    if (index >= 0) {
        [self chooseAnother:static_cast<std::size_t>(index)];
    }
}

- (void)chooseTape:(id)sender
{
    const NSInteger index = [[window_ tapePopUp] indexOfSelectedItem];
    if (index < 0 || static_cast<std::size_t>(index) >= sizes_.size()) {
        return;
    }
    const std::string& name = sizes_[static_cast<std::size_t>(index)].name;
    if (name == [host_ paperName]) {
        return;
    }
    [window_ giveKeyboardTo:[window_ tapePopUp]];
    if ([presets_ userChoseTape:name]) {
        return;
    }
    if (![host_ choosePaper:name]) {
        [self report:dialog::noSuchPaper(name, printers_[current_].name)];
        return;
    }
    [loaded_ optionDidChange:@"PageSize" choice:dialog::toNSString(name)];
    [[loaded_ panel] updateUI];
    [preview_ refresh];
    [presets_ valuesMayHaveChanged];
    if ([self paneShown] == dialog::PaneKind::Summary) {
        [self showPane:dialog::PaneKind::Summary];
    }
}

- (void)choosePane:(id)sender
{
    const NSInteger index = [[window_ chooser] indexOfSelectedItem];
    if (index < 0 || static_cast<std::size_t>(index) >= panes_.size()) {
        return;
    }
    [window_ giveKeyboardTo:[window_ chooser]];
    const dialog::PaneKind kind = panes_[static_cast<std::size_t>(index)].kind;
    if (kind != dialog::PaneKind::Panel && loaded_ != nil && ![[loaded_ panel] shouldHide]) {
        [[window_ chooser] selectItemAtIndex:0];
        return;
    }
    [self showPane:kind];
}

- (void)stepCopies:(id)sender
{
    [[window_ copiesField] setIntValue:[[window_ stepper] intValue]];
}

- (void)controlTextDidChange:(NSNotification*)note
{
    std::int32_t copies = 0;
    if ([note object] == [window_ copiesField] &&
        dialog::parseCopies(dialog::toString([[window_ copiesField] stringValue]), copies)) {
        [[window_ stepper] setIntValue:copies];
    }
}

// The arrow keys step the copies as the buttons beside the field do.
- (BOOL)control:(NSControl*)control textView:(NSTextView*)editor doCommandBySelector:(SEL)command
{
    const bool isUp = sel_isEqual(command, @selector(moveUp:));
    if (control != [window_ copiesField] ||
        (!isUp && !sel_isEqual(command, @selector(moveDown:)))) {
        return NO;
    }
    const std::string text =
        dialog::steppedCopies(dialog::toString([editor string]), isUp ? 1 : -1);
    [editor setString:dialog::toNSString(text)];
    [editor selectAll:nil];
    [[window_ stepper] setIntValue:[dialog::toNSString(text) intValue]];
    return YES;
}

- (void)cancelDialog:(id)sender
{
    if ([window_ closeOpenList] || [self cancelJob]) {
        return;
    }
    [self stopWithStatus:status_ == dialog::ExitStatus::Printed ? dialog::ExitStatus::Cancelled
                                                                : status_];
}

- (void)printDialog:(id)sender
{
    if ([window_ takeFromOpenList]) {
        return;
    }
    if (![self leaveWaitingJob] && [[window_ printButton] isEnabled]) {
        [self printNow];
    }
}

- (BOOL)printNow
{
    NSView* const focused = [window_ focusedView];
    dialog::JobTicket ticket;
    if (const dialog::Failure failure = [self prepareJob:ticket]) {
        [self report:failure];
        [window_ giveKeyboardTo:focused];
        return NO;
    }
    [presets_ jobBegins];
    [self beginJob:std::move(ticket)];
    return YES;
}

- (void)copyCommand:(id)sender
{
    dialog::JobTicket ticket;
    dialog::Failure failure = [self prepareJob:ticket];
    if (!failure) {
        failure = dialog::copyCommand(ticket, line_.document);
    }
    [window_ showMessage:failure ? dialog::toNSString(failure.text)
                                 : dialog::localized("The command is on the clipboard.")
               isFailure:static_cast<BOOL>(static_cast<bool>(failure))];
}

// The job as it is set, once the panel agrees.
- (dialog::Failure)prepareJob:(dialog::JobTicket&)ticket
{
    [window_ showMessage:@"" isFailure:NO];
    [window_ endTyping];
    const std::string text = dialog::toString([[window_ copiesField] stringValue]);
    std::int32_t copies = dialog::kMinCopies;
    if (!dialog::parseCopies(text, copies)) {
        return dialog::copiesNotUnderstood(text);
    }
    const auto document =
        std::make_shared<const dialog::Document>(dialog::Document::open(line_.document));
    if (!document->ok()) {
        return document->failure();
    }
    if (loaded_ != nil) {
        // Saved before the panel is asked: the other way round the job could carry the values from
        // before a correction.
        NSError* error = nil;
        if (![[loaded_ panel] saveValuesAndReturnError:&error] || ![[loaded_ panel] shouldPrint]) {
            return dialog::panelHoldsJob();
        }
    }
    if (dialog::Failure conflict = [features_ conflict]) {
        return conflict;
    }
    ticket.printer = printers_[current_];
    ticket.document = document;
    ticket.title = dialog::jobTitle(line_.title, document->name());
    ticket.options = dialog::optionsToSend(
        [host_ options], dialog::pageSizeToSend([host_ ppd], [host_ paperName], [host_ options]),
        copies);
    ticket.output = line_.output;
    ticket.summary = "Title: " + dialog::shown(ticket.title) +
                     "\nPrinter: " + dialog::shown(ticket.printer.name) +
                     "\nCopies: " + std::to_string(copies) + "\n" +
                     dialog::summaryText([self summaryLines]);
    return {};
}

- (void)windowWasShown:(id)ignored
{
    wasShown_ = YES;
    dialog::giveIcon(static_cast<int>([[window_ window] windowNumber]));
    dialog::openInputMethod();
    if (!line_.listControls.empty()) {
        listing_ = [NSTimer timerWithTimeInterval:kListingInterval target:self
                                         selector:@selector(writeControls:)
                                         userInfo:nil
                                          repeats:YES];
        for (NSString* mode in
             @[ NSDefaultRunLoopMode, NSModalPanelRunLoopMode, NSEventTrackingRunLoopMode ]) {
            [[NSRunLoop currentRunLoop] addTimer:listing_ forMode:mode];
        }
    }
    [self lookAround];
}

// What a script asked for, once, when nothing is waited for any more.
- (void)actOnCommandLine
{
    if (!wasShown_ || hasActed_ || ![self isSettled]) {
        return;
    }
    hasActed_ = YES;
    if (line_.showSummary) {
        [self showPane:dialog::PaneKind::Summary];
    }
    if (!line_.screenshot.empty()) {
        [self takePicture];
    }
    if (line_.printAtOnce) {
        // A script must not get a job that lacks what it asked for.
        if (status_ == dialog::ExitStatus::Printed || status_ == dialog::ExitStatus::NotWritten) {
            if ([self printNow]) {
                return; // jobDidEnd goes on
            }
        }
        [self stopWithStatus:status_];
    }
}

- (void)takePicture
{
    [preview_ finishDocument];
    if (![window_ writePicture:dialog::toNSString(line_.screenshot)]) {
        [self report:dialog::fileNotWritten(line_.screenshot)];
    }
}

- (void)writeControls:(NSTimer*)timer
{
    NSData* const bytes = [[window_ visibleControls] dataUsingEncoding:NSUTF8StringEncoding];
    if (![bytes writeToFile:dialog::toNSString(line_.listControls) atomically:YES]) {
        [listing_ invalidate];
        listing_ = nil;
        [self report:dialog::fileNotWritten(line_.listControls)];
    }
}

- (void)stopWithStatus:(dialog::ExitStatus)status
{
    status_ = status;
    if (status == dialog::ExitStatus::Printed) {
        [presets_ keepLastUsed];
    }
    [listing_ invalidate];
    listing_ = nil;
    [[window_ window] makeFirstResponder:nil];
    [[loaded_ panel] printWindowWillClose:status == dialog::ExitStatus::Printed];
    [[window_ window] orderOut:nil];
    [self endLooking];
    const std::chrono::milliseconds patience = [self endJob];
    // Not by stop: and an event to wake the loop: the toolkit can wait for the next real event
    // before it looks at a posted one, and no more come.
    dialog::leave(status, patience);
}

@end
