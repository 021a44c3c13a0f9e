#include "pagesettings/PageSettingsTest.hpp"

#include <algorithm>
#include <bitset>
#include <utility>

namespace {

// In memory: CUPS itself puts the keyword where a PPD has no text.
void takeTitle(ppd_choice_t& choice, const char* replacement = "")
{
    std::strcpy(choice.text, replacement);
}

const char kNotUTF8[] = "\xff\xfe";

std::vector<PPDChoiceText> choices(int count, const std::string& prefix)
{
    std::vector<PPDChoiceText> made;
    for (int i = 0; i < count; ++i)
        made.push_back({prefix + std::to_string(i), "Title " + std::to_string(i)});
    return made;
}

// A panel whose PPD the test changes in memory before the controls are filled.
class UnshownPanel
{
  public:
    explicit UnshownPanel(const DialogSetup& setup) : dialog(setup) {}
    void load()
    {
        panel_.emplace(dialog);
        [get() panelView];
    }
    void show()
    {
        load();
        [get() willShow];
    }
    id<PageSettingsUnderTest> get() const { return (id<PageSettingsUnderTest>)panel_->get(); }
    template <class T>
    T control(const char* name) const
    {
        return ivarOf<T>(panel_->get(), name);
    }
    std::string text(const char* name) const
    {
        return textOf([control<NSTextField*>(name) stringValue]);
    }
    Texts titles(const char* name) const
    {
        Texts titles;
        NSMatrix* const matrix = control<NSMatrix*>(name);
        for (NSInteger row = 0; row < [matrix numberOfRows]; ++row)
            titles.push_back(textOf([[matrix cellAtRow:row column:0] title]));
        return titles;
    }

    FakeDialog dialog;

  private:
    std::optional<TestPanel> panel_;
};

// Width

TEST(TapeWidth, IsThePPDsTextOfThePaper)
{
    ShownPanel shown(usbDialog(labelPrinter(), paperOf(100, "TC36")));
    EXPECT_EQ(shown.text("mWidthStr"), localizedText("RS_TapeWidth"));
    EXPECT_EQ(shown.text("mWidthTxFld"), "36 mm tape");
}

TEST(TapeWidth, IsUnknownForAPaperThatThePPDLacks)
{
    ShownPanel shown(usbDialog(labelPrinter(), paperOf(100, "TC99")));
    EXPECT_EQ(shown.text("mWidthTxFld"), localizedText("RS_TapeWidthNot"));
}

TEST(TapeWidth, IsUnknownForANameInOtherLetterCase)
{
    ShownPanel shown(usbDialog(labelPrinter(), paperOf(100, "tc24")));
    EXPECT_EQ(shown.text("mWidthTxFld"), localizedText("RS_TapeWidthNot"));
}

TEST(TapeWidth, IsUnknownWithoutAPaperAndWithoutPageSizes)
{
    ShownPanel noPaper({.ppd = labelPrinter()});
    EXPECT_EQ(noPaper.text("mWidthTxFld"), localizedText("RS_TapeWidthNot"));
    ShownPanel noSizes(usbDialog(PPDText().attribute("VnMinTapeLength", "4")));
    EXPECT_EQ(noSizes.text("mWidthTxFld"), localizedText("RS_TapeWidthNot"));
    ShownPanel noPPD({.paper = paperOf(100)});
    EXPECT_EQ(noPPD.text("mWidthTxFld"), localizedText("RS_TapeWidthNot"));
}

TEST(TapeWidth, PairsSizesAndChoicesByPlaceNotByKeyword)
{
    UnshownPanel panel(usbDialog(labelPrinter(), paperOf(100, "TC24")));
    std::swap(panel.dialog.ppd()->sizes[0].name, panel.dialog.ppd()->sizes[1].name);
    panel.show();
    EXPECT_EQ(panel.text("mWidthTxFld"), "36 mm tape");
}

TEST(TapeWidth, IsThatOfTheFirstOfTwoSizesOfOneName)
{
    UnshownPanel panel(usbDialog(labelPrinter(), paperOf(100, "TC24")));
    std::strcpy(panel.dialog.ppd()->sizes[1].name, "TC24");
    panel.show();
    EXPECT_EQ(panel.text("mWidthTxFld"), "24 mm tape");
}

TEST(TapeWidth, IsUnknownForASizeBeyondTheEndOfEitherList)
{
    UnshownPanel panel(usbDialog(labelPrinter(), paperOf(100, "TC24")));
    const int sizes = std::exchange(panel.dialog.ppd()->num_sizes, 0);
    panel.show();
    EXPECT_EQ(panel.text("mWidthTxFld"), localizedText("RS_TapeWidthNot"));
    panel.dialog.ppd()->num_sizes = sizes;
    [panel.get() initializeUI_Width];
    EXPECT_EQ(panel.text("mWidthTxFld"), "24 mm tape");
    panel.dialog.option("PageSize")->num_choices = 0;
    [panel.get() initializeUI_Width];
    EXPECT_EQ(panel.text("mWidthTxFld"), localizedText("RS_TapeWidthNot"));
    panel.dialog.option("PageSize")->num_choices = sizes;
}

TEST(TapeWidth, IsUnknownForASizeWithoutAText)
{
    UnshownPanel panel(usbDialog(labelPrinter(), paperOf(100, "TC24")));
    takeTitle(panel.dialog.option("PageSize")->choices[0]);
    panel.show();
    EXPECT_EQ(panel.text("mWidthTxFld"), localizedText("RS_TapeWidthNot"));
}

TEST(TapeWidth, IsUnknownForATextThatIsNotUTF8)
{
    UnshownPanel panel(usbDialog(labelPrinter()));
    takeTitle(panel.dialog.option("PageSize")->choices[0], kNotUTF8);
    panel.show();
    EXPECT_EQ(panel.text("mWidthTxFld"), localizedText("RS_TapeWidthNot"));
}

TEST(TapeWidth, FollowsTheTicketsPaperWhereThePageFormatNamesNone)
{
    DialogSetup setup = usbDialog(labelPrinter(), paperOf(100, ""));
    UnshownPanel panel(setup);
    panel.dialog.settings.setData("jp.co.vendor.print.PrintSettingsTicket.KmE5",
                                  "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict>"
                                  "<key>KmPaperName2</key><string>TC36</string></dict></plist>");
    panel.show();
    EXPECT_EQ(panel.text("mWidthTxFld"), "36 mm tape");
}

// Captions

TEST(Captions, AreThePPDsTitlesWithAColon)
{
    Offer offer;
    offer.printMode = printModes();
    ShownPanel shown(usbDialog(labelPrinter(offer)));
    EXPECT_EQ(shown.text("mLengthStr"), "Label length : ");
    EXPECT_EQ(shown.text("mMarginStr"), "Feed margin : ");
    EXPECT_EQ(shown.text("mPrintQualityStr"), "Priority : ");
    EXPECT_EQ(shown.text("mPrintResolutionStr"), "Dots : ");
    EXPECT_EQ(shown.text("mPrintCompressStr"), "Squeeze : ");
    EXPECT_EQ(shown.text("mPrintVnResolutionStr"), "Mode : ");
}

TEST(Captions, FallBackToTheGroupsOwnTextWithoutATitle)
{
    Offer offer;
    offer.printMode = printModes();
    UnshownPanel panel(usbDialog(labelPrinter(offer)));
    const char* const texts[] = {"", kNotUTF8};
    int i = 0;
    for (const char* option :
         {"VnTapeLength", "VnMargin", "VnPriority", "Resolution", "VnCompress", "VnResolution"})
        std::strcpy(panel.dialog.option(option)->text, texts[i++ % 2]);
    panel.show();
    EXPECT_EQ(panel.text("mLengthStr"), localizedText("RS_TapeLength"));
    EXPECT_EQ(panel.text("mMarginStr"), localizedText("RS_Margin"));
    EXPECT_EQ(panel.text("mPrintQualityStr"), localizedText("RS_Quality"));
    EXPECT_EQ(panel.text("mPrintResolutionStr"), localizedText("RS_Resolution"));
    EXPECT_EQ(panel.text("mPrintCompressStr"), localizedText("RS_Compress"));
    EXPECT_EQ(panel.text("mPrintVnResolutionStr"), localizedText("RS_Quality"));
}

TEST(Captions, FallBackForAnOptionThatThePPDLacks)
{
    ShownPanel shown(usbDialog(labelPrinter({.margin = "", .tapeLength = false})));
    EXPECT_EQ(shown.text("mLengthStr"), localizedText("RS_TapeLength"));
    EXPECT_EQ(shown.text("mMarginStr"), localizedText("RS_Margin"));
}

TEST(Captions, TakeTitlesWithPercentSignsAsTheyAre)
{
    UnshownPanel panel(usbDialog(labelPrinter()));
    std::strcpy(panel.dialog.option("VnPriority")->text, "100%@ %n%s");
    takeTitle(panel.dialog.option("VnPriority")->choices[0], "50%@ %n");
    panel.show();
    EXPECT_EQ(panel.text("mPrintQualityStr"), "100%@ %n%s : ");
    EXPECT_EQ(panel.titles("mPrintQualityRdBtn"), (Texts{"50%@ %n", "Fine"}));
}

// Length

TEST(LengthControls, ShowDecimalMillimetres)
{
    ShownPanel shown(
        usbDialog(labelPrinter({.minLength = "4.01", .maxLength = "999.95"}), paperOf(30.94)));
    EXPECT_EQ(shown.length(), "30.9");
    EXPECT_EQ(shown.ivar<float>("choice_PaperSize"), 30.9f);
    EXPECT_EQ(shown.text("mLengthMinStr"), "4.1");
    EXPECT_EQ(shown.text("mLengthMaxStr"), "1000.0");
    NSSlider* const slider = shown.slider("mLengthSlider");
    EXPECT_FLOAT_EQ([slider minValue], 4.01f);
    EXPECT_FLOAT_EQ([slider maxValue], 999.95f);
    EXPECT_EQ([slider altIncrementValue], 1.0);
    EXPECT_FLOAT_EQ([slider floatValue], 30.9f);
}

TEST(LengthControls, CutAWholeLengthTowardZero)
{
    ShownPanel shown(
        usbDialog(labelPrinter({.wholeLengths = true, .minLength = "4.2", .maxLength = "99.5"}),
                  paperOf(30.9)));
    EXPECT_EQ(shown.length(), "30");
    EXPECT_EQ(shown.ivar<float>("choice_PaperSize"), 30.0f);
    EXPECT_EQ([shown.slider("mLengthSlider") floatValue], 30.0f);
    EXPECT_EQ(shown.text("mLengthMinStr"), "5");
    EXPECT_EQ(shown.text("mLengthMaxStr"), "100");
    EXPECT_FLOAT_EQ([shown.slider("mLengthSlider") minValue], 4.2f);
    EXPECT_FLOAT_EQ([shown.slider("mLengthSlider") maxValue], 99.5f);
    EXPECT_EQ([shown.slider("mLengthSlider") altIncrementValue], 1.0);
}

TEST(LengthControls, ShowInches)
{
    ShownPanel shown(usbDialog(
        labelPrinter({.unit = "inch", .wholeLengths = true, .minLength = "4"}), paperOf(100)));
    EXPECT_EQ(shown.length(), "3.94");
    EXPECT_EQ(shown.ivar<float>("choice_PaperSize"), 3.94f);
    EXPECT_EQ(shown.text("mLengthMinStr"), "0.16");
    EXPECT_EQ(shown.text("mLengthMaxStr"), "39.37");
    NSSlider* const slider = shown.slider("mLengthSlider");
    EXPECT_NEAR([slider minValue], 0.1574804, 1e-6);
    EXPECT_NEAR([slider maxValue], 39.3701, 1e-5);
    EXPECT_NEAR([slider altIncrementValue], (39.37 - 0.16) / 996, 1e-7);
    EXPECT_FLOAT_EQ([slider floatValue], 3.94f);
}

TEST(LengthControls, MoveByTheFactorWhereMinimumAndMaximumAreEqualInInches)
{
    ShownPanel shown(
        usbDialog(labelPrinter({.unit = "inch", .minLength = "50", .maxLength = "50"})));
    EXPECT_EQ([shown.slider("mLengthSlider") altIncrementValue], 0.0393701);
}

TEST(LengthControls, AreFilledButLockedForALabel)
{
    for (const char* paper : {"DC62", "AV40"}) {
        ShownPanel shown(usbDialog(labelPrinter(), paperOf(29.9, paper)));
        EXPECT_EQ([shown.get() getTapeState], 1);
        EXPECT_EQ(shown.length(), "29.9");
        EXPECT_EQ(shown.margin(), "5.0");
        for (const char* name : {"mLengthTxFld", "mMarginTxFld", "mLengthSlider", "mMarginSlider"})
            EXPECT_FALSE([shown.control<NSControl*>(name) isEnabled]) << name;
        for (const char* name :
             {"mLengthStr", "mLengthMinStr", "mLengthMaxStr", "mLengthUnitStr", "mMarginStr",
              "mMarginMinStr", "mMarginMaxStr", "mMarginUnitStr"}) {
            EXPECT_TRUE(shown.isGrey(name)) << name;
            EXPECT_NE(shown.text(name), "") << name;
        }
    }
}

TEST(LengthControls, MayBeEditedOnTape)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    EXPECT_EQ([shown.get() getTapeState], 0);
    for (const char* name : {"mLengthTxFld", "mMarginTxFld", "mLengthSlider", "mMarginSlider"})
        EXPECT_TRUE([shown.control<NSControl*>(name) isEnabled]) << name;
    for (const char* name : {"mLengthStr", "mLengthMinStr", "mLengthMaxStr", "mLengthUnitStr",
                             "mMarginStr", "mMarginMinStr", "mMarginMaxStr", "mMarginUnitStr"})
        EXPECT_FALSE(shown.isGrey(name)) << name;
}

TEST(LengthControls, KeepALengthOutsideTheLimitsUntilItIsChecked)
{
    ShownPanel shown(usbDialog(labelPrinter(), paperOf(15)));
    EXPECT_EQ(shown.length(), "15.0");
    shown.endEditing("mLengthTxFld");
    EXPECT_EQ(shown.length(), "20.0");
}

TEST(LengthControls, FollowThePaperWhenFilledAgain)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    for (const bool label : {true, false}) {
        shown.dialog.format.setPaper(label ? paperOf(29.9, "DC62") : paperOf(62));
        [shown.get() initializeUI_Length];
        EXPECT_EQ([shown.get() getTapeState], label ? 1 : 0);
        EXPECT_EQ(shown.length(), label ? "29.9" : "62.0");
        EXPECT_EQ(shown.ivar<float>("choice_PaperSize"), label ? 29.9f : 62.0f);
        EXPECT_FLOAT_EQ([shown.slider("mLengthSlider") floatValue], label ? 29.9f : 62.0f);
        EXPECT_EQ([shown.field("mLengthTxFld") isEnabled], !label);
        EXPECT_EQ([shown.slider("mLengthSlider") isEnabled], !label);
        for (const char* name : {"mLengthStr", "mLengthMinStr", "mLengthMaxStr"})
            EXPECT_EQ(shown.isGrey(name), label) << name;
        EXPECT_EQ([shown.field("mMarginTxFld") isEnabled], label) << "not the margin's yet";
        [shown.get() initializeUI_Margin];
        EXPECT_EQ([shown.field("mMarginTxFld") isEnabled], !label);
        EXPECT_EQ([shown.slider("mMarginSlider") isEnabled], !label);
        for (const char* name :
             {"mMarginStr", "mMarginMinStr", "mMarginMaxStr", "mMarginUnitStr", "mLengthUnitStr"})
            EXPECT_EQ(shown.isGrey(name), label) << name;
    }
    EXPECT_EQ(shown.takeChanges(), Texts{});
}

TEST(LengthControls, AreCheckedQuietlyWhenFilledAgain)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    shown.setMargin("20");
    shown.dialog.format.setPaper(paperOf(30));
    [shown.get() initializeUI_Length];
    EXPECT_EQ(shown.length(), "40.1");
    EXPECT_EQ(shown.ivar<float>("choice_PaperSize"), 30.0f);
    EXPECT_EQ(takeAlerts(), Texts{});
}

TEST(LengthControls, TakeDigitsAndAPointOnly)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    for (const char* name : {"mLengthTxFld", "mMarginTxFld"}) {
        NSFormatter* const formatter = [shown.field(name) formatter];
        ASSERT_TRUE([formatter isKindOfClass:classNamed("PDEFormatter")]) << name;
        EXPECT_EQ(ivarOf<int32_t>(formatter, "mTextStyle"), 4);
        [shown.get() initializeUI_Length];
        [shown.get() initializeUI_Margin];
        EXPECT_EQ([shown.field(name) formatter], formatter) << "a second formatter";
        EXPECT_EQ([formatter retainCount], 1u) << "the field's alone";
    }
}

TEST(TapeState, IsKeptAsItIsSet)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    for (const int32_t state : {1, 7, -3, 0}) {
        [shown.get() setTapeState:state];
        EXPECT_EQ([shown.get() getTapeState], state);
    }
}

// Margin

TEST(MarginControls, RoundTheDefaultUpToTenths)
{
    ShownPanel shown(usbDialog(labelPrinter({.minMargin = "2", .margin = "2.01"})));
    EXPECT_EQ(shown.margin(), "2.1");
    EXPECT_FLOAT_EQ([shown.slider("mMarginSlider") floatValue], 2.1f);
    EXPECT_EQ(shown.text("mMarginMinStr"), "2.0");
    EXPECT_EQ(shown.text("mMarginMaxStr"), "50.0");
}

TEST(MarginControls, KeepADefaultOfOneDecimal)
{
    ShownPanel shown(usbDialog(labelPrinter({.minMargin = "2.2", .margin = "2.2"})));
    EXPECT_EQ(shown.margin(), "2.2");
    EXPECT_EQ(shown.text("mMarginMinStr"), "2.2");
}

TEST(MarginControls, RoundAWholeDefaultUp)
{
    ShownPanel shown(usbDialog(labelPrinter({.wholeMargins = true, .margin = "4.2"})));
    EXPECT_EQ(shown.margin(), "5");
    EXPECT_EQ([shown.slider("mMarginSlider") floatValue], 5.0f);
    EXPECT_EQ(shown.text("mMarginMinStr"), "3");
    EXPECT_EQ(shown.text("mMarginMaxStr"), "50");
}

TEST(MarginControls, ShowInches)
{
    ShownPanel shown(usbDialog(labelPrinter({.unit = "inch"})));
    EXPECT_EQ(shown.margin(), "0.20"); // 0.1968505
    EXPECT_EQ(shown.text("mMarginMinStr"), "0.12");
    EXPECT_EQ(shown.text("mMarginMaxStr"), "1.97");
    EXPECT_NEAR([shown.slider("mMarginSlider") minValue], 0.1181103, 1e-6);
    EXPECT_NEAR([shown.slider("mMarginSlider") maxValue], 1.968505, 1e-6);
    EXPECT_NEAR([shown.slider("mMarginSlider") altIncrementValue], (1.97 - 0.12) / 47, 1e-7);
    EXPECT_FLOAT_EQ([shown.slider("mMarginSlider") floatValue], 0.20f);
}

TEST(MarginControls, NameTheUnitForBothFields)
{
    ShownPanel millimetres(usbDialog(labelPrinter()));
    EXPECT_EQ(millimetres.text("mLengthUnitStr"), localizedText("RS_mm"));
    EXPECT_EQ(millimetres.text("mMarginUnitStr"), localizedText("RS_mm"));
    ShownPanel inches(usbDialog(labelPrinter({.unit = "inch"})));
    EXPECT_EQ(inches.text("mLengthUnitStr"), localizedText("RS_Inch"));
    EXPECT_EQ(inches.text("mMarginUnitStr"), localizedText("RS_Inch"));
    ShownPanel otherCase(usbDialog(labelPrinter({.unit = "Inch"})));
    EXPECT_EQ(otherCase.text("mLengthUnitStr"), localizedText("RS_mm"));
}

TEST(MarginControls, AreEmptyAndLockedWithoutAMarginOption)
{
    ShownPanel shown(usbDialog(labelPrinter({.margin = ""})));
    EXPECT_EQ(shown.margin(), "");
    EXPECT_FALSE([shown.field("mMarginTxFld") isEnabled]);
    EXPECT_FALSE([shown.slider("mMarginSlider") isEnabled]);
    for (const char* name : {"mMarginStr", "mMarginMinStr", "mMarginMaxStr", "mMarginUnitStr"})
        EXPECT_TRUE(shown.isGrey(name)) << name;
    EXPECT_TRUE([shown.field("mLengthTxFld") isEnabled]);
}

TEST(MarginControls, StayLockedWithoutAMarginOptionThroughEveryRefresh)
{
    ShownPanel shown(usbDialog(labelPrinter({.margin = ""})));
    [shown.get() updateUI];
    [shown.get() saveValuesAndReturnError:nullptr];
    [shown.get() restoreValuesAndReturnError:nullptr];
    EXPECT_FALSE([shown.field("mMarginTxFld") isEnabled]);
    EXPECT_FALSE([shown.slider("mMarginSlider") isEnabled]);
    EXPECT_TRUE(shown.isGrey("mMarginStr"));
}

TEST(MarginControls, AreNotCheckedWhileTheControlsAreFilled)
{
    ShownPanel shown(usbDialog(labelPrinter({.margin = "1.5"})));
    EXPECT_EQ(shown.margin(), "1.5"); // below the minimum of 3
}

// Choice groups

TEST(ChoiceGroups, ShowTheTitlesOfThePPDInItsOrder)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    EXPECT_EQ(shown.titles("mPrintQualityRdBtn"), (Texts{"Fast", "Fine"}));
    EXPECT_EQ(shown.titles("mResolutionRdBtn"), (Texts{"Square", "Tall"}));
    EXPECT_EQ(shown.titles("mCompressRdBtn"), (Texts{"Never", "Always"}));
}

TEST(ChoiceGroups, StartWithThePPDsDefaults)
{
    ShownPanel shown(usbDialog(labelPrinter({.qualityDefault = "Fine", .compressDefault = "On"})));
    EXPECT_EQ([shown.matrix("mPrintQualityRdBtn") selectedRow], 1);
    EXPECT_EQ([shown.matrix("mResolutionRdBtn") selectedRow], 0);
    EXPECT_EQ([shown.matrix("mCompressRdBtn") selectedRow], 1);
}

TEST(ChoiceGroups, AreEnabledWithTheirCaptionsWhenTheyAreFilledAgain)
{
    Offer offer;
    offer.printMode = printModes();
    ShownPanel shown(usbDialog(labelPrinter(offer)));
    for (const char* name : {"mPrintQualityRdBtn", "mResolutionRdBtn", "mVnResolutionPUBtn"})
        [shown.control<NSControl*>(name) setEnabled:NO];
    for (const char* name : {"mPrintQualityStr", "mPrintResolutionStr", "mPrintVnResolutionStr"})
        [shown.field(name) setTextColor:[NSColor disabledControlTextColor]];
    [shown.get() initializeUI_Quality];
    [shown.get() initializeUI_Resolution];
    [shown.get() initializeUI_VnResolution];
    for (const char* name : {"mPrintQualityRdBtn", "mResolutionRdBtn", "mVnResolutionPUBtn"})
        EXPECT_TRUE([shown.control<NSControl*>(name) isEnabled]) << name;
    for (const char* name : {"mPrintQualityStr", "mPrintResolutionStr", "mPrintVnResolutionStr"})
        EXPECT_FALSE(shown.isGrey(name)) << name;
}

TEST(ChoiceGroups, KeepTheSelectedRowThroughAnotherNumberOfRows)
{
    const auto selectedAmong = [](int count, NSInteger selected) {
        Offer offer;
        offer.quality = choices(count, "q");
        offer.qualityDefault = "none of them";
        UnshownPanel panel(usbDialog(labelPrinter(offer)));
        panel.load();
        NSMatrix* const rows = panel.control<NSMatrix*>("mPrintQualityRdBtn");
        EXPECT_EQ([rows numberOfRows], 2);
        [rows selectCellAtRow:selected column:0];
        [panel.get() willShow];
        EXPECT_EQ([rows numberOfRows], count);
        return [rows selectedRow];
    };
    EXPECT_EQ(selectedAmong(3, 0), 0);
    EXPECT_EQ(selectedAmong(3, 1), 1);
    EXPECT_EQ(selectedAmong(1, 1), 0); // the last that there is
    EXPECT_EQ(selectedAmong(1, 0), 0);
}

TEST(ChoiceGroups, SelectTheFirstRowWhereNoneWasSelected)
{
    Offer offer;
    offer.quality = choices(3, "q");
    offer.qualityDefault = "none of them";
    UnshownPanel panel(usbDialog(labelPrinter(offer)));
    panel.load();
    NSMatrix* const rows = panel.control<NSMatrix*>("mPrintQualityRdBtn");
    [rows setAllowsEmptySelection:YES];
    [rows deselectAllCells];
    [panel.get() willShow];
    EXPECT_EQ([rows selectedRow], 0);
}

TEST(ChoiceGroups, HaveNoRowsWithoutChoices)
{
    UnshownPanel panel(usbDialog(labelPrinter()));
    const int count = std::exchange(panel.dialog.option("VnPriority")->num_choices, 0);
    panel.show();
    EXPECT_EQ([panel.control<NSMatrix*>("mPrintQualityRdBtn") numberOfRows], 0);
    EXPECT_EQ([panel.control<NSMatrix*>("mPrintQualityRdBtn") selectedRow], -1);
    panel.dialog.option("VnPriority")->num_choices = count;
}

TEST(ChoiceGroups, LeaveTheSelectionWithoutADefault)
{
    ShownPanel shown(usbDialog(labelPrinter({.qualityDefault = "Nothing"})));
    EXPECT_EQ([shown.matrix("mPrintQualityRdBtn") selectedRow], 0);
}

TEST(ChoiceGroups, HaveTheirOwnTextsForChoicesWithoutTitles)
{
    UnshownPanel panel(usbDialog(labelPrinter()));
    for (const char* name : {"VnPriority", "Resolution", "VnCompress"}) {
        takeTitle(panel.dialog.option(name)->choices[0]);
        takeTitle(panel.dialog.option(name)->choices[1], kNotUTF8);
    }
    panel.show();
    EXPECT_EQ(panel.titles("mPrintQualityRdBtn"),
              (Texts{localizedText("RS_QualitySpeed"), localizedText("RS_QualityQuality")}));
    EXPECT_EQ(panel.titles("mResolutionRdBtn"),
              (Texts{localizedText("RS_Resol300300"), localizedText("RS_Resol300600")}));
    EXPECT_EQ(panel.titles("mCompressRdBtn"),
              (Texts{localizedText("RS_CompressOFF"), localizedText("RS_CompressON")}));
}

TEST(ChoiceGroups, GiveTheFirstTwoRowsTheirOwnTextsWhicheverTitleIsMissing)
{
    Offer offer;
    offer.resolution = {{"a", "A"}, {"b", "B"}, {"c", "C"}};
    UnshownPanel panel(usbDialog(labelPrinter(offer)));
    takeTitle(panel.dialog.option("Resolution")->choices[2]);
    panel.show();
    const Texts titles = panel.titles("mResolutionRdBtn");
    ASSERT_EQ(titles.size(), 3u);
    EXPECT_EQ(titles[0], localizedText("RS_Resol300300"));
    EXPECT_EQ(titles[1], localizedText("RS_Resol300600"));
    EXPECT_EQ(titles[2], "c"); // no text stands in for it
}

TEST(ChoiceGroups, ShowNothingForAThirdChoiceWithNeitherTitleNorKeyword)
{
    Offer offer;
    offer.resolution = {{"a", "A"}, {"b", "B"}, {"c", "C"}};
    UnshownPanel panel(usbDialog(labelPrinter(offer)));
    takeTitle(panel.dialog.option("Resolution")->choices[2]);
    std::strcpy(panel.dialog.option("Resolution")->choices[2].choice, kNotUTF8);
    panel.show();
    EXPECT_EQ(panel.titles("mResolutionRdBtn"),
              (Texts{localizedText("RS_Resol300300"), localizedText("RS_Resol300600"), ""}));
}

TEST(ChoiceGroups, LetALaterTitleReplaceAStandIn)
{
    UnshownPanel panel(usbDialog(labelPrinter()));
    takeTitle(panel.dialog.option("VnPriority")->choices[0]);
    panel.show();
    EXPECT_EQ(panel.titles("mPrintQualityRdBtn"),
              (Texts{localizedText("RS_QualitySpeed"), "Fine"}));
}

TEST(ChoiceGroups, ShowAsManyRowsAsThePPDHasChoices)
{
    for (const int count : {1, 2, 3, 5, 12, 2000}) {
        const ScopedPool pool;
        Offer offer;
        offer.quality = choices(count, "q");
        offer.compress = choices(count, "c");
        if (count > 1)
            offer.resolution = choices(count, "r");
        offer.qualityDefault = "q" + std::to_string(count - 1);
        ShownPanel shown(usbDialog(labelPrinter(offer)));
        const Texts titles = shown.titles("mPrintQualityRdBtn");
        ASSERT_EQ(titles.size(), static_cast<std::size_t>(count));
        for (int i = 0; i < count; ++i)
            ASSERT_EQ(titles[static_cast<std::size_t>(i)], "Title " + std::to_string(i));
        EXPECT_EQ([shown.matrix("mPrintQualityRdBtn") selectedRow], count - 1);
        EXPECT_EQ([shown.matrix("mCompressRdBtn") numberOfRows], count);
        EXPECT_EQ([shown.matrix("mResolutionRdBtn") numberOfRows], std::max(count, 2));
    }
}

TEST(CompressGroup, IsEnabledOverUSBWithAResolutionOnly)
{
    const struct
    {
        const char* uri;
        bool hasResolution;
        bool isEnabled;
    } cases[] = {
        {"usb://Vendor/Printer", true, true},      {"VNKMUSB://Vendor/Printer", true, true},
        {"usb://Vendor/Printer", false, false},    {"USB://Vendor/Printer", true, false},
        {"vnkmusb://Vendor/Printer", true, false}, {"ipp://host/printer", true, false},
        {"socket://10.0.0.1", false, false},       {"", true, false}};
    for (const auto& c : cases) {
        Offer offer;
        if (!c.hasResolution)
            offer.resolution.clear();
        DialogSetup setup = usbDialog(labelPrinter(offer));
        setup.deviceURI = c.uri;
        ShownPanel shown(setup);
        EXPECT_EQ([shown.matrix("mCompressRdBtn") isEnabled], c.isEnabled) << c.uri;
        EXPECT_EQ(shown.isGrey("mPrintCompressStr"), !c.isEnabled) << c.uri;
        EXPECT_EQ(shown.titles("mCompressRdBtn"), (Texts{"Never", "Always"}));
    }
}

TEST(CompressGroup, GreysItsCaptionEvenWithoutChoices)
{
    Offer offer;
    offer.compress.clear();
    DialogSetup setup = usbDialog(labelPrinter(offer));
    ShownPanel onUSB(setup);
    EXPECT_FALSE(onUSB.isGrey("mPrintCompressStr"));
    setup.deviceURI = "ipp://host/printer";
    ShownPanel onNetwork(setup);
    EXPECT_TRUE(onNetwork.isGrey("mPrintCompressStr"));
}

TEST(PrintModes, ShowTheTitlesOfThePPD)
{
    Offer offer;
    offer.printMode = printModes();
    ShownPanel shown(usbDialog(labelPrinter(offer)));
    EXPECT_EQ(textsOf([shown.popUp() itemTitles]),
              (Texts{"Fast square", "Fine square", "Fine tall"}));
    EXPECT_TRUE([shown.popUp() isEnabled]);
}

TEST(PrintModes, HaveTheirOwnTextsForChoicesWithoutTitles)
{
    Offer offer;
    offer.printMode = printModes();
    UnshownPanel panel(usbDialog(labelPrinter(offer)));
    for (int i = 0; i < 3; ++i)
        takeTitle(panel.dialog.option("VnResolution")->choices[i]);
    panel.show();
    EXPECT_EQ(textsOf([panel.control<NSPopUpButton*>("mVnResolutionPUBtn") itemTitles]),
              (Texts{localizedText("RS_VnResolS300300"), localizedText("RS_VnResolQ300300"),
                     localizedText("RS_VnResolQ300600")}));
}

TEST(PrintModes, TakeTheirDefaultFromTheResolutions)
{
    Offer offer;
    offer.printMode = printModes();
    offer.printModeDefault = "S300";
    offer.resolutionDefault = "300x600dpi";
    ShownPanel shown(usbDialog(labelPrinter(offer)));
    EXPECT_EQ([shown.popUp() indexOfSelectedItem], 1);

    offer.resolution.clear();
    offer.printModeDefault = "Q600";
    ShownPanel noResolution(usbDialog(labelPrinter(offer)));
    EXPECT_EQ([noResolution.popUp() indexOfSelectedItem], 0);
}

TEST(PrintModes, KeepItemsWithEqualTitles)
{
    Offer offer;
    offer.printMode = {{"a", "Same"}, {"b", "Same"}, {"c", "Other"}, {"d", "Same"}};
    ShownPanel shown(usbDialog(labelPrinter(offer)));
    EXPECT_EQ([shown.popUp() numberOfItems], 4);
    EXPECT_EQ(textsOf([shown.popUp() itemTitles]), (Texts{"Same", "Same", "Other", "Same"}));
    for (NSInteger i = 0; i < 4; ++i) {
        [shown.popUp() selectItemAtIndex:i];
        shown.dialog.calls.clear();
        [shown.get() saveSetting_VnResolution];
        EXPECT_EQ(shown.takeChanges(), (Texts{"VnResolution=" + std::string(1, "abcd"[i])}));
    }
}

TEST(PrintModes, ShowAsManyItemsAsThePPDHasChoices)
{
    for (const int count : {1, 2, 3, 5, 12, 2000}) {
        const ScopedPool pool;
        Offer offer;
        offer.printMode = choices(count, "m");
        ShownPanel shown(usbDialog(labelPrinter(offer)));
        ASSERT_EQ([shown.popUp() numberOfItems], count);
        EXPECT_EQ(textOf([[shown.popUp() itemAtIndex:count - 1] title]),
                  "Title " + std::to_string(count - 1));
    }
}

TEST(PrintModes, KeepTheSelectedItemWithoutADefaultWhenTheyAreFilledAgain)
{
    Offer offer;
    offer.printMode = printModes();
    offer.resolution.clear(); // where the default would be looked for
    ShownPanel shown(usbDialog(labelPrinter(offer)));
    for (const NSInteger item : {0, 1, 2}) {
        [shown.popUp() selectItemAtIndex:item];
        [shown.get() initializeUI_VnResolution];
        EXPECT_EQ([shown.popUp() indexOfSelectedItem], item);
        EXPECT_EQ(textsOf([shown.popUp() itemTitles]),
                  (Texts{"Fast square", "Fine square", "Fine tall"}));
    }
    for (const NSInteger item : {3, 4}) {
        for (NSString* further in @[ @"4", @"5" ])
            [shown.popUp() addItemWithTitle:further];
        [shown.popUp() selectItemAtIndex:item];
        [shown.get() initializeUI_VnResolution];
        EXPECT_EQ([shown.popUp() indexOfSelectedItem], 2); // the last that there is
    }
}

TEST(PrintModes, MayBeMissing)
{
    Offer offer;
    offer.printMode = printModes();
    UnshownPanel panel(usbDialog(labelPrinter(offer)));
    const int count = std::exchange(panel.dialog.option("VnResolution")->num_choices, 0);
    panel.show();
    EXPECT_EQ([panel.control<NSPopUpButton*>("mVnResolutionPUBtn") numberOfItems], 0);
    EXPECT_EQ([panel.control<NSPopUpButton*>("mVnResolutionPUBtn") indexOfSelectedItem], -1);
    panel.dialog.option("VnResolution")->num_choices = count;
}

} // namespace

// Writes down how many items the menu has each time that one is added.
@interface ItemCounter : NSObject
{
  @public
    std::vector<NSInteger> counts;
}
@end

@implementation ItemCounter

- (void)menuDidAddItem:(NSNotification*)notification
{
    counts.push_back([[notification object] numberOfItems]);
}

@end

namespace {

TEST(PrintModes, AreToldToTheMenusObserversAllAtTheEnd)
{
    Offer offer;
    offer.printMode = printModes();
    ShownPanel shown(usbDialog(labelPrinter(offer)));
    NSMenu* const menu = [shown.popUp() menu];
    ItemCounter* const counter = [[[ItemCounter alloc] init] autorelease];
    [[NSNotificationCenter defaultCenter] addObserver:counter selector:@selector(menuDidAddItem:)
                                                 name:NSMenuDidAddItemNotification
                                               object:menu];
    [shown.get() initializeUI_VnResolution];
    [[NSNotificationCenter defaultCenter] removeObserver:counter];
    EXPECT_EQ(counter->counts, (std::vector<NSInteger>{3, 3, 3}));
    EXPECT_TRUE([menu menuChangedMessagesEnabled]);
    [menu setMenuChangedMessagesEnabled:NO];
    [shown.get() initializeUI_VnResolution];
    EXPECT_FALSE([menu menuChangedMessagesEnabled]) << "who switched them off wants them off";
    [menu setMenuChangedMessagesEnabled:YES];
}

// Quality tied to resolution

TEST(QualityGroup, IsLockedByTheSecondResolutionAndFreedByTheFirst)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    NSMatrix* const resolution = shown.matrix("mResolutionRdBtn");
    NSMatrix* const quality = shown.matrix("mPrintQualityRdBtn");
    [resolution selectCellAtRow:1 column:0];
    [shown.get() enabledCheck_BS];
    EXPECT_FALSE([quality isEnabled]);
    EXPECT_TRUE(shown.isGrey("mPrintQualityStr"));
    [resolution selectCellAtRow:0 column:0];
    [shown.get() enabledCheck_BS];
    EXPECT_TRUE([quality isEnabled]);
    EXPECT_FALSE(shown.isGrey("mPrintQualityStr"));
}

TEST(QualityGroup, StaysAsItIsOnAThirdResolution)
{
    Offer offer;
    offer.resolution = choices(3, "r");
    offer.resolutionDefault = "r1";
    ShownPanel shown(usbDialog(labelPrinter(offer)));
    EXPECT_FALSE([shown.matrix("mPrintQualityRdBtn") isEnabled]);
    [shown.matrix("mResolutionRdBtn") selectCellAtRow:2 column:0];
    [shown.get() enabledCheck_BS];
    EXPECT_FALSE([shown.matrix("mPrintQualityRdBtn") isEnabled]);
    EXPECT_TRUE(shown.isGrey("mPrintQualityStr"));
}

TEST(QualityGroup, StaysAsItIsWithoutASelectedResolution)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    [shown.matrix("mResolutionRdBtn") setAllowsEmptySelection:YES];
    [shown.matrix("mResolutionRdBtn") deselectAllCells];
    ASSERT_EQ([shown.matrix("mResolutionRdBtn") selectedRow], -1);
    [shown.get() enabledCheck_BS];
    EXPECT_TRUE([shown.matrix("mPrintQualityRdBtn") isEnabled]);
    EXPECT_FALSE(shown.isGrey("mPrintQualityStr"));
}

TEST(QualityGroup, IsEnabledByTheFirstResolutionEvenWithoutAQualityOption)
{
    Offer offer;
    offer.quality.clear();
    ShownPanel shown(usbDialog(labelPrinter(offer)));
    [shown.matrix("mPrintQualityRdBtn") setEnabled:NO];
    [shown.get() enabledCheck_BS];
    EXPECT_TRUE([shown.matrix("mPrintQualityRdBtn") isEnabled]);
}

// Every combination of options

const char* const kLabels[] = {"mPrintQualityStr", "mPrintResolutionStr", "mPrintCompressStr",
                               "mPrintVnResolutionStr"};
const char* const kControls[] = {"mPrintQualityRdBtn", "mResolutionRdBtn", "mCompressRdBtn",
                                 "mVnResolutionPUBtn"};

void expectTidy(const ShownPanel& shown)
{
    NSView* const view = [shown.get() panelView];
    NSArray* const controls = [view subviews];
    for (NSView* control in controls) {
        if ([control isHidden])
            continue;
        EXPECT_TRUE(NSContainsRect([view bounds], [control frame]))
            << textOf([control description]) << textOf(NSStringFromRect([control frame]));
        for (NSView* other in controls) {
            if (other != control && ![other isHidden])
                EXPECT_TRUE(NSIsEmptyRect(NSIntersectionRect([control frame], [other frame])))
                    << textOf(NSStringFromRect([control frame])) << " overlaps "
                    << textOf(NSStringFromRect([other frame]));
        }
    }
}

TEST(EveryCombinationOfOptions, HidesPlacesAndNamesTheRows)
{
    for (unsigned present = 0; present < 32; ++present) {
        const ScopedPool pool;
        const std::bitset<5> has(present); // margin, quality, resolution, compression, print mode
        SCOPED_TRACE(has.to_string());
        Offer offer;
        if (!has[0])
            offer.margin = "";
        if (!has[1])
            offer.quality.clear();
        if (!has[2])
            offer.resolution.clear();
        if (!has[3])
            offer.compress.clear();
        if (has[4])
            offer.printMode = printModes();
        ShownPanel shown(usbDialog(labelPrinter(offer)));

        const bool visible[] = {has[1], has[2] && !has[4], has[3], has[4]};
        const char* const captions[] = {"Priority : ", "Dots : ", "Squeeze : ", "Mode : "};
        double height = 354;
        const double reductions[] = {48, 48, 48, 34};
        for (int row = 0; row < 4; ++row) {
            EXPECT_EQ([shown.field(kLabels[row]) isHidden], !visible[row]) << kLabels[row];
            EXPECT_EQ([shown.control<NSView*>(kControls[row]) isHidden], !visible[row]);
            if (visible[row])
                EXPECT_EQ(shown.text(kLabels[row]), captions[row]);
            else
                height -= reductions[row];
        }
        EXPECT_EQ([[shown.get() panelView] frame].size.height, height);

        double base = 20;
        const struct
        {
            int row;
            double next;
        } bottomUp[] = {{2, 48}, {1, 48}, {0, 0}};
        for (const auto& place : bottomUp) {
            if (!visible[place.row])
                continue;
            EXPECT_EQ([shown.control<NSView*>(kControls[place.row]) frame].origin.y, base);
            EXPECT_EQ([shown.field(kLabels[place.row]) frame].origin.y, base + 23);
            base += place.next;
        }

        Texts keys;
        if (has[1])
            keys.push_back("VnPriority");
        if (has[0])
            keys.push_back("VnMargin");
        if (has[2])
            keys.push_back("Resolution");
        if (has[3])
            keys.push_back("VnCompress");
        if (has[4])
            keys.push_back("VnResolution");
        EXPECT_EQ(textsOf([shown.get() supportedPPDOptionKeys]), keys);
        EXPECT_EQ([shown.field("mMarginTxFld") isEnabled], has[0]);
        expectTidy(shown);
    }
}

TEST(AnyNumberOfChoices, StaysInsideTheViewWithoutOverlap)
{
    for (const int count : {2, 3, 5, 12, 2000}) {
        const ScopedPool pool;
        SCOPED_TRACE(count);
        Offer offer;
        offer.quality = choices(count, "q");
        offer.resolution = choices(count, "r");
        offer.compress = choices(count, "c");
        ShownPanel shown(usbDialog(labelPrinter(offer)));
        expectTidy(shown);
    }
}

TEST(OtherTexts, NeedNoFilling)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    [shown.get() initializeUI_OtherStr];
    EXPECT_EQ(shown.dialog.calls, Texts{});
}

} // namespace
