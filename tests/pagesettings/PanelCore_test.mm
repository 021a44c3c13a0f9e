// The panel's creation, layout, hooks, limits and reactions to typing, in the loaded interface
// file. What its controls show, correct and save has tests of its own.
#include "support/CoreFoundationCalls.hpp"
#include "support/PanelTestPrinting.hpp"

#include <cstring>
#include <limits>
#include <map>

namespace {

const PPDChoiceText kSpeed{"Speed", "Fast"};
const PPDChoiceText kFine{"Quality", "Fine"};

PPDText tape()
{
    return PPDText()
        .paper("TC24", "24 mm", 68, 72)
        .attribute("VnMinTapeLength", "20")
        .attribute("VnMaxTapeLength", "1000")
        .attribute("VnMinMargin", "1")
        .attribute("VnMaxMargin", "50");
}

PPDText& addMargin(PPDText& ppd)
{
    return ppd.option("VnMargin", "Margin", {{"2", ""}, {"4", ""}}, "2");
}

PPDText& addQuality(PPDText& ppd)
{
    return ppd.option("VnPriority", "Quality", {kSpeed, kFine}, "Quality");
}

PPDText& addResolution(PPDText& ppd)
{
    return ppd.option("Resolution", "Resolution", {{"300dpi", ""}, {"300x600dpi", ""}}, "300dpi");
}

PPDText& addSingleResolution(PPDText& ppd)
{
    return ppd.option("Resolution", "Resolution", {{"300dpi", ""}}, "300dpi");
}

PPDText& addCompression(PPDText& ppd)
{
    return ppd.option("VnCompress", "Compression", {{"Off", ""}, {"On", ""}}, "On");
}

PPDText& addPrintMode(PPDText& ppd)
{
    return ppd.option("VnResolution", "Print mode", {{"S300", ""}, {"Q300", ""}, {"Q600", ""}},
                      "Q300");
}

using Part = PPDText& (*)(PPDText&);

PPDText tapeWith(std::initializer_list<Part> parts)
{
    PPDText ppd = tape();
    for (const Part part : parts)
        part(ppd);
    return ppd;
}

PPDText everything()
{
    return tapeWith({addMargin, addQuality, addResolution, addCompression, addPrintMode});
}

DialogSetup setupWith(PPDText ppd)
{
    return {.ppd = std::move(ppd), .paper = printing::Paper{"TC24", 68, 72}};
}

// A panel with its dialog.
struct Shown
{
    explicit Shown(const DialogSetup& setup) : dialog(setup), panel(dialog) {}
    explicit Shown(PPDText ppd) : Shown(setupWith(std::move(ppd))) {}

    template <class T = id>
    T control(const char* name)
    {
        return outlet<T>(panel, name);
    }
    double y(const char* name) { return [control<NSView*>(name) frame].origin.y; }
    bool hidden(const char* name) { return [control<NSView*>(name) isHidden]; }
    double height() { return [[panel panelView] frame].size.height; }

    FakeDialog dialog;
    TestPanel panel;
};

// The panel's view as it stands in the interface file.
double fileHeight()
{
    DialogSetup setup = setupWith(everything());
    setup.tellsOfResize = false;
    return Shown(setup).height();
}

Texts visibleRows(Shown& shown)
{
    [shown.panel panelView];
    const struct
    {
        const char* name;
        const char* label;
        const char* control;
    } rows[] = {{"quality", "mPrintQualityStr", "mPrintQualityRdBtn"},
                {"resolution", "mPrintResolutionStr", "mResolutionRdBtn"},
                {"compression", "mPrintCompressStr", "mCompressRdBtn"},
                {"print mode", "mPrintVnResolutionStr", "mVnResolutionPUBtn"}};
    Texts visible;
    for (const auto& row : rows) {
        EXPECT_NE(shown.control(row.label), nil) << row.label;
        EXPECT_NE(shown.control(row.control), nil) << row.control;
        EXPECT_EQ(shown.hidden(row.label), shown.hidden(row.control)) << row.name;
        if (!shown.hidden(row.label))
            visible.push_back(row.name);
    }
    return visible;
}

bool hasSeparator(Shown& shown)
{
    for (NSView* view in [[shown.panel panelView] subviews]) {
        if ([view isKindOfClass:[NSBox class]])
            return true;
    }
    return false;
}

// Recording of a panel's own messages: its class is replaced by a subclass that writes each message
// down and sends it on.

Texts sent;

void recordPlain(id self, SEL message)
{
    sent.push_back(sel_getName(message));
    const IMP real = class_getMethodImplementation(classNamed("PageSettingPDE13_v100_"), message);
    reinterpret_cast<void (*)(id, SEL)>(real)(self, message);
}

void recordMask(id self, SEL message, int32_t mask)
{
    sent.push_back(sel_getName(message) + std::to_string(mask));
    const IMP real = class_getMethodImplementation(classNamed("PageSettingPDE13_v100_"), message);
    reinterpret_cast<void (*)(id, SEL, int32_t)>(real)(self, message, mask);
}

BOOL recordCheck(id self, SEL message, BOOL quiet)
{
    sent.push_back(std::string("checkValues:") + (quiet ? "YES" : "NO") + " column_dec " +
                   std::to_string(ivarOf<uint8_t>(self, "column_dec")));
    const IMP real = class_getMethodImplementation(classNamed("PageSettingPDE13_v100_"), message);
    return reinterpret_cast<BOOL (*)(id, SEL, BOOL)>(real)(self, message, quiet);
}

void recordObject(id self, SEL message, id object)
{
    sent.push_back(sel_getName(message));
    const IMP real = class_getMethodImplementation(classNamed("PageSettingPDE13_v100_"), message);
    reinterpret_cast<void (*)(id, SEL, id)>(real)(self, message, object);
}

const Texts kInitialise{"initializeUI_Width",       "initializeUI_Length",
                        "initializeUI_Margin",      "initializeUI_Quality",
                        "initializeUI_Resolution",  "initializeUI_Compress",
                        "initializeUI_VnResolution"};
const Texts kSaves{"saveSetting_Length",     "saveSetting_Margin",   "saveSetting_Quality",
                   "saveSetting_Resolution", "saveSetting_Compress", "saveSetting_VnResolution"};

// Records the messages of the names from now on; of one of these names with a colon, its argument.
void record(Shown& shown, const Texts& names)
{
    static int number = 0;
    const std::string className = "RecordedPanel" + std::to_string(++number);
    Class recorder =
        objc_allocateClassPair(classNamed("PageSettingPDE13_v100_"), className.c_str(), 0);
    for (const std::string& name : names) {
        SEL const message = sel_registerName(name.c_str());
        ASSERT_TRUE([shown.panel respondsToSelector:message]) << name;
        if (name == "checkValues:")
            class_addMethod(recorder, message, reinterpret_cast<IMP>(recordCheck), "C@:C");
        else if (name == "setSupportedOptions:")
            class_addMethod(recorder, message, reinterpret_cast<IMP>(recordObject), "v@:@");
        else if (name.back() == ':')
            class_addMethod(recorder, message, reinterpret_cast<IMP>(recordMask), "v@:i");
        else
            class_addMethod(recorder, message, reinterpret_cast<IMP>(recordPlain), "v@:");
    }
    objc_registerClassPair(recorder);
    object_setClass(shown.panel.get(), recorder);
    sent.clear();
}

Texts together(Texts first, const Texts& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

NSNotification* about(id object)
{
    return [NSNotification notificationWithName:NSControlTextDidChangeNotification object:object];
}

} // namespace

// The class.

TEST(PanelClass, DeclaresItsVariablesInOrderWithTheirTypes)
{
    const std::string object = "@", pointer = "^";
    const std::vector<std::pair<std::string, std::string>> expected{
        {"mWidthStr", object},
        {"mLengthStr", object},
        {"mMarginStr", object},
        {"mLengthUnitStr", object},
        {"mMarginUnitStr", object},
        {"mLengthMinStr", object},
        {"mLengthMaxStr", object},
        {"mMarginMinStr", object},
        {"mMarginMaxStr", object},
        {"mLengthSlider", object},
        {"mMarginSlider", object},
        {"mWidthTxFld", object},
        {"mLengthTxFld", object},
        {"mMarginTxFld", object},
        {"mSeparateLine1", object},
        {"mPrintQualityStr", object},
        {"mPrintQualityRdBtn", object},
        {"mPrintResolutionStr", object},
        {"mResolutionRdBtn", object},
        {"mPrintCompressStr", object},
        {"mCompressRdBtn", object},
        {"mPrintVnResolutionStr", object},
        {"mVnResolutionPUBtn", object},
        {"mQuality_Choices", object},
        {"mResolution_Choices", object},
        {"mCompress_Choices", object},
        {"mVnResolution_Choices", object},
        {"mMargin_Option", pointer},
        {"mQuality_Option", pointer},
        {"mResolution_Option", pointer},
        {"mCompress_Option", pointer},
        {"mVnResolution_Option", pointer},
        {"mQuality_Selection", object},
        {"mResolution_Selection", object},
        {"mCompress_Selection", object},
        {"mVnResolution_Selection", object},
        {"mPDEUnit", "i"},
        {"mTapeState", "i"},
        {"usb_dec", "C"},
        {"choice_PaperSize", "f"},
        {"column_dec", "C"},
        {"set_formatSetting", "C"},
        {"checkValues_dec", "c"},
    };
    unsigned count = 0;
    Ivar* const list = class_copyIvarList(classNamed("PageSettingPDE13_v100_"), &count);
    std::vector<std::pair<std::string, std::string>> found;
    for (unsigned i = 0; i < count; ++i)
        found.emplace_back(ivar_getName(list[i]), std::string(ivar_getTypeEncoding(list[i]), 1));
    free(list);
    EXPECT_EQ(found, expected);
    EXPECT_EQ(class_getSuperclass(classNamed("PageSettingPDE13_v100_")),
              classNamed("BasePDE13_v100_"));
}

TEST(PanelClass, AnswersEveryMessageOfItsKind)
{
    const char* const messages[] = {
        "initWithCallback:andBundle:", "awakeFromNib", "dealloc", "finalize",
        "supportedPPDOptionKeys", "printWindowWillClose:", "shouldShowHelp", "initSetTitleTexts",
        "getValuesFromKey", "initUI", "setValuesToKey", "setPDEItems", "setPDEItems2",
        "shouldPrint", "PPDOptionKeyValueDidChange:ppdChoice:", "updateMarkedSelections:",
        "updateUIItem:", "summaryInfo", "indexForSummary:", "setPDEUnit:", "getPDEUnit", "loadUnit",
        "isIntegerTapeLen", "isIntegerMarginLen", "minTapeLen", "maxTapeLen", "minMargin",
        "maxMargin", "controlTextDidChange:", "controlTextDidEndEditing:",
        // Filling the controls.
        "initializeUI_OtherStr", "initializeUI_Width", "initializeUI_Length", "initializeUI_Margin",
        "initializeUI_Quality", "initializeUI_Resolution", "initializeUI_Compress",
        "initializeUI_VnResolution", "enabledCheck_BS", "setTapeState:", "getTapeState",
        // Actions and checks.
        "changeLength:", "changeMargin:", "changeQuality:", "changeResolution:", "changeCompress:",
        "changeVnResolution:", "checkValues:", "checkLengthByMargin:", "getOneDotMM",
        "MiriToInch:", "InchToMiri:",
        // Saving.
        "saveSetting_Length", "saveSetting_Margin", "saveSetting_Quality", "saveSetting_Resolution",
        "saveSetting_Compress", "saveSetting_VnResolution",
        "indexForSaveQuality:", "vnCeilInteger:", "vnCeildouble:"};
    // Methods of the class itself, not of the base.
    unsigned count = 0;
    Method* const methods = class_copyMethodList(classNamed("PageSettingPDE13_v100_"), &count);
    Texts own;
    for (unsigned i = 0; i < count; ++i)
        own.push_back(sel_getName(method_getName(methods[i])));
    free(methods);
    for (const char* message : messages)
        EXPECT_NE(std::find(own.begin(), own.end(), message), own.end()) << message;
}

TEST(PanelClass, ConnectsEveryControlOfTheInterfaceFile)
{
    Shown shown(everything());
    [shown.panel panelView];
    Ivar* const list = class_copyIvarList(classNamed("PageSettingPDE13_v100_"), nullptr);
    for (int i = 0; i < 23; ++i) { // the controls come first
        NSView* control = shown.control<NSView*>(ivar_getName(list[i]));
        ASSERT_NE(control, nil) << ivar_getName(list[i]);
        EXPECT_TRUE([control isDescendantOf:[shown.panel panelView]]) << ivar_getName(list[i]);
    }
    free(list);
    EXPECT_EQ([shown.control("mLengthTxFld") class], classNamed("PDETextField13_v100_"));
    EXPECT_EQ([shown.control("mMarginTxFld") class], classNamed("PDETextField13_v100_"));
    EXPECT_EQ([shown.control<NSTextField*>("mLengthTxFld") delegate], (id)shown.panel.get());
    EXPECT_EQ([shown.control<NSTextField*>("mMarginTxFld") delegate], (id)shown.panel.get());
    EXPECT_TRUE([shown.control("mPrintQualityRdBtn") isKindOfClass:[NSMatrix class]]);
    EXPECT_TRUE([shown.control("mResolutionRdBtn") isKindOfClass:[NSMatrix class]]);
    EXPECT_TRUE([shown.control("mCompressRdBtn") isKindOfClass:[NSMatrix class]]);
    EXPECT_TRUE([shown.control("mVnResolutionPUBtn") isKindOfClass:[NSPopUpButton class]]);
    EXPECT_TRUE([shown.control("mLengthSlider") isKindOfClass:[NSSlider class]]);
    EXPECT_TRUE([shown.control("mMarginSlider") isKindOfClass:[NSSlider class]]);
}

// Creation.

TEST(PanelCreation, AsksTheDialogForThePrinterOnceMoreAfterTheBase)
{
    Shown shown(everything());
    EXPECT_EQ(shown.dialog.calls, (Texts{"printSession", "printSettings", "printSettings",
                                         "pageFormat", "PMPrinter", "ppdFile", "PMPrinter"}));
    EXPECT_EQ(PrintingCalls::taken(), (Texts{"PMPrinterCopyDeviceURI", "PMPrinterCopyDeviceURI"}));
}

TEST(PanelCreation, SetsEveryFlagToItsBeginning)
{
    Shown shown(everything());
    EXPECT_EQ(shown.control<int8_t>("checkValues_dec"), 1);
    EXPECT_EQ(shown.control<uint8_t>("column_dec"), 0);
    EXPECT_EQ(shown.control<uint8_t>("set_formatSetting"), 0);
    EXPECT_EQ(shown.control<int32_t>("mPDEUnit"), 0);
    EXPECT_EQ(shown.control<int32_t>("mTapeState"), 0);
    EXPECT_EQ(shown.control<float>("choice_PaperSize"), 0);
    for (const char* selection : {"mQuality_Selection", "mResolution_Selection",
                                  "mCompress_Selection", "mVnResolution_Selection"})
        EXPECT_EQ(shown.control(selection), nil) << selection;
}

TEST(PanelCreation, BeginsAtTheBeginningWhateverStoodInItsPlace)
{
    FakeDialog dialog(setupWith(tape()));
    id panel = [classNamed("PageSettingPDE13_v100_") alloc];
    const char* const selections[] = {"mQuality_Selection", "mResolution_Selection",
                                      "mCompress_Selection", "mVnResolution_Selection"};
    for (const char* selection : selections)
        ivarOf<id>(panel, selection) = @"of another";
    ivarOf<uint8_t>(panel, "column_dec") = 1;
    ivarOf<uint8_t>(panel, "set_formatSetting") = 1;
    ivarOf<int32_t>(panel, "mPDEUnit") = 7;
    ivarOf<int32_t>(panel, "mTapeState") = 7;
    panel = [panel initWithCallback:dialog.callback() andBundle:pluginBundle()];
    for (const char* selection : selections)
        EXPECT_EQ(ivarOf<id>(panel, selection), nil) << selection;
    EXPECT_EQ(ivarOf<uint8_t>(panel, "column_dec"), 0);
    EXPECT_EQ(ivarOf<uint8_t>(panel, "set_formatSetting"), 0);
    EXPECT_EQ(ivarOf<int32_t>(panel, "mPDEUnit"), 0);
    EXPECT_EQ(ivarOf<int32_t>(panel, "mTapeState"), 0);
    [panel release];
}

static int finalized = 0;

static void countFinalize(id, SEL)
{
    ++finalized;
}

TEST(PanelCreation, IsUndoneWhenTheLastOwnerLetsGo)
{
    const LivingObjects living("PageSettingPDE13_v100_");
    {
        Shown shown(everything());
        EXPECT_EQ(living.count(), 1);
        const ReplacedMethod replaced([NSObject class], @selector(finalize),
                                      reinterpret_cast<IMP>(countFinalize));
        finalized = 0;
        [(id)shown.panel.get() finalize];
        EXPECT_EQ(finalized, 1);
    }
    EXPECT_EQ(living.count(), 0);
}

TEST(PanelCreation, IsUndoneWithNoControlLeftToSpeakToAPanelThatIsGone)
{
    NSView* view = nil;
    NSControl* senders[6];
    NSTextField* fields[2];
    {
        Shown shown(everything());
        const ScopedPool pool;
        view = [[shown.panel panelView] retain];
        int count = 0;
        for (const char* name : {"mLengthSlider", "mMarginSlider", "mPrintQualityRdBtn",
                                 "mResolutionRdBtn", "mCompressRdBtn", "mVnResolutionPUBtn"}) {
            senders[count] = shown.control<NSControl*>(name);
            EXPECT_EQ([senders[count++] target], (id)shown.panel.get()) << name;
        }
        fields[0] = shown.control<NSTextField*>("mLengthTxFld");
        fields[1] = shown.control<NSTextField*>("mMarginTxFld");
    }
    for (NSControl* sender : senders)
        EXPECT_EQ([sender target], nil) << textOf([sender description]);
    for (NSTextField* field : fields)
        EXPECT_EQ([field delegate], nil);
    [view release];
}

TEST(PanelCreation, FindsTheOptionsAndTheirChoices)
{
    Shown shown(everything());
    const struct
    {
        const char* keyword;
        const char* option;
        const char* list;
        NSUInteger count;
    } options[] = {{"VnPriority", "mQuality_Option", "mQuality_Choices", 2},
                   {"Resolution", "mResolution_Option", "mResolution_Choices", 2},
                   {"VnCompress", "mCompress_Option", "mCompress_Choices", 2},
                   {"VnResolution", "mVnResolution_Option", "mVnResolution_Choices", 3}};
    for (const auto& o : options) {
        EXPECT_NE(shown.dialog.option(o.keyword), nullptr);
        EXPECT_EQ(shown.control<ppd_option_t*>(o.option), shown.dialog.option(o.keyword));
        EXPECT_EQ([shown.control<NSArray*>(o.list) count], o.count);
    }
    EXPECT_EQ(shown.control<ppd_option_t*>("mMargin_Option"), shown.dialog.option("VnMargin"));
}

TEST(PanelCreation, LeavesOptionsThatThePPDLacksEmpty)
{
    Shown shown(tape());
    for (const char* option : {"mMargin_Option", "mQuality_Option", "mResolution_Option",
                               "mCompress_Option", "mVnResolution_Option"})
        EXPECT_EQ(shown.control<void*>(option), nullptr) << option;
    for (const char* list :
         {"mQuality_Choices", "mResolution_Choices", "mCompress_Choices", "mVnResolution_Choices"})
        EXPECT_EQ(shown.control(list), nil) << list;
}

TEST(PanelCreation, OwnsItsChoiceListsUntilItGoes)
{
    Texts names{"mQuality_Choices", "mResolution_Choices", "mCompress_Choices",
                "mVnResolution_Choices"};
    NSMutableArray* lists[4];
    {
        Shown shown(everything());
        for (int i = 0; i < 4; ++i) {
            lists[i] = [shown.control(names[i].c_str()) retain];
            EXPECT_EQ([lists[i] retainCount], 2u);
        }
    }
    for (NSMutableArray* list : lists) {
        EXPECT_EQ([list retainCount], 1u);
        [list removeAllObjects];
        [list release];
    }
}

TEST(USBConnection, IsToldByTheExactSchemeOfTheDeviceURI)
{
    const auto onUSB = [](const char* uri) {
        return outlet<uint8_t>(Shown({.ppd = tape(), .deviceURI = uri}).panel, "usb_dec");
    };
    EXPECT_EQ(onUSB("usb://Vendor/Label"), 1);
    EXPECT_EQ(onUSB("VNKMUSB://Vendor/Label"), 1);
    EXPECT_EQ(onUSB("USB://Vendor/Label"), 0);
    EXPECT_EQ(onUSB("vnkmusb://Vendor/Label"), 0);
    EXPECT_EQ(onUSB("usb2://Vendor/Label"), 0);
    EXPECT_EQ(onUSB("us://Vendor/Label"), 0);
    EXPECT_EQ(onUSB("socket://192.0.2.1/usb"), 0);
    EXPECT_EQ(onUSB("dnssd://Label"), 0);
}

TEST(USBConnection, IsNotThereWithoutAUsableURI)
{
    EXPECT_EQ(outlet<uint8_t>(Shown({.ppd = tape(), .deviceURI = ""}).panel, "usb_dec"), 0);
    EXPECT_EQ(outlet<uint8_t>(Shown({.ppd = tape(), .deviceURI = "usb"}).panel, "usb_dec"), 0);
    EXPECT_EQ(outlet<uint8_t>(Shown({.ppd = tape(), .deviceURI = "usb://a b"}).panel, "usb_dec"),
              0);
    PrintingCalls::fail("PMPrinterCopyDeviceURI", -30880);
    EXPECT_EQ(outlet<uint8_t>(Shown(tape()).panel, "usb_dec"), 0);
    PrintingCalls::reset();
    PrintingCalls::answerNull("PMPrinterCopyDeviceURI");
    CoreFoundationCalls::reset();
    EXPECT_EQ(outlet<uint8_t>(Shown(tape()).panel, "usb_dec"), 0);
    EXPECT_EQ(CoreFoundationCalls::withNull(), Texts{});
}

TEST(USBConnection, IsAskedForWithoutKeepingTheScheme)
{
    CoreFoundationCalls::reset();
    Shown none({.ppd = tape(), .deviceURI = "usb"});
    EXPECT_EQ(CoreFoundationCalls::withNull(), Texts{});
    Shown usb(tape());
    EXPECT_EQ(CoreFoundationCalls::owned(), 0);
    EXPECT_EQ(CoreFoundationCalls::released(), 1);
}

// Unit, whole numbers, limits.

TEST(Unit, IsInchesForTheExactWordOnly)
{
    const auto unit = [](const char* value) {
        return [Shown(PPDText().attribute("VnUnitType", value)).panel getPDEUnit];
    };
    EXPECT_EQ(unit("inch"), 1);
    EXPECT_EQ(unit("Inch"), 0);
    EXPECT_EQ(unit("INCH"), 0);
    EXPECT_EQ(unit("inches"), 0);
    EXPECT_EQ(unit("mm"), 0);
    EXPECT_EQ(unit(""), 0);
    EXPECT_EQ([Shown(PPDText()).panel getPDEUnit], 0);
}

TEST(Unit, StaysAsItIsWithoutAnAttribute)
{
    Shown none{PPDText()};
    [none.panel setPDEUnit:1];
    [none.panel loadUnit];
    EXPECT_EQ([none.panel getPDEUnit], 1);

    Shown empty(PPDText().attribute("VnUnitType", ""));
    [empty.panel setPDEUnit:1];
    [empty.panel loadUnit];
    EXPECT_EQ([empty.panel getPDEUnit], 1);

    Shown withoutPPD(DialogSetup{});
    [withoutPPD.panel setPDEUnit:1];
    [withoutPPD.panel loadUnit];
    EXPECT_EQ([withoutPPD.panel getPDEUnit], 1);
}

TEST(Unit, FollowsTheAttributeWhenItIsLoadedAgain)
{
    Shown millimetres(PPDText().attribute("VnUnitType", "mm"));
    [millimetres.panel setPDEUnit:7];
    EXPECT_EQ([millimetres.panel getPDEUnit], 7);
    EXPECT_EQ(millimetres.control<int32_t>("mPDEUnit"), 7);
    [millimetres.panel loadUnit];
    EXPECT_EQ([millimetres.panel getPDEUnit], 0);
}

TEST(WholeNumbers, AreForTheExactWordTrueOnly)
{
    const auto whole = [](const char* value) {
        Shown length(PPDText().attribute("VnIsIntegerTapeLength", value));
        Shown margin(PPDText().attribute("VnIsIntegerMargin", value));
        EXPECT_EQ([length.panel isIntegerMarginLen], NO);
        EXPECT_EQ([margin.panel isIntegerTapeLen], NO);
        EXPECT_EQ([length.panel isIntegerTapeLen], [margin.panel isIntegerMarginLen]);
        return [length.panel isIntegerTapeLen];
    };
    EXPECT_EQ(whole("True"), YES);
    EXPECT_EQ(whole("true"), NO);
    EXPECT_EQ(whole("TRUE"), NO);
    EXPECT_EQ(whole("True "), NO);
    EXPECT_EQ(whole("False"), NO);
    EXPECT_EQ(whole(""), NO);
    EXPECT_EQ([Shown(PPDText()).panel isIntegerTapeLen], NO);
    EXPECT_EQ([Shown(DialogSetup{}).panel isIntegerTapeLen], NO);
    EXPECT_EQ([Shown(DialogSetup{}).panel isIntegerMarginLen], NO);
}

TEST(Limits, AreReadEachFromItsOwnAttribute)
{
    Shown shown(PPDText()
                    .attribute("VnMinTapeLength", "4.5")
                    .attribute("VnMaxTapeLength", "1000")
                    .attribute("VnMinMargin", "0.1")
                    .attribute("VnMaxMargin", "25.4"));
    EXPECT_EQ([shown.panel minTapeLen], 4.5f);
    EXPECT_EQ([shown.panel maxTapeLen], 1000.0f);
    EXPECT_EQ([shown.panel minMargin], 0.1f);
    EXPECT_EQ([shown.panel maxMargin], 25.4f);
}

TEST(Limits, AreTheNumberThatTheTextBeginsWith)
{
    const auto limit = [](const char* value) {
        return [Shown(PPDText().attribute("VnMinTapeLength", value)).panel minTapeLen];
    };
    EXPECT_EQ(limit("12.5mm"), 12.5f);
    EXPECT_EQ(limit("  12.5"), 12.5f);
    EXPECT_EQ(limit("-3"), -3.0f);
    EXPECT_EQ(limit("12,5"), 12.0f);
    EXPECT_EQ(limit("letters"), 0.0f);
    EXPECT_EQ(limit("mm 12.5"), 0.0f);
    EXPECT_EQ(limit(""), 0.0f);
}

TEST(Limits, AreZeroForATextThatIsNoneInItsEncoding)
{
    Shown shown(PPDText().attribute("VnMinTapeLength", "12.5xx"));
    EXPECT_EQ([shown.panel minTapeLen], 12.5f);
    std::strcpy(ppdFindAttr(shown.dialog.ppd(), "VnMinTapeLength", nullptr)->value, "12.5\xff");
    EXPECT_EQ([shown.panel minTapeLen], 0.0f);
}

TEST(Limits, AreZeroWithoutPPDOrAttribute)
{
    Shown without{PPDText()};
    Shown withoutPPD(DialogSetup{});
    for (Shown* shown : {&without, &withoutPPD}) {
        EXPECT_EQ([shown->panel minTapeLen], 0.0f);
        EXPECT_EQ([shown->panel maxTapeLen], 0.0f);
        EXPECT_EQ([shown->panel minMargin], 0.0f);
        EXPECT_EQ([shown->panel maxMargin], 0.0f);
    }
}

TEST(Limits, AreNeitherConvertedNorPutInOrder)
{
    Shown shown(PPDText()
                    .attribute("VnUnitType", "inch")
                    .attribute("VnMinTapeLength", "100")
                    .attribute("VnMaxTapeLength", "20"));
    EXPECT_EQ([shown.panel minTapeLen], 100.0f);
    EXPECT_EQ([shown.panel maxTapeLen], 20.0f);
}

// Supported keys.

TEST(SupportedKeys, AreThoseOfThePPDWithQualityBeforeMargin)
{
    Shown shown(everything());
    EXPECT_EQ(textsOf([shown.panel supportedPPDOptionKeys]),
              (Texts{"VnPriority", "VnMargin", "Resolution", "VnCompress", "VnResolution"}));
    Shown some(tapeWith({addCompression, addMargin}));
    EXPECT_EQ(textsOf([some.panel supportedPPDOptionKeys]), (Texts{"VnMargin", "VnCompress"}));
}

TEST(SupportedKeys, HoldAResolutionOfOneChoiceThoughItsRowIsHidden)
{
    Shown shown(tapeWith({addQuality, addSingleResolution, addCompression}));
    EXPECT_EQ(visibleRows(shown), (Texts{"quality", "compression"}));
    EXPECT_EQ(shown.height(), fileHeight() - 48 - 34);
    EXPECT_EQ(textsOf([shown.panel supportedPPDOptionKeys]),
              (Texts{"VnPriority", "Resolution", "VnCompress"}));
}

TEST(SupportedKeys, AreAnEmptyListWithoutOptions)
{
    Shown shown(tape());
    NSArray* keys = [shown.panel supportedPPDOptionKeys];
    ASSERT_NE(keys, nil);
    EXPECT_EQ([keys count], 0u);
}

TEST(SupportedKeys, AreToldAfterAllSixSettingsOnTheFirstRequestOnly)
{
    Shown shown(everything());
    record(shown, together(kSaves, {"setSupportedOptions:"}));
    NSArray* keys = [shown.panel supportedPPDOptionKeys];
    EXPECT_EQ(sent, together(kSaves, {"setSupportedOptions:"}));
    // A paper of 72 points, and the defaults.
    EXPECT_EQ(shown.dialog.changes(),
              (Texts{"VnTapeLength=25.4", "VnMargin=2.0", "VnPriority=Quality", "Resolution=300dpi",
                     "VnCompress=On", "VnResolution=Q300"}));
    sent.clear();
    EXPECT_EQ([shown.panel supportedPPDOptionKeys], keys);
    EXPECT_EQ(sent, Texts{});
    EXPECT_EQ(shown.dialog.changes().size(), 6u);
}

TEST(SupportedKeys, OutliveThePoolOfTheRequest)
{
    Shown shown(everything());
    {
        const ScopedPool pool;
        [shown.panel supportedPPDOptionKeys];
    }
    EXPECT_EQ([[shown.panel supportedPPDOptionKeys] count], 5u);
}

// Hooks.

TEST(PanelHooks, BuildTheControlsInOrderAndThenSave)
{
    Shown shown(everything());
    [shown.panel panelView];
    record(shown, together(kInitialise, kSaves));
    [shown.panel initUI];
    EXPECT_EQ(sent, together(kInitialise, kSaves));
    EXPECT_EQ(shown.control<uint8_t>("set_formatSetting"), 1);
}

TEST(PanelHooks, BuildTheControlsOnlyOnce)
{
    Shown shown(everything());
    [shown.panel panelView];
    [shown.panel willShow];
    [shown.control<NSTextField*>("mMarginTxFld") setStringValue:@"7.5"];
    record(shown, together(kInitialise, kSaves));
    [shown.panel initUI];
    EXPECT_EQ(sent, Texts{});
    [shown.panel willShow];
    EXPECT_EQ(textOf([shown.control<NSTextField*>("mMarginTxFld") stringValue]), "7.5");
    EXPECT_EQ(std::count(sent.begin(), sent.end(), "initializeUI_Margin"), 0);
    EXPECT_EQ(std::count(sent.begin(), sent.end(), "saveSetting_Margin"), 0);
}

TEST(PanelHooks, TellTheDialogAtTheFirstShowAndLessAtTheNext)
{
    Shown shown(everything());
    [shown.panel panelView];
    [shown.panel willShow];
    const Texts sixLengths(6, "VnTapeLength=25.4"); // one for each item
    // Resolution stands on its first row, so the quality is told as chosen.  The print mode begins
    // where the default stands among the resolutions, which is at the first.
    EXPECT_EQ(shown.dialog.changes(),
              together({"VnTapeLength=25.4", "VnMargin=2.0", "VnPriority=Quality",
                        "Resolution=300dpi", "VnCompress=On", "VnResolution=S300"},
                       sixLengths));
    shown.dialog.calls.clear();
    [shown.panel willShow];
    EXPECT_EQ(shown.dialog.changes(), sixLengths);
}

TEST(PanelHooks, RunInOrderWhenThePanelIsShown)
{
    Shown shown(everything());
    [shown.panel panelView];
    record(shown, {"initSetTitleTexts", "initUI", "updateUI", "setPDEItems", "updateUIItem:"});
    [shown.panel willShow];
    EXPECT_EQ(sent, (Texts{"initSetTitleTexts", "initUI", "updateUI", "setPDEItems",
                           "updateUIItem:1", "updateUIItem:2", "updateUIItem:4", "updateUIItem:8",
                           "updateUIItem:16", "updateUIItem:131072"}));
}

TEST(PanelHooks, CheckOnceAndThenSaveAllSixSettings)
{
    Shown shown(everything());
    [shown.panel panelView];
    [shown.panel willShow];
    record(shown, together(kSaves, {"checkValues:"}));
    EXPECT_EQ([shown.panel saveValuesAndReturnError:nullptr], YES);
    EXPECT_EQ(sent, together({"checkValues:NO column_dec 0"}, kSaves));
}

TEST(PanelHooks, ReadTheMarksOfEveryItemWhenRestored)
{
    Shown shown(everything());
    [shown.panel panelView];
    [shown.panel willShow];
    record(shown, {"updateMarkedSelections:", "updateUI"});
    EXPECT_EQ([shown.panel restoreValuesAndReturnError:nullptr], YES);
    EXPECT_EQ(sent,
              (Texts{"updateMarkedSelections:1", "updateMarkedSelections:2",
                     "updateMarkedSelections:4", "updateMarkedSelections:8",
                     "updateMarkedSelections:16", "updateMarkedSelections:131072", "updateUI"}));
}

TEST(PanelHooks, ThatHaveNothingToDoTellNothing)
{
    Shown shown(everything());
    [shown.panel panelView];
    shown.dialog.calls.clear();
    [shown.panel initSetTitleTexts];
    [shown.panel getValuesFromKey];
    [shown.panel printWindowWillClose:YES];
    [shown.panel printWindowWillClose:NO];
    EXPECT_EQ([shown.panel shouldShowHelp], NO);
    EXPECT_EQ([shown.panel shouldHide], YES);
    EXPECT_EQ(shown.dialog.calls, Texts{});
}

// Layout.

TEST(PanelLayoutInTheView, KeepsEveryRowButTheResolutionBesidePrintMode)
{
    Shown shown(everything());
    EXPECT_EQ(visibleRows(shown), (Texts{"quality", "compression", "print mode"}));
    EXPECT_EQ(shown.height(), fileHeight() - 48);
    EXPECT_EQ(shown.y("mCompressRdBtn"), 20);
    EXPECT_EQ(shown.y("mPrintCompressStr"), 43);
    EXPECT_EQ(shown.y("mPrintQualityRdBtn"), 68);
    EXPECT_EQ(shown.y("mPrintQualityStr"), 91);
    EXPECT_TRUE(hasSeparator(shown));
}

TEST(PanelLayoutInTheView, StandsTheRowsFromTheBottomUp)
{
    Shown shown(tapeWith({addQuality, addResolution, addCompression}));
    EXPECT_EQ(visibleRows(shown), (Texts{"quality", "resolution", "compression"}));
    EXPECT_EQ(shown.height(), fileHeight() - 34);
    EXPECT_EQ(shown.y("mCompressRdBtn"), 20);
    EXPECT_EQ(shown.y("mPrintCompressStr"), 43);
    EXPECT_EQ(shown.y("mResolutionRdBtn"), 68);
    EXPECT_EQ(shown.y("mPrintResolutionStr"), 91);
    EXPECT_EQ(shown.y("mPrintQualityRdBtn"), 116);
    EXPECT_EQ(shown.y("mPrintQualityStr"), 139);
}

TEST(PanelLayoutInTheView, LetsTheRowsComeDownWhereThereIsNoCompression)
{
    Shown shown(tapeWith({addQuality, addResolution}));
    EXPECT_EQ(visibleRows(shown), (Texts{"quality", "resolution"}));
    EXPECT_EQ(shown.height(), fileHeight() - 48 - 34);
    EXPECT_EQ(shown.y("mResolutionRdBtn"), 20);
    EXPECT_EQ(shown.y("mPrintResolutionStr"), 43);
    EXPECT_EQ(shown.y("mPrintQualityRdBtn"), 68);
    EXPECT_EQ(shown.y("mPrintQualityStr"), 91);
    Shown quality(tapeWith({addQuality}));
    EXPECT_EQ(visibleRows(quality), Texts{"quality"});
    EXPECT_EQ(quality.height(), fileHeight() - 48 - 48 - 34);
    EXPECT_EQ(quality.y("mPrintQualityRdBtn"), 20);
    EXPECT_EQ(quality.y("mPrintQualityStr"), 43);
}

TEST(PanelLayoutInTheView, KeepsTheControlsWhereTheyAreFromTheLeft)
{
    DialogSetup untouched = setupWith(everything());
    untouched.tellsOfResize = false;
    Shown file(untouched);
    Shown shown(tapeWith({addQuality, addResolution}));
    [file.panel panelView];
    [shown.panel panelView];
    for (const char* name :
         {"mPrintQualityStr", "mPrintQualityRdBtn", "mPrintResolutionStr", "mResolutionRdBtn"})
        EXPECT_EQ([shown.control<NSView*>(name) frame].origin.x,
                  [file.control<NSView*>(name) frame].origin.x)
            << name;
    EXPECT_EQ([[shown.panel panelView] frame].size.width,
              [[file.panel panelView] frame].size.width);
}

TEST(PanelLayoutInTheView, NeverMovesThePrintModeFromTheTop)
{
    DialogSetup untouched = setupWith(everything());
    untouched.tellsOfResize = false;
    Shown file(untouched);
    Shown shown(tapeWith({addPrintMode}));
    [file.panel panelView];
    EXPECT_EQ(visibleRows(shown), Texts{"print mode"});
    EXPECT_EQ(shown.height(), fileHeight() - 48 * 3);
    for (const char* name : {"mPrintVnResolutionStr", "mVnResolutionPUBtn"})
        EXPECT_EQ(shown.height() - shown.y(name), file.height() - file.y(name)) << name;
}

TEST(PanelLayoutInTheView, TakesACompressionOf350PointsForNarrowAndAWiderOneForWide)
{
    Shown shown(tapeWith({addQuality, addResolution, addCompression}));
    [shown.panel panelView];
    NSView* matrix = shown.control<NSView*>("mCompressRdBtn");
    [matrix setFrameSize:NSMakeSize(350, 43)];
    [shown.panel awakeFromNib];
    EXPECT_EQ(shown.y("mPrintCompressStr"), 43);
    EXPECT_EQ(shown.y("mResolutionRdBtn"), 68);
    [matrix setFrameSize:NSMakeSize(351, 43)];
    [shown.panel awakeFromNib];
    EXPECT_EQ(shown.y("mCompressRdBtn"), 20);
    EXPECT_EQ(shown.y("mPrintCompressStr"), 64);
    EXPECT_EQ(shown.y("mResolutionRdBtn"), 78);
    EXPECT_EQ(shown.y("mPrintResolutionStr"), 101);
    EXPECT_EQ(shown.y("mPrintQualityRdBtn"), 126);
    EXPECT_EQ(shown.y("mPrintQualityStr"), 149);
}

TEST(PanelLayoutInTheView, TakesMoreHeightAwayForAWideCompressionThatIsNotThere)
{
    Shown shown(tapeWith({addQuality, addResolution}));
    [shown.panel panelView];
    NSView* matrix = shown.control<NSView*>("mCompressRdBtn");
    double before = shown.height();
    [matrix setFrameSize:NSMakeSize(350, 43)];
    [shown.panel awakeFromNib];
    EXPECT_EQ(shown.height(), before - 48 - 34);
    before = shown.height();
    [matrix setFrameSize:NSMakeSize(351, 43)];
    [shown.panel awakeFromNib];
    EXPECT_EQ(shown.height(), before - 69 - 34);
}

TEST(PanelLayoutInTheView, HidesAllRowsAndTakesTheSeparatorAwayWithoutOptions)
{
    Shown shown(tape());
    EXPECT_EQ(visibleRows(shown), Texts{});
    EXPECT_EQ(shown.height(), fileHeight() - 48 - 48 - 48 - 34);
    EXPECT_FALSE(hasSeparator(shown));
    EXPECT_EQ(shown.control("mSeparateLine1"), nil); // nobody keeps it
}

TEST(PanelLayoutInTheView, TakesTheSeparatorAwayOnlyWhenThereIsNothingToChoose)
{
    const auto separator = [](std::initializer_list<Part> parts) {
        Shown shown(tapeWith(parts));
        return hasSeparator(shown);
    };
    EXPECT_FALSE(separator({addMargin}));
    EXPECT_FALSE(separator({addSingleResolution}));
    EXPECT_TRUE(separator({addResolution}));
    EXPECT_TRUE(separator({addQuality}));
    EXPECT_TRUE(separator({addCompression}));
    EXPECT_TRUE(separator({addPrintMode}));
    EXPECT_TRUE(separator({addSingleResolution, addPrintMode}));
}

TEST(PanelLayoutInTheView, ShowsRowsAgainThatWereHidden)
{
    Shown shown(tapeWith({addQuality, addResolution, addCompression}));
    [shown.panel panelView];
    [shown.control<NSView*>("mPrintQualityStr") setHidden:YES];
    [shown.control<NSView*>("mPrintQualityRdBtn") setHidden:YES];
    [shown.panel awakeFromNib];
    EXPECT_EQ(visibleRows(shown), (Texts{"quality", "resolution", "compression"}));
}

TEST(PanelLayoutInTheView, TellsTheDialogOfTheNewSize)
{
    Shown shown(tape());
    [shown.panel panelView]; // under the program's real windows, of which none is key
    shown.dialog.calls.clear();
    const ScopedKeyWindow high(2000);
    [shown.panel awakeFromNib];
    EXPECT_EQ(shown.dialog.calls, Texts{"panelViewDidResize"});
}

TEST(PanelLayoutInTheView, KeepsTheFilesSizeForADialogThatDoesNotWantToKnow)
{
    DialogSetup setup = setupWith(tape());
    setup.tellsOfResize = false;
    Shown shown(setup);
    EXPECT_EQ(visibleRows(shown), Texts{});
    EXPECT_EQ(shown.height(), fileHeight());
}

TEST(PanelLayoutInTheView, NeedsNoViewAndNoControls)
{
    Shown shown(everything());
    [shown.panel awakeFromNib];
    EXPECT_EQ(shown.control("kPDEView"), nil);
}

// Typing.

TEST(Typing, ChecksTheTwoEntryFieldsAsTypedInto)
{
    Shown shown(everything());
    [shown.panel panelView];
    [shown.panel willShow];
    record(shown, {"checkValues:"});
    [shown.panel controlTextDidChange:about(shown.control("mLengthTxFld"))];
    EXPECT_EQ(sent, Texts{"checkValues:NO column_dec 1"});
    sent.clear();
    [shown.panel controlTextDidChange:about(shown.control("mMarginTxFld"))];
    EXPECT_EQ(sent, Texts{"checkValues:NO column_dec 1"});
}

TEST(Typing, IgnoresEveryOtherField)
{
    Shown shown(everything());
    [shown.panel panelView];
    [shown.panel willShow];
    record(shown, {"checkValues:"});
    for (const char* name : {"mWidthTxFld", "mLengthStr", "mLengthMaxStr"})
        [shown.panel controlTextDidChange:about(shown.control(name))];
    [shown.panel controlTextDidChange:about(nil)];
    [shown.panel controlTextDidChange:nil];
    EXPECT_EQ(sent, Texts{});
    EXPECT_EQ(shown.control<uint8_t>("column_dec"), 0);
}

TEST(Typing, IgnoresNothingInParticularBeforeTheViewIsLoaded)
{
    Shown shown(everything());
    record(shown, {"checkValues:"});
    [shown.panel controlTextDidChange:about(nil)]; // as nil as the fields
    setCurrentEvent(NSKeyDown);
    [shown.panel controlTextDidEndEditing:about(nil)];
    EXPECT_EQ(sent, Texts{});
}

TEST(EndOfEditing, ChecksAfterAKeyOrAMouseButtonWentDown)
{
    Shown shown(everything());
    [shown.panel panelView];
    [shown.panel willShow];
    record(shown, {"checkValues:"});
    for (const NSUInteger event : {1, 10}) {
        for (const char* field : {"mLengthTxFld", "mMarginTxFld"}) {
            sent.clear();
            setCurrentEvent(event);
            [shown.panel controlTextDidEndEditing:about(shown.control(field))];
            EXPECT_EQ(sent, Texts{"checkValues:NO column_dec 0"}) << event << " " << field;
        }
    }
}

TEST(EndOfEditing, ByAnythingElseChecksNothing)
{
    Shown shown(everything());
    [shown.panel panelView];
    [shown.panel willShow];
    ivarOf<uint8_t>(shown.panel.get(), "column_dec") = 1;
    record(shown, {"checkValues:"});
    for (const NSUInteger event : {0, 2, 3, 5, 11}) { // none, mouse up, right, moved, key up
        setCurrentEvent(event);
        [shown.panel controlTextDidEndEditing:about(shown.control("mLengthTxFld"))];
    }
    EXPECT_EQ(sent, Texts{});
    EXPECT_EQ(shown.control<uint8_t>("column_dec"), 1);
}

TEST(EndOfEditing, OfAnotherFieldChecksNothing)
{
    Shown shown(everything());
    [shown.panel panelView];
    [shown.panel willShow];
    record(shown, {"checkValues:"});
    setCurrentEvent(NSKeyDown);
    [shown.panel controlTextDidEndEditing:about(shown.control("mWidthTxFld"))];
    [shown.panel controlTextDidEndEditing:about(nil)];
    EXPECT_EQ(sent, Texts{});
}

TEST(EndOfEditing, ByTabBringsAShortLengthUpToTheMinimumAndOneByTheProgramDoesNot)
{
    Shown shown(everything());
    [shown.panel panelView];
    [shown.panel willShow];
    NSTextField* length = shown.control<NSTextField*>("mLengthTxFld");
    [length setStringValue:@"5"];
    setCurrentEvent(0);
    [shown.panel controlTextDidEndEditing:about(length)];
    EXPECT_EQ(textOf([length stringValue]), "5");
    setCurrentEvent(NSKeyDown);
    [shown.panel controlTextDidEndEditing:about(length)];
    EXPECT_EQ(textOf([length stringValue]), "20.0");
    EXPECT_EQ(takeAlerts(), Texts{});
}

// Titles.

@interface NSObject (TitlesUnderTest)
- (NSString*)titleOfChoice:(NSInteger)index ofOption:(ppd_option_t*)option;
- (NSString*)titleOfOption:(ppd_option_t*)option;
@end

TEST(ChoiceTitle, IsThereForTheChoicesOfTheOptionOnly)
{
    Shown shown(everything());
    id const panel = shown.panel.get();
    ppd_option_t* const quality = shown.dialog.option("VnPriority");
    EXPECT_EQ(textOf([panel titleOfChoice:0 ofOption:quality]), "Fast");
    EXPECT_EQ(textOf([panel titleOfChoice:1 ofOption:quality]), "Fine");
    for (const NSInteger index : {NSIntegerMin, NSInteger{-1}, NSInteger{2}, NSIntegerMax})
        EXPECT_EQ([panel titleOfChoice:index ofOption:quality], nil) << index;
    EXPECT_EQ([panel titleOfChoice:0 ofOption:nullptr], nil);
    quality->num_choices = 1; // what stands behind is none of its choices
    EXPECT_EQ([panel titleOfChoice:1 ofOption:quality], nil);
    quality->num_choices = 2;
}

TEST(ChoiceTitle, MayBeASingleLetter)
{
    Shown shown(everything());
    id const panel = shown.panel.get();
    ppd_option_t* const quality = shown.dialog.option("VnPriority");
    std::strcpy(quality->text, "Q");
    std::strcpy(quality->choices[0].text, "q");
    EXPECT_EQ(textOf([panel titleOfOption:quality]), "Q");
    EXPECT_EQ(textOf([panel titleOfChoice:0 ofOption:quality]), "q");
    std::strcpy(quality->choices[0].text, "");
    EXPECT_EQ([panel titleOfChoice:0 ofOption:quality], nil);
}

// The text of the tape's width.

namespace {

PPDText twoTapes()
{
    return everything().paper("TC36", "36 mm", 102, 72);
}

NSString* widthOf(const Shown& shown)
{
    NSDictionary* const summary = [shown.panel summaryInfo];
    return [summary objectForKey:[[summary objectForKey:@"Summary Display Order"] firstObject]];
}

} // namespace

TEST(WidthText, IsMadeOnceForATape)
{
    Shown shown(twoTapes());
    NSString* const text = widthOf(shown);
    EXPECT_EQ(textOf(text), "24 mm");
    EXPECT_EQ(widthOf(shown), text);
    shown.dialog.format.setPaper({"TC36", 102, 72});
    EXPECT_EQ(textOf(widthOf(shown)), "36 mm");
    shown.dialog.format.setPaper({"TC24", 68, 72});
    EXPECT_EQ(textOf(widthOf(shown)), "24 mm");
}

TEST(WidthText, GoesWithTheTapeAndWithThePanel)
{
    NSString* first = nil;
    NSString* second = nil;
    {
        Shown shown(twoTapes());
        const ScopedPool pool;
        first = [widthOf(shown) retain];
        shown.dialog.format.setPaper({"TC36", 102, 72});
        second = [widthOf(shown) retain];
    }
    EXPECT_EQ([first retainCount], 1u);
    EXPECT_EQ([second retainCount], 1u);
    [first release];
    [second release];
}

// A sanitizer gives no address out again.
#if !defined(__has_feature) || !__has_feature(address_sanitizer)
TEST(WidthText, IsNotThatOfAnEarlierPanelAtTheSameAddress)
{
    FakeDialog dialog(setupWith(twoTapes()));
    std::map<const void*, NSString*> texts; // of the panel that stood there; kept from being reused
    bool sawAnAddressAgain = false;
    for (int i = 0; i < 20; ++i) {
        const ScopedPool pool;
        TestPanel panel(dialog);
        NSDictionary* const summary = [panel summaryInfo];
        NSString* const text =
            [summary objectForKey:[[summary objectForKey:@"Summary Display Order"] firstObject]];
        EXPECT_EQ(textOf(text), "24 mm");
        const auto [place, isNew] = texts.emplace(panel.get(), text);
        if (isNew) {
            [text retain];
        } else {
            EXPECT_NE(text, place->second);
            sawAnAddressAgain = true;
        }
    }
    EXPECT_TRUE(sawAnAddressAgain);
    for (const auto& [panel, text] : texts)
        [text release];
}
#endif

// What belongs to Core Foundation.

TEST(Road, LeavesNothingOfCoreFoundationBehindAndHandsItNoNull)
{
    CoreFoundationCalls::reset();
    for (const std::optional<printing::Paper>& paper :
         {std::optional<printing::Paper>({"TC24", 68, 72}), std::optional<printing::Paper>()}) {
        Shown shown({.ppd = everything(), .paper = paper});
        [shown.panel panelView];
        [shown.panel supportedPPDOptionKeys];
        [shown.panel willShow];
        [shown.panel summaryInfo];
        [shown.panel saveValuesAndReturnError:nullptr];
        [shown.panel shouldPrint];
    }
    EXPECT_EQ(CoreFoundationCalls::owned(), 0);
    EXPECT_GT(CoreFoundationCalls::released(), 0);
    EXPECT_EQ(CoreFoundationCalls::withNull(), Texts{});
}

// Nothing there, or too much of it.

namespace {

// The whole road of a dialog.
void driveThrough(Shown& shown)
{
    NSError* error = nil;
    [shown.panel panelView];
    [shown.panel panelName];
    [shown.panel supportedPPDOptionKeys];
    [shown.panel willShow];
    for (NSString* key in @[ @"VnPriority", @"Resolution", @"VnCompress", @"VnResolution" ]) {
        [shown.panel PPDOptionKeyValueDidChange:key ppdChoice:@"NoSuchChoice"];
        [shown.panel PPDOptionKeyValueDidChange:key ppdChoice:nil];
    }
    [shown.panel updateUI];
    [shown.panel summaryInfo];
    [shown.panel restoreValuesAndReturnError:&error];
    [shown.panel saveValuesAndReturnError:&error];
    EXPECT_EQ([shown.panel shouldPrint], YES);
    EXPECT_EQ([shown.panel shouldHide], YES);
    [shown.panel printWindowWillClose:NO];
    EXPECT_EQ(error, nil);
}

void driveThrough(const DialogSetup& setup)
{
    Shown shown(setup);
    driveThrough(shown);
}

} // namespace

TEST(Road, IsTheSameWithoutAPPD)
{
    driveThrough(DialogSetup{});
    driveThrough({.paper = printing::Paper{"TC24", 68, 72}});
}

TEST(Road, IsTheSameWithAnEmptyPPD)
{
    driveThrough({.ppd = PPDText()});
}

TEST(Road, IsTheSameWithADialogThatAnswersNothing)
{
    driveThrough({.tellsOfResize = false, .answersNothing = true});
}

TEST(Road, IsTheSameWithoutPaperOrURI)
{
    driveThrough({.ppd = everything(), .deviceURI = ""});
}

TEST(Road, IsTheSameWithoutTheViewOnTheWay)
{
    Shown shown(everything());
    [shown.panel supportedPPDOptionKeys];
    [shown.panel willShow];
    [shown.panel summaryInfo];
    [shown.panel restoreValuesAndReturnError:nullptr];
    [shown.panel saveValuesAndReturnError:nullptr];
    EXPECT_EQ([shown.panel shouldPrint], YES);
    EXPECT_EQ(shown.control("kPDEView"), nil);
}

TEST(Road, IsTheSameWithoutABundle)
{
    FakeDialog dialog(setupWith(everything()));
    const ScopedPool pool;
    id<PanelUnderTest> panel =
        [[classNamed("PageSettingPDE13_v100_") alloc] initWithCallback:dialog.callback()
                                                             andBundle:nil];
    ASSERT_NE(panel, nil);
    EXPECT_NE([panel panelView], nil);
    EXPECT_EQ([panel panelName], nil);
    [panel willShow];
    [panel summaryInfo];
    [panel release];
}

TEST(Road, IsTheSameWithoutACallback)
{
    const ScopedPool pool;
    id<PanelUnderTest> panel =
        [[classNamed("PageSettingPDE13_v100_") alloc] initWithCallback:nil
                                                             andBundle:pluginBundle()];
    ASSERT_NE(panel, nil);
    [panel panelView];
    [panel willShow];
    [panel summaryInfo];
    [panel shouldPrint];
    EXPECT_EQ([[panel supportedPPDOptionKeys] count], 0u);
    [panel release];
}

TEST(Road, IsTheSameWithEveryPrintingCallFailing)
{
    for (const char* call :
         {"PMPrinterCopyDeviceURI", "PMGetPageFormatPaper", "PMPaperGetPPDPaperName",
          "PMPaperGetHeight", "PMPrintSettingsGetValue"}) {
        PrintingCalls::reset();
        PrintingCalls::fail(call, -30870);
        driveThrough(setupWith(everything()));
        PrintingCalls::reset();
        PrintingCalls::answerNull(call);
        driveThrough(setupWith(everything()));
    }
}

TEST(Road, IsTheSameWithTextsThatAreNotValidInTheirEncoding)
{
    Shown shown(everything());
    for (const char* keyword :
         {"PageSize", "VnMargin", "VnPriority", "Resolution", "VnCompress", "VnResolution"}) {
        ppd_option_t* option = shown.dialog.option(keyword);
        std::strcpy(option->text, "\xe3\x81");
        for (int i = 0; i < option->num_choices; ++i)
            std::strcpy(option->choices[i].text, "\xff\xfe");
    }
    std::strcpy(ppdFindAttr(shown.dialog.ppd(), "VnMinTapeLength", nullptr)->value, "\xff");
    driveThrough(shown);
}

TEST(Road, IsTheSameWithKeywordsBeyondASCII)
{
    Shown shown(everything());
    for (const char* keyword : {"VnPriority", "Resolution", "VnCompress", "VnResolution"}) {
        ppd_option_t* option = shown.dialog.option(keyword);
        for (int i = 0; i < option->num_choices; ++i)
            std::strcpy(option->choices[i].choice, i == 0 ? "\xff" : "\xc3\xa9");
    }
    driveThrough(shown);
}

TEST(Road, IsTheSameWithoutAnyDefaultOrMark)
{
    Shown shown(everything());
    for (const char* keyword :
         {"VnMargin", "VnPriority", "Resolution", "VnCompress", "VnResolution"}) {
        std::strcpy(shown.dialog.option(keyword)->defchoice, "");
        shown.dialog.unmark(keyword);
    }
    driveThrough(shown);
}

TEST(Road, IsTheSameWithTwoThousandChoices)
{
    std::vector<PPDChoiceText> many;
    for (int i = 0; i < 500; ++i)
        many.push_back({"Choice" + std::to_string(i), "Choice number " + std::to_string(i)});
    PPDText ppd = tape();
    for (const char* keyword : {"VnPriority", "Resolution", "VnCompress", "VnResolution"})
        ppd.option(keyword, keyword, many, "Choice499");
    Shown shown(setupWith(ppd));
    driveThrough(shown);
    EXPECT_EQ([shown.control<NSMatrix*>("mPrintQualityRdBtn") numberOfRows], 500);
    EXPECT_EQ([shown.control<NSPopUpButton*>("mVnResolutionPUBtn") numberOfItems], 500);
}

// A bundle whose interface file is gone.
static BOOL loadNothing(id, SEL, NSString*, NSDictionary*, NSZone*)
{
    return NO;
}

TEST(Road, IsTheSameWithoutTheInterfaceFile)
{
    Method method = class_getInstanceMethod([NSBundle class], @selector(loadNibFile:
                                                                  externalNameTable:withZone:));
    ASSERT_NE(method, nullptr);
    const IMP real = method_setImplementation(method, reinterpret_cast<IMP>(loadNothing));
    Shown shown(everything());
    EXPECT_EQ([shown.panel panelView], nil);
    driveThrough(shown);
    method_setImplementation(method, real);
}
