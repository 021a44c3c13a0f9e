// The interface file, loaded by the toolkit with a stand-in for the panel: outlets, actions, tab
// order, and the places of the rows for every combination of options.
#include "support/PanelTest.hpp"

#include <map>

// Has the panel's outlets and actions, and nothing of what it does.
@interface PanelStandIn : NSObject
{
    id kPDEView;
    id mWidthStr, mWidthTxFld, mSeparateLine1;
    id mLengthStr, mLengthTxFld, mLengthUnitStr, mLengthSlider, mLengthMinStr, mLengthMaxStr;
    id mMarginStr, mMarginTxFld, mMarginUnitStr, mMarginSlider, mMarginMinStr, mMarginMaxStr;
    id mPrintQualityStr, mPrintQualityRdBtn, mPrintResolutionStr, mResolutionRdBtn;
    id mPrintCompressStr, mCompressRdBtn, mPrintVnResolutionStr, mVnResolutionPUBtn;
}
@end

@implementation PanelStandIn
@end

namespace {

const std::vector<std::string> kOutlets = {"kPDEView",
                                           "mWidthStr",
                                           "mLengthStr",
                                           "mMarginStr",
                                           "mLengthUnitStr",
                                           "mMarginUnitStr",
                                           "mLengthMinStr",
                                           "mLengthMaxStr",
                                           "mMarginMinStr",
                                           "mMarginMaxStr",
                                           "mLengthSlider",
                                           "mMarginSlider",
                                           "mWidthTxFld",
                                           "mLengthTxFld",
                                           "mMarginTxFld",
                                           "mSeparateLine1",
                                           "mPrintQualityStr",
                                           "mPrintQualityRdBtn",
                                           "mPrintResolutionStr",
                                           "mResolutionRdBtn",
                                           "mPrintCompressStr",
                                           "mCompressRdBtn",
                                           "mPrintVnResolutionStr",
                                           "mVnResolutionPUBtn"};

class Interface : public testing::Test
{
  protected:
    void SetUp() override
    {
        owner_ = [[PanelStandIn alloc] init];
        NSString* const file = [pluginBundle() pathForResource:@"PageSettingPDE" ofType:@"xib"];
        ASSERT_NE(file, nil);
        ASSERT_TRUE([NSBundle loadNibFile:file
                        externalNameTable:[NSDictionary dictionaryWithObject:owner_
                                                                      forKey:@"NSOwner"]
                                 withZone:NULL]);
    }

    void TearDown() override
    {
        [view("kPDEView") release];
        [owner_ release];
    }

    NSView* view(const std::string& name) { return ivarOf<NSView*>(owner_, name.c_str()); }

    void show(const std::string& caption, const std::string& control, bool shown)
    {
        [view(caption) setHidden:!shown];
        [view(control) setHidden:!shown];
    }

    void place(const std::string& name, double y)
    {
        [view(name) setFrameOrigin:NSMakePoint(NSMinX([view(name) frame]), y)];
    }

    PanelStandIn* owner_ = nil;
};

} // namespace

TEST_F(Interface, ConnectsEveryOutlet)
{
    for (const std::string& name : kOutlets)
        EXPECT_NE(view(name), nil) << name;
}

TEST_F(Interface, SendsTheActionsToThePanel)
{
    const std::map<std::string, std::string> actions = {
        {"mLengthSlider", "changeLength:"},       {"mMarginSlider", "changeMargin:"},
        {"mPrintQualityRdBtn", "changeQuality:"}, {"mResolutionRdBtn", "changeResolution:"},
        {"mCompressRdBtn", "changeCompress:"},    {"mVnResolutionPUBtn", "changeVnResolution:"}};
    for (const auto& [name, action] : actions) {
        NSControl* const control = (NSControl*)view(name);
        EXPECT_EQ([control target], owner_) << name;
        EXPECT_EQ(textOf(NSStringFromSelector([control action])), action);
    }
    EXPECT_TRUE([[(NSControl*)view("mLengthSlider") cell] isContinuous]);
    EXPECT_TRUE([[(NSControl*)view("mMarginSlider") cell] isContinuous]);
}

TEST_F(Interface, GivesTheEntryFieldsTheirClassAndTheirDelegate)
{
    for (const char* const name : {"mLengthTxFld", "mMarginTxFld"}) {
        NSTextField* const field = (NSTextField*)view(name);
        EXPECT_TRUE([field isKindOfClass:classNamed("PDETextField13_v100_")]) << name;
        EXPECT_EQ([field delegate], (id)owner_) << name;
        EXPECT_TRUE([field isEditable]) << name;
    }
}

TEST_F(Interface, LetsNoLabelBeEdited)
{
    for (const std::string& name : kOutlets) {
        NSTextField* const field = (NSTextField*)view(name);
        if (![field isKindOfClass:[NSTextField class]] || name == "mLengthTxFld" ||
            name == "mMarginTxFld")
            continue;
        EXPECT_FALSE([field isEditable]) << name;
        EXPECT_FALSE([field isSelectable]) << name;
        EXPECT_FALSE([field isBezeled] || [field isBordered]) << name;
    }
}

TEST_F(Interface, LeadsTheTabKeyAsTheEyeGoes)
{
    const std::vector<std::string> order = {
        "mLengthTxFld",       "mLengthSlider",      "mMarginTxFld",     "mMarginSlider",
        "mVnResolutionPUBtn", "mPrintQualityRdBtn", "mResolutionRdBtn", "mCompressRdBtn"};
    for (std::size_t i = 0; i < order.size(); ++i)
        EXPECT_EQ([view(order[i]) nextKeyView], view(order[(i + 1) % order.size()])) << order[i];
}

TEST_F(Interface, ShowsNoPlaceholders)
{
    EXPECT_EQ([(NSPopUpButton*)view("mVnResolutionPUBtn") numberOfItems], 0);
    for (NSView* child in [view("kPDEView") subviews]) {
        if ([child isKindOfClass:[NSTextField class]])
            EXPECT_EQ(textOf([(NSTextField*)child stringValue]), "");
    }
}

TEST_F(Interface, KeepsTheCompressionGroupNarrow)
{
    EXPECT_LE(NSWidth([view("mCompressRdBtn") frame]), 350);
}

TEST_F(Interface, AlignsEachCaptionWithTheFirstLineOfItsGroup)
{
    const std::map<std::string, std::string> rows = {{"mPrintQualityStr", "mPrintQualityRdBtn"},
                                                     {"mPrintResolutionStr", "mResolutionRdBtn"},
                                                     {"mPrintCompressStr", "mCompressRdBtn"}};
    for (const auto& [caption, group] : rows) {
        EXPECT_EQ(NSMinY([view(caption) frame]), NSMinY([view(group) frame]) + 23) << caption;
        EXPECT_EQ(NSHeight([view(group) frame]), 43) << group;
    }
}

// The rows of a PPD are there or not; the panel takes the missing ones' heights off the view and
// places the rest from the bottom.
TEST_F(Interface, FitsTheRowsWithoutOverlapsOrGapsForEveryCombination)
{
    NSView* const panel = view("kPDEView");
    const NSSize full = [panel frame].size;
    std::map<std::string, NSRect> frames;
    for (const std::string& name : kOutlets)
        frames[name] = [view(name) frame];

    for (int options = 0; options < 16; ++options) {
        SCOPED_TRACE(options);
        const bool compression = options & 1;
        const bool printMode = options & 8;
        const bool resolution = (options & 2) && !printMode;
        const bool quality = options & 4;

        [panel setFrameSize:full];
        for (const std::string& name : kOutlets) {
            if (name != "kPDEView")
                [view(name) setFrame:frames[name]];
        }
        show("mPrintCompressStr", "mCompressRdBtn", compression);
        show("mPrintResolutionStr", "mResolutionRdBtn", resolution);
        show("mPrintQualityStr", "mPrintQualityRdBtn", quality);
        show("mPrintVnResolutionStr", "mVnResolutionPUBtn", printMode);
        const bool separator = compression || resolution || quality || printMode;
        [view("mSeparateLine1") setHidden:!separator];

        const double less = (compression ? 0 : 48) + (resolution ? 0 : 48) + (quality ? 0 : 48) +
                            (printMode ? 0 : 34);
        [panel setFrameSize:NSMakeSize(full.width, full.height - less)];
        double base = 20;
        if (compression) {
            place("mCompressRdBtn", 20);
            place("mPrintCompressStr", 43);
            base = 68;
        }
        if (resolution) {
            place("mResolutionRdBtn", base);
            place("mPrintResolutionStr", base + 23);
            base += 48;
        }
        if (quality) {
            place("mPrintQualityRdBtn", base);
            place("mPrintQualityStr", base + 23);
            base += 48;
        }

        // The print mode's slot ends 10 below the separator, and begins where the rows end.
        const double top = base + (printMode ? 34 : 0);
        const NSRect line = [view("mSeparateLine1") frame];
        EXPECT_EQ(NSMinY(line), top + 6);
        if (printMode) {
            EXPECT_GE(NSMinY([view("mVnResolutionPUBtn") frame]), base);
            EXPECT_LE(NSMaxY([view("mVnResolutionPUBtn") frame]), top);
        }

        NSArray* const children = [panel subviews];
        for (NSView* child in children) {
            if ([child isHidden])
                continue;
            EXPECT_TRUE(NSContainsRect([panel bounds], [child frame]))
                << textOf(NSStringFromRect([child frame]));
            for (NSView* other in children) {
                if (other == child || [other isHidden])
                    continue;
                EXPECT_FALSE(NSIntersectsRect([child frame], [other frame]))
                    << textOf(NSStringFromRect([child frame])) << " "
                    << textOf(NSStringFromRect([other frame]));
            }
        }
        // The upper block stays where it is, seen from the top.
        EXPECT_EQ(NSHeight([panel frame]) - NSMaxY([view("mWidthStr") frame]),
                  full.height - NSMaxY(frames["mWidthStr"]));
    }
}

TEST_F(Interface, IsReadInEveryLanguageByTheToolkit)
{
    for (NSString* language in @[
             @"en", @"de", @"fr", @"es", @"it", @"pt", @"nl", @"ja", @"ko", @"zh-Hans", @"zh-Hant"
         ]) {
        NSString* const file = [pluginBundle() pathForResource:@"Localizable" ofType:@"strings"
                                                   inDirectory:nil
                                               forLocalization:language];
        NSString* const text = [NSString stringWithContentsOfFile:file encoding:NSUTF8StringEncoding
                                                            error:NULL];
        NSDictionary* const table = [text propertyListFromStringsFileFormat];
        EXPECT_GE([table count], 60u) << textOf(language);
        EXPECT_NE([table objectForKey:@"PS_PANEL_NAME"], nil) << textOf(language);
        EXPECT_NE([table objectForKey:@"24 mm tape"], nil) << textOf(language);
    }
}
