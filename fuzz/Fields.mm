// Texts of the length and margin fields to the checks and to what is saved.
#include "fuzz/Host.h"
#include "fuzz/Process.h"

#include <cmath>
#include <cstdlib>
#include <cstring>

namespace {

const char* const kHead = "*PPD-Adobe: \"4.3\"\n*LanguageEncoding: UTF-8\n"
                          "*VnMinTapeLength: \"10\"\n*VnMaxTapeLength: \"1000\"\n"
                          "*VnMinMargin: \"1\"\n*VnMaxMargin: \"50\"\n"
                          "*OpenUI *VnMargin/M: PickOne\n*DefaultVnMargin: 3\n*VnMargin 3/3: \"\"\n"
                          "*CloseUI: *VnMargin\n*OpenUI *Resolution/R: PickOne\n"
                          "*DefaultResolution: 300x300dpi\n*Resolution 300x300dpi/a: \"\"\n"
                          "*Resolution 300x600dpi/b: \"\"\n*CloseUI: *Resolution\n";

// One for each unit and whole-number rule; they stay open.
struct Open
{
    fuzz::Dialog dialog;
    FuzzHost* host = nil;
    id<FuzzedPanel> panel = nil;
    bool inches = false;
};
Open panels[8];

void open(int index)
{
    Open& opened = panels[index];
    std::string text = kHead;
    opened.inches = (index & 1) != 0;
    if (opened.inches)
        text += "*VnUnitType: \"inch\"\n";
    if (index & 2)
        text += "*VnIsIntegerTapeLength: \"True\"\n";
    if (index & 4)
        text += "*VnIsIntegerMargin: \"True\"\n";
    dialog::Failure failure;
    opened.dialog.ppd = dialog::PPDFile::fromBytes("fields", text, failure);
    fuzz::require(opened.dialog.ppd.record() != nullptr, "the PPD of the fields opens");
    opened.host = [[FuzzHost alloc] init];
    opened.host->dialog = &opened.dialog;
    opened.panel = fuzz::newPanel(opened.host);
    fuzz::require([opened.panel panelView] != nil, "there is a view");
    [opened.panel willShow];
}

double shownIn(id<FuzzedPanel> panel, const char* name)
{
    NSString* const text = [fuzz::control(panel, name) stringValue];
    fuzz::require(text != nil && [text length] > 0, "a checked field is not empty");
    char* end = nullptr;
    const double value = std::strtod([text UTF8String], &end);
    fuzz::require(*end == '\0', "a checked field holds a number alone");
    return value;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    fuzz::start(fuzz::Windows::Yes);
    const fuzz::Pool pool;
    for (int i = 0; i < 8; ++i)
        open(i);
    return 0;
}

// Which panel, then texts for the fields and other things a user does.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const fuzz::Pool pool;
    fuzz::Food food(data, size);
    const Open& opened = panels[food.below(8)];
    id<FuzzedPanel> const panel = opened.panel;
    for (int step = 0; step < 20 && !food.isEmpty(); ++step) {
        const std::uint8_t what = food.byte();
        const char* const name = (what & 1) ? "mLengthTxFld" : "mMarginTxFld";
        NSTextField* const field = fuzz::control(panel, name);
        NSSlider* const slider =
            fuzz::control(panel, (what & 1) ? "mLengthSlider" : "mMarginSlider");
        if (what & 2) {
            [slider setFloatValue:static_cast<float>(what) * 7.3f];
            (what & 1) ? [panel changeLength:slider] : [panel changeMargin:slider];
        } else {
            NSString* const entry = fuzz::stringOf(food.text());
            if (entry == nil)
                continue;
            [field setStringValue:entry];
            NSNotification* const note = [NSNotification notificationWithName:@"Fuzz" object:field];
            [panel controlTextDidChange:note];
        }
        if (what & 4)
            [fuzz::control(panel, "mResolutionRdBtn") selectCellAtRow:(what >> 3) & 1 column:0];
    }
    [panel checkValues:NO];
    const double unit = opened.inches ? 25.4 : 1;
    const double length = shownIn(panel, "mLengthTxFld") * unit;
    const double margin = shownIn(panel, "mMarginTxFld") * unit;
    // To a hundredth of an inch.
    fuzz::require(length >= 10 - 0.26 && length <= 1000 + 0.26, "a length is within its limits");
    fuzz::require(margin >= 1 - 0.26 && margin <= 50 + 0.26, "a margin is within its limits");
    fuzz::require(margin <= length / 2 + 0.26, "two margins fit into a length");
    // A length made longer for its margins follows the margin's rule for whole numbers, and only
    // the next check the length's.
    [panel checkValues:NO];
    NSString* const before =
        [[[fuzz::control(panel, "mLengthTxFld") stringValue] copy] autorelease];
    [panel checkValues:NO];
    fuzz::require([[fuzz::control(panel, "mLengthTxFld") stringValue] isEqualToString:before],
                  "a third check changes nothing");
    NSError* error = nil;
    [panel saveValuesAndReturnError:&error];
    fuzz::require([panel shouldPrint], "a panel lets print");
    fuzz::requireWholeSummary([panel summaryInfo]);
    return 0;
}
