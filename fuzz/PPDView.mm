// A PPD to the panel with its view: layout, texts, edits, every choice.
#include "fuzz/Host.h"
#include "fuzz/Process.h"

namespace {

void edit(id<FuzzedPanel> panel, const char* name, NSString* entry)
{
    NSTextField* const field = fuzz::control(panel, name);
    [field setStringValue:entry];
    NSNotification* const note = [NSNotification notificationWithName:@"Fuzz" object:field];
    [panel controlTextDidChange:note];
    [panel controlTextDidEndEditing:note];
    [panel checkValues:NO];
}

void chooseLastRow(id<FuzzedPanel> panel, const char* name, SEL action)
{
    NSMatrix* const matrix = fuzz::control(panel, name);
    if ([matrix numberOfRows] > 0)
        [matrix selectCellAtRow:[matrix numberOfRows] - 1 column:0];
    [(NSObject*)panel performSelector:action withObject:matrix];
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    fuzz::start(fuzz::Windows::Yes);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const fuzz::Pool pool;
    fuzz::Dialog dialog;
    dialog::Failure failure;
    dialog.ppd = dialog::PPDFile::fromBytes(
        "fuzzed", std::string_view(reinterpret_cast<const char*>(data), size), failure);
    if (dialog.ppd.record() == nullptr)
        return -1; // of no use here: not for the corpus
    dialog.takePaper();
    FuzzHost* const host = [[FuzzResizingHost alloc] init];
    host->dialog = &dialog;
    id<FuzzedPanel> const panel = fuzz::newPanel(host);
    fuzz::require([panel panelView] != nil, "there is a view");
    [panel supportedPPDOptionKeys];
    [panel willShow];
    NSError* error = nil;
    [panel restoreValuesAndReturnError:&error];
    fuzz::requireWholeSummary([panel summaryInfo]);
    edit(panel, "mLengthTxFld", @"55.5");
    edit(panel, "mMarginTxFld", @"4.2");
    chooseLastRow(panel, "mPrintQualityRdBtn", @selector(changeQuality:));
    chooseLastRow(panel, "mResolutionRdBtn", @selector(changeResolution:));
    chooseLastRow(panel, "mCompressRdBtn", @selector(changeCompress:));
    NSPopUpButton* const mode = fuzz::control(panel, "mVnResolutionPUBtn");
    if ([mode numberOfItems] > 0)
        [mode selectItemAtIndex:[mode numberOfItems] - 1];
    [panel changeVnResolution:mode];
    [panel saveValuesAndReturnError:&error];
    [panel shouldPrint];
    fuzz::requireWholeSummary([panel summaryInfo]);
    [panel release];
    host->dialog = nullptr;
    [host release];
    return 0;
}
