// A PPD to the panel without its view: look-ups, choice lists, limits, saving, marks, summary.
#include "fuzz/Host.h"
#include "fuzz/Options.hpp"
#include "fuzz/Process.h"

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    fuzz::start(fuzz::Windows::No);
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
        return 0;
    dialog.takePaper();
    FuzzHost* const host = [[FuzzHost alloc] init];
    host->dialog = &dialog;
    id<FuzzedPanel> const panel = fuzz::newPanel(host);
    [panel supportedPPDOptionKeys];
    NSError* error = nil;
    [panel restoreValuesAndReturnError:&error];
    fuzz::requireWholeSummary([panel summaryInfo]);
    for (const ppd_option_t* option : fuzz::optionsOf(dialog.ppd.record())) {
        for (int i = 0; i < option->num_choices && i < 4; ++i)
            [panel PPDOptionKeyValueDidChange:fuzz::stringOf(option->keyword)
                                    ppdChoice:fuzz::stringOf(option->choices[i].choice)];
    }
    [panel updateUI];
    [panel saveValuesAndReturnError:&error];
    [panel shouldPrint];
    fuzz::requireWholeSummary([panel summaryInfo]);
    [panel release];
    host->dialog = nullptr;
    [host release];
    return 0;
}
