#include "support/PanelTest.hpp"

#include <dlfcn.h>

#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <string>
#include <utility>

@interface FakeCallback : NSObject <PDEPluginCallback13_v100_>
{
  @public
    FakeDialog* dialog; // nil once the dialog is gone
}
@end

@interface FakeResizingCallback : FakeCallback
@end

@implementation FakeCallback

- (BOOL)silent
{
    return dialog == nullptr || dialog->answersNothing;
}

- (void)record:(const std::string&)call
{
    if (dialog != nullptr)
        dialog->calls.push_back(call);
}

- (PMPrintSession)printSession
{
    [self record:"printSession"];
    return [self silent] ? nullptr : dialog->session.handle();
}

- (PMPrintSettings)printSettings
{
    [self record:"printSettings"];
    return [self silent] ? nullptr : dialog->settings.handle();
}

- (PMPageFormat)pageFormat
{
    [self record:"pageFormat"];
    return [self silent] ? nullptr : dialog->format.handle();
}

- (PMPrinter)PMPrinter
{
    [self record:"PMPrinter"];
    return [self silent] ? nullptr : dialog->printer.handle();
}

- (ppd_file_t*)ppdFile
{
    [self record:"ppdFile"];
    return [self silent] ? nullptr : dialog->ppd();
}

- (void)willChangePPDOptionKeyValue:(NSString*)key ppdChoice:(NSString*)choice
{
    [self record:"willChange " + textOf(key) + "=" + textOf(choice)];
    if (dialog == nullptr || !dialog->marksChoices || dialog->ppd() == nullptr)
        return;
    // Listed choices only: numbers that the PPD does not list are kept by the dialog itself, and
    // CUPS takes some texts for custom sizes.
    ppd_option_t* option = ppdFindOption(dialog->ppd(), [key UTF8String]);
    if (option == nullptr || choice == nil)
        return;
    for (int i = 0; i < option->num_choices; ++i) {
        if (std::strcmp(option->choices[i].choice, [choice UTF8String]) == 0) {
            ppdMarkOption(dialog->ppd(), [key UTF8String], [choice UTF8String]);
            return;
        }
    }
}

@end

@implementation FakeResizingCallback

- (void)panelViewDidResize
{
    [self record:"panelViewDidResize"];
}

@end

FakeDialog::FakeDialog(const DialogSetup& setup)
    : answersNothing(setup.answersNothing), printer("LabelPrinter", setup.deviceURI)
{
    if (setup.ppd)
        ppd_ = setup.ppd->open();
    if (setup.paper)
        format.setPaper(*setup.paper);
    FakeCallback* made =
        setup.tellsOfResize ? [[FakeResizingCallback alloc] init] : [[FakeCallback alloc] init];
    made->dialog = this;
    callback_ = made;
}

FakeDialog::~FakeDialog()
{
    static_cast<FakeCallback*>(callback_)->dialog = nullptr;
    [callback_ release];
}

std::string FakeDialog::marked(const char* option) const
{
    const ppd_choice_t* choice = ppdFindMarkedChoice(ppd(), option);
    return choice == nullptr ? "" : choice->choice;
}

void FakeDialog::unmark(const char* option)
{
    // There is no call for it: a mark is only ever replaced.
    ppd_choice_t* choice = ppdFindMarkedChoice(ppd(), option);
    if (choice == nullptr)
        return;
    choice->marked = 0;
    cupsArrayRemove(ppd()->marked, choice);
}

Texts FakeDialog::changes() const
{
    const std::string prefix = "willChange ";
    Texts told;
    for (const std::string& call : calls) {
        if (call.rfind(prefix, 0) == 0)
            told.push_back(call.substr(prefix.size()));
    }
    return told;
}

@protocol PlugInUnderTest <NSObject>
- (BOOL)initWithBundle:(NSBundle*)bundle;
- (NSArray*)PDEPanelsForType:(NSString*)type withHostInfo:(id)info;
@end

TestPanel::TestPanel(FakeDialog& dialog)
{
    const ScopedPool pool;
    plugin_ = [[pluginBundle() principalClass] alloc];
    if (![(id<PlugInUnderTest>)plugin_ initWithBundle:pluginBundle()]) {
        ADD_FAILURE() << "the plug-in refuses this system";
        return;
    }
    NSArray* panels =
        [(id<PlugInUnderTest>)plugin_ PDEPanelsForType:@"BDB091F4-E57F-11D3-B5CC-0050E4603277"
                                          withHostInfo:dialog.callback()];
    EXPECT_EQ([panels count], 1u);
    panel_ = [[panels lastObject] retain];
}

TestPanel::~TestPanel()
{
    const ScopedPool pool;
    [panel_ release];
    [plugin_ release];
}

const char* pluginPath()
{
    const char* const elsewhere = std::getenv("PLUGIN_UNDER_TEST");
    return elsewhere != nullptr ? elsewhere : PLUGIN_PATH;
}

NSBundle* pluginBundle()
{
    return [NSBundle bundleWithPath:[NSString stringWithUTF8String:pluginPath()]];
}

Class classNamed(const char* name)
{
    Class found = NSClassFromString([NSString stringWithUTF8String:name]);
    EXPECT_NE(found, Nil) << "no class " << name;
    return found;
}

void* exportedSymbol(const char* name)
{
    void* bundle =
        dlopen((std::string(pluginPath()) + "/PageSettings").c_str(), RTLD_NOLOAD | RTLD_LAZY);
    if (bundle == nullptr)
        return nullptr;
    void* found = dlsym(bundle, name);
    Dl_info where{};
    // dlsym also searches what the bundle links.
    const bool own = found != nullptr && dladdr(found, &where) != 0 &&
                     std::strstr(where.dli_fname, "PageSettings.plugin") != nullptr;
    dlclose(bundle);
    return own ? found : nullptr;
}

void* ivarPlace(id object, const char* name)
{
    const Ivar ivar =
        object == nil ? nullptr : class_getInstanceVariable(object_getClass(object), name);
    if (ivar == nullptr) {
        ADD_FAILURE() << "no instance variable " << name;
        return nullptr;
    }
    return reinterpret_cast<char*>(object) + ivar_getOffset(ivar);
}

std::string textOf(NSString* string)
{
    const char* text = [string UTF8String];
    return text == nullptr ? "(nil)" : text;
}

Texts textsOf(NSArray* strings)
{
    Texts texts;
    for (NSString* string in strings)
        texts.push_back(textOf(string));
    return texts;
}

void setCurrentEvent(NSUInteger type)
{
    if (type == 0) {
        id& current = ivarOf<id>(NSApp, "_current_event");
        [current release];
        current = nil;
        return;
    }
    NSEvent* event = nil;
    if (type == NSKeyDown || type == NSKeyUp)
        event = [NSEvent keyEventWithType:static_cast<NSEventType>(type) location:NSZeroPoint
                            modifierFlags:0
                                timestamp:0
                             windowNumber:0
                                  context:nil
                               characters:@"\t"
              charactersIgnoringModifiers:@"\t"
                                isARepeat:NO
                                  keyCode:15];
    else
        event = [NSEvent mouseEventWithType:static_cast<NSEventType>(type) location:NSZeroPoint
                              modifierFlags:0
                                  timestamp:0
                               windowNumber:0
                                    context:nil
                                eventNumber:0
                                 clickCount:1
                                   pressure:0];
    [NSApp postEvent:event atStart:YES];
    [NSApp nextEventMatchingMask:NSEventMaskFromType(static_cast<NSEventType>(type))
                       untilDate:[NSDate distantPast]
                          inMode:NSDefaultRunLoopMode
                         dequeue:YES];
    EXPECT_EQ([[NSApp currentEvent] type], type);
}

@interface FakeKeyWindow : NSObject
{
  @public
    double height;
}
@end

@implementation FakeKeyWindow

- (NSRect)frame
{
    return NSMakeRect(100, 100, 600, height);
}

@end

static FakeKeyWindow* keyWindow = nil;
static IMP realKeyWindow = nullptr;

static id answerKeyWindow(id, SEL)
{
    return keyWindow;
}

ScopedKeyWindow::ScopedKeyWindow(double height)
{
    if (height >= 0) {
        keyWindow = [[FakeKeyWindow alloc] init];
        keyWindow->height = height;
    }
    Method method = class_getInstanceMethod([NSApplication class], @selector(keyWindow));
    realKeyWindow = method_setImplementation(method, reinterpret_cast<IMP>(answerKeyWindow));
}

ScopedKeyWindow::~ScopedKeyWindow()
{
    Method method = class_getInstanceMethod([NSApplication class], @selector(keyWindow));
    method_setImplementation(method, realKeyWindow);
    [keyWindow release];
    keyWindow = nil;
}

// The toolkit's header hides them from builds without assertions; the library has them always.
extern "C" BOOL GSDebugAllocationActive(BOOL active);
extern "C" int GSDebugAllocationCount(Class counted);

LivingObjects::LivingObjects(const char* className) : counted_(classNamed(className))
{
    GSDebugAllocationActive(YES);
    before_ = GSDebugAllocationCount(counted_);
}

LivingObjects::~LivingObjects()
{
    GSDebugAllocationActive(NO);
}

int LivingObjects::count() const
{
    return GSDebugAllocationCount(counted_) - before_;
}

ReplacedMethod::ReplacedMethod(Class owner, SEL message, IMP replacement)
    : method_(class_getInstanceMethod(owner, message)),
      real_(method_setImplementation(method_, replacement))
{
}

ReplacedMethod::~ReplacedMethod()
{
    method_setImplementation(method_, real_);
}

static Class failingClass = Nil;

static id failToInit(id self, SEL)
{
    if (![self isKindOfClass:failingClass])
        return self;
    [self release];
    return nil;
}

static std::optional<ReplacedMethod>& objectInit()
{
    static std::optional<ReplacedMethod> replaced;
    return replaced;
}

FailingInit::FailingInit(Class failing)
{
    failingClass = failing;
    objectInit().emplace([NSObject class], @selector(init), reinterpret_cast<IMP>(failToInit));
}

FailingInit::~FailingInit()
{
    objectInit().reset();
}

static Texts& alerts()
{
    static Texts shown;
    return shown;
}

static Texts& alertFrame()
{
    static Texts frame;
    return frame;
}

static std::function<void()>& alertAction()
{
    static std::function<void()> action;
    return action;
}

void duringNextAlert(std::function<void()> action)
{
    alertAction() = std::move(action);
}

Texts frameOfLastAlert()
{
    return alertFrame();
}

// In front of the toolkit's own, which would wait for a click.
extern "C" __attribute__((visibility("default"))) NSInteger
NSRunAlertPanel(NSString* title, NSString* message, NSString* defaultButton,
                NSString* alternateButton, NSString* otherButton, ...)
{
    va_list arguments;
    va_start(arguments, otherButton);
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wformat-nonliteral"
    // As the toolkit does: the message is a format.
    NSString* const shown = [[NSString alloc] initWithFormat:message arguments:arguments];
#pragma clang diagnostic pop
    va_end(arguments);
    alerts().push_back(textOf(shown));
    [shown release];
    alertFrame() = {textOf(title), textOf(defaultButton), textOf(alternateButton),
                    textOf(otherButton)};
    if (const auto action = std::exchange(alertAction(), nullptr))
        action();
    return NSAlertDefaultReturn;
}

Texts takeAlerts()
{
    Texts taken;
    taken.swap(alerts());
    return taken;
}
