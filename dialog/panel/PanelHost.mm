#include "dialog/panel/PanelHost.h"

#include "dialog/Text.h"
#include "dialog/job/WantedLength.hpp"
#include "platform/PrintingHost.hpp"
#include "tape/TapeState.hpp"

namespace dialog {

struct HostState
{
    HostState(const std::string& name, const std::string& uri, PPDFile file,
              const WantedOptions& options)
        : ppd(std::move(file)), printer(name, uri), wanted(options)
    {
    }

    bool setPaper(const std::string& name);
    void takeWantedLengths();

    PPDFile ppd;
    printing::Printer printer;
    printing::PageFormat pageFormat;
    printing::PrintSettings printSettings;
    printing::PrintSession printSession;
    JobOptions options;
    WantedOptions wanted;
    double ownHeight = 0; // that the PPD gives the paper, in points
};

bool HostState::setPaper(const std::string& name)
{
    if (ppd.record() == nullptr) {
        return false;
    }
    std::optional<printing::Paper> paper = printing::paperFromPPD(*ppd.record(), name);
    if (!paper) {
        return false;
    }
    ppd.mark("PageSize", name);
    // A panel takes another height for another label and forgets what length was typed; a wanted
    // length, which lies in the height, must outlive another width alone.
    const double own = std::exchange(ownHeight, paper->heightPoints);
    if (pageFormat.paper() && own == paper->heightPoints) {
        paper->heightPoints = pageFormat.paper()->heightPoints;
    }
    pageFormat.setPaper(*paper);
    return true;
}

void HostState::takeWantedLengths()
{
    for (const auto& [keyword, choice] : wanted) {
        const std::optional<double> length = parseMillimetres(choice);
        if (keyword == kMarginOption && parseMargin(choice)) {
            ppd.setDefault(keyword, choice);
        } else if (keyword == kTapeLengthOption && length && pageFormat.paper() &&
                   tape::tapeStateForPaper(pageFormat.paper()->ppdName) == tape::kContinuousTape) {
            printing::Paper paper = *pageFormat.paper();
            paper.heightPoints = paperPoints(*length);
            pageFormat.setPaper(paper);
        }
    }
}

} // namespace dialog

@implementation PanelHost

- (id)initWithPrinter:(const std::string&)name
            deviceURI:(const std::string&)uri
                  ppd:(dialog::PPDFile)ppd
                paper:(const std::string&)paper
               wanted:(const dialog::WantedOptions&)wanted
{
    self = [super init];
    if (self != nil) {
        state_ = std::make_unique<dialog::HostState>(name, uri, std::move(ppd), wanted);
        if (paper.empty() || !state_->setPaper(paper)) {
            const std::string marked = state_->ppd.marked("PageSize");
            const auto sizes = state_->ppd.sizes();
            if (!state_->setPaper(marked) && !sizes.empty()) {
                state_->setPaper(sizes.front().name);
            }
        }
        state_->takeWantedLengths();
    }
    return self;
}

- (void)setDelegate:(id<PanelHostDelegate>)delegate
{
    delegate_ = delegate;
}

- (const dialog::PPDFile&)ppd
{
    return state_->ppd;
}

- (const dialog::JobOptions&)options
{
    return state_->options;
}

- (std::string)paperName
{
    const auto& paper = state_->pageFormat.paper();
    return paper ? paper->ppdName : std::string();
}

- (void)applyWanted
{
    dialog::applyWanted(state_->wanted, state_->ppd, state_->options);
}

- (void)chooseOption:(const std::string&)keyword choice:(const std::string&)choice
{
    const std::vector<std::string> before = state_->ppd.markedChoices(keyword);
    state_->ppd.mark(keyword, choice);
    state_->options.set(keyword, choice);
    if (state_->ppd.markedChoices(keyword) != before) {
        [delegate_ optionDidChange:keyword];
    }
}

- (BOOL)choosePaper:(const std::string&)paper
{
    const BOOL chosen = state_->setPaper(paper);
    [delegate_ optionDidChange:"PageSize"];
    return chosen;
}

- (PMPrintSession)printSession
{
    return state_->printSession.handle();
}

- (PMPrintSettings)printSettings
{
    return state_->printSettings.handle();
}

- (PMPageFormat)pageFormat
{
    return state_->pageFormat.handle();
}

- (PMPrinter)PMPrinter
{
    return state_->printer.handle();
}

- (ppd_file_t*)ppdFile
{
    return state_->ppd.record();
}

// Marked at once: the panel reads the mark back straight away.  A number that the PPD does not
// list cannot be marked and is kept for the job alone.
- (void)willChangePPDOptionKeyValue:(NSString*)key ppdChoice:(NSString*)choice
{
    const std::string keyword = dialog::toString(key);
    const std::string value = dialog::toString(choice);
    if (keyword.empty() || value.empty()) {
        return;
    }
    [self chooseOption:keyword choice:value];
    [delegate_ panelDidTellOption];
}

- (void)panelViewDidResize
{
    [delegate_ panelViewDidResize];
}

@end
