#include "support/PanelTestPrinting.hpp"

#include <array>
#include <cstdio>

@protocol PlugInUnderTest <NSObject>
- (BOOL)runningOnLeopardOrLater;
- (BOOL)initWithBundle:(NSBundle*)bundle;
- (NSArray*)PDEPanelsForType:(NSString*)type withHostInfo:(id)info;
@end

namespace {

NSString* const kPrintDialog = @"BDB091F4-E57F-11D3-B5CC-0050E4603277";

// What the plug-in answers in a process of its own on a system of that release.
std::string onRelease(const std::string& release)
{
    FILE* probe =
        popen(("PAGE_SETTINGS_SYSTEM_VERSION='" + release + "' '" PROBE_PATH "'").c_str(), "r");
    std::array<char, 512> line{};
    const bool answered = std::fgets(line.data(), line.size(), probe) != nullptr;
    EXPECT_EQ(pclose(probe), 0);
    EXPECT_TRUE(answered);
    return line.data();
}

class PlugInTest : public testing::Test
{
  protected:
    void SetUp() override
    {
        plugin_ = [[pluginBundle() principalClass] alloc];
        ASSERT_TRUE([plugin() initWithBundle:pluginBundle()]);
    }

    void TearDown() override { [plugin_ release]; }

    id<PlugInUnderTest> plugin() const { return plugin_; }

    id plugin_ = nil;
    FakeDialog dialog_{{.ppd = PPDText().paper("TC24", "24 mm", 68, 72)}};
};

} // namespace

TEST(SystemRelease, BelowTenPointFiveIsRefused)
{
    const std::string refused = "sys1 sys2 sys3: NO, NO, NO; bundle not kept; then none\n";
    EXPECT_EQ(onRelease("10.4.11"), refused);
    EXPECT_EQ(onRelease("10.4.0"), refused);
    EXPECT_EQ(onRelease("9.9"), refused);
}

TEST(SystemRelease, FromTenPointFiveOnIsAccepted)
{
    const std::string accepted = "sys1 sys2 sys3: YES, YES, YES; bundle kept; then none\n";
    EXPECT_EQ(onRelease("10.5.0"), accepted);
    EXPECT_EQ(onRelease("10.15.7"), accepted);
    EXPECT_EQ(onRelease("11.0"), accepted);
    EXPECT_EQ(onRelease("11.4"), accepted);
}

TEST(SystemRelease, ThatCannotBeHadIsRefused)
{
    EXPECT_EQ(onRelease("unknown"), "sys1 sys2 sys3: NO, NO, NO; bundle not kept; then none\n");
}

TEST(SystemRelease, OfTheToolkitIsAccepted)
{
    EXPECT_EQ(onRelease(""), "sys1 sys2 sys3: YES, YES, YES; bundle kept; then none\n");
}

TEST(PrincipalClass, IsTheOneThatThePropertyListNames)
{
    EXPECT_STREQ(class_getName([pluginBundle() principalClass]),
                 "VNKMZRPageSettings13PlugIn13_v100_");
    EXPECT_EQ(class_getSuperclass([pluginBundle() principalClass]), [NSObject class]);
}

TEST(PrincipalClass, HasItsVariablesInOrder)
{
    unsigned count = 0;
    Ivar* const list = class_copyIvarList([pluginBundle() principalClass], &count);
    Texts names;
    for (unsigned i = 0; i < count; ++i)
        names.push_back(ivar_getName(list[i]));
    free(list);
    EXPECT_EQ(names, (Texts{"pluginBundle", "pdes"}));
}

TEST_F(PlugInTest, KeepsTheBundleWithoutOwningIt)
{
    NSBundle* bundle = pluginBundle();
    const NSUInteger before = [bundle retainCount];
    id other = [[bundle principalClass] alloc];
    EXPECT_TRUE([(id<PlugInUnderTest>)other initWithBundle:bundle]);
    EXPECT_EQ(ivarOf<id>(other, "pluginBundle"), bundle);
    EXPECT_EQ([bundle retainCount], before);
    [other release];
    EXPECT_EQ([bundle retainCount], before);
}

TEST_F(PlugInTest, GivesThePrintDialogOnePageSettingsPanel)
{
    NSArray* panels = [plugin() PDEPanelsForType:kPrintDialog withHostInfo:dialog_.callback()];
    ASSERT_EQ([panels count], 1u);
    id panel = [panels objectAtIndex:0];
    EXPECT_EQ([panel class], classNamed("PageSettingPDE13_v100_"));
    EXPECT_EQ(ivarOf<id>(panel, "pdePluginCallbackObject"), dialog_.callback());
    EXPECT_EQ(ivarOf<id>(panel, "nsPDEBundle"), pluginBundle());
    EXPECT_EQ(ivarOf<id>(plugin_, "pdes"), panels);
}

TEST_F(PlugInTest, GivesAnyOtherDialogAnEmptyArray)
{
    NSString* const others[] = {@"BDB091F5-E57F-11D3-B5CC-0050E4603277", // another number
                                @"bdb091f4-e57f-11d3-b5cc-0050e4603277", // another letter case
                                @"", @"BDB091F4-E57F-11D3-B5CC-0050E4603277 "};
    for (NSString* type : others) {
        NSArray* panels = [plugin() PDEPanelsForType:type withHostInfo:dialog_.callback()];
        ASSERT_NE(panels, nil) << textOf(type);
        EXPECT_EQ([panels count], 0u) << textOf(type);
        EXPECT_EQ(ivarOf<id>(plugin_, "pdes"), panels);
        // The next request drops it unreleased; the plug-in itself releases the last one.
        if (type != others[3])
            [panels release];
    }
    EXPECT_EQ(dialog_.calls, Texts{});
}

TEST_F(PlugInTest, GivesNoTypeAnEmptyArray)
{
    NSArray* panels = [plugin() PDEPanelsForType:nil withHostInfo:dialog_.callback()];
    ASSERT_NE(panels, nil);
    EXPECT_EQ([panels count], 0u);
}

TEST_F(PlugInTest, MakesASecondIndependentPanelAndDropsTheFirstArrayWithoutRelease)
{
    NSArray* first = [plugin() PDEPanelsForType:kPrintDialog withHostInfo:dialog_.callback()];
    const NSUInteger owners = [first retainCount];
    NSArray* second = [plugin() PDEPanelsForType:kPrintDialog withHostInfo:dialog_.callback()];
    ASSERT_EQ([second count], 1u);
    EXPECT_NE(first, second);
    EXPECT_NE([first lastObject], [second lastObject]);
    EXPECT_EQ([first retainCount], owners);
    EXPECT_EQ(ivarOf<id>(plugin_, "pdes"), second);
    [first release]; // the dropped one, so that the test leaves nothing behind
}

TEST_F(PlugInTest, OwnsItsPanelsUntilItGoes)
{
    id panel = nil;
    {
        const ScopedPool pool;
        panel = [[[plugin() PDEPanelsForType:kPrintDialog
                                withHostInfo:dialog_.callback()] lastObject] retain];
    }
    EXPECT_EQ([panel retainCount], 2u); // ours and the array's
    [plugin_ release];
    plugin_ = nil;
    EXPECT_EQ([panel retainCount], 1u);
    [panel release];
}

// A panel class whose initialiser yields nil stands for whatever keeps a panel from being made.
static id refuseToInitialise(id self, SEL, id, id)
{
    [self release];
    return nil;
}

TEST_F(PlugInTest, LeavesNothingBehindWhenItGoes)
{
    const LivingObjects plugIns("VNKMZRPageSettings13PlugIn13_v100_");
    const LivingObjects arrays("GSMutableArray");
    {
        const ScopedPool pool;
        id other = [[pluginBundle() principalClass] alloc];
        ASSERT_TRUE([(id<PlugInUnderTest>)other initWithBundle:pluginBundle()]);
        [(id<PlugInUnderTest>)other PDEPanelsForType:@"" withHostInfo:dialog_.callback()];
        [other release];
    }
    EXPECT_EQ(plugIns.count(), 0);
    EXPECT_EQ(arrays.count(), 0);
}

TEST_F(PlugInTest, GivesNothingWhenThePanelCannotBeMade)
{
    const LivingObjects arrays("GSMutableArray");
    Method method = class_getInstanceMethod(classNamed("PageSettingPDE13_v100_"),
                                            @selector(initWithCallback:andBundle:));
    ASSERT_NE(method, nullptr);
    const IMP real = method_setImplementation(method, reinterpret_cast<IMP>(refuseToInitialise));
    NSArray* panels = [plugin() PDEPanelsForType:kPrintDialog withHostInfo:dialog_.callback()];
    method_setImplementation(method, real);
    EXPECT_EQ(panels, nil);
    EXPECT_EQ(ivarOf<id>(plugin_, "pdes"), nil);
    EXPECT_EQ(arrays.count(), 0);
}

TEST_F(PlugInTest, MakesAPanelEvenWithoutACallback)
{
    NSArray* panels = [plugin() PDEPanelsForType:kPrintDialog withHostInfo:nil];
    EXPECT_EQ([panels count], 1u);
}
