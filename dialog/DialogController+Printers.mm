#include "dialog/DialogController+Printers.h"

#include "dialog/DialogController+Job.h"
#include "dialog/Text.h"
#include "dialog/background/RememberedPrinters.hpp"
#include "dialog/twin/PanelSettings.hpp"

#include <cups/cups.h>

namespace {

// Before there is a window a server that is well is worth waiting for; in the window nothing must
// stand still, and a sentence that is gone again at once would only flicker.
constexpr std::chrono::milliseconds kBeforeWindow{80};
constexpr std::chrono::milliseconds kAtOnce{12};
constexpr NSTimeInterval kUnnoticed = 0.1;
constexpr NSTimeInterval kVerySoon = 0.008;
constexpr NSTimeInterval kSoon = 0.04;
constexpr NSTimeInterval kLater = 1;

dialog::PrinterFinder::Clock::time_point now()
{
    return dialog::PrinterFinder::Clock::now();
}

} // namespace

@interface DialogController (PrintersAlone)
- (void)showPrinters;
- (void)hint;
- (void)closePrinter;
- (void)lookAgainSoon;
- (void)printerDidOpen:(dialog::OpenedPPD)opened;
- (void)complainOfPaper;
- (void)lookAround;
- (void)sayOpening;
@end

@implementation DialogController (Printers)

- (void)beginLooking
{
    const std::string server = cupsServer();
    // A script gets what the server says now, or an error.
    const std::string path = line_.printAtOnce ? std::string() : dialog::rememberedPrintersPath();
    finder_ = std::make_unique<dialog::PrinterFinder>(
        line_, dialog::recallPrinters(path, server), server,
        [path](dialog::Cancellation& cancellation) {
            dialog::QueueList list = dialog::listQueues(&cancellation);
            if (!list.failure) {
                dialog::rememberPrinters(path, list.server, list.queues);
            }
            return list;
        }, now());
    paperToOpen_ = line_.paper;
}

- (void)showFirstPrinters
{
    finder_->poll(now(), kBeforeWindow);
    [self showPrinters];
    [self lookAgainSoon];
}

- (BOOL)isSettled
{
    return finder_->state() != dialog::Search::LookingFor && !opener_.underWay();
}

- (void)showPrinters
{
    const bool isFirst = host_ == nil;
    std::optional<dialog::PrinterFinder::Shown> shown;
    if (!isFirst) {
        shown = {printers_[current_], static_cast<bool>([window_ wasTouched]),
                 static_cast<bool>(isOpen_)};
    }
    const dialog::PrinterFinder::Choice choice = finder_->choice(shown);
    printers_ = finder_->printers();
    current_ = choice.index;
    std::vector<std::string> titles;
    titles.reserve(printers_.size());
    for (const dialog::PrinterEntry& printer : printers_) {
        titles.push_back(printer.title);
    }
    [window_ fill:[window_ printerPopUp] with:titles];
    [[window_ printerPopUp] selectItemAtIndex:static_cast<NSInteger>(current_)];

    if (!choice.reopen) {
        [self hint];
        [self complainOfPaper];
        return;
    }
    status_ = dialog::ExitStatus::Printed;
    [self hint];
    if (choice.missing) {
        [self
            report:finder_->failure() ? finder_->failure() : dialog::noSuchPrinter(line_.printer)];
    }
    if (choice.wait) {
        [self closePrinter];
        [window_ showSentence:dialog::toNSString(dialog::lookingForPrinters())];
    } else {
        [self openPrinter:choice.index paper:paperToOpen_];
    }
    [self checkDocument];
}

// The other printers work without a server, so its silence alone is no failure.
- (void)hint
{
    if (status_ != dialog::ExitStatus::Printed) {
        return;
    }
    std::string text;
    switch (finder_->state()) {
    case dialog::Search::LookingFor:
        text = dialog::lookingForPrinters();
        break;
    case dialog::Search::Silent:
        text = finder_->hasQueues() ? dialog::printersOfLastTime(finder_->failure())
                                    : finder_->failure().text;
        break;
    case dialog::Search::Known:
        break;
    }
    // What has been said of the printer meanwhile stays.
    if (!text.empty() || dialog::toString([[window_ messageField] stringValue]) == hint_) {
        [window_ showMessage:dialog::toNSString(text) isFailure:NO];
        hint_ = text;
    }
}

// In its place stands a printer without a PPD and without a panel.
- (void)closePrinter
{
    [NSObject cancelPreviousPerformRequestsWithTarget:self selector:@selector(sayOpening)
                                               object:nil];
    [self closePanel];
    [host_ setDelegate:nil];
    [host_ release];
    const dialog::PrinterEntry& printer = printers_[current_];
    host_ = [[PanelHost alloc] initWithPrinter:printer.name deviceURI:printer.deviceURI ppd:{}
        paper:{}
        wanted:{}];
    isOpen_ = NO;
    [self fillTapes];
    [[window_ chooser] setEnabled:NO];
    [[window_ printButton] setEnabled:NO];
}

- (void)openPrinter:(std::size_t)index paper:(const std::string&)paper
{
    current_ = index;
    paperToOpen_ = paper;
    paperIsUnchecked_ = !paper.empty();
    opener_.begin(printers_[index], now()); // on its way while the one before is closed
    [self closePrinter];
    if (auto opened = opener_.poll(now(), [[window_ window] isVisible] ? kAtOnce : kBeforeWindow)) {
        [self printerDidOpen:std::move(*opened)];
        return;
    }
    [window_ showSentence:@""];
    openingIsSaid_ = NO;
    [self performSelector:@selector(sayOpening) withObject:nil afterDelay:kUnnoticed];
    [self lookAgainSoon];
}

- (void)sayOpening
{
    openingIsSaid_ = YES;
    if (opener_.underWay()) {
        [window_
            showSentence:dialog::toNSString(dialog::openingPrinter(printers_[current_].title))];
    }
}

- (void)printerDidOpen:(dialog::OpenedPPD)opened
{
    const dialog::PrinterEntry& printer = printers_[current_];
    if (opened.failure) {
        [self report:opened.failure];
    }
    [host_ release];
    const dialog::Start start = [presets_ startOf:printer paper:paperToOpen_ ppd:opened.ppd];
    const dialog::WantedOptions wanted =
        dialog::wantedWithEntries(opened.ppd.record(), {line_.length, line_.margin, start.options});
    host_ = [[PanelHost alloc] initWithPrinter:printer.name deviceURI:printer.deviceURI
                                           ppd:std::move(opened.ppd)
                                         paper:start.tape
                                        wanted:wanted];
    [host_ setDelegate:self];
    isOpen_ = [host_ ppd].record() != nullptr;
    [[window_ chooser] setEnabled:YES];
    [[window_ printButton] setEnabled:YES];
    [self fillTapes];
    [self complainOfPaper];
    [self openPanel];
    if ([[window_ window] isVisible]) {
        // Before what was needed to open the panel is tidied up.
        [[window_ window] displayIfNeeded];
    }
}

// Of a printer that may yet give way to another there is nothing to complain.
- (void)complainOfPaper
{
    if (isOpen_ && paperIsUnchecked_ && finder_->state() != dialog::Search::LookingFor) {
        paperIsUnchecked_ = NO;
        if ([host_ paperName] != paperToOpen_) {
            [self report:dialog::noSuchPaper(paperToOpen_, printers_[current_].name)];
        }
    }
}

- (void)chooseAnother:(std::size_t)index
{
    if (index >= printers_.size() || (index == current_ && (isOpen_ || opener_.underWay()))) {
        return;
    }
    status_ = dialog::ExitStatus::Printed;
    [window_ showMessage:@"" isFailure:NO];
    if (finder_->state() == dialog::Search::Silent) {
        finder_->lookAgain(now());
    }
    [presets_ userChosePrinter];
    [self openPrinter:index paper:{}];
}

- (void)endLooking
{
    [NSObject cancelPreviousPerformRequestsWithTarget:self selector:@selector(sayOpening)
                                               object:nil];
    [NSObject cancelPreviousPerformRequestsWithTarget:self selector:@selector(lookAround)
                                               object:nil];
    finder_.reset();
    opener_ = dialog::PrinterOpener();
}

- (void)lookAround
{
    // A list that is open must not be filled anew, nor the panel go away beneath its own list or
    // alert.  A press of an alert's button lets the run loop go round once in its default mode.
    if ([NSApp modalWindow] != nil) {
        // Later.
    } else if (sender_.underWay()) {
        [self lookAtJob];
    } else if (![window_ hasOpenList]) {
        if (finder_->poll(now())) {
            [self showPrinters];
        }
        if (auto opened = opener_.poll(now())) {
            [self printerDidOpen:std::move(*opened)];
        }
        [self actOnCommandLine];
    }
    [self lookAgainSoon];
}

// Only in the run loop's default mode: neither during a drag nor beneath an alert.
- (void)lookAgainSoon
{
    [NSObject cancelPreviousPerformRequestsWithTarget:self selector:@selector(lookAround)
                                               object:nil];
    const bool soon = ![self isSettled] || sender_.underWay() || (wasShown_ && !hasActed_);
    if (soon || finder_->busy()) {
        const NSTimeInterval whileUnsaid =
            opener_.underWay() && !openingIsSaid_ ? kVerySoon : kSoon;
        [self performSelector:@selector(lookAround) withObject:nil
                   afterDelay:soon ? whileUnsaid : kLater];
    }
}

@end
