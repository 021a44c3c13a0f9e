#include "support/CoreFoundationCalls.hpp"
#include "support/PanelTestPrinting.hpp"
#include "support/Written.hpp"

#include <cstring>

@interface NSObject (ChoiceListsUnderTest)
+ (NSMutableArray*)arrayFromPPDOption:(ppd_option_t*)option;
@end

// What the hooks of the recording panel were called with, in order.
static Texts hooks;

static void recordHook(id, SEL hook)
{
    hooks.push_back(sel_getName(hook));
}

static void recordMaskHook(id, SEL hook, int32_t mask)
{
    hooks.push_back(std::string(sel_getName(hook)) + std::to_string(mask));
}

namespace {

// A concrete panel straight on the base, with every hook recorded but updateUI, which the base
// carries on to setPDEItems.
Class recordingPanelClass()
{
    static Class made = Nil;
    if (made != Nil)
        return made;
    made = objc_allocateClassPair(classNamed("BasePDE13_v100_"), "RecordingPanel", 0);
    for (SEL hook : {
             @selector(initSetTitleTexts), @selector(initUI), @selector(getValuesFromKey),
                 @selector(setValuesToKey), @selector(setPDEItems), @selector(setPDEItems2)
         })
        class_addMethod(made, hook, reinterpret_cast<IMP>(recordHook), "v@:");
    for (SEL hook : { @selector(updateUIItem:), @selector(updateMarkedSelections:) })
        class_addMethod(made, hook, reinterpret_cast<IMP>(recordMaskHook), "v@:i");
    objc_registerClassPair(made);
    return made;
}

PPDText offers()
{
    return PPDText()
        .option("Resolution", "Resolution",
                {{"300dpi", "300 dpi"}, {"300x600dpi", "fine"}, {"600dpi", "finest"}}, "300x600dpi")
        .option("VnPriority", "Quality", {{"Speed", "Fast"}, {"Quality", "Fine"}}, "Speed");
}

class BasePanelTest : public testing::Test
{
  protected:
    void TearDown() override
    {
        [panel_ release];
        panel_ = nil;
    }

    // A bare or a recording base panel for the dialog.
    id<PanelUnderTest> make(const DialogSetup& setup, Class panelClass = recordingPanelClass())
    {
        [panel_ release];
        dialog_ = std::make_unique<FakeDialog>(setup);
        panel_ = [[panelClass alloc] initWithCallback:dialog_->callback() andBundle:pluginBundle()];
        hooks.clear();
        return panel_;
    }

    id<PanelUnderTest> make() { return make({.ppd = offers()}); }

    // The dialog's questions at creation are over; only what is told from now on counts.
    Texts toldSince()
    {
        Texts told;
        told.swap(dialog_->calls);
        return told;
    }

    NSMutableArray* choicesOf(const char* keyword)
    {
        return [[classNamed("PDEUtilsMethod13") arrayFromPPDOption:dialog_->option(keyword)]
            autorelease];
    }

    std::unique_ptr<FakeDialog> dialog_;
    id<PanelUnderTest> panel_ = nil;
};

} // namespace

// Creation.

TEST_F(BasePanelTest, AsksTheDialogInOrderAtCreation)
{
    make();
    EXPECT_EQ(dialog_->calls, (Texts{"printSession", "printSettings", "printSettings", "pageFormat",
                                     "PMPrinter", "ppdFile"}));
}

TEST_F(BasePanelTest, KeepsWhatTheDialogAnswers)
{
    make();
    EXPECT_EQ(ivarOf<PMPrintSession>(panel_, "printSession"), dialog_->session.handle());
    EXPECT_EQ(ivarOf<PMPrintSettings>(panel_, "pmPrintSettings"), dialog_->settings.handle());
    EXPECT_EQ(ivarOf<void*>(panel_, "printSettings"),
              static_cast<void*>(dialog_->settings.handle()));
    EXPECT_EQ(ivarOf<void*>(panel_, "formatSettings"),
              static_cast<void*>(dialog_->format.handle()));
    EXPECT_EQ(ivarOf<PMPrinter>(panel_, "printer"), dialog_->printer.handle());
    EXPECT_EQ(ivarOf<ppd_file_t*>(panel_, "ppd"), dialog_->ppd());
    EXPECT_EQ(ivarOf<id>(panel_, "nsPDEBundle"), pluginBundle());
    EXPECT_EQ(ivarOf<id>(panel_, "pdePluginCallbackObject"), dialog_->callback());
    EXPECT_EQ([panel_ supportedOptions], nil);
    EXPECT_EQ(ivarOf<id>(panel_, "thePDEName"), nil);
}

TEST_F(BasePanelTest, OwnsCallbackAndBundleAsLongAsItLives)
{
    const ScopedPool pool;
    FakeDialog dialog({.ppd = offers()});
    NSBundle* bundle = pluginBundle();
    const NSUInteger callbackOwners = [dialog.callback() retainCount];
    const NSUInteger bundleOwners = [bundle retainCount];
    id panel = [[recordingPanelClass() alloc] initWithCallback:dialog.callback() andBundle:bundle];
    EXPECT_EQ([dialog.callback() retainCount], callbackOwners + 1);
    EXPECT_EQ([bundle retainCount], bundleOwners + 1);
    [panel release];
    EXPECT_EQ([dialog.callback() retainCount], callbackOwners);
    EXPECT_EQ([bundle retainCount], bundleOwners);
}

TEST_F(BasePanelTest, ReleasesTheViewWhenItGoes)
{
    make();
    NSView* view = [[NSView alloc] initWithFrame:NSMakeRect(0, 0, 10, 10)];
    ivarOf<NSView*>(panel_, "kPDEView") = [view retain];
    [panel_ release];
    panel_ = nil;
    EXPECT_EQ([view retainCount], 1u);
    [view release];
}

TEST_F(BasePanelTest, ReleasesWhatItHasMadeWhenItGoes)
{
    make();
    NSMutableArray* const options = [[NSMutableArray alloc] init];
    [panel_ setSupportedOptions:options];
    NSMutableString* const name = [[NSMutableString alloc] init];
    ivarOf<NSString*>(panel_, "thePDEName") = [name retain];
    [panel_ release];
    panel_ = nil;
    EXPECT_EQ([options retainCount], 1u);
    EXPECT_EQ([name retainCount], 1u);
    [options release];
    [name release];
}

TEST_F(BasePanelTest, IsNoMoreWhenItsLastOwnerLetsGo)
{
    const LivingObjects living("RecordingPanel");
    make();
    EXPECT_EQ(living.count(), 1);
    [panel_ release];
    panel_ = nil;
    EXPECT_EQ(living.count(), 0);
}

TEST_F(BasePanelTest, IsNothingWhereItsSuperclassMakesNothing)
{
    dialog_ = std::make_unique<FakeDialog>(DialogSetup{});
    const FailingInit failing(recordingPanelClass());
    EXPECT_EQ([[recordingPanelClass() alloc] initWithCallback:dialog_->callback()
                                                    andBundle:pluginBundle()],
              nil);
    EXPECT_EQ(dialog_->calls, Texts{});
}

TEST_F(BasePanelTest, BeginsWithoutNameOptionsAndURIWhateverStoodInItsPlace)
{
    dialog_ = std::make_unique<FakeDialog>(DialogSetup{.deviceURI = ""});
    panel_ = [recordingPanelClass() alloc];
    ivarOf<NSString*>(panel_, "thePDEName") = @"of another";
    ivarOf<id>(panel_, "mSupportedOptions") = @"of another";
    std::strcpy(&ivarOf<char>(panel_, "deviceURI"), "usb://of/another");
    panel_ = [(id)panel_ initWithCallback:dialog_->callback() andBundle:pluginBundle()];
    EXPECT_EQ(ivarOf<id>(panel_, "thePDEName"), nil);
    EXPECT_EQ([panel_ supportedOptions], nil);
    EXPECT_STREQ(&ivarOf<char>(panel_, "deviceURI"), "");
}

static int finalized = 0;

static void countFinalize(id, SEL)
{
    ++finalized;
}

TEST_F(BasePanelTest, FinalizesWhatItInherits)
{
    make();
    finalized = 0;
    const ReplacedMethod replaced([NSObject class], @selector(finalize),
                                  reinterpret_cast<IMP>(countFinalize));
    [(id)panel_ finalize];
    EXPECT_EQ(finalized, 1);
}

TEST_F(BasePanelTest, DeclaresItsVariablesInOrder)
{
    unsigned count = 0;
    Ivar* const list = class_copyIvarList(classNamed("BasePDE13_v100_"), &count);
    Texts names;
    for (unsigned i = 0; i < count; ++i)
        names.push_back(ivar_getName(list[i]));
    free(list);
    EXPECT_EQ(names, (Texts{"pdePluginCallbackObject", "kPDEView", "thePDEName", "nsPDEBundle",
                            "ppd", "printSession", "pmPrintSettings", "printSettings",
                            "formatSettings", "printer", "deviceURI", "mSupportedOptions",
                            "mLoadedNibFlg", "mFormattedItemFlg"}));
    const auto typeOf = [](const char* name) {
        return std::string(
            ivar_getTypeEncoding(class_getInstanceVariable(classNamed("BasePDE13_v100_"), name)));
    };
    EXPECT_EQ(typeOf("deviceURI"), "[256c]");
    EXPECT_EQ(typeOf("mLoadedNibFlg"), "i");
    EXPECT_EQ(typeOf("mFormattedItemFlg"), "i");
    EXPECT_EQ(typeOf("printSettings"), "^v");
    EXPECT_EQ(typeOf("formatSettings"), "^v");
    EXPECT_EQ(class_getSuperclass(classNamed("BasePDE13_v100_")), [NSObject class]);
}

// The device URI.

TEST_F(BasePanelTest, KeepsTheDeviceURI)
{
    make({.deviceURI = "usb://Vendor/Label%20Printer?serial=1"});
    EXPECT_STREQ(&ivarOf<char>(panel_, "deviceURI"), "usb://Vendor/Label%20Printer?serial=1");
}

TEST_F(BasePanelTest, HasNoDeviceURIWhenThePrinterHasNone)
{
    make({.deviceURI = ""});
    EXPECT_STREQ(&ivarOf<char>(panel_, "deviceURI"), "");
    PrintingCalls::answerNull("PMPrinterCopyDeviceURI");
    CoreFoundationCalls::reset();
    make();
    EXPECT_STREQ(&ivarOf<char>(panel_, "deviceURI"), "");
    EXPECT_EQ(CoreFoundationCalls::withNull(), Texts{});
    PrintingCalls::reset();
    PrintingCalls::fail("PMPrinterCopyDeviceURI", -30880);
    make();
    EXPECT_STREQ(&ivarOf<char>(panel_, "deviceURI"), "");
}

TEST_F(BasePanelTest, KeepsADeviceURIOfAtMost254Characters)
{
    const std::string start = "usb://Vendor/";
    const std::string longest = start + std::string(254 - start.size(), 'x');
    make({.deviceURI = longest});
    EXPECT_EQ(std::string(&ivarOf<char>(panel_, "deviceURI")), longest);
    make({.deviceURI = longest + "x"});
    EXPECT_STREQ(&ivarOf<char>(panel_, "deviceURI"), "");
}

TEST_F(BasePanelTest, HasNoDeviceURIThatIsNotWhole)
{
    CoreFoundationCalls::cutTexts();
    make();
    CoreFoundationCalls::reset();
    EXPECT_STREQ(&ivarOf<char>(panel_, "deviceURI"), "");
}

// The dialog's side.

TEST_F(BasePanelTest, NamesItselfInTheUsersLanguageOnce)
{
    make();
    NSString* name = [panel_ panelName];
    EXPECT_EQ(textOf(name), "Page Settings");
    EXPECT_EQ([panel_ panelName], name); // the same object
    EXPECT_EQ(ivarOf<id>(panel_, "thePDEName"), name);
}

TEST_F(BasePanelTest, TellsItsKind)
{
    make();
    EXPECT_EQ(textOf([panel_ panelKind]),
              "jp.co.vendor.printer.cups.pde.VNKMZRPageSettingsPDEKind");
}

TEST_F(BasePanelTest, CallsTheHooksOfShowingInOrder)
{
    make();
    [panel_ willShow];
    EXPECT_EQ(hooks, (Texts{"initSetTitleTexts", "initUI", "setPDEItems"}));
}

TEST_F(BasePanelTest, UpdatesThroughThePDEItems)
{
    make();
    [panel_ updateUI];
    EXPECT_EQ(hooks, Texts{"setPDEItems"});
}

TEST_F(BasePanelTest, SavesBeforeItAnswersNoSupportedKeys)
{
    make();
    EXPECT_EQ([panel_ supportedPPDOptionKeys], nil);
    EXPECT_EQ(hooks, Texts{"setValuesToKey"});
}

TEST_F(BasePanelTest, SavesAlwaysWithSuccess)
{
    make();
    NSError* const untouched = (NSError*)@"untouched";
    NSError* error = untouched;
    EXPECT_EQ([panel_ saveValuesAndReturnError:&error], YES);
    EXPECT_EQ([panel_ saveValuesAndReturnError:nullptr], YES);
    EXPECT_EQ(error, untouched);
    EXPECT_EQ(hooks, (Texts{"setValuesToKey", "setValuesToKey"}));
}

TEST_F(BasePanelTest, RestoresTheSelectionsAndThenTheControls)
{
    make();
    NSError* const untouched = (NSError*)@"untouched";
    NSError* error = untouched;
    EXPECT_EQ([panel_ restoreValuesAndReturnError:&error], YES);
    EXPECT_EQ([panel_ restoreValuesAndReturnError:nullptr], YES);
    EXPECT_EQ(error, untouched);
    EXPECT_EQ(hooks, (Texts{"setPDEItems2", "setPDEItems", "setPDEItems2", "setPDEItems"}));
}

TEST_F(BasePanelTest, MayHideAndPrintAndHasNoHelp)
{
    make();
    EXPECT_EQ([panel_ shouldHide], YES);
    EXPECT_EQ([panel_ shouldPrint], YES);
    EXPECT_EQ([panel_ shouldShowHelp], NO);
}

TEST_F(BasePanelTest, DoesNothingWhenAnOptionChangesOrTheWindowCloses)
{
    make();
    toldSince();
    [panel_ PPDOptionKeyValueDidChange:@"Resolution" ppdChoice:@"600dpi"];
    [panel_ printWindowWillClose:YES];
    EXPECT_EQ([panel_ summaryInfo], nil);
    EXPECT_EQ(hooks, Texts{});
    EXPECT_EQ(toldSince(), Texts{});
}

TEST_F(BasePanelTest, HasHooksThatDoNothing)
{
    make({.ppd = offers()}, classNamed("BasePDE13_v100_"));
    toldSince();
    [panel_ initSetTitleTexts];
    [panel_ initUI];
    [panel_ getValuesFromKey];
    [panel_ setValuesToKey];
    [panel_ setPDEItems];
    [panel_ setPDEItems2];
    [panel_ updateUIItem:4];
    [panel_ updateMarkedSelections:4];
    EXPECT_EQ(toldSince(), Texts{});
    SEL const index = @selector(indexForSummary:);
    const auto indexForSummary = reinterpret_cast<int32_t (*)(id, SEL, intptr_t)>(
        class_getMethodImplementation(classNamed("BasePDE13_v100_"), index));
    EXPECT_EQ(indexForSummary(panel_, index, 8), 0);
    EXPECT_TRUE([panel_ respondsToSelector:@selector(finalize)]);
}

TEST_F(BasePanelTest, LoadsTheInterfaceFileOnlyOnce)
{
    make({.ppd = offers()}, classNamed("PageSettingPDE13_v100_"));
    NSView* view = [panel_ panelView];
    ASSERT_NE(view, nil);
    id field = ivarOf<id>(panel_, "mLengthTxFld");
    ASSERT_NE(field, nil);
    EXPECT_EQ([panel_ panelView], view);
    EXPECT_EQ(ivarOf<id>(panel_, "kPDEView"), view);
    EXPECT_EQ(ivarOf<id>(panel_, "mLengthTxFld"), field);
}

static BOOL failToLoad(id, SEL, NSString*, NSDictionary*, NSZone*)
{
    [NSException raise:NSInternalInconsistencyException format:@"line 7 is damaged"];
    return NO;
}

TEST_F(BasePanelTest, NotesAnInterfaceFileThatIsDamaged)
{
    make({.ppd = offers()}, classNamed("PageSettingPDE13_v100_"));
    const ReplacedMethod replaced([NSBundle class],
                                  @selector(loadNibFile:externalNameTable:withZone:),
                                  reinterpret_cast<IMP>(failToLoad));
    EXPECT_EQ(logged([&] { EXPECT_EQ([panel_ panelView], nil); }),
              Texts{"PageSettingPDE: line 7 is damaged"});
}

TEST_F(BasePanelTest, AnswersAViewThatIsThereWithoutLoading)
{
    make({.ppd = offers()}, classNamed("PageSettingPDE13_v100_"));
    NSView* view = [[NSView alloc] initWithFrame:NSMakeRect(0, 0, 10, 10)];
    ivarOf<NSView*>(panel_, "kPDEView") = view;
    EXPECT_EQ([panel_ panelView], view);
    EXPECT_EQ(ivarOf<id>(panel_, "mLengthTxFld"), nil);
}

// PPD attributes.

TEST_F(BasePanelTest, TellsThePPDsFileVersion)
{
    make({.ppd = PPDText().attribute("FileVersion", "1.3")});
    EXPECT_EQ(textOf([panel_ fileVerString]), "1.3");
}

TEST_F(BasePanelTest, TellsNoFileVersionWithoutPPDOrAttribute)
{
    make({});
    EXPECT_EQ([panel_ fileVerString], nil);
    make({.ppd = PPDText()});
    EXPECT_EQ([panel_ fileVerString], nil);
}

TEST_F(BasePanelTest, KnowsTheZRLineByItsExactTapeType)
{
    make({.ppd = PPDText().attribute("VnTapeType", "ZR")});
    EXPECT_EQ([panel_ isZRPrinter], YES);
    for (const char* other : {"zr", "Zr", "ZRX", "XZR", " ZR", "ZR ", "KM", ""}) {
        make({.ppd = PPDText().attribute("VnTapeType", other)});
        EXPECT_EQ([panel_ isZRPrinter], NO) << other;
    }
    make({.ppd = PPDText()});
    EXPECT_EQ([panel_ isZRPrinter], NO);
    make({});
    EXPECT_EQ([panel_ isZRPrinter], NO);
}

// Selecting a choice.

TEST_F(BasePanelTest, TellsTheDialogOfASelectionAndThenReadsTheMarks)
{
    make();
    toldSince();
    NSArray* choices = choicesOf("Resolution");
    id chosen = [panel_ selectionForItem:2 key:@"Resolution" choices:choices itemType:8];
    EXPECT_EQ(chosen, [choices objectAtIndex:2]);
    EXPECT_EQ(toldSince(), Texts{"willChange Resolution=600dpi"});
    EXPECT_EQ(hooks, Texts{"updateMarkedSelections:8"});
    EXPECT_EQ(dialog_->marked("Resolution"), "600dpi");
}

TEST_F(BasePanelTest, SelectsNothingAtTheCountOrPastIt)
{
    make();
    toldSince();
    NSArray* choices = choicesOf("Resolution");
    for (const NSInteger index : {NSInteger{3}, NSInteger{4}, NSInteger{2147483648}, NSIntegerMax})
        EXPECT_EQ([panel_ selectionForItem:index key:@"Resolution" choices:choices itemType:8], nil)
            << index;
    EXPECT_EQ(toldSince(), Texts{});
    EXPECT_EQ(hooks, Texts{});
}

TEST_F(BasePanelTest, SelectsNothingBelowZeroOrWithoutAList)
{
    make();
    toldSince();
    EXPECT_EQ([panel_ selectionForItem:-1 key:@"Resolution" choices:choicesOf("Resolution")
                              itemType:8],
              nil);
    EXPECT_EQ([panel_ selectionForItem:NSIntegerMin key:@"Resolution"
                               choices:choicesOf("Resolution")
                              itemType:8],
              nil);
    EXPECT_EQ([panel_ selectionForItem:0 key:@"Resolution" choices:nil itemType:8], nil);
    EXPECT_EQ([panel_ selectionForItem:0 key:@"Resolution" choices:[NSArray array] itemType:8],
              nil);
    EXPECT_EQ(toldSince(), Texts{});
    EXPECT_EQ(hooks, Texts{});
}

TEST_F(BasePanelTest, SelectsAChoiceWhoseKeywordIsNotASCIIWithoutHarm)
{
    make();
    NSArray* choices = choicesOf("Resolution");
    std::strcpy(dialog_->option("Resolution")->choices[1].choice, "\xff\xfe");
    toldSince();
    EXPECT_EQ([panel_ selectionForItem:1 key:@"Resolution" choices:choices itemType:8],
              [choices objectAtIndex:1]);
    EXPECT_EQ(toldSince(), Texts{}); // no keyword that could be told
    EXPECT_EQ(hooks, Texts{"updateMarkedSelections:8"});
}

TEST_F(BasePanelTest, TellsNoChoiceOfAnOptionWithoutAName)
{
    make();
    toldSince();
    [panel_ selectionForItem:1 key:nil choices:choicesOf("Resolution") itemType:8];
    EXPECT_EQ(toldSince(), Texts{});
}

// Indexes.

TEST_F(BasePanelTest, FindsTheMarkedChoice)
{
    make();
    ppdMarkOption(dialog_->ppd(), "Resolution", "600dpi");
    EXPECT_EQ([panel_ indexOfMarkedOption:choicesOf("Resolution") forKey:@"Resolution"], 2);
    ppdMarkOption(dialog_->ppd(), "Resolution", "300dpi");
    EXPECT_EQ([panel_ indexOfMarkedOption:choicesOf("Resolution") forKey:@"Resolution"], 0);
}

TEST_F(BasePanelTest, AnswersMinusOneWhereNothingIsMarked)
{
    make();
    dialog_->unmark("Resolution");
    EXPECT_EQ([panel_ indexOfMarkedOption:choicesOf("Resolution") forKey:@"Resolution"], -1);
    EXPECT_EQ([panel_ indexOfMarkedOption:choicesOf("Resolution") forKey:@"NoSuchOption"], -1);
    EXPECT_EQ([panel_ indexOfMarkedOption:nil forKey:@"NoSuchOption"], -1);
    make({});
    EXPECT_EQ([panel_ indexOfMarkedOption:[NSArray array] forKey:@"Resolution"], -1);
}

TEST_F(BasePanelTest, AnswersMinusOneWithoutAKey)
{
    make();
    EXPECT_EQ([panel_ indexOfMarkedOption:choicesOf("Resolution") forKey:nil], -1);
}

TEST_F(BasePanelTest, AnswersZeroWhereTheMarkedChoiceIsNotInTheList)
{
    make();
    ppdMarkOption(dialog_->ppd(), "Resolution", "600dpi");
    EXPECT_EQ([panel_ indexOfMarkedOption:choicesOf("VnPriority") forKey:@"Resolution"], 0);
    EXPECT_EQ([panel_ indexOfMarkedOption:[NSArray array] forKey:@"Resolution"], 0);
    EXPECT_EQ([panel_ indexOfMarkedOption:nil forKey:@"Resolution"], 0);
}

TEST_F(BasePanelTest, AnswersZeroWhereTheMarkedKeywordIsNotASCII)
{
    make();
    NSArray* choices = choicesOf("Resolution");
    ppdMarkOption(dialog_->ppd(), "Resolution", "600dpi");
    std::strcpy(ppdFindMarkedChoice(dialog_->ppd(), "Resolution")->choice, "\xff\xfe");
    EXPECT_EQ([panel_ indexOfMarkedOption:choices forKey:@"Resolution"], 0);
}

TEST_F(BasePanelTest, FindsTheDefaultChoice)
{
    make();
    EXPECT_EQ([panel_ indexOfDefaultOption:choicesOf("Resolution")], 1);
    EXPECT_EQ([panel_ indexOfDefaultOption:choicesOf("VnPriority")], 0);
}

TEST_F(BasePanelTest, AnswersZeroForAnEmptyListAndMinusOneForOneWithoutADefault)
{
    make();
    EXPECT_EQ([panel_ indexOfDefaultOption:[NSArray array]], 0);
    EXPECT_EQ([panel_ indexOfDefaultOption:nil], 0);
    std::strcpy(dialog_->option("Resolution")->defchoice, "1200dpi");
    EXPECT_EQ([panel_ indexOfDefaultOption:choicesOf("Resolution")], -1);
}

// Supported options.

TEST_F(BasePanelTest, TakesOwnershipOfTheSupportedOptionsAndLetsTheOldOnesGoLater)
{
    make();
    NSMutableArray* first = [[NSMutableArray alloc] init];
    NSMutableArray* second = [[NSMutableArray alloc] init];
    [panel_ setSupportedOptions:first];
    EXPECT_EQ([panel_ supportedOptions], first);
    EXPECT_EQ([first retainCount], 2u);
    {
        const ScopedPool pool;
        [panel_ setSupportedOptions:second];
        EXPECT_EQ([panel_ supportedOptions], second);
        EXPECT_EQ([second retainCount], 2u);
        EXPECT_EQ([first retainCount], 2u); // goes with the pool
    }
    EXPECT_EQ([first retainCount], 1u);
    [first release];
    [second release];
}

TEST_F(BasePanelTest, KeepsTheSupportedOptionsThatItIsHandedAgain)
{
    make();
    NSMutableArray* list = [[NSMutableArray alloc] init];
    [panel_ setSupportedOptions:list];
    {
        const ScopedPool pool;
        [panel_ setSupportedOptions:list];
    }
    EXPECT_EQ([list retainCount], 2u);
    EXPECT_EQ([panel_ supportedOptions], list);
    [panel_ setSupportedOptions:nil];
    EXPECT_EQ([panel_ supportedOptions], nil);
    [list release];
}

// The view's size.

namespace {

class ViewSizeTest : public BasePanelTest
{
  protected:
    void makeWithView(bool tellsOfResize)
    {
        make({.ppd = offers(), .tellsOfResize = tellsOfResize});
        ivarOf<NSView*>(panel_, "kPDEView") =
            [[NSView alloc] initWithFrame:NSMakeRect(5, 6, 100, 50)];
        toldSince();
    }

    NSView* view() { return ivarOf<NSView*>(panel_, "kPDEView"); }

    void windowHasGrown(NSView* around)
    {
        [[NSNotificationCenter defaultCenter]
            postNotificationName:NSViewDidUpdateTrackingAreasNotification
                          object:around];
    }
};

} // namespace

TEST_F(ViewSizeTest, StaysWithADialogThatDoesNotWantToKnow)
{
    makeWithView(false);
    const ScopedKeyWindow window(1000);
    [panel_ setViewFrameSize:NSMakeSize(200, 300)];
    EXPECT_EQ([view() frame].size.width, 100);
    EXPECT_EQ([view() frame].size.height, 50);
    windowHasGrown(view());
    EXPECT_EQ(toldSince(), Texts{});
}

TEST_F(ViewSizeTest, ChangesSilentlyWithoutAKeyWindow)
{
    makeWithView(true);
    const ScopedKeyWindow none(-1);
    [panel_ setViewFrameSize:NSMakeSize(200, 300)];
    EXPECT_EQ([view() frame].size.width, 200);
    EXPECT_EQ([view() frame].size.height, 300);
    EXPECT_EQ([view() frame].origin.x, 5);
    windowHasGrown(view());
    EXPECT_EQ(toldSince(), Texts{});
}

TEST_F(ViewSizeTest, IsToldAtOnceWhenTheWindowIsMoreThan96PointsHigher)
{
    makeWithView(true);
    const ScopedKeyWindow window(396.5);
    [panel_ setViewFrameSize:NSMakeSize(200, 300)];
    EXPECT_EQ([view() frame].size.height, 300);
    EXPECT_EQ(toldSince(), Texts{"panelViewDidResize"});
    windowHasGrown(view());
    EXPECT_EQ(toldSince(), Texts{});
}

TEST_F(ViewSizeTest, IsToldOnceTheWindowHasGrownWhenItIsExactly96PointsHigher)
{
    makeWithView(true);
    const ScopedKeyWindow window(396);
    [panel_ setViewFrameSize:NSMakeSize(200, 300)];
    EXPECT_EQ([view() frame].size.height, 300);
    EXPECT_EQ(toldSince(), Texts{});
    NSView* other = [[[NSView alloc] initWithFrame:NSZeroRect] autorelease];
    windowHasGrown(other);
    EXPECT_EQ(toldSince(), Texts{});
    windowHasGrown(view());
    EXPECT_EQ(toldSince(), Texts{"panelViewDidResize"});
    windowHasGrown(view());
    EXPECT_EQ(toldSince(), Texts{});
}

TEST_F(ViewSizeTest, DoesNotReachAPanelThatIsGone)
{
    makeWithView(true);
    const ScopedKeyWindow window(100);
    [panel_ setViewFrameSize:NSMakeSize(200, 300)];
    NSView* survivor = [view() retain];
    [panel_ release];
    panel_ = nil;
    windowHasGrown(survivor);
    EXPECT_EQ(toldSince(), Texts{});
    [survivor release];
}

TEST_F(ViewSizeTest, NeedsNoView)
{
    make();
    toldSince();
    for (const double height : {100, 2000}) {
        const ScopedKeyWindow window(height);
        [panel_ setViewFrameSize:NSMakeSize(200, 300)];
    }
    windowHasGrown([[[NSView alloc] initWithFrame:NSZeroRect] autorelease]);
    EXPECT_EQ(toldSince(), Texts{});
}

// Defaults.

TEST_F(BasePanelTest, SuppliesTheDefaultWhereNothingIsMarked)
{
    make();
    dialog_->unmark("Resolution");
    toldSince();
    [panel_ setDefaultChoices:dialog_->option("Resolution") choices:choicesOf("Resolution")
                      cStrKey:"Resolution"
                      nStrKey:@"Resolution"];
    EXPECT_EQ(toldSince(), Texts{"willChange Resolution=300x600dpi"});
    EXPECT_EQ(dialog_->marked("Resolution"), "300x600dpi");
    EXPECT_EQ(hooks, Texts{}); // marks are not read back here
}

static IMP realChoiceList = nullptr;
static int choiceLists = 0;

static id countChoiceList(id self, SEL message, ppd_option_t* option)
{
    ++choiceLists;
    return reinterpret_cast<id (*)(id, SEL, ppd_option_t*)>(realChoiceList)(self, message, option);
}

TEST_F(BasePanelTest, MakesAChoiceListOnceMoreWhenItSuppliesADefault)
{
    make();
    NSArray* choices = choicesOf("Resolution");
    dialog_->unmark("Resolution");
    choiceLists = 0;
    const ReplacedMethod replaced(object_getClass(classNamed("PDEUtilsMethod13")),
                                  @selector(arrayFromPPDOption:),
                                  reinterpret_cast<IMP>(countChoiceList));
    realChoiceList = replaced.real();
    [panel_ setDefaultChoices:dialog_->option("Resolution") choices:choices cStrKey:"Resolution"
                      nStrKey:@"Resolution"];
    EXPECT_EQ(choiceLists, 1);
    [panel_ setDefaultChoices:dialog_->option("Resolution") choices:choices cStrKey:"Resolution"
                      nStrKey:@"Resolution"];
    EXPECT_EQ(choiceLists, 1); // marked by now
}

TEST_F(BasePanelTest, LeavesAMarkedChoiceAlone)
{
    make();
    ppdMarkOption(dialog_->ppd(), "Resolution", "600dpi");
    toldSince();
    [panel_ setDefaultChoices:dialog_->option("Resolution") choices:choicesOf("Resolution")
                      cStrKey:"Resolution"
                      nStrKey:@"Resolution"];
    EXPECT_EQ(toldSince(), Texts{});
}

TEST_F(BasePanelTest, TakesTheDefaultsKeywordFromTheOptionAndNotFromTheList)
{
    make();
    dialog_->unmark("VnPriority");
    toldSince();
    // The default of the resolutions stands at 1; the quality at 1 is "Quality".
    [panel_ setDefaultChoices:dialog_->option("VnPriority") choices:choicesOf("Resolution")
                      cStrKey:"VnPriority"
                      nStrKey:@"VnPriority"];
    EXPECT_EQ(toldSince(), Texts{"willChange VnPriority=Quality"});
}

TEST_F(BasePanelTest, SuppliesNothingWithoutOptionOrDefault)
{
    make();
    dialog_->unmark("Resolution");
    toldSince();
    [panel_ setDefaultChoices:nullptr choices:choicesOf("Resolution") cStrKey:"Resolution"
                      nStrKey:@"Resolution"];
    std::strcpy(dialog_->option("Resolution")->defchoice, "1200dpi");
    [panel_ setDefaultChoices:dialog_->option("Resolution") choices:choicesOf("Resolution")
                      cStrKey:"Resolution"
                      nStrKey:@"Resolution"];
    EXPECT_EQ(toldSince(), Texts{});
}

TEST_F(BasePanelTest, SuppliesNothingWhereTheDefaultsIndexIsPastTheOptionsChoices)
{
    make();
    dialog_->unmark("VnPriority");
    std::strcpy(dialog_->option("Resolution")->defchoice, "600dpi"); // index 2 of 3
    toldSince();
    [panel_ setDefaultChoices:dialog_->option("VnPriority") // two choices
                      choices:choicesOf("Resolution")
                      cStrKey:"VnPriority"
                      nStrKey:@"VnPriority"];
    EXPECT_EQ(toldSince(), Texts{});
}

// Nothing there at all.

TEST_F(BasePanelTest, LivesWithADialogThatAnswersNothing)
{
    make({.answersNothing = true});
    [panel_ willShow];
    [panel_ isZRPrinter];
    EXPECT_EQ([panel_ indexOfMarkedOption:nil forKey:@"Resolution"], -1);
    EXPECT_STREQ(&ivarOf<char>(panel_, "deviceURI"), "");
}

TEST_F(BasePanelTest, LivesWithoutCallbackAndBundle)
{
    panel_ = [[recordingPanelClass() alloc] initWithCallback:nil andBundle:nil];
    ASSERT_NE(panel_, nil);
    EXPECT_EQ([panel_ panelName], nil);
    [panel_ setViewFrameSize:NSMakeSize(1, 1)];
    [panel_ dialogDidExpand:nil];
    [panel_ willShow];
    EXPECT_EQ(ivarOf<ppd_file_t*>(panel_, "ppd"), nullptr);
}
