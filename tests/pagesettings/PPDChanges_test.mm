#include "pagesettings/PageSettingsTest.hpp"

#include <vector>

namespace {

Offer everyOption()
{
    Offer offer;
    offer.printMode = printModes();
    offer.printModeDefault = "S300";
    return offer;
}

struct Group
{
    const char* option;
    const char* other; // not the default
    const char* selection;
    const char* control;
    int32_t mask;
    NSInteger row; // of `other`
};

const Group kGroups[] = {
    {"VnPriority", "Fine", "mQuality_Selection", "mPrintQualityRdBtn", 4, 1},
    {"Resolution", "300x600dpi", "mResolution_Selection", "mResolutionRdBtn", 8, 1},
    {"VnCompress", "On", "mCompress_Selection", "mCompressRdBtn", 16, 1},
    {"VnResolution", "Q600", "mVnResolution_Selection", "mVnResolutionPUBtn", 131072, 2},
};

NSInteger rowOf(const ShownPanel& shown, const char* control)
{
    id const found = shown.control<id>(control);
    return [found respondsToSelector:@selector(selectedRow)] ? [found selectedRow]
                                                             : [found indexOfSelectedItem];
}

std::string selected(const ShownPanel& shown, const Group& group)
{
    return textOf([shown.ivar<id>(group.selection) ppdTitle]);
}

NSString* string(const char* text)
{
    return [NSString stringWithUTF8String:text];
}

TEST(AChangeElsewhere, SetsTheSelectionAndShowsItAtTheNextRefresh)
{
    for (const Group& group : kGroups) {
        ShownPanel shown(usbDialog(labelPrinter(everyOption())));
        [shown.get() PPDOptionKeyValueDidChange:string(group.option) ppdChoice:string(group.other)];
        EXPECT_EQ(selected(shown, group), group.other);
        EXPECT_EQ(rowOf(shown, group.control), 0) << "shown too early";
        EXPECT_TRUE([shown.matrix("mPrintQualityRdBtn") isEnabled]);
        EXPECT_EQ(shown.dialog.calls, Texts{});
        [shown.get() updateUI];
        EXPECT_EQ(rowOf(shown, group.control), group.row) << group.option;
    }
}

TEST(AChangeElsewhere, LocksTheQualityAtTheNextRefresh)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    [shown.get() PPDOptionKeyValueDidChange:@"Resolution" ppdChoice:@"300x600dpi"];
    EXPECT_TRUE([shown.matrix("mPrintQualityRdBtn") isEnabled]);
    [shown.get() updateUI];
    EXPECT_FALSE([shown.matrix("mPrintQualityRdBtn") isEnabled]);
    EXPECT_TRUE(shown.isGrey("mPrintQualityStr"));
}

TEST(AChangeElsewhere, OfTheMarginChangesNothing)
{
    ShownPanel shown(usbDialog(labelPrinter(everyOption())));
    [shown.get() updateMarkedSelections:-1];
    for (const char* option : {"VnMargin", "VnTapeLength", "PageSize", "vnpriority", "", "Unknown"})
        [shown.get() PPDOptionKeyValueDidChange:string(option) ppdChoice:@"Fine"];
    EXPECT_EQ(shown.margin(), "5.0");
    for (const Group& group : kGroups)
        EXPECT_NE(selected(shown, group), group.other);
    [shown.get() updateUI];
    EXPECT_EQ(shown.margin(), "5.0");
    EXPECT_EQ(shown.length(), "100.0");
}

TEST(AChangeElsewhere, WithoutAKeywordOrAChoiceChangesNothing)
{
    ShownPanel shown(usbDialog(labelPrinter(everyOption())));
    for (const Group& group : kGroups) {
        NSString* const option = string(group.option);
        [shown.get() PPDOptionKeyValueDidChange:option ppdChoice:string(group.other)];
        [shown.get() PPDOptionKeyValueDidChange:option ppdChoice:nil];
        EXPECT_EQ(selected(shown, group), group.other) << "not the default";
        [shown.get() PPDOptionKeyValueDidChange:nil ppdChoice:@"Off"];
        EXPECT_EQ(selected(shown, group), group.other);
    }
}

TEST(AChangeElsewhere, ToAnUnknownChoiceClearsTheSelectionAndKeepsTheRow)
{
    for (const Group& group : kGroups) {
        ShownPanel shown(usbDialog(labelPrinter(everyOption())));
        [shown.get() PPDOptionKeyValueDidChange:string(group.option) ppdChoice:string(group.other)];
        [shown.get() updateUI];
        [shown.get() PPDOptionKeyValueDidChange:string(group.option) ppdChoice:@"Unknown"];
        EXPECT_EQ(shown.ivar<id>(group.selection), nil);
        [shown.get() updateUI];
        EXPECT_EQ(rowOf(shown, group.control), group.row) << group.option;
    }
}

TEST(AChangeElsewhere, IsComparedWithTheKeywordNotTheTitle)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    [shown.get() PPDOptionKeyValueDidChange:@"Resolution" ppdChoice:@"Tall"];
    EXPECT_EQ(shown.ivar<id>("mResolution_Selection"), nil);
}

TEST(ReadingMarks, SelectsTheMarkedChoiceOfEachGroupNamed)
{
    for (const Group& group : kGroups) {
        ShownPanel shown(usbDialog(labelPrinter(everyOption())));
        for (const Group& other : kGroups)
            ppdMarkOption(shown.dialog.ppd(), other.option, other.other);
        [shown.get() updateMarkedSelections:group.mask];
        for (const Group& other : kGroups) {
            if (other.mask == group.mask)
                EXPECT_EQ(selected(shown, other), other.other);
            else
                EXPECT_EQ(shown.ivar<id>(other.selection), nil);
        }
        EXPECT_EQ(rowOf(shown, group.control), 0) << "shown too early";
    }
}

TEST(ReadingMarks, SelectsSeveralGroupsOfOneMask)
{
    ShownPanel shown(usbDialog(labelPrinter(everyOption())));
    [shown.get() updateMarkedSelections:4 | 16];
    EXPECT_EQ(selected(shown, kGroups[0]), "Speed");
    EXPECT_EQ(shown.ivar<id>("mResolution_Selection"), nil);
    EXPECT_EQ(selected(shown, kGroups[2]), "Off");
    EXPECT_EQ(shown.ivar<id>("mVnResolution_Selection"), nil);
}

TEST(ReadingMarks, DoesNothingForTheCommonMasks)
{
    ShownPanel shown(usbDialog(labelPrinter(everyOption())));
    for (const int32_t mask : {0, 1, 2, 3, 32})
        [shown.get() updateMarkedSelections:mask];
    for (const Group& group : kGroups)
        EXPECT_EQ(shown.ivar<id>(group.selection), nil);
}

TEST(ReadingMarks, FallsBackToTheDefaultWhereNothingIsMarked)
{
    Offer offer = everyOption();
    offer.resolutionDefault = "300x600dpi";
    ShownPanel shown(usbDialog(labelPrinter(offer)));
    shown.dialog.unmark("Resolution");
    [shown.get() updateMarkedSelections:8];
    EXPECT_EQ(selected(shown, kGroups[1]), "300x600dpi");
}

TEST(ReadingMarks, KeepsTheSelectionWithoutMarkAndDefault)
{
    ShownPanel shown(usbDialog(labelPrinter({.qualityDefault = "Nothing"})));
    shown.dialog.unmark("VnPriority");
    [shown.get() PPDOptionKeyValueDidChange:@"VnPriority" ppdChoice:@"Fine"];
    [shown.get() updateMarkedSelections:4];
    EXPECT_EQ(selected(shown, kGroups[0]), "Fine");
}

TEST(ReadingMarks, KeepsTheSelectionOfAGroupWithoutAnOption)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    [shown.get() updateMarkedSelections:4];
    const id before = shown.ivar<id>("mQuality_Selection");
    shown.ivar<ppd_option_t*>("mQuality_Option") = nullptr;
    ppdMarkOption(shown.dialog.ppd(), "VnPriority", "Fine");
    [shown.get() updateMarkedSelections:4];
    EXPECT_EQ(shown.ivar<id>("mQuality_Selection"), before);
}

TEST(Restoring, ShowsTheMarksInTheControls)
{
    ShownPanel shown(usbDialog(labelPrinter(everyOption())));
    for (const Group& group : kGroups)
        ppdMarkOption(shown.dialog.ppd(), group.option, group.other);
    EXPECT_TRUE([shown.get() restoreValuesAndReturnError:nullptr]);
    for (const Group& group : kGroups)
        EXPECT_EQ(rowOf(shown, group.control), group.row) << group.option;
    EXPECT_FALSE([shown.matrix("mPrintQualityRdBtn") isEnabled]);
}

TEST(Refreshing, WithTheCommonMaskSavesTheLengthShowsTheWidthAndTiesTheQuality)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    for (const int32_t mask : {1, 2}) {
        const bool first = mask == 1;
        [shown.matrix("mResolutionRdBtn") selectCellAtRow:first ? 1 : 0 column:0];
        shown.dialog.format.setPaper(paperOf(first ? 62 : 71, first ? "TC36" : "TC24"));
        [shown.get() updateUIItem:mask];
        EXPECT_EQ(shown.takeChanges(), (Texts{first ? "VnTapeLength=62.0" : "VnTapeLength=71.0"}));
        EXPECT_EQ(shown.text("mWidthTxFld"), first ? "36 mm tape" : "24 mm tape");
        EXPECT_EQ([shown.matrix("mPrintQualityRdBtn") isEnabled], !first);
    }
}

TEST(Refreshing, ShowsEachGroupNamedAndNoOther)
{
    for (const Group& group : kGroups) {
        ShownPanel shown(usbDialog(labelPrinter(everyOption())));
        for (const Group& other : kGroups)
            [shown.get() PPDOptionKeyValueDidChange:string(other.option)
                                          ppdChoice:string(other.other)];
        [shown.get() updateUIItem:group.mask];
        for (const Group& other : kGroups)
            EXPECT_EQ(rowOf(shown, other.control), other.mask == group.mask ? other.row : 0);
    }
}

TEST(Refreshing, ShowsSeveralGroupsOfOneMask)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    for (const Group& group : kGroups)
        [shown.get() PPDOptionKeyValueDidChange:string(group.option) ppdChoice:string(group.other)];
    [shown.get() updateUIItem:4 | 8];
    EXPECT_EQ([shown.matrix("mPrintQualityRdBtn") selectedRow], 1);
    EXPECT_EQ([shown.matrix("mResolutionRdBtn") selectedRow], 1);
    EXPECT_EQ([shown.matrix("mCompressRdBtn") selectedRow], 0);
    EXPECT_FALSE([shown.matrix("mPrintQualityRdBtn") isEnabled]);
}

TEST(Refreshing, FindsTheVeryEntryAndNotAnEqualOne)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    id const equal = [(id)classNamed("PDEChoice")
        performSelector:@selector(choiceWithChoice:)
             withObject:(id)&shown.dialog.option("VnCompress")->choices[1]];
    shown.ivar<id>("mCompress_Selection") = equal;
    [shown.get() updateUIItem:16];
    EXPECT_EQ([shown.matrix("mCompressRdBtn") selectedRow], 0);
    shown.ivar<id>("mCompress_Selection") = nil;
}

TEST(Refreshing, LeavesTheRowOfAListThatIsGone)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    [shown.get() updateMarkedSelections:16];
    [shown.matrix("mCompressRdBtn") selectCellAtRow:1 column:0];
    NSMutableArray* const list = shown.ivar<NSMutableArray*>("mCompress_Choices");
    shown.ivar<NSMutableArray*>("mCompress_Choices") = nil;
    [shown.get() updateUIItem:16];
    EXPECT_EQ([shown.matrix("mCompressRdBtn") selectedRow], 1);
    shown.ivar<NSMutableArray*>("mCompress_Choices") = list;
}

TEST(Refreshing, LeavesTheRowWithoutASelection)
{
    ShownPanel shown(usbDialog(labelPrinter(everyOption())));
    [shown.matrix("mCompressRdBtn") selectCellAtRow:1 column:0];
    [shown.popUp() selectItemAtIndex:1];
    [shown.get() updateUI];
    EXPECT_EQ([shown.matrix("mCompressRdBtn") selectedRow], 1);
    EXPECT_EQ([shown.popUp() indexOfSelectedItem], 1);
}

TEST(Refreshing, FollowsTheTapeFromLabelToTapeAndBack)
{
    ShownPanel shown(usbDialog(labelPrinter(), paperOf(100, "TC36")));
    EXPECT_EQ(shown.text("mWidthTxFld"), "36 mm tape");
    for (int turn = 0; turn < 2; ++turn) {
        shown.dialog.format.setPaper(paperOf(20, "AV40"));
        [shown.get() updateUI];
        EXPECT_EQ(shown.text("mWidthTxFld"), "40 mm label");
        EXPECT_FALSE([shown.field("mLengthTxFld") isEnabled]);
        EXPECT_TRUE(shown.isGrey("mLengthMaxStr"));
        shown.dialog.format.setPaper(paperOf(100, "TC24"));
        [shown.get() updateUI];
        EXPECT_EQ(shown.text("mWidthTxFld"), "24 mm tape");
        EXPECT_TRUE([shown.field("mLengthTxFld") isEnabled]);
        EXPECT_FALSE(shown.isGrey("mLengthMaxStr"));
        shown.dialog.format.setPaper(paperOf(100, "NoSuchTape"));
        [shown.get() updateUI];
        EXPECT_EQ(shown.text("mWidthTxFld"), localizedText("RS_TapeWidthNot"));
    }
}

TEST(Refreshing, ShowsTheWidthAsThePPDWordsItNow)
{
    ShownPanel shown(usbDialog(labelPrinter(), paperOf(100, "TC24")));
    std::strcpy(shown.dialog.option("PageSize")->choices[0].text, "Twenty-four");
    [shown.get() updateUI];
    EXPECT_EQ(shown.text("mWidthTxFld"), "Twenty-four");
}

TEST(Refreshing, HasNothingDrawnAgainThatIsAsItWas)
{
    ShownPanel shown(usbDialog(labelPrinter(everyOption())));
    NSWindow* const window = [[[NSWindow alloc] initWithContentRect:NSMakeRect(0, 0, 600, 400)
                                                          styleMask:NSBorderlessWindowMask
                                                            backing:NSBackingStoreBuffered
                                                              defer:NO] autorelease];
    [window setReleasedWhenClosed:NO];
    NSView* const view = [shown.get() panelView];
    [[window contentView] addSubview:view];
    [window orderFront:nil];
    [shown.get() updateUI];
    // What is hidden, and a line between groups, the toolkit never counts as drawn.
    const auto drawn = [&] {
        [window display];
        std::vector<NSView*> controls;
        for (NSView* control in [view subviews]) {
            if (![control isHidden] && ![control needsDisplay])
                controls.push_back(control);
        }
        return controls;
    }();
    EXPECT_GT(drawn.size(), 15u);
    [shown.get() updateUI];
    for (NSView* const control : drawn)
        EXPECT_FALSE([control needsDisplay]) << textOf([control description]);

    NSMatrix* const quality = shown.matrix("mPrintQualityRdBtn");
    EXPECT_FALSE([quality needsDisplay]);
    [shown.get() PPDOptionKeyValueDidChange:@"VnPriority" ppdChoice:@"Fine"];
    [shown.get() updateUI];
    EXPECT_TRUE([quality needsDisplay]);
    [view removeFromSuperview];
}

TEST(AnEarlierUserChoice, IsReplacedByAChangeElsewhere)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    [shown.matrix("mCompressRdBtn") selectCellAtRow:1 column:0];
    [shown.get() changeCompress:shown.matrix("mCompressRdBtn")];
    [shown.get() PPDOptionKeyValueDidChange:@"VnCompress" ppdChoice:@"Off"];
    [shown.get() updateUI];
    shown.dialog.calls.clear();
    [shown.get() saveSetting_Compress];
    EXPECT_EQ(shown.takeChanges(), (Texts{"VnCompress=Off"}));
}

} // namespace
