#include "pagesettings/PageSettingsTest.hpp"
#include "support/PanelTestPrinting.hpp"

namespace {

// "title=value" in the order told to the dialog.
Texts linesOf(NSDictionary* summary)
{
    Texts lines;
    for (NSString* title in [summary objectForKey:@"Summary Display Order"])
        lines.push_back(textOf(title) + "=" + textOf([summary objectForKey:title]));
    return lines;
}

std::string mm()
{
    return localizedText("RS_mm");
}

std::string inch()
{
    return localizedText("RS_Inch");
}

std::string widthLine(const std::string& width = "24 mm tape")
{
    return localizedText("RS_STitle_TapeWidth") + "=" + width;
}

// A panel without a view, so without filled controls.
class UnseenPanel
{
  public:
    explicit UnseenPanel(const DialogSetup& setup) : dialog(setup), panel_(dialog) {}
    id<PageSettingsUnderTest> get() const { return (id<PageSettingsUnderTest>)panel_.get(); }
    Texts lines() const { return linesOf([get() summaryInfo]); }

    FakeDialog dialog;

  private:
    TestPanel panel_;
};

Offer bareOffer()
{
    Offer offer;
    offer.margin = "";
    offer.quality.clear();
    offer.resolution.clear();
    offer.compress.clear();
    return offer;
}

Offer everyOption()
{
    Offer offer;
    offer.printMode = printModes();
    offer.printModeDefault = "S300";
    return offer;
}

// Without filled controls

TEST(Summary, HasWidthAndLengthWithoutOptions)
{
    UnseenPanel panel(usbDialog(labelPrinter(bareOffer())));
    EXPECT_EQ(panel.lines(), (Texts{widthLine(), "Label length=100.0" + mm()}));
    EXPECT_EQ([[panel.get() summaryInfo] count], 3u);
}

TEST(Summary, HasWidthLengthMarginAndTheSelectionsOfThePanel)
{
    UnseenPanel panel(usbDialog(labelPrinter()));
    [panel.get() updateMarkedSelections:-1];
    EXPECT_EQ(panel.lines(),
              (Texts{widthLine(), "Label length=100.0" + mm(), "Feed margin=5.0" + mm(),
                     "Priority=Fast", "Dots=Square", "Squeeze=Never"}));
}

TEST(Summary, HasNoChoiceLinesBeforeThereAreSelections)
{
    UnseenPanel panel(usbDialog(labelPrinter(everyOption())));
    EXPECT_EQ(panel.lines(),
              (Texts{widthLine(), "Label length=100.0" + mm(), "Feed margin=5.0" + mm()}));
}

TEST(Summary, IsANewDictionaryEachTime)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    NSDictionary* const first = [shown.get() summaryInfo];
    shown.setLength("50");
    NSDictionary* const second = [shown.get() summaryInfo];
    EXPECT_NE(first, second);
    EXPECT_EQ(textOf([first objectForKey:@"Label length"]), "100.0" + mm());
    EXPECT_EQ(textOf([second objectForKey:@"Label length"]), "50.0" + mm());
}

// Width

TEST(SummaryOfTheWidth, PairsSizesAndChoicesByPlace)
{
    UnseenPanel panel(usbDialog(labelPrinter(bareOffer())));
    std::swap(panel.dialog.ppd()->sizes[0].name, panel.dialog.ppd()->sizes[1].name);
    EXPECT_EQ(panel.lines()[0], widthLine("36 mm tape"));
}

TEST(SummaryOfTheWidth, SaysThatAnUnknownTapeIsNotKnown)
{
    const std::string unknown = widthLine(localizedText("RS_TapeWidthNot"));
    EXPECT_EQ(UnseenPanel(usbDialog(labelPrinter(), paperOf(100, "TC99"))).lines()[0], unknown);
    EXPECT_EQ(UnseenPanel(usbDialog(labelPrinter(), paperOf(100, "tc24"))).lines()[0], unknown);
    EXPECT_EQ(UnseenPanel({.ppd = labelPrinter()}).lines()[0], unknown);
    EXPECT_EQ(UnseenPanel(usbDialog(PPDText().attribute("VnTapeType", "ZR"))).lines()[0], unknown);
    UnseenPanel notUTF8(usbDialog(labelPrinter()));
    std::strcpy(notUTF8.dialog.option("PageSize")->choices[0].text, "\xff");
    EXPECT_EQ(notUTF8.lines()[0], unknown);
}

// Length

TEST(SummaryOfTheLength, IsLeftOutWhereThePaperCannotBeRead)
{
    for (const char* call : {"PMPaperGetHeight", "PMGetPageFormatPaper"}) {
        UnseenPanel panel(usbDialog(labelPrinter(bareOffer())));
        PrintingCalls::fail(call, -30897);
        const bool knowsName = std::string(call) == "PMPaperGetHeight";
        EXPECT_EQ(panel.lines(),
                  (Texts{widthLine(knowsName ? "24 mm tape" : localizedText("RS_TapeWidthNot"))}));
        PrintingCalls::reset();
    }
}

TEST(SummaryOfTheLength, CutsAWholePaperAndLeavesItWithinTheLimits)
{
    Offer offer = bareOffer();
    offer.wholeLengths = true;
    EXPECT_EQ(UnseenPanel(usbDialog(labelPrinter(offer), paperOf(29.7))).lines()[1],
              "Label length=29" + mm());
}

TEST(SummaryOfTheLength, RoundsTheFieldsTextUpToTenths)
{
    ShownPanel shown(usbDialog(labelPrinter(bareOffer())));
    shown.setLength("29.74");
    EXPECT_EQ(linesOf([shown.get() summaryInfo])[1], "Label length=29.8" + mm());
    shown.setLength("29.7");
    EXPECT_EQ(linesOf([shown.get() summaryInfo])[1], "Label length=29.7" + mm());
    EXPECT_EQ(shown.length(), "29.7");
}

TEST(SummaryOfTheLength, IsHeldToTheLimitsOnTape)
{
    ShownPanel shown(usbDialog(labelPrinter(bareOffer())));
    const struct
    {
        const char* field;
        const char* shown;
    } cases[] = {{"5", "20.0"}, {"5000", "1000.0"}, {"", "20.0"}, {"text", "20.0"}};
    for (const auto& c : cases) {
        shown.setLength(c.field);
        EXPECT_EQ(linesOf([shown.get() summaryInfo])[1], "Label length=" + (c.shown + mm()));
    }
}

TEST(SummaryOfTheLength, IsTheLabelsOwnOnALabel)
{
    ShownPanel shown(usbDialog(labelPrinter(bareOffer()), paperOf(15.3, "DC62")));
    shown.setLength("12.345 or so");
    EXPECT_EQ(linesOf([shown.get() summaryInfo]),
              (Texts{widthLine("62 mm label"), "Label length=12.345 or so" + mm()}));
    EXPECT_EQ(UnseenPanel(usbDialog(labelPrinter(bareOffer()), paperOf(15.3, "AV40"))).lines()[1],
              "Label length=15.3" + mm());
}

TEST(SummaryOfTheLength, ShowsInchesWithoutRoundingUp)
{
    Offer offer = bareOffer();
    offer.unit = "inch";
    offer.wholeLengths = true;
    EXPECT_EQ(UnseenPanel(usbDialog(labelPrinter(offer))).lines()[1], "Label length=3.94" + inch());
    ShownPanel shown(usbDialog(labelPrinter(offer)));
    const struct
    {
        const char* field;
        const char* shown;
    } cases[] = {{"1.234", "1.23"}, {"0.1", "0.79"}, {"99", "39.37"}};
    for (const auto& c : cases) {
        shown.setLength(c.field);
        EXPECT_EQ(linesOf([shown.get() summaryInfo])[1], "Label length=" + (c.shown + inch()));
    }
}

TEST(SummaryOfTheLength, HasItsOwnTitleWithoutTheOption)
{
    Offer offer = bareOffer();
    offer.tapeLength = false;
    EXPECT_EQ(UnseenPanel(usbDialog(labelPrinter(offer))).lines()[1],
              localizedText("RS_STitle_TapeLength") + "=100.0" + mm());
}

// Margin

TEST(SummaryOfTheMargin, RoundsTheDefaultUp)
{
    Offer offer = bareOffer();
    offer.margin = "5.01";
    EXPECT_EQ(UnseenPanel(usbDialog(labelPrinter(offer))).lines()[2], "Feed margin=5.1" + mm());
    offer.wholeMargins = true;
    EXPECT_EQ(UnseenPanel(usbDialog(labelPrinter(offer))).lines()[2], "Feed margin=6" + mm());
    offer.unit = "inch";
    EXPECT_EQ(UnseenPanel(usbDialog(labelPrinter(offer))).lines()[2], "Feed margin=0.20" + inch());
}

TEST(SummaryOfTheMargin, IsNeverHeldToTheLimits)
{
    Offer offer = bareOffer();
    offer.margin = "80";
    EXPECT_EQ(UnseenPanel(usbDialog(labelPrinter(offer))).lines()[2], "Feed margin=80.0" + mm());
    ShownPanel shown(usbDialog(labelPrinter(offer)));
    shown.setMargin("0.123 or so");
    EXPECT_EQ(linesOf([shown.get() summaryInfo])[2], "Feed margin=0.123 or so" + mm());
}

TEST(SummaryOfTheMargin, HasItsOwnTitleWithoutAPPDTitle)
{
    Offer offer = bareOffer();
    offer.margin = "5";
    UnseenPanel panel(usbDialog(labelPrinter(offer)));
    std::strcpy(panel.dialog.option("VnMargin")->text, "\xff");
    EXPECT_EQ(panel.lines()[2], localizedText("RS_STitle_Margin") + "=5.0" + mm());
}

// Choices

TEST(SummaryOfThePrintMode, TakesThePlaceOfTheResolution)
{
    UnseenPanel panel(usbDialog(labelPrinter(everyOption())));
    [panel.get() updateMarkedSelections:-1];
    EXPECT_EQ(panel.lines(),
              (Texts{widthLine(), "Label length=100.0" + mm(), "Feed margin=5.0" + mm(),
                     "Mode=Fast square", "Priority=Fast", "Squeeze=Never"}));
}

TEST(SummaryOfTheQuality, IsHiddenWhileTheSecondResolutionIsMarked)
{
    UnseenPanel panel(usbDialog(labelPrinter()));
    [panel.get() updateMarkedSelections:-1];
    ppdMarkOption(panel.dialog.ppd(), "Resolution", "300x600dpi");
    EXPECT_EQ(panel.lines(), (Texts{widthLine(), "Label length=100.0" + mm(),
                                    "Feed margin=5.0" + mm(), "Dots=Tall", "Squeeze=Never"}));
}

TEST(SummaryOfTheQuality, IsShownWhereNoResolutionIsMarked)
{
    UnseenPanel panel(usbDialog(labelPrinter()));
    [panel.get() updateMarkedSelections:4];
    panel.dialog.unmark("Resolution");
    EXPECT_EQ(panel.lines()[3], "Priority=Fast");
}

TEST(SummaryOfACompression, IsOfAPrinterOnUSBOnly)
{
    for (const char* uri : {"ipp://host/printer", "", "usb://Vendor/Printer"}) {
        DialogSetup setup = usbDialog(labelPrinter());
        setup.deviceURI = uri;
        UnseenPanel panel(setup);
        [panel.get() updateMarkedSelections:16];
        const bool isUSB = std::string(uri).starts_with("usb");
        EXPECT_EQ(panel.lines().size(), isUSB ? 4u : 3u) << uri;
        if (isUSB)
            EXPECT_EQ(panel.lines()[3], "Squeeze=Never");
    }
}

TEST(SummaryOfAChoice, IsTheMarkedOnesTitle)
{
    UnseenPanel panel(usbDialog(labelPrinter(everyOption())));
    [panel.get() updateMarkedSelections:-1];
    ppdMarkOption(panel.dialog.ppd(), "VnPriority", "Fine");
    ppdMarkOption(panel.dialog.ppd(), "VnCompress", "On");
    ppdMarkOption(panel.dialog.ppd(), "VnResolution", "Q600");
    const Texts lines = panel.lines();
    EXPECT_EQ(Texts(lines.begin() + 3, lines.end()),
              (Texts{"Mode=Fine tall", "Priority=Fine", "Squeeze=Always"}));
}

TEST(SummaryOfAChoice, IsTheSelectionsTitleWhereNothingIsMarked)
{
    UnseenPanel panel(usbDialog(labelPrinter()));
    [panel.get() updateMarkedSelections:-1];
    [panel.get() PPDOptionKeyValueDidChange:@"VnPriority" ppdChoice:@"Fine"];
    for (const char* option : {"VnPriority", "Resolution", "VnCompress"})
        panel.dialog.unmark(option);
    const Texts lines = panel.lines();
    EXPECT_EQ(Texts(lines.begin() + 3, lines.end()),
              (Texts{"Priority=Fine", "Dots=Square", "Squeeze=Never"}));
}

TEST(SummaryOfAChoice, IsTheSelectionsTitleBeyondTheChoicesItKnows)
{
    Offer offer = everyOption();
    offer.quality = {{"a", "A"}, {"b", "B"}, {"c", "C"}};
    offer.compress = {{"d", "D"}, {"e", "E"}, {"f", "F"}};
    offer.printMode = {{"g", "G"}, {"h", "H"}, {"i", "I"}, {"j", "J"}};
    UnseenPanel panel(usbDialog(labelPrinter(offer)));
    [panel.get() PPDOptionKeyValueDidChange:@"VnPriority" ppdChoice:@"a"];
    [panel.get() PPDOptionKeyValueDidChange:@"VnCompress" ppdChoice:@"d"];
    [panel.get() PPDOptionKeyValueDidChange:@"VnResolution" ppdChoice:@"g"];
    ppdMarkOption(panel.dialog.ppd(), "VnPriority", "c");
    ppdMarkOption(panel.dialog.ppd(), "VnCompress", "f");
    ppdMarkOption(panel.dialog.ppd(), "VnResolution", "j");
    const Texts lines = panel.lines();
    EXPECT_EQ(Texts(lines.begin() + 3, lines.end()), (Texts{"Mode=G", "Priority=A", "Squeeze=D"}));
}

// Takes every title of option and choices away.
void takeTitles(ppd_option_t* option)
{
    std::strcpy(option->text, "\xff");
    for (int i = 0; i < option->num_choices; ++i)
        std::strcpy(option->choices[i].text, i % 2 == 0 ? "" : "\xff");
}

std::string lineFor(const char* title, const char* value)
{
    return localizedText(title) + "=" + localizedText(value);
}

TEST(SummaryWithoutTitles, NamesTheResolutionsOfTheZRLine)
{
    Offer offer = bareOffer();
    offer.resolution = {{"a", "a"}, {"b", "b"}, {"c", "Title"}};
    for (const char* type : {"ZR", "zr", "", "ZR2"}) {
        offer.tapeType = type;
        const bool isZR = std::string(type) == "ZR";
        UnseenPanel panel(usbDialog(labelPrinter(offer)));
        takeTitles(panel.dialog.option("Resolution"));
        [panel.get() PPDOptionKeyValueDidChange:@"Resolution" ppdChoice:@"a"];
        const char* const marks[] = {"a", "b", "c"};
        const char* const zr[] = {"RS_Resol300300", "RS_Resol300600"};
        const char* const others[] = {"RS_Resol180360", "RS_Resol360360", "RS_Resol360720"};
        for (int i = 0; i < 3; ++i) {
            ppdMarkOption(panel.dialog.ppd(), "Resolution", marks[i]);
            const std::string expected =
                isZR ? (i < 2 ? lineFor("RS_STitle_Resolution", zr[i])
                              : localizedText("RS_STitle_Resolution") + "=") // no title at all
                     : lineFor("RS_STitle_Resolution", others[i]);
            EXPECT_EQ(panel.lines()[2], expected) << type << i;
        }
    }
}

TEST(SummaryWithoutTitles, NamesQualitiesAndCompressions)
{
    UnseenPanel panel(usbDialog(labelPrinter()));
    for (const char* option : {"VnPriority", "VnCompress", "VnMargin", "VnTapeLength"})
        takeTitles(panel.dialog.option(option));
    [panel.get() updateMarkedSelections:4 | 16];
    Texts lines = panel.lines();
    EXPECT_EQ(Texts(lines.begin() + 3, lines.end()),
              (Texts{lineFor("RS_STitle_Quality", "RS_QualitySpeed"),
                     lineFor("RS_STitle_Compress", "RS_CompressOFF")}));
    EXPECT_EQ(lines[1], localizedText("RS_STitle_TapeLength") + "=100.0" + mm());
    ppdMarkOption(panel.dialog.ppd(), "VnPriority", "Fine");
    ppdMarkOption(panel.dialog.ppd(), "VnCompress", "On");
    lines = panel.lines();
    EXPECT_EQ(Texts(lines.begin() + 3, lines.end()),
              (Texts{lineFor("RS_STitle_Quality", "RS_QualityQuality"),
                     lineFor("RS_STitle_Compress", "RS_CompressON")}));
}

TEST(SummaryWithoutTitles, ListsTheQualityTitleTwiceBesideAPrintMode)
{
    Offer offer = everyOption();
    offer.margin = "";
    offer.compress.clear();
    UnseenPanel panel(usbDialog(labelPrinter(offer)));
    takeTitles(panel.dialog.option("VnPriority"));
    takeTitles(panel.dialog.option("VnResolution"));
    [panel.get() updateMarkedSelections:-1];
    ppdMarkOption(panel.dialog.ppd(), "VnResolution", "Q600");
    const std::string title = localizedText("RS_STitle_Quality");
    NSDictionary* const summary = [panel.get() summaryInfo];
    EXPECT_EQ(textsOf([summary objectForKey:@"Summary Display Order"]),
              (Texts{localizedText("RS_STitle_TapeWidth"), "Label length", title, title}));
    EXPECT_EQ(textOf([summary objectForKey:localized("RS_STitle_Quality")]),
              localizedText("RS_QualitySpeed"));
    EXPECT_EQ([summary count], 4u);
}

TEST(SummaryWithoutTitles, NamesThePrintModes)
{
    Offer offer = everyOption();
    offer.quality.clear();
    UnseenPanel panel(usbDialog(labelPrinter(offer)));
    takeTitles(panel.dialog.option("VnResolution"));
    [panel.get() updateMarkedSelections:131072];
    const struct
    {
        const char* choice;
        const char* key;
    } cases[] = {{"S300", "RS_VnResolS300300"},
                 {"Q300", "RS_VnResolQ300300"},
                 {"Q600", "RS_VnResolQ300600"}};
    for (const auto& c : cases) {
        ppdMarkOption(panel.dialog.ppd(), "VnResolution", c.choice);
        EXPECT_EQ(panel.lines()[3], lineFor("RS_STitle_Quality", c.key));
    }
}

TEST(Summary, FollowsAnEditOfTheUser)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    [shown.matrix("mCompressRdBtn") selectCellAtRow:1 column:0];
    [shown.get() changeCompress:shown.matrix("mCompressRdBtn")];
    shown.setLength("62.5");
    shown.setMargin("7.5");
    EXPECT_EQ(linesOf([shown.get() summaryInfo]),
              (Texts{widthLine(), "Label length=62.5" + mm(), "Feed margin=7.5" + mm(),
                     "Squeeze=Always"}));
}

TEST(Summary, TellsTheDialogNothing)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    [shown.get() summaryInfo];
    EXPECT_EQ(shown.takeChanges(), Texts{});
}

TEST(IndexForSummary, IsZeroForEveryKeywordAndMask)
{
    ShownPanel shown(usbDialog(
        labelPrinter().attribute("VnOrigin", "{5, 7}").attribute("VnPoint", "{-1000, 7}")));
    for (const char* keyword : {"VnOrigin", "VnPoint", "VnMargin", "Unknown", ""})
        EXPECT_EQ([shown.get() indexForSummary:keyword], 0);
    for (const std::intptr_t mask : {0, 1, 4, 131072, -1})
        EXPECT_EQ([shown.get() indexForSummary:reinterpret_cast<const char*>(mask)], 0);
}

} // namespace
