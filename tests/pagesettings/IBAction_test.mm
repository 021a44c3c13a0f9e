#include "pagesettings/PageSettingsTest.hpp"

#include <limits>
#include <memory>

namespace {

const double kLeastInch = 0.01 / 0.0393701;

void selectRow(const ShownPanel& shown, const char* matrix, NSInteger row)
{
    [shown.matrix(matrix) selectCellAtRow:row column:0];
}

// Sliders

TEST(LengthSlider, CutsWholeMillimetresInTheField)
{
    ShownPanel shown(usbDialog(labelPrinter({.wholeLengths = true})));
    [shown.slider("mLengthSlider") setFloatValue:30.97f];
    [shown.get() changeLength:nil];
    EXPECT_EQ(shown.length(), "30");
}

TEST(LengthSlider, PrintsDecimalMillimetresAsTheyAre)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    [shown.slider("mLengthSlider") setFloatValue:30.92f];
    [shown.get() changeLength:nil];
    EXPECT_EQ(shown.length(), "30.9");
}

TEST(LengthSlider, PrintsInchesToHundredths)
{
    ShownPanel shown(usbDialog(labelPrinter({.unit = "inch", .wholeLengths = true})));
    [shown.slider("mLengthSlider") setFloatValue:1.236f];
    [shown.get() changeLength:nil];
    EXPECT_EQ(shown.length(), "1.24");
}

TEST(MarginSlider, RoundsUpInTheField)
{
    ShownPanel decimal(usbDialog(labelPrinter()));
    [decimal.slider("mMarginSlider") setFloatValue:4.01f];
    [decimal.get() changeMargin:nil];
    EXPECT_EQ(decimal.margin(), "4.1");
    ShownPanel whole(usbDialog(labelPrinter({.wholeMargins = true})));
    [whole.slider("mMarginSlider") setFloatValue:4.01f];
    [whole.get() changeMargin:nil];
    EXPECT_EQ(whole.margin(), "5");
    ShownPanel inches(usbDialog(labelPrinter({.unit = "inch"})));
    [inches.slider("mMarginSlider") setFloatValue:0.123f];
    [inches.get() changeMargin:nil];
    EXPECT_EQ(inches.margin(), "0.12");
}

// A wide margin beside a short length: any check lengthens the tape.
class DraggedSlider : public testing::TestWithParam<const char*>
{
  protected:
    DraggedSlider() : shown(usbDialog(labelPrinter()))
    {
        shown.setMargin("20.0");
        [shown.slider("mLengthSlider") setFloatValue:30];
        [shown.slider("mMarginSlider") setFloatValue:20];
        shown.setLength("30.0");
    }
    void move(id sender)
    {
        if (std::string(GetParam()) == "length")
            [shown.get() changeLength:sender];
        else
            [shown.get() changeMargin:sender];
    }
    ShownPanel shown;
};

TEST_P(DraggedSlider, IsNotCheckedWhileItMoves)
{
    for (const NSUInteger type : {NSUInteger{0}, NSUInteger(NSLeftMouseDown),
                                  NSUInteger(NSLeftMouseDragged), NSUInteger(NSKeyUp)}) {
        setCurrentEvent(type);
        move(shown.slider("mLengthSlider"));
        EXPECT_EQ(shown.length(), "30.0");
        EXPECT_EQ(shown.margin(), "20.0");
    }
    EXPECT_EQ(takeAlerts(), Texts{});
    setCurrentEvent(0);
}

TEST_P(DraggedSlider, IsCheckedWhenTheMouseIsReleased)
{
    setCurrentEvent(NSLeftMouseUp);
    move(shown.slider("mLengthSlider"));
    setCurrentEvent(0);
    EXPECT_EQ(shown.length(), "40.1");
    EXPECT_EQ(takeAlerts().size(), 1u);
}

TEST_P(DraggedSlider, IsCheckedAfterAKey)
{
    setCurrentEvent(NSKeyDown);
    move(shown.slider("mLengthSlider"));
    setCurrentEvent(0);
    EXPECT_EQ(shown.length(), "40.1");
    EXPECT_EQ(takeAlerts().size(), 1u);
}

TEST_P(DraggedSlider, IsNotCheckedWithoutASender)
{
    setCurrentEvent(NSLeftMouseUp);
    move(nil);
    setCurrentEvent(0);
    EXPECT_EQ(shown.length(), "30.0");
    EXPECT_EQ(takeAlerts(), Texts{});
}

INSTANTIATE_TEST_SUITE_P(Both, DraggedSlider, testing::Values("length", "margin"),
                         [](const auto& info) { return std::string(info.param); });

TEST(Sliders, TellTheDialogNothing)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    setCurrentEvent(NSLeftMouseUp);
    [shown.get() changeLength:shown.slider("mLengthSlider")];
    [shown.get() changeMargin:shown.slider("mMarginSlider")];
    setCurrentEvent(0);
    EXPECT_EQ(shown.takeChanges(), Texts{});
}

// Choices

TEST(ChoosingAQuality, TellsTheDialogThenSavesTheLength)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    selectRow(shown, "mPrintQualityRdBtn", 1);
    [shown.get() changeQuality:shown.matrix("mPrintQualityRdBtn")];
    EXPECT_EQ(shown.takeChanges(), (Texts{"VnPriority=Fine", "VnTapeLength=100.0"}));
    EXPECT_EQ(textOf([shown.ivar<id>("mQuality_Selection") ppdTitle]), "Fine");
    EXPECT_EQ([shown.matrix("mPrintQualityRdBtn") selectedRow], 1);
}

TEST(ChoosingAResolution, TellsTheDialogSavesTheLengthAndLocksTheQuality)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    selectRow(shown, "mResolutionRdBtn", 1);
    [shown.get() changeResolution:shown.matrix("mResolutionRdBtn")];
    EXPECT_EQ(shown.takeChanges(), (Texts{"Resolution=300x600dpi", "VnTapeLength=100.0"}));
    EXPECT_FALSE([shown.matrix("mPrintQualityRdBtn") isEnabled]);
    EXPECT_TRUE(shown.isGrey("mPrintQualityStr"));
    selectRow(shown, "mResolutionRdBtn", 0);
    [shown.get() changeResolution:shown.matrix("mResolutionRdBtn")];
    EXPECT_EQ(shown.takeChanges(), (Texts{"Resolution=300x300dpi", "VnTapeLength=100.0"}));
    EXPECT_TRUE([shown.matrix("mPrintQualityRdBtn") isEnabled]);
}

TEST(ChoosingACompression, TellsTheDialogThenSavesTheLength)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    selectRow(shown, "mCompressRdBtn", 1);
    [shown.get() changeCompress:shown.matrix("mCompressRdBtn")];
    EXPECT_EQ(shown.takeChanges(), (Texts{"VnCompress=On", "VnTapeLength=100.0"}));
    EXPECT_EQ(textOf([shown.ivar<id>("mCompress_Selection") ppdTitle]), "On");
}

TEST(ChoosingAPrintMode, TellsTheDialogThenSavesTheLength)
{
    Offer offer;
    offer.printMode = printModes();
    ShownPanel shown(usbDialog(labelPrinter(offer)));
    [shown.popUp() selectItemAtIndex:2];
    [shown.get() changeVnResolution:shown.popUp()];
    EXPECT_EQ(shown.takeChanges(), (Texts{"VnResolution=Q600", "VnTapeLength=100.0"}));
    EXPECT_EQ(textOf([shown.ivar<id>("mVnResolution_Selection") ppdTitle]), "Q600");
    EXPECT_EQ([shown.popUp() indexOfSelectedItem], 2);
}

TEST(ChoosingAnything, ChecksTheEntriesOnlyWithASender)
{
    Offer offer;
    offer.printMode = printModes();
    ShownPanel shown(usbDialog(labelPrinter(offer)));
    const SEL actions[] = {
        @selector(changeQuality:),
        @selector(changeResolution:),
        @selector(changeCompress:),
        @selector(changeVnResolution:)
    };
    for (const SEL action : actions) {
        shown.setLength("5");
        [(id)shown.get() performSelector:action withObject:nil];
        EXPECT_EQ(shown.length(), "5");
        [(id)shown.get() performSelector:action withObject:shown.popUp()];
        EXPECT_EQ(shown.length(), "20.0");
    }
}

} // namespace

static int qualityChecks = 0;
static IMP realQualityCheck = nullptr;

static void countQualityCheck(id self, SEL message)
{
    ++qualityChecks;
    reinterpret_cast<void (*)(id, SEL)>(realQualityCheck)(self, message);
}

namespace {

TEST(ChoosingAnything, TiesTheQualityAtTheRefreshAndOnceMoreButNotAfterAQuality)
{
    Offer offer;
    offer.printMode = printModes();
    ShownPanel shown(usbDialog(labelPrinter(offer)));
    const ReplacedMethod replaced(classNamed("PageSettingPDE13_v100_"), @selector(enabledCheck_BS),
                                  reinterpret_cast<IMP>(countQualityCheck));
    realQualityCheck = replaced.real();
    const auto checksOf = [&](SEL action) {
        qualityChecks = 0;
        [(id)shown.get() performSelector:action withObject:nil];
        return qualityChecks;
    };
    EXPECT_EQ(checksOf(@selector(changeQuality:)), 1);
    EXPECT_EQ(checksOf(@selector(changeResolution:)), 2);
    EXPECT_EQ(checksOf(@selector(changeCompress:)), 2);
    EXPECT_EQ(checksOf(@selector(changeVnResolution:)), 2);
}

TEST(ChoosingAnything, WarnsOfAWideMargin)
{
    ShownPanel shown(usbDialog(labelPrinter(), paperOf(30)));
    shown.setMargin("20");
    [shown.get() changeQuality:shown.matrix("mPrintQualityRdBtn")];
    EXPECT_EQ(takeAlerts(), (Texts{localizedText("RS_Alrt_LengthByMargin")}));
    EXPECT_EQ(shown.length(), "40.1");
}

TEST(ChoosingNothing, TellsTheDialogOnlyTheLength)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    [shown.matrix("mCompressRdBtn") setAllowsEmptySelection:YES];
    [shown.matrix("mCompressRdBtn") deselectAllCells];
    [shown.get() changeCompress:shown.matrix("mCompressRdBtn")];
    EXPECT_EQ(shown.takeChanges(), (Texts{"VnTapeLength=100.0"}));
}

// Typing and the end of editing

TEST(Typing, LeavesALengthBelowTheMinimumUntilEditingEnds)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    shown.type("mLengthTxFld", "5");
    EXPECT_EQ(shown.length(), "5");
    EXPECT_EQ(shown.ivar<std::uint8_t>("column_dec"), 0);
    shown.endEditing("mLengthTxFld");
    EXPECT_EQ(shown.length(), "20.0");
    EXPECT_EQ([shown.slider("mLengthSlider") floatValue], 20.0f);
}

TEST(Typing, CorrectsALengthAboveTheMaximumAtOnce)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    shown.type("mLengthTxFld", "1000.1");
    EXPECT_EQ(shown.length(), "1000.0");
    EXPECT_EQ(shown.ivar<std::uint8_t>("column_dec"), 0);
}

// The toolkit reads 0e400 as no number at all, and only the first digits of a long one.
TEST(EndOfEditing, HoldsNumbersThatNoDoubleKeepsWithinTheLimits)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    for (const char* entry : {"0e400", "000e310", "0.0000e999999", "-1e999999"}) {
        shown.setLength(entry);
        shown.setMargin(entry);
        shown.endEditing("mLengthTxFld");
        EXPECT_EQ(shown.length(), "20.0") << entry;
        EXPECT_EQ(shown.margin(), "3.0") << entry;
    }
    shown.setLength("1e999999");
    shown.endEditing("mLengthTxFld");
    EXPECT_EQ(shown.length(), "1000.0");
}

TEST(Typing, CorrectsAMarginAboveTheMaximumAtOnce)
{
    ShownPanel shown(usbDialog(labelPrinter(), paperOf(500)));
    shown.type("mMarginTxFld", "50.1");
    EXPECT_EQ(shown.margin(), "50.0");
}

TEST(Typing, LeavesAMarginBelowTheMinimumUntilEditingEnds)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    shown.type("mMarginTxFld", "1");
    EXPECT_EQ(shown.margin(), "1");
    shown.endEditing("mMarginTxFld");
    EXPECT_EQ(shown.margin(), "3.0");
}

TEST(Typing, WarnsOfAWideMarginOnlyWhenEditingEnds)
{
    ShownPanel shown(usbDialog(labelPrinter(), paperOf(30)));
    shown.type("mMarginTxFld", "20");
    EXPECT_EQ(takeAlerts(), Texts{});
    EXPECT_EQ(shown.length(), "30.0");
    shown.endEditing("mMarginTxFld");
    EXPECT_EQ(takeAlerts().size(), 1u);
    EXPECT_EQ(shown.length(), "40.1");
}

TEST(Typing, InAnotherFieldIsIgnored)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    shown.setLength("5000");
    for (id other : {(id)shown.field("mWidthTxFld"), (id)nil, (id) @"text"}) {
        [shown.get() controlTextDidChange:ShownPanel::notification(other)];
        setCurrentEvent(NSKeyDown);
        [shown.get() controlTextDidEndEditing:ShownPanel::notification(other)];
        setCurrentEvent(0);
    }
    EXPECT_EQ(shown.length(), "5000");
}

TEST(EndOfEditing, ChecksAfterAKeyOrAMouseDownOnly)
{
    const struct
    {
        NSUInteger type;
        bool checks;
    } cases[] = {{0, false},
                 {NSLeftMouseDown, true},
                 {NSLeftMouseUp, false},
                 {NSLeftMouseDragged, false},
                 {NSKeyDown, true},
                 {NSKeyUp, false}};
    ShownPanel shown(usbDialog(labelPrinter()));
    for (const auto& c : cases) {
        for (const char* name : {"mLengthTxFld", "mMarginTxFld"}) {
            shown.setLength("5");
            setCurrentEvent(c.type);
            [shown.get() controlTextDidEndEditing:ShownPanel::notification(shown.field(name))];
            setCurrentEvent(0);
            EXPECT_EQ(shown.length(), c.checks ? "20.0" : "5") << c.type;
        }
    }
}

TEST(TypingMark, OfAnotherValueStopsTheCheck)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    shown.setLength("5000");
    shown.ivar<std::uint8_t>("column_dec") = 2;
    shown.ivar<std::int8_t>("checkValues_dec") = 0;
    EXPECT_TRUE([shown.get() checkValues:NO]);
    EXPECT_EQ(shown.length(), "5000");
    EXPECT_EQ(shown.ivar<std::uint8_t>("column_dec"), 0);
    EXPECT_EQ(shown.ivar<std::int8_t>("checkValues_dec"), 1);
}

// The check

TEST(Check, PutsFieldAndSliderIntoTheLimits)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    shown.setLength("2000");
    shown.setMargin("1");
    EXPECT_TRUE([shown.get() checkValues:NO]);
    EXPECT_EQ(shown.length(), "1000.0");
    EXPECT_EQ(shown.margin(), "3.0");
    EXPECT_EQ([shown.slider("mLengthSlider") floatValue], 1000.0f);
    EXPECT_EQ([shown.slider("mMarginSlider") floatValue], 3.0f);
    EXPECT_EQ(shown.takeChanges(), Texts{});
}

TEST(Check, NotesThatItPassed)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    shown.ivar<std::int8_t>("checkValues_dec") = 0;
    EXPECT_TRUE([shown.get() checkValues:NO]);
    EXPECT_EQ(shown.ivar<std::int8_t>("checkValues_dec"), 1);
}

TEST(Check, PassesWithoutAMarginOption)
{
    ShownPanel shown(usbDialog(labelPrinter({.margin = ""})));
    shown.setLength("5");
    EXPECT_TRUE([shown.get() checkLengthByMargin:NO]);
    EXPECT_EQ(shown.length(), "5"); // nothing for a margin to do
    EXPECT_TRUE([shown.get() checkValues:NO]);
    EXPECT_EQ(shown.length(), "20.0");
    EXPECT_EQ(shown.margin(), "");
}

TEST(Check, TakesGarbageAndNothingForZero)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    for (const char* text : {"", "letters", "inf", "nan", "-"}) {
        shown.setLength(text);
        shown.setMargin(text);
        [shown.get() checkValues:NO];
        EXPECT_EQ(shown.length(), "20.0") << text;
        EXPECT_EQ(shown.margin(), "3.0") << text;
    }
}

TEST(Check, RoundsDecimalMillimetresUp)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    shown.setLength("30.91");
    shown.setMargin("4.01");
    [shown.get() checkValues:NO];
    EXPECT_EQ(shown.length(), "31.0");
    EXPECT_EQ(shown.margin(), "4.1");
    EXPECT_FLOAT_EQ([shown.slider("mLengthSlider") floatValue], 31.0f);
    EXPECT_FLOAT_EQ([shown.slider("mMarginSlider") floatValue], 4.1f);
}

TEST(Check, RoundsWholeMillimetresUp)
{
    ShownPanel shown(usbDialog(labelPrinter({.wholeLengths = true, .wholeMargins = true})));
    shown.setLength("30.1");
    shown.setMargin("4.1");
    [shown.get() checkValues:NO];
    EXPECT_EQ(shown.length(), "31");
    EXPECT_EQ(shown.margin(), "5");
}

TEST(Check, RoundsInchesUpToHundredths)
{
    ShownPanel shown(usbDialog(labelPrinter({.unit = "inch"})));
    shown.setLength("1.234");
    shown.setMargin("0.123");
    [shown.get() checkValues:NO];
    EXPECT_EQ(shown.length(), "1.24");
    EXPECT_EQ(shown.margin(), "0.13");
}

TEST(Check, CountsALimitOf25Point4MillimetresAsOneInch)
{
    ShownPanel shown(usbDialog(labelPrinter({.unit = "inch", .minLength = "25.4"})));
    shown.setLength("0.5");
    [shown.get() checkValues:NO];
    EXPECT_EQ(shown.length(), "1.00");
}

TEST(Check, LetsTheMinimumWinWhereLimitsAreCrossed)
{
    ShownPanel shown(usbDialog(labelPrinter({.minLength = "200", .maxLength = "100"})));
    shown.setLength("150");
    [shown.get() checkValues:NO];
    EXPECT_EQ(shown.length(), "200.0");
    shown.setLength("250");
    [shown.get() checkValues:NO];
    EXPECT_EQ(shown.length(), "100.0");
}

TEST(Check, ChangesNothingOnALabel)
{
    ShownPanel shown(usbDialog(labelPrinter(), paperOf(15, "DC62")));
    shown.setMargin("49");
    shown.ivar<std::uint8_t>("column_dec") = 1;
    shown.ivar<std::int8_t>("checkValues_dec") = 0;
    EXPECT_TRUE([shown.get() checkValues:NO]);
    EXPECT_EQ(shown.length(), "15.0");
    EXPECT_EQ(shown.margin(), "49");
    EXPECT_EQ(shown.ivar<std::uint8_t>("column_dec"), 1);
    EXPECT_EQ(shown.ivar<std::int8_t>("checkValues_dec"), 1);
    EXPECT_EQ(takeAlerts(), Texts{});
}

TEST(Check, ChangesNothingBeforeTheControlsAreFilled)
{
    FakeDialog dialog(usbDialog(labelPrinter()));
    TestPanel panel(dialog);
    id<PageSettingsUnderTest> const page = (id<PageSettingsUnderTest>)panel.get();
    [page panelView];
    NSTextField* const length = outlet<NSTextField*>(panel, "mLengthTxFld");
    [length setStringValue:@"5"];
    ivarOf<std::int8_t>(page, "checkValues_dec") = 0;
    EXPECT_TRUE([page checkValues:NO]);
    EXPECT_EQ(textOf([length stringValue]), "5");
    EXPECT_EQ(ivarOf<std::int8_t>(page, "checkValues_dec"), 1);
    // With one and the same record for format and settings nothing waits.
    ivarOf<void*>(page, "formatSettings") = ivarOf<void*>(page, "printSettings");
    EXPECT_TRUE([page checkValues:YES]);
    EXPECT_EQ(textOf([length stringValue]), "20.0");
}

// The margin and half the length

TEST(WideMargin, WarnsOnceAndLengthensTheTape)
{
    ShownPanel shown(usbDialog(labelPrinter(), paperOf(30)));
    shown.setMargin("20");
    EXPECT_TRUE([shown.get() checkValues:NO]);
    EXPECT_EQ(takeAlerts(), (Texts{localizedText("RS_Alrt_LengthByMargin")}));
    EXPECT_EQ(frameOfLastAlert(), (Texts{" ", "OK", "(nil)", "(nil)"}));
    EXPECT_EQ(shown.length(), "40.1");
    EXPECT_EQ(shown.margin(), "20.0");
    EXPECT_FLOAT_EQ([shown.slider("mLengthSlider") floatValue], 40.1f);
    EXPECT_EQ(shown.ivar<std::int8_t>("checkValues_dec"), 1);
    EXPECT_TRUE([shown.get() checkValues:NO]);
    EXPECT_EQ(takeAlerts(), Texts{});
}

TEST(WideMargin, LengthensTheTapeQuietly)
{
    ShownPanel shown(usbDialog(labelPrinter(), paperOf(30)));
    shown.setMargin("20");
    EXPECT_TRUE([shown.get() checkValues:YES]);
    EXPECT_EQ(takeAlerts(), Texts{});
    EXPECT_EQ(shown.length(), "40.1");
}

TEST(WideMargin, KeepsThePanelUntilItsAlertIsDown)
{
    FakeDialog dialog(usbDialog(labelPrinter(), paperOf(30)));
    const LivingObjects living("PageSettingPDE13_v100_");
    {
        const ScopedPool outer;
        auto owner = std::make_unique<TestPanel>(dialog);
        id<PageSettingsUnderTest> const panel = (id<PageSettingsUnderTest>)owner->get();
        {
            const ScopedPool inner;
            [panel panelView];
            [panel willShow];
            [outlet<NSTextField*>(*owner, "mMarginTxFld") setStringValue:@"20"];
        }
        duringNextAlert([&] {
            owner.reset();
            EXPECT_EQ(living.count(), 1);
        });
        EXPECT_TRUE([panel checkLengthByMargin:NO]);
        EXPECT_EQ(owner, nullptr) << "no alert came up";
        duringNextAlert(nullptr);
    }
    EXPECT_EQ(living.count(), 0);
}

TEST(WideMargin, IsOneAboveHalfOnly)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    const struct
    {
        const char* length;
        const char* margin;
        bool alerts;
    } cases[] = {{"30", "15", false},     {"30", "15.1", true},    {"30", "14.9", false},
                 {"31.4", "15.7", false}, {"20.2", "10.1", false}, {"20.2", "10.2", true}};
    for (const auto& c : cases) {
        shown.setLength(c.length);
        shown.setMargin(c.margin);
        [shown.get() checkValues:NO];
        EXPECT_EQ(takeAlerts().size(), c.alerts ? 1u : 0u) << c.length << " " << c.margin;
    }
}

TEST(WideMargin, LengthensByTheMarginsWholeNumberRule)
{
    ShownPanel wholeMargins(usbDialog(labelPrinter({.wholeMargins = true}), paperOf(30)));
    wholeMargins.setMargin("20");
    [wholeMargins.get() checkValues:NO];
    EXPECT_EQ(wholeMargins.length(), "41");
    ShownPanel wholeLengths(usbDialog(labelPrinter({.wholeLengths = true}), paperOf(30.5)));
    wholeLengths.setMargin("20");
    [wholeLengths.get() checkValues:NO];
    EXPECT_EQ(wholeLengths.length(), "40.1");
}

TEST(WideMargin, LengthensInInchesByAHundredth)
{
    ShownPanel shown(usbDialog(labelPrinter({.unit = "inch"})));
    shown.setLength("2.00");
    shown.setMargin("1.50");
    [shown.get() checkValues:NO];
    EXPECT_EQ(shown.length(), "3.01");
    EXPECT_EQ(takeAlerts().size(), 1u);
}

TEST(WideMargin, IsNotHeldToTheMaximumLength)
{
    ShownPanel shown(usbDialog(labelPrinter({.maxLength = "60"})));
    shown.setLength("60");
    shown.setMargin("45");
    [shown.get() checkValues:NO];
    EXPECT_EQ(shown.length(), "90.1");
}

TEST(WideMargin, MakesTheLengthInfiniteWithoutDotsPerInch)
{
    Offer offer;
    offer.resolution = {{"Coarse", "Coarse"}, {"Fine", "Fine"}};
    offer.resolutionDefault = "Coarse";
    ShownPanel shown(usbDialog(labelPrinter(offer), paperOf(30)));
    shown.setMargin("20");
    EXPECT_TRUE([shown.get() checkValues:NO]);
    EXPECT_EQ(shown.length(), "inf");
    EXPECT_EQ([shown.get() getOneDotMM], std::numeric_limits<double>::infinity());

    offer.wholeMargins = true;
    ShownPanel whole(usbDialog(labelPrinter(offer), paperOf(30)));
    whole.setMargin("20");
    EXPECT_TRUE([whole.get() checkValues:NO]);
    EXPECT_EQ(whole.length(), "2147483647");
}

TEST(LengthByMargin, AlwaysPasses)
{
    ShownPanel shown(usbDialog(labelPrinter(), paperOf(30)));
    shown.setMargin("20");
    EXPECT_TRUE([shown.get() checkLengthByMargin:YES]);
    EXPECT_EQ(shown.length(), "40.1");
    EXPECT_TRUE([shown.get() checkLengthByMargin:NO]);
    EXPECT_EQ(takeAlerts(), Texts{});
}

// The dot

TEST(PrinterDot, IsOfTheChosenResolution)
{
    Offer offer;
    offer.resolution = {{"100x180dpi", "a"}, {"100X90DPI", "b"}, {"100x300dpi", "c"}};
    offer.resolutionDefault = "100x180dpi";
    ShownPanel shown(usbDialog(labelPrinter(offer)));
    EXPECT_DOUBLE_EQ([shown.get() getOneDotMM], 25.4 / 180);
    selectRow(shown, "mResolutionRdBtn", 1);
    EXPECT_DOUBLE_EQ([shown.get() getOneDotMM], 25.4 / 90);
    selectRow(shown, "mResolutionRdBtn", 2);
    EXPECT_EQ([shown.get() getOneDotMM], 0.1);
}

TEST(PrinterDot, IsOfTheFirstResolutionWhileTheGroupIsDisabled)
{
    Offer offer;
    offer.resolution = {{"100x180dpi", "a"}, {"100x90dpi", "b"}};
    offer.resolutionDefault = "100x90dpi";
    ShownPanel shown(usbDialog(labelPrinter(offer)));
    [shown.matrix("mResolutionRdBtn") setEnabled:NO];
    EXPECT_DOUBLE_EQ([shown.get() getOneDotMM], 25.4 / 180);
}

TEST(PrinterDot, IsTheLeastStepWithoutAResolution)
{
    Offer offer;
    offer.resolution.clear();
    ShownPanel decimal(usbDialog(labelPrinter(offer)));
    EXPECT_EQ([decimal.get() getOneDotMM], 0.1);
    offer.wholeMargins = true;
    ShownPanel whole(usbDialog(labelPrinter(offer)));
    EXPECT_EQ([whole.get() getOneDotMM], 1.0);
    offer.unit = "inch";
    ShownPanel inches(usbDialog(labelPrinter(offer)));
    EXPECT_DOUBLE_EQ([inches.get() getOneDotMM], kLeastInch);
}

TEST(PrinterDot, IsTheLeastStepWhereTheResolutionHasNoChoiceOfThatRow)
{
    Offer offer;
    offer.resolution = {{"100x180dpi", "a"}, {"100x90dpi", "b"}};
    ShownPanel shown(usbDialog(labelPrinter(offer)));
    selectRow(shown, "mResolutionRdBtn", 1);
    shown.dialog.option("Resolution")->num_choices = 1;
    EXPECT_EQ([shown.get() getOneDotMM], 0.1);
    shown.dialog.option("Resolution")->num_choices = 2;
    EXPECT_DOUBLE_EQ([shown.get() getOneDotMM], 25.4 / 90);
}

TEST(PrinterDot, IsAtLeastAHundredthOfAnInch)
{
    ShownPanel shown(usbDialog(labelPrinter({.unit = "inch"})));
    EXPECT_DOUBLE_EQ([shown.get() getOneDotMM], kLeastInch);
}

TEST(Conversion, UsesTheRoundedFactorBothWays)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    EXPECT_DOUBLE_EQ([shown.get() MiriToInch:100], 3.93701);
    EXPECT_DOUBLE_EQ([shown.get() InchToMiri:1], 1 / 0.0393701);
    EXPECT_NEAR([shown.get() InchToMiri:1], 25.39998628, 1e-8);
}

} // namespace
