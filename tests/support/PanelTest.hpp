// PanelTest.hpp - a print dialog for tests: makes panels out of the loaded bundle, answers their
// questions and records what they tell.
//
//     FakeDialog dialog({.ppd = PPDText().paper("TC24", "24 mm", 68, 72)});
//     TestPanel panel(dialog);
//     [panel supportedPPDOptionKeys];
//     EXPECT_EQ(dialog.changes(), (Texts{"VnTapeLength=25.4"}));
//
// The test program does not link the bundle: classes are asked for by name (classNamed), functions
// by symbol (exported), instance variables by name (ivarOf).
#pragma once

#include "platform/PrintingHost.hpp"
#include "plugin/PDEPluginCallback.h"
#include "support/PPDText.hpp"

#import <AppKit/AppKit.h>

#include <gtest/gtest.h>
#include <objc/runtime.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

using Texts = std::vector<std::string>;

// What the tests send to a panel.
@protocol PanelUnderTest <NSObject>

- (id)initWithCallback:(id)callback andBundle:(NSBundle*)bundle;
- (NSView*)panelView;
- (NSString*)panelName;
- (NSString*)panelKind;
- (NSArray*)supportedPPDOptionKeys;
- (void)printWindowWillClose:(BOOL)flag;
- (void)willShow;
- (BOOL)shouldHide;
- (BOOL)shouldPrint;
- (BOOL)shouldShowHelp;
- (void)PPDOptionKeyValueDidChange:(NSString*)key ppdChoice:(NSString*)choice;
- (BOOL)restoreValuesAndReturnError:(NSError**)error;
- (BOOL)saveValuesAndReturnError:(NSError**)error;
- (NSDictionary*)summaryInfo;

- (void)updateUI;
- (void)initSetTitleTexts;
- (void)initUI;
- (void)getValuesFromKey;
- (void)setValuesToKey;
- (void)setPDEItems;
- (void)setPDEItems2;
- (void)updateUIItem:(int32_t)itemType;
- (void)updateMarkedSelections:(int32_t)itemType;

- (NSString*)fileVerString;
- (BOOL)isZRPrinter;
- (id)selectionForItem:(NSInteger)index
                   key:(NSString*)key
               choices:(NSArray*)choices
              itemType:(int32_t)itemType;
- (NSInteger)indexOfMarkedOption:(NSArray*)choices forKey:(NSString*)key;
- (NSInteger)indexOfDefaultOption:(NSArray*)choices;
- (void)setSupportedOptions:(NSMutableArray*)options;
- (NSMutableArray*)supportedOptions;
- (void)setViewFrameSize:(NSSize)size;
- (void)dialogDidExpand:(NSNotification*)notification;
- (void)setDefaultChoices:(ppd_option_t*)option
                  choices:(NSArray*)choices
                  cStrKey:(const char*)cStrKey
                  nStrKey:(NSString*)nStrKey;

- (void)awakeFromNib;
- (void)setPDEUnit:(int32_t)unit;
- (int32_t)getPDEUnit;
- (void)loadUnit;
- (BOOL)isIntegerTapeLen;
- (BOOL)isIntegerMarginLen;
- (float)minTapeLen;
- (float)maxTapeLen;
- (float)minMargin;
- (float)maxMargin;
- (void)setTapeState:(int32_t)state;
- (int32_t)getTapeState;
- (void)controlTextDidChange:(NSNotification*)notification;
- (void)controlTextDidEndEditing:(NSNotification*)notification;

@end

struct DialogSetup
{
    std::optional<PPDText> ppd;                          // none: a printer without a PPD
    std::string deviceURI = "usb://Vendor/LabelPrinter"; // empty: a printer without a URI
    std::optional<printing::Paper> paper = std::nullopt; // of the page format
    bool tellsOfResize = true;   // whether the dialog has the optional panelViewDidResize
    bool answersNothing = false; // NULL for every handle and the PPD
};

// The print dialog: owns what a panel borrows.  Marks a listed choice in the PPD as soon as it is
// told, as a real dialog does.
class FakeDialog
{
  public:
    explicit FakeDialog(const DialogSetup& setup);
    ~FakeDialog();
    FakeDialog(const FakeDialog&) = delete;
    FakeDialog& operator=(const FakeDialog&) = delete;

    id callback() const { return callback_; }
    ppd_file_t* ppd() const { return ppd_.get(); }
    ppd_option_t* option(const char* keyword) const { return ppdFindOption(ppd(), keyword); }

    // The marked choice's keyword; "" when none is.
    std::string marked(const char* option) const;
    void unmark(const char* option);

    // Only what the panel told, as "Option=choice".
    Texts changes() const;

    // Every question and message in order: "printSession", "willChange Option=choice", ...
    Texts calls;
    bool marksChoices = true;
    bool answersNothing = false;

    printing::Printer printer;
    printing::PageFormat format;
    printing::PrintSettings settings;
    printing::PrintSession session;

  private:
    PPDFile ppd_;
    id callback_;
};

// A panel out of the bundle's principal class and factory, released at the end of the scope.
class TestPanel
{
  public:
    explicit TestPanel(FakeDialog& dialog);
    ~TestPanel();
    TestPanel(const TestPanel&) = delete;
    TestPanel& operator=(const TestPanel&) = delete;

    operator id<PanelUnderTest>() const { return panel_; }
    id<PanelUnderTest> get() const { return panel_; }

  private:
    id plugin_ = nil;
    id<PanelUnderTest> panel_ = nil;
};

// Keeps what a scope autoreleases from living on until the end of the test.
class ScopedPool
{
  public:
    ScopedPool() : pool_([[NSAutoreleasePool alloc] init]) {}
    ~ScopedPool() { [pool_ release]; }
    ScopedPool(const ScopedPool&) = delete;
    ScopedPool& operator=(const ScopedPool&) = delete;

  private:
    NSAutoreleasePool* pool_;
};

// The bundle of the build, or the one at PLUGIN_UNDER_TEST: a changed copy of it.
const char* pluginPath();
NSBundle* pluginBundle();
Class classNamed(const char* name);

// The address of a symbol that the bundle itself exports; null when it does not.
void* exportedSymbol(const char* name);
template <class Function>
Function exported(const char* name)
{
    void* found = exportedSymbol(name);
    EXPECT_NE(found, nullptr) << name << " is not exported";
    return reinterpret_cast<Function>(found);
}

// The place of an instance variable; null, and a failure, when the class has none of that name.
void* ivarPlace(id object, const char* name);
template <class T>
T& ivarOf(id object, const char* name)
{
    static T none;
    void* place = ivarPlace(object, name);
    return place == nullptr ? none : *static_cast<T*>(place);
}
template <class T = id>
T outlet(const TestPanel& panel, const char* name)
{
    return ivarOf<T>(panel.get(), name);
}

std::string textOf(NSString* string); // "(nil)" for nil
Texts textsOf(NSArray* strings);

// Makes [NSApp currentEvent] an event of the type; 0: none.
void setCurrentEvent(NSUInteger type);

// Makes [NSApp keyWindow] answer a window of the height; negative: no key window.  A real key
// window needs an active program and a frame in whole pixels.
class ScopedKeyWindow
{
  public:
    explicit ScopedKeyWindow(double height);
    ~ScopedKeyWindow();
    ScopedKeyWindow(const ScopedKeyWindow&) = delete;
    ScopedKeyWindow& operator=(const ScopedKeyWindow&) = delete;
};

// Counts the objects of a class that were made while it lives and are alive.
class LivingObjects
{
  public:
    explicit LivingObjects(const char* className);
    ~LivingObjects();
    LivingObjects(const LivingObjects&) = delete;
    LivingObjects& operator=(const LivingObjects&) = delete;
    int count() const;

  private:
    Class counted_;
    int before_ = 0;
};

// While it lives, NSObject's init answers nil to objects of the class.
class FailingInit
{
  public:
    explicit FailingInit(Class failing);
    ~FailingInit();
    FailingInit(const FailingInit&) = delete;
    FailingInit& operator=(const FailingInit&) = delete;
};

// While it lives, a method of the class itself is another one.  What stood there is real().
class ReplacedMethod
{
  public:
    ReplacedMethod(Class owner, SEL message, IMP replacement);
    ~ReplacedMethod();
    ReplacedMethod(const ReplacedMethod&) = delete;
    ReplacedMethod& operator=(const ReplacedMethod&) = delete;
    IMP real() const { return real_; }

  private:
    Method method_;
    IMP real_;
};

// Messages of the alerts shown since the last call.  Alerts do not stop a test.
Texts takeAlerts();

// Done while the next alert is up, which nobody has dismissed yet; nothing: not any more.
void duringNextAlert(std::function<void()> action);

// Title and three buttons of the alert shown last; "(nil)" where there was none.
Texts frameOfLastAlert();
