#include "pagesettings/PageSettingsTest.hpp"
#include "support/PanelTestPrinting.hpp"

namespace {

// A panel without a view.
class UnseenPanel
{
  public:
    explicit UnseenPanel(const DialogSetup& setup) : dialog(setup), panel_(dialog)
    {
        dialog.calls.clear();
    }
    id<PageSettingsUnderTest> get() const { return (id<PageSettingsUnderTest>)panel_.get(); }
    Texts takeChanges()
    {
        const Texts told = dialog.changes();
        dialog.calls.clear();
        return told;
    }

    FakeDialog dialog;

  private:
    TestPanel panel_;
};

Offer everyOption()
{
    Offer offer;
    offer.printMode = printModes();
    offer.printModeDefault = "Q300";
    return offer;
}

Texts repeated(const std::string& text, std::size_t times)
{
    return Texts(times, text);
}

const Texts kSixSaves = {"VnTapeLength=100.0",    "VnMargin=5.0",   "VnPriority=Speed",
                         "Resolution=300x300dpi", "VnCompress=Off", "VnResolution=Q300"};

// Who is told what, and in which order

TEST(SupportedKeys, SaveAllSixSettingsOnceBeforeThereIsAView)
{
    UnseenPanel panel(usbDialog(labelPrinter(everyOption())));
    EXPECT_EQ(textsOf([panel.get() supportedPPDOptionKeys]),
              (Texts{"VnPriority", "VnMargin", "Resolution", "VnCompress", "VnResolution"}));
    EXPECT_EQ(panel.takeChanges(), kSixSaves);
    [panel.get() supportedPPDOptionKeys];
    EXPECT_EQ(panel.takeChanges(), Texts{});
}

TEST(SupportedKeys, AreAnEmptyListWithoutOptions)
{
    UnseenPanel panel(usbDialog(PPDText().attribute("VnMaxTapeLength", "500")));
    EXPECT_NE([panel.get() supportedPPDOptionKeys], nil);
    EXPECT_EQ(textsOf([panel.get() supportedPPDOptionKeys]), Texts{});
    EXPECT_EQ(panel.takeChanges(), (Texts{"VnTapeLength=100.0"}));
}

TEST(SupportedKeys, SaveTheEmptyControlsOnceThereIsAView)
{
    UnseenPanel panel(usbDialog(labelPrinter(everyOption())));
    [panel.get() panelView];
    panel.dialog.calls.clear();
    [panel.get() supportedPPDOptionKeys];
    // The empty length field takes the paper's length; an empty margin is zero, so the minimum.
    const Texts told = panel.takeChanges();
    ASSERT_GE(told.size(), 5u);
    EXPECT_EQ(Texts(told.begin(), told.begin() + 5),
              (Texts{"VnTapeLength=100.0", "VnMargin=3.0", "VnPriority=Speed",
                     "Resolution=300x300dpi", "VnCompress=Off"}));
    EXPECT_EQ(textOf([ivarOf<NSTextField*>(panel.get(), "mLengthTxFld") stringValue]), "100.0");
}

TEST(WillShow, SavesAllSixAndThenTheLengthOnEachRefresh)
{
    UnseenPanel panel(usbDialog(labelPrinter(everyOption())));
    [panel.get() panelView];
    panel.dialog.calls.clear();
    [panel.get() willShow];
    Texts expected = kSixSaves;
    expected.back() = "VnResolution=S300"; // the first: its default is looked for elsewhere
    for (const std::string& text : repeated("VnTapeLength=100.0", 6))
        expected.push_back(text);
    EXPECT_EQ(panel.takeChanges(), expected);
    [panel.get() willShow];
    EXPECT_EQ(panel.takeChanges(), repeated("VnTapeLength=100.0", 6));
}

TEST(SaveValues, CheckThenSaveAllSix)
{
    ShownPanel shown(usbDialog(labelPrinter(everyOption()), paperOf(30)));
    shown.setMargin("20");
    NSError* error = nil;
    EXPECT_TRUE([shown.get() saveValuesAndReturnError:&error]);
    EXPECT_EQ(error, nil);
    EXPECT_EQ(takeAlerts().size(), 1u);
    EXPECT_EQ(shown.takeChanges(),
              (Texts{"VnTapeLength=40.1", "VnMargin=20.0", "VnPriority=Speed",
                     "Resolution=300x300dpi", "VnCompress=Off", "VnResolution=S300"}));
}

TEST(RestoreValues, SaveTheLengthOnEachRefresh)
{
    ShownPanel shown(usbDialog(labelPrinter(everyOption())));
    EXPECT_TRUE([shown.get() restoreValuesAndReturnError:nullptr]);
    EXPECT_EQ(shown.takeChanges(), repeated("VnTapeLength=100.0", 6));
}

TEST(UpdateUIItem, SavesTheLengthWhateverTheMask)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    for (const int32_t mask : {0, 1, 2, 4, 8, 16, 131072, -1}) {
        [shown.get() updateUIItem:mask];
        EXPECT_EQ(shown.takeChanges(), (Texts{"VnTapeLength=100.0"})) << mask;
    }
}

TEST(UpdateMarkedSelections, SavesNothing)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    [shown.get() updateMarkedSelections:-1];
    EXPECT_EQ(shown.takeChanges(), Texts{});
}

TEST(ShouldPrint, SavesTheLengthOfAJobWhoseChoicesAreMarked)
{
    ShownPanel shown(usbDialog(labelPrinter(everyOption())));
    EXPECT_TRUE([shown.get() shouldPrint]);
    EXPECT_EQ(shown.takeChanges(), (Texts{"VnTapeLength=100.0"}));
}

TEST(ShouldPrint, SuppliesTheDefaultsOfChoicesThatAreNotMarked)
{
    ShownPanel shown(usbDialog(labelPrinter(everyOption())));
    for (const char* option : {"VnPriority", "Resolution", "VnCompress", "VnResolution"})
        shown.dialog.unmark(option);
    EXPECT_TRUE([shown.get() shouldPrint]);
    EXPECT_EQ(shown.takeChanges(),
              (Texts{"VnTapeLength=100.0", "VnPriority=Speed", "Resolution=300x300dpi",
                     "VnResolution=Q300", "VnCompress=Off"}));
}

TEST(ShouldPrint, LeavesAMarkedChoiceAlone)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    ppdMarkOption(shown.dialog.ppd(), "VnPriority", "Fine");
    shown.dialog.unmark("VnCompress");
    [shown.get() shouldPrint];
    EXPECT_EQ(shown.takeChanges(), (Texts{"VnTapeLength=100.0", "VnCompress=Off"}));
    EXPECT_EQ(shown.dialog.marked("VnPriority"), "Fine");
}

TEST(ShouldPrint, SaysNothingOfAnOptionWithoutADefault)
{
    ShownPanel shown(usbDialog(labelPrinter({.qualityDefault = "Nothing"})));
    shown.dialog.unmark("VnPriority");
    EXPECT_TRUE([shown.get() shouldPrint]);
    EXPECT_EQ(shown.takeChanges(), (Texts{"VnTapeLength=100.0"}));
}

TEST(ShouldPrint, SavesBeforeItChecks)
{
    ShownPanel shown(usbDialog(labelPrinter(), paperOf(30)));
    shown.setMargin("20");
    EXPECT_TRUE([shown.get() shouldPrint]);
    EXPECT_EQ(shown.takeChanges(), (Texts{"VnTapeLength=30.0"}));
    EXPECT_EQ(shown.length(), "40.1");
    EXPECT_EQ(takeAlerts().size(), 1u);
}

} // namespace

static int basesAnswers = 0;

static BOOL countAnswer(id, SEL)
{
    ++basesAnswers;
    return NO;
}

namespace {

TEST(ShouldPrint, AsksTheBasePanelTooAndDoesNotGoByItsAnswer)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    const ReplacedMethod replaced(classNamed("BasePDE13_v100_"), @selector(shouldPrint),
                                  reinterpret_cast<IMP>(countAnswer));
    basesAnswers = 0;
    EXPECT_TRUE([shown.get() shouldPrint]);
    EXPECT_EQ(basesAnswers, 1);
}

TEST(ShouldPrint, HoldsTheJobBackOnceAfterAFailedCheck)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    shown.setLength("5");
    shown.ivar<std::int8_t>("checkValues_dec") = 0;
    EXPECT_FALSE([shown.get() shouldPrint]);
    EXPECT_EQ(shown.length(), "5"); // not checked
    EXPECT_EQ(shown.ivar<std::int8_t>("checkValues_dec"), 1);
    EXPECT_TRUE([shown.get() shouldPrint]);
    EXPECT_EQ(shown.length(), "20.0");
    EXPECT_EQ(shown.ivar<std::int8_t>("checkValues_dec"), 1);
}

// Length

TEST(SavingTheLength, HoldsAPaperOf15MillimetresToTheMinimum)
{
    UnseenPanel unseen(usbDialog(labelPrinter(), paperOf(15)));
    [unseen.get() saveSetting_Length];
    EXPECT_EQ(unseen.takeChanges(), (Texts{"VnTapeLength=20.0"}));
    ShownPanel shown(usbDialog(labelPrinter(), paperOf(15)));
    [shown.get() saveSetting_Length];
    EXPECT_EQ(shown.takeChanges(), (Texts{"VnTapeLength=20.0"}));
}

TEST(SavingTheLength, KeepsALabelOf15Millimetres)
{
    UnseenPanel unseen(usbDialog(labelPrinter(), paperOf(15, "DC62")));
    [unseen.get() saveSetting_Length];
    EXPECT_EQ(unseen.takeChanges(), (Texts{"VnTapeLength=15.0"}));
    ShownPanel shown(usbDialog(labelPrinter(), paperOf(15, "DC62")));
    [shown.get() saveSetting_Length];
    EXPECT_EQ(shown.takeChanges(), (Texts{"VnTapeLength=15.0"}));
}

TEST(SavingTheLength, HoldsALongPaperToTheMaximum)
{
    UnseenPanel panel(usbDialog(labelPrinter(), paperOf(1500)));
    [panel.get() saveSetting_Length];
    EXPECT_EQ(panel.takeChanges(), (Texts{"VnTapeLength=1000.0"}));
}

TEST(SavingTheLength, WritesAnInchAndAHalfInMillimetres)
{
    ShownPanel shown(usbDialog(labelPrinter({.unit = "inch"})));
    shown.setLength("1.50");
    [shown.get() saveSetting_Length];
    EXPECT_EQ(shown.takeChanges(), (Texts{"VnTapeLength=38.1"}));
}

TEST(SavingTheLength, CutsWholeMillimetres)
{
    ShownPanel millimetres(usbDialog(labelPrinter({.wholeLengths = true})));
    millimetres.setLength("30.9");
    [millimetres.get() saveSetting_Length];
    EXPECT_EQ(millimetres.takeChanges(), (Texts{"VnTapeLength=30"}));
    ShownPanel inches(usbDialog(labelPrinter({.unit = "inch", .wholeLengths = true})));
    inches.setLength("1.00");
    [inches.get() saveSetting_Length];
    EXPECT_EQ(inches.takeChanges(), (Texts{"VnTapeLength=25"}));
}

TEST(SavingTheLength, TakesThePaperAsShownBeforeThereIsAView)
{
    const struct
    {
        const char* unit;
        bool whole;
        double paper;
        const char* saved;
    } cases[] = {{"", false, 30.96, "31.0"},
                 {"", true, 30.96, "30"},
                 {"inch", false, 30.96, "31.0"}, // 1.2189 inches: 1.22, 30.988 mm
                 {"inch", false, 51.2, "51.3"},  // 2.01575: 2.02, 51.308
                 {"inch", true, 50.9, "50"}};    // 2.00394: 2.00, 50.79997
    for (const auto& c : cases) {
        UnseenPanel panel(
            usbDialog(labelPrinter({.unit = c.unit, .wholeLengths = c.whole}), paperOf(c.paper)));
        [panel.get() saveSetting_Length];
        EXPECT_EQ(panel.takeChanges(), (Texts{std::string("VnTapeLength=") + c.saved}));
        EXPECT_EQ(ivarOf<float>(panel.get(), "choice_PaperSize"), 0.0f);
    }
}

TEST(SavingTheLength, ReplacesTheLastPapersLengthInTheField)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    shown.dialog.format.setPaper(paperOf(62, "TC36"));
    [shown.get() saveSetting_Length];
    EXPECT_EQ(shown.takeChanges(), (Texts{"VnTapeLength=62.0"}));
    EXPECT_EQ(shown.length(), "62.0");
    EXPECT_EQ(shown.ivar<float>("choice_PaperSize"), 62.0f);
}

TEST(SavingTheLength, ReplacesTheLastPapersLengthInInches)
{
    ShownPanel shown(usbDialog(labelPrinter({.unit = "inch"})));
    shown.dialog.format.setPaper(paperOf(62, "TC36"));
    [shown.get() saveSetting_Length];
    EXPECT_EQ(shown.length(), "2.44");                            // 2.4409
    EXPECT_EQ(shown.takeChanges(), (Texts{"VnTapeLength=62.0"})); // 61.976
}

TEST(SavingTheLength, KeepsATypedLengthThroughAChangeOfPaper)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    shown.setLength("80.5");
    shown.dialog.format.setPaper(paperOf(62, "TC36"));
    [shown.get() saveSetting_Length];
    EXPECT_EQ(shown.takeChanges(), (Texts{"VnTapeLength=80.5"}));
    EXPECT_EQ(shown.length(), "80.5");
    EXPECT_EQ(shown.ivar<float>("choice_PaperSize"), 62.0f);
    // Back on the first paper: still the user's.
    shown.dialog.format.setPaper(paperOf(100));
    [shown.get() saveSetting_Length];
    EXPECT_EQ(shown.takeChanges(), (Texts{"VnTapeLength=80.5"}));
}

TEST(SavingTheLength, LocksAndFreesBothGroupsWithThePaper)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    const char* const labels[] = {"mLengthStr", "mLengthMinStr", "mLengthMaxStr", "mLengthUnitStr",
                                  "mMarginStr", "mMarginMinStr", "mMarginMaxStr", "mMarginUnitStr"};
    const char* const controls[] = {"mLengthTxFld", "mLengthSlider", "mMarginTxFld",
                                    "mMarginSlider"};
    for (const bool isLabel : {true, false, true}) {
        shown.dialog.format.setPaper(isLabel ? paperOf(29.9, "AV40") : paperOf(62));
        [shown.get() saveSetting_Length];
        EXPECT_EQ([shown.get() getTapeState], isLabel ? 1 : 0);
        for (const char* name : labels)
            EXPECT_EQ(shown.isGrey(name), isLabel) << name;
        for (const char* name : controls)
            EXPECT_EQ([shown.control<NSControl*>(name) isEnabled], !isLabel) << name;
    }
}

TEST(SavingTheLength, HoldsGarbageToTheMinimum)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    for (const char* text : {"", "letters", "inf", "-50"}) {
        shown.setLength(text);
        [shown.get() saveSetting_Length];
        EXPECT_EQ(shown.takeChanges(), (Texts{"VnTapeLength=20.0"})) << text;
        EXPECT_EQ(shown.length(), text);
    }
}

TEST(SavingTheLength, TakesTheDefaultOfAnUnreadablePaper)
{
    UnseenPanel panel(usbDialog(labelPrinter({.maxLength = "90"}), paperOf(40)));
    PrintingCalls::fail("PMPaperGetHeight", -30897);
    [panel.get() saveSetting_Length];
    EXPECT_EQ(panel.takeChanges(), (Texts{"VnTapeLength=90.0"}));
}

// Margin

TEST(SavingTheMargin, SnapsLessThanATenthAboveTheMinimumToIt)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    const struct
    {
        const char* field;
        const char* saved;
    } cases[] = {{"3.05", "3.0"}, {"3.099", "3.0"}, {"3.1", "3.1"},   {"3.11", "3.2"},
                 {"0", "3.0"},    {"", "3.0"},      {"60", "50.0"},   {"4.2", "4.2"},
                 {"4.21", "4.3"}, {"text", "3.0"},  {"49.99", "50.0"}};
    for (const auto& c : cases) {
        shown.setMargin(c.field);
        [shown.get() saveSetting_Margin];
        EXPECT_EQ(shown.takeChanges(), (Texts{std::string("VnMargin=") + c.saved})) << c.field;
        EXPECT_EQ(shown.margin(), c.field);
    }
}

TEST(SavingTheMargin, SnapsOnALabelTooButDoesNotHoldItToTheMaximum)
{
    ShownPanel shown(usbDialog(labelPrinter(), paperOf(29.9, "DC62")));
    shown.setMargin("3.05");
    [shown.get() saveSetting_Margin];
    EXPECT_EQ(shown.takeChanges(), (Texts{"VnMargin=3.0"}));
    shown.setMargin("60");
    [shown.get() saveSetting_Margin];
    EXPECT_EQ(shown.takeChanges(), (Texts{"VnMargin=60.0"}));
}

TEST(SavingTheMargin, RoundsWholeMillimetresUp)
{
    ShownPanel shown(usbDialog(labelPrinter({.wholeMargins = true})));
    shown.setMargin("4.01");
    [shown.get() saveSetting_Margin];
    EXPECT_EQ(shown.takeChanges(), (Texts{"VnMargin=5"}));
}

TEST(SavingTheMargin, WritesInchesInMillimetres)
{
    ShownPanel shown(usbDialog(labelPrinter({.unit = "inch"})));
    shown.setMargin("0.20");
    [shown.get() saveSetting_Margin];
    EXPECT_EQ(shown.takeChanges(), (Texts{"VnMargin=5.1"})); // 5.07999
}

TEST(SavingTheMargin, TakesTheDefaultAsShownBeforeThereIsAView)
{
    const struct
    {
        const char* unit;
        bool whole;
        const char* margin;
        const char* saved;
    } cases[] = {{"", false, "5.01", "5.1"}, {"", false, "2.01", "3.0"},
                 {"", true, "5.01", "6"},    {"inch", false, "5", "5.1"},
                 {"inch", true, "5", "6"},   {"", false, "None", "3.0"},
                 {"", false, "80", "50.0"}};
    for (const auto& c : cases) {
        UnseenPanel panel(
            usbDialog(labelPrinter({.unit = c.unit, .wholeMargins = c.whole, .margin = c.margin})));
        [panel.get() saveSetting_Margin];
        EXPECT_EQ(panel.takeChanges(), (Texts{std::string("VnMargin=") + c.saved})) << c.margin;
    }
}

TEST(SavingTheMargin, WritesNothingWithoutAMarginOption)
{
    ShownPanel shown(usbDialog(labelPrinter({.margin = ""})));
    [shown.get() saveSetting_Margin];
    EXPECT_EQ(shown.takeChanges(), Texts{});
    [shown.get() saveValuesAndReturnError:nullptr];
    EXPECT_EQ(shown.takeChanges(), (Texts{"VnTapeLength=100.0", "VnPriority=Speed",
                                          "Resolution=300x300dpi", "VnCompress=Off"}));
}

// Choices

TEST(SavingAQuality, WritesTheFirstWhileTheSecondResolutionIsChosen)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    [shown.matrix("mPrintQualityRdBtn") selectCellAtRow:1 column:0];
    [shown.get() saveSetting_Quality];
    EXPECT_EQ(shown.takeChanges(), (Texts{"VnPriority=Fine"}));
    [shown.matrix("mResolutionRdBtn") selectCellAtRow:1 column:0];
    [shown.get() saveSetting_Quality];
    EXPECT_EQ(shown.takeChanges(), (Texts{"VnPriority=Speed"}));
}

TEST(SavingAQuality, WritesTheChosenOneWithoutAResolutionOption)
{
    Offer offer;
    offer.resolution.clear();
    ShownPanel shown(usbDialog(labelPrinter(offer)));
    [shown.matrix("mPrintQualityRdBtn") selectCellAtRow:1 column:0];
    [shown.get() saveSetting_Quality];
    EXPECT_EQ(shown.takeChanges(), (Texts{"VnPriority=Fine"}));
}

TEST(IndexForSavingAQuality, IsZeroForAControlWithoutRows)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    [shown.matrix("mPrintQualityRdBtn") selectCellAtRow:1 column:0];
    EXPECT_EQ([shown.get() indexForSaveQuality:shown.matrix("mPrintQualityRdBtn")], 1);
    EXPECT_EQ([shown.get() indexForSaveQuality:nil], 0);
    EXPECT_EQ([shown.get() indexForSaveQuality:shown.popUp()], 0);
    [shown.matrix("mResolutionRdBtn") selectCellAtRow:1 column:0];
    EXPECT_EQ([shown.get() indexForSaveQuality:shown.matrix("mPrintQualityRdBtn")], 0);
}

TEST(SavingChoices, WritesWhatTheControlsShow)
{
    ShownPanel shown(usbDialog(labelPrinter(everyOption())));
    [shown.matrix("mResolutionRdBtn") selectCellAtRow:1 column:0];
    [shown.matrix("mCompressRdBtn") selectCellAtRow:1 column:0];
    [shown.popUp() selectItemAtIndex:2];
    [shown.get() saveSetting_Resolution];
    [shown.get() saveSetting_Compress];
    [shown.get() saveSetting_VnResolution];
    EXPECT_EQ(shown.takeChanges(),
              (Texts{"Resolution=300x600dpi", "VnCompress=On", "VnResolution=Q600"}));
}

TEST(SavingChoices, TakesTheMarkBeforeThereIsAView)
{
    UnseenPanel panel(usbDialog(labelPrinter(everyOption())));
    ppdMarkOption(panel.dialog.ppd(), "VnPriority", "Fine");
    ppdMarkOption(panel.dialog.ppd(), "Resolution", "300x600dpi");
    ppdMarkOption(panel.dialog.ppd(), "VnCompress", "On");
    ppdMarkOption(panel.dialog.ppd(), "VnResolution", "Q600");
    [panel.get() supportedPPDOptionKeys];
    EXPECT_EQ(panel.takeChanges(),
              (Texts{"VnTapeLength=100.0", "VnMargin=5.0", "VnPriority=Fine",
                     "Resolution=300x600dpi", "VnCompress=On", "VnResolution=Q600"}));
}

TEST(SavingChoices, TakesTheDefaultWhereNothingIsMarked)
{
    Offer offer = everyOption();
    offer.qualityDefault = "Fine";
    offer.compressDefault = "On";
    UnseenPanel panel(usbDialog(labelPrinter(offer)));
    for (const char* option : {"VnPriority", "Resolution", "VnCompress", "VnResolution"})
        panel.dialog.unmark(option);
    [panel.get() supportedPPDOptionKeys];
    EXPECT_EQ(panel.takeChanges(),
              (Texts{"VnTapeLength=100.0", "VnMargin=5.0", "VnPriority=Fine",
                     "Resolution=300x300dpi", "VnCompress=On", "VnResolution=Q300"}));
}

TEST(SavingChoices, TakesTheFirstWhereNothingIsMarkedNorDefault)
{
    UnseenPanel panel(usbDialog(labelPrinter({.qualityDefault = "Nothing"})));
    panel.dialog.unmark("VnPriority");
    [panel.get() saveSetting_Quality];
    EXPECT_EQ(panel.takeChanges(), (Texts{"VnPriority=Speed"}));
}

TEST(SavingChoices, HoldsARowPastTheEndToTheLastChoice)
{
    Offer offer = everyOption();
    ShownPanel shown(usbDialog(labelPrinter(offer)));
    [shown.popUp() selectItemAtIndex:2];
    [shown.ivar<NSMutableArray*>("mVnResolution_Choices") removeLastObject];
    [shown.get() saveSetting_VnResolution];
    EXPECT_EQ(shown.takeChanges(), (Texts{"VnResolution=Q300"}));
}

TEST(SavingChoices, TakesTheFirstWhereNoRowIsSelected)
{
    ShownPanel shown(usbDialog(labelPrinter({.compressDefault = "On"})));
    [shown.matrix("mCompressRdBtn") setAllowsEmptySelection:YES];
    [shown.matrix("mCompressRdBtn") deselectAllCells];
    [shown.get() saveSetting_Compress];
    EXPECT_EQ(shown.takeChanges(), (Texts{"VnCompress=Off"}));
}

TEST(SavingChoices, WritesNothingOfAnOptionWithoutChoices)
{
    PPDText ppd = labelPrinter({.quality = {}, .compress = {}});
    ppd.option("VnPriority", "Priority", {}, "Speed");
    ppd.option("VnCompress", "Squeeze", {}, "");
    ShownPanel shown(usbDialog(ppd));
    ASSERT_EQ([shown.ivar<NSArray*>("mQuality_Choices") count], 0u);
    [shown.get() saveValuesAndReturnError:nullptr];
    EXPECT_EQ(shown.takeChanges(),
              (Texts{"VnTapeLength=100.0", "VnMargin=5.0", "Resolution=300x300dpi"}));
    [shown.get() updateUI];
    [shown.get() restoreValuesAndReturnError:nullptr];
    EXPECT_TRUE([shown.get() shouldPrint]);
}

TEST(SavingChoices, WritesNothingForAKeywordThatIsNotText)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    std::strcpy(shown.dialog.option("VnPriority")->choices[0].choice, "\xff");
    std::strcpy(shown.dialog.option("VnCompress")->keyword, "\xff");
    std::strcpy(shown.dialog.option("VnMargin")->keyword, "\xff");
    [shown.get() saveSetting_Quality];
    [shown.get() saveSetting_Compress];
    [shown.get() saveSetting_Margin];
    EXPECT_EQ(shown.takeChanges(), Texts{});
}

TEST(SavingChoices, WritesNothingOfAnOptionThatThePPDLacks)
{
    Offer offer;
    offer.quality.clear();
    offer.resolution.clear();
    offer.compress.clear();
    ShownPanel shown(usbDialog(labelPrinter(offer)));
    [shown.get() saveSetting_Quality];
    [shown.get() saveSetting_Resolution];
    [shown.get() saveSetting_Compress];
    [shown.get() saveSetting_VnResolution];
    EXPECT_EQ(shown.takeChanges(), Texts{});
}

TEST(Saving, WritesNothingWithoutPrintSettings)
{
    ShownPanel shown(usbDialog(labelPrinter(everyOption())));
    shown.ivar<void*>("printSettings") = nullptr;
    [shown.get() setTapeState:5];
    [shown.get() saveSetting_Length];
    [shown.get() saveSetting_Margin];
    [shown.get() saveSetting_Quality];
    [shown.get() saveSetting_Resolution];
    [shown.get() saveSetting_Compress];
    [shown.get() saveSetting_VnResolution];
    EXPECT_EQ(shown.takeChanges(), Texts{});
    EXPECT_EQ([shown.get() getTapeState], 5);
}

TEST(Saving, SurvivesADialogThatAnswersNothing)
{
    DialogSetup setup;
    setup.answersNothing = true;
    setup.deviceURI = "";
    ShownPanel shown(setup);
    [shown.get() saveValuesAndReturnError:nullptr];
    [shown.get() restoreValuesAndReturnError:nullptr];
    EXPECT_TRUE([shown.get() shouldPrint]);
    EXPECT_NE([shown.get() summaryInfo], nil);
    EXPECT_EQ(shown.takeChanges(), Texts{});
}

// Rounding

TEST(RoundingUp, GivesWholeNumbersAndTenths)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    EXPECT_EQ([shown.get() vnCeilInteger:4.01f], 5);
    EXPECT_EQ([shown.get() vnCeilInteger:4.0f], 4);
    EXPECT_EQ([shown.get() vnCeilInteger:-4.9f], -4);
    EXPECT_EQ([shown.get() vnCeilInteger:HUGE_VALF], 2147483647);
    EXPECT_EQ([shown.get() vnCeildouble:4.01f], 4.1);
    EXPECT_EQ([shown.get() vnCeildouble:4.2f], 4.2);
    EXPECT_EQ([shown.get() vnCeildouble:2.2f], 2.2);
}

} // namespace
