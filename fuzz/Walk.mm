// A walk over the panel protocol, in any order, with a host that keeps to nothing.
#include "fuzz/Host.h"
#include "fuzz/Process.h"

#include <memory>

namespace {

const char* const kPPD = "*PPD-Adobe: \"4.3\"\n*LanguageEncoding: UTF-8\n"
                         "*VnMinTapeLength: \"10\"\n*VnMaxTapeLength: \"1000\"\n"
                         "*VnMinMargin: \"1\"\n*VnMaxMargin: \"50\"\n"
                         "*OpenUI *PageSize/T: PickOne\n*DefaultPageSize: TC24\n"
                         "*PageSize TC24/24: \"\"\n*PageSize DC62/62: \"\"\n*CloseUI: *PageSize\n"
                         "*PaperDimension TC24: \"68 283.465\"\n*PaperDimension DC62: \"176 113\"\n"
                         "*ImageableArea TC24: \"0 0 68 283.465\"\n"
                         "*ImageableArea DC62: \"0 0 176 113\"\n";

std::string option(const char* keyword, const char* first, const char* second)
{
    const std::string k = keyword;
    return "*OpenUI *" + k + "/T" + k + ": PickOne\n*Default" + k + ": " + first + "\n*" + k + " " +
           first + "/a: \"\"\n*" + k + " " + second + "/b: \"\"\n*CloseUI: *" + k + "\n";
}

// The options of the printer by the bits of one byte.
std::string ppdText(std::uint8_t options)
{
    std::string text = kPPD;
    if (options & 1)
        text += option("VnMargin", "3.0", "5.0");
    if (options & 2)
        text += option("VnPriority", "Speed", "Fine");
    if (options & 4)
        text += option("Resolution", "300x300dpi", "300x600dpi");
    if (options & 8)
        text += option("VnCompress", "Off", "On");
    if (options & 16)
        text += option("VnResolution", "S300", "Q600");
    if (options & 32)
        text += "*VnUnitType: \"inch\"\n";
    if (options & 64)
        text += "*VnIsIntegerMargin: \"True\"\n*VnIsIntegerTapeLength: \"True\"\n";
    return text;
}

class Walk
{
  public:
    Walk(const std::uint8_t* data, std::size_t size) : food_(data, size)
    {
        const std::uint8_t options = food_.byte();
        const std::uint8_t manners = food_.byte();
        dialog::Failure failure;
        if (!(manners & 1))
            dialog_.ppd = dialog::PPDFile::fromBytes("walk", ppdText(options), failure);
        if (!(manners & 2))
            dialog_.takePaper();
        dialog_.marks = !(manners & 4);
        if (manners & 8)
            dialog_.isSilent = [this] { return food_.below(4) == 0; };
        if (manners & 16)
            dialog_.whenTold = [this] { step(); };
        host_ = (manners & 32) ? [[FuzzHost alloc] init] : [[FuzzResizingHost alloc] init];
        host_->dialog = &dialog_;
        panel_ = fuzz::newPanel(host_);
    }

    ~Walk()
    {
        [view_ release];
        [panel_ release];
        host_->dialog = nullptr;
        [host_ release];
    }
    Walk(const Walk&) = delete;
    Walk& operator=(const Walk&) = delete;

    void run()
    {
        for (int i = 0; i < 60 && !food_.isEmpty(); ++i)
            step();
    }

  private:
    void step();
    void edit(const char* name);
    id control(const char* name) { return fuzz::control(panel_, name); }

    fuzz::Food food_;
    fuzz::Dialog dialog_;
    FuzzHost* host_ = nil;
    id<FuzzedPanel> panel_ = nil;
    NSView* view_ = nil;
    int depth_ = 0;
};

NSString* keyword(std::uint8_t number)
{
    static NSString* const words[] = {@"VnPriority", @"Resolution", @"VnCompress", @"VnResolution",
                                      @"VnMargin",   @"PageSize",   @"",           nil};
    return words[number % 8];
}

NSString* choice(std::uint8_t number)
{
    static NSString* const words[] = {@"Speed", @"Fine", @"300x600dpi", @"On",
                                      @"Q600",  @"%@%n", @"",           nil};
    return words[number % 8];
}

void Walk::edit(const char* name)
{
    NSTextField* const field = control(name);
    NSString* const entry = fuzz::stringOf(food_.text());
    if (field != nil && entry != nil)
        [field setStringValue:entry];
    NSNotification* const note = [NSNotification notificationWithName:@"Fuzz" object:field];
    food_.flag() ? [panel_ controlTextDidChange:note] : [panel_ controlTextDidEndEditing:note];
}

void Walk::step()
{
    // A host that calls back for ever would end any panel.
    if (panel_ == nil || depth_ > 3)
        return;
    ++depth_;
    NSError* error = nil;
    switch (food_.below(26)) {
    case 0:
        [view_ release];
        view_ = [[panel_ panelView] retain];
        break;
    case 1:
        fuzz::require([panel_ panelName] != nil, "a panel has a name");
        break;
    case 2:
        fuzz::require([panel_ panelKind] != nil, "a panel has a kind");
        break;
    case 3:
        fuzz::require([panel_ supportedPPDOptionKeys] != nil, "a panel has keys, if none");
        break;
    case 4:
        [panel_ willShow];
        break;
    case 5:
        fuzz::require([panel_ shouldHide], "a panel may always be hidden");
        break;
    case 6:
        [panel_ shouldPrint];
        break;
    case 7:
        [panel_ printWindowWillClose:food_.flag()];
        break;
    case 8:
    case 9: {
        NSString* const key = keyword(food_.byte());
        [panel_ PPDOptionKeyValueDidChange:key ppdChoice:choice(food_.byte())];
        break;
    }
    case 10:
        fuzz::require([panel_ saveValuesAndReturnError:(food_.flag() ? &error : nullptr)],
                      "saving succeeds");
        break;
    case 11:
        fuzz::require([panel_ restoreValuesAndReturnError:(food_.flag() ? &error : nullptr)],
                      "restoring succeeds");
        break;
    case 12:
        fuzz::requireWholeSummary([panel_ summaryInfo]);
        break;
    case 13:
        [panel_ updateUI];
        break;
    case 14:
        [panel_ updateUIItem:static_cast<int32_t>(food_.byte()) << food_.below(24)];
        break;
    case 15:
        [panel_ updateMarkedSelections:static_cast<int32_t>(food_.byte()) << food_.below(24)];
        break;
    case 16:
        edit("mLengthTxFld");
        break;
    case 17:
        edit("mMarginTxFld");
        break;
    case 18:
        [control("mPrintQualityRdBtn") selectCellAtRow:food_.below(3) column:0];
        [panel_ changeQuality:food_.flag() ? control("mPrintQualityRdBtn") : nil];
        break;
    case 19:
        [control("mResolutionRdBtn") selectCellAtRow:food_.below(3) column:0];
        [panel_ changeResolution:food_.flag() ? control("mResolutionRdBtn") : nil];
        break;
    case 20:
        [control("mCompressRdBtn") selectCellAtRow:food_.below(3) column:0];
        [panel_ changeCompress:food_.flag() ? control("mCompressRdBtn") : nil];
        break;
    case 21:
        [panel_ changeVnResolution:control("mVnResolutionPUBtn")];
        break;
    case 22:
        [panel_ changeLength:control("mLengthSlider")];
        [panel_ changeMargin:control("mMarginSlider")];
        break;
    case 23:
        dialog_.ppd.mark([keyword(food_.byte()) UTF8String] ?: "",
                         [choice(food_.byte()) UTF8String] ?: "");
        break;
    case 24:
        // Another tape.
        food_.flag() ? dialog_.format.clearPaper()
                     : dialog_.format.setPaper({food_.flag() ? "DC62" : "TC24", 68.0,
                                                static_cast<double>(food_.byte()) * 9});
        break;
    case 25:
        // Let go of before its window closes.  Inside a call of the panel's own a host leaves it
        // to the pool.  The view may live on.
        if (depth_ == 1)
            [panel_ release];
        else
            [panel_ autorelease];
        panel_ = nil;
        break;
    }
    --depth_;
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
    {
        Walk walk(data, size);
        walk.run();
    }
    return 0;
}
