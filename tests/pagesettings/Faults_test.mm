// Every call of the panel to the dialog, the printing framework, Core Foundation and the print
// library fails once: counted in a session where none does, then one after the other.
//
//   PANEL_FAULTS=all   every call in every way (minutes); without it each call of the dialog in one
//                      way, and every seventh of the rest

#include "pagesettings/PanelSession.hpp"
#include "support/PanelTestPrinting.hpp"

#include <dlfcn.h>

#include <cstdlib>
#include <map>

namespace {

enum class Fault
{
    Raise,       // the dialog raises an exception
    RaiseObject, // ... an object that is no exception
    Nothing      // the call answers null, or the framework an error
};
constexpr int kFaults = 3;

// Which call fails, and how.
struct Strike
{
    Fault fault = Fault::Nothing;
    int at = -1; // counts from 0; -1: none
    int calls = 0;
    std::string struck; // the name of the call that failed

    bool hits(const char* name)
    {
        if (calls++ != at)
            return false;
        struck = name;
        return true;
    }
};

Strike hostCalls;
Strike systemCalls;

// Counts only what the bundle itself calls: tests and libraries call the same functions.
bool hitsSystemCall(const char* name, void* caller)
{
    Dl_info where{};
    if (dladdr(caller, &where) == 0 ||
        std::string(where.dli_fname).find("PageSettings.plugin") == std::string::npos)
        return false;
    return systemCalls.hits(name);
}

template <class Function>
Function next(Function, const char* name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

bool hitsPrintingCall(const char* name, void* caller)
{
    return hitsSystemCall(name, caller);
}

} // namespace

#define CALLER __builtin_return_address(0)
#define REPLACED extern "C" __attribute__((visibility("default")))

// Asked through the library that a real print dialog would go on using: null is its way to say no.
REPLACED ppd_option_t* ppdFindOption(ppd_file_t* ppd, const char* keyword)
{
    return hitsSystemCall("ppdFindOption", CALLER)
               ? nullptr
               : next(ppdFindOption, "ppdFindOption")(ppd, keyword);
}

REPLACED ppd_choice_t* ppdFindMarkedChoice(ppd_file_t* ppd, const char* keyword)
{
    return hitsSystemCall("ppdFindMarkedChoice", CALLER)
               ? nullptr
               : next(ppdFindMarkedChoice, "ppdFindMarkedChoice")(ppd, keyword);
}

REPLACED ppd_attr_t* ppdFindAttr(ppd_file_t* ppd, const char* name, const char* spec)
{
    return hitsSystemCall("ppdFindAttr", CALLER)
               ? nullptr
               : next(ppdFindAttr, "ppdFindAttr")(ppd, name, spec);
}

REPLACED CFStringRef CFURLGetString(CFURLRef url)
{
    return hitsSystemCall("CFURLGetString", CALLER) ? nullptr
                                                    : next(CFURLGetString, "CFURLGetString")(url);
}

REPLACED CFStringRef CFURLCopyScheme(CFURLRef url)
{
    return hitsSystemCall("CFURLCopyScheme", CALLER)
               ? nullptr
               : next(CFURLCopyScheme, "CFURLCopyScheme")(url);
}

REPLACED Boolean CFStringGetCString(CFStringRef text, char* buffer, CFIndex size,
                                    CFStringEncoding encoding)
{
    return hitsSystemCall("CFStringGetCString", CALLER)
               ? false
               : next(CFStringGetCString, "CFStringGetCString")(text, buffer, size, encoding);
}

REPLACED CFStringRef CFStringCreateCopy(CFAllocatorRef allocator, CFStringRef text)
{
    return hitsSystemCall("CFStringCreateCopy", CALLER)
               ? nullptr
               : next(CFStringCreateCopy, "CFStringCreateCopy")(allocator, text);
}

REPLACED CFPropertyListRef CFPropertyListCreateFromXMLData(CFAllocatorRef allocator, CFDataRef data,
                                                           CFOptionFlags mutability,
                                                           CFStringRef* error)
{
    return hitsSystemCall("CFPropertyListCreateFromXMLData", CALLER)
               ? nullptr
               : next(CFPropertyListCreateFromXMLData,
                      "CFPropertyListCreateFromXMLData")(allocator, data, mutability, error);
}

REPLACED const void* CFDictionaryGetValue(CFDictionaryRef dictionary, const void* key)
{
    return hitsSystemCall("CFDictionaryGetValue", CALLER)
               ? nullptr
               : next(CFDictionaryGetValue, "CFDictionaryGetValue")(dictionary, key);
}

// The print dialog, whose methods fail.
@interface FaultyHost : NSObject <PDEPluginCallback13_v100_>
{
  @public
    id<PDEPluginCallback13_v100_> real;
    Texts told;
}
@end

@implementation FaultyHost

// YES when this call is to answer nothing; raises when it is to raise.
- (BOOL)failsIn:(const char*)method
{
    if (!hostCalls.hits(method))
        return NO;
    if (hostCalls.fault == Fault::Raise)
        [NSException raise:NSInternalInconsistencyException format:@"%s fails", method];
    if (hostCalls.fault == Fault::RaiseObject)
        @throw @"no exception at all";
    return YES;
}

- (PMPrintSession)printSession
{
    return [self failsIn:"printSession"] ? nullptr : [real printSession];
}

- (PMPrintSettings)printSettings
{
    return [self failsIn:"printSettings"] ? nullptr : [real printSettings];
}

- (PMPageFormat)pageFormat
{
    return [self failsIn:"pageFormat"] ? nullptr : [real pageFormat];
}

- (PMPrinter)PMPrinter
{
    return [self failsIn:"PMPrinter"] ? nullptr : [real PMPrinter];
}

- (ppd_file_t*)ppdFile
{
    return [self failsIn:"ppdFile"] ? nullptr : [real ppdFile];
}

- (void)willChangePPDOptionKeyValue:(NSString*)key ppdChoice:(NSString*)choice
{
    told.push_back(textOf(key) + "=" + textOf(choice));
    if (![self failsIn:"willChange"])
        [real willChangePPDOptionKeyValue:key ppdChoice:choice];
}

- (void)panelViewDidResize
{
    [self failsIn:"panelViewDidResize"];
}

@end

namespace {

PPDText wholePrinter()
{
    return labelPrinter({.printMode = printModes(), .printModeDefault = "S300"});
}

// What every option was set to last.
std::map<std::string, std::string> lastOf(const Texts& told)
{
    std::map<std::string, std::string> last;
    for (const std::string& text : told)
        last[text.substr(0, text.find('='))] = text.substr(text.find('=') + 1);
    return last;
}

bool isLengthOption(const std::string& option)
{
    return option == "VnTapeLength" || option == "VnMargin";
}

bool all()
{
    const char* const wanted = std::getenv("PANEL_FAULTS");
    return wanted != nullptr && std::string(wanted) == "all";
}

struct Outcome
{
    Texts told;
    std::map<std::string, std::string> marked; // in the PPD, of the options told
    Texts escaped;
    bool mayPrint = false;
    int hostCallsUntilOpen = 0;
    int hostCallsUntilPrint = 0;
};

Outcome runSession(bool namesPaper = true)
{
    const ScopedPool pool;
    FakeDialog dialog(usbDialog(wholePrinter(), paperOf(100, namesPaper ? "TC24" : "")));
    dialog.settings.setData("jp.co.vendor.print.PrintSettingsTicket.KmE5",
                            "<plist version=\"1.0\"><dict><key>KmPaperName2</key>"
                            "<string>TC36</string></dict></plist>");
    FaultyHost* const host = [[FaultyHost alloc] init];
    host->real = dialog.callback();
    Outcome outcome;
    {
        PanelSession session(dialog, host);
        session.open();
        outcome.hostCallsUntilOpen = hostCalls.calls;
        session.work();
        outcome.hostCallsUntilPrint = hostCalls.calls;
        session.print();
        outcome.escaped = session.escaped;
        outcome.mayPrint = session.mayPrint;
    }
    outcome.told = host->told;
    for (const auto& [option, choice] : lastOf(host->told)) {
        if (!isLengthOption(option))
            outcome.marked[option] = dialog.marked(option.c_str());
    }
    EXPECT_EQ([host retainCount], 1u) << "the panel kept the dialog's object";
    [host release];
    takeAlerts();
    return outcome;
}

// A session without faults; the numbers of calls are left in hostCalls and systemCalls.
Outcome faultlessSession(bool namesPaper = true)
{
    hostCalls = {};
    systemCalls = {};
    return runSession(namesPaper);
}

bool isListed(const std::string& option, const std::string& choice)
{
    static const PPDFile ppd = wholePrinter().open();
    const ppd_option_t* const record = ppdFindOption(ppd.get(), option.c_str());
    for (int i = 0; record != nullptr && i < record->num_choices; ++i) {
        if (choice == record->choices[i].choice)
            return true;
    }
    return false;
}

// Digits, a point and one decimal; no sign, no exponent, no end cut off.
bool isLength(const std::string& text)
{
    const std::size_t point = text.find('.');
    return point != std::string::npos && point > 0 && point + 2 == text.size() &&
           text.find_first_not_of("0123456789.") == std::string::npos &&
           text.find('.', point + 1) == std::string::npos;
}

void expectWhole(const Texts& told, const std::string& when)
{
    for (const std::string& text : told) {
        const std::string option = text.substr(0, text.find('='));
        const std::string choice = text.substr(text.find('=') + 1);
        if (isLengthOption(option))
            EXPECT_TRUE(isLength(choice)) << text << " " << when;
        else
            EXPECT_TRUE(isListed(option, choice)) << text << " " << when;
    }
}

// What the panel told last is what the dialog has.
void expectAgreement(const Outcome& outcome, const std::string& when)
{
    auto told = lastOf(outcome.told);
    std::erase_if(told, [](const auto& entry) { return isLengthOption(entry.first); });
    EXPECT_EQ(told, outcome.marked) << when;
}

class FaultsTest : public testing::Test
{
  protected:
    void SetUp() override { PrintingCalls::askFirst(hitsPrintingCall); }
    void TearDown() override
    {
        hostCalls = {};
        systemCalls = {};
    }
};

} // namespace

TEST_F(FaultsTest, WithoutAnyTheSessionEndsWithWhatTheUserSet)
{
    const Outcome outcome = faultlessSession();
    EXPECT_EQ(outcome.escaped, Texts());
    EXPECT_TRUE(outcome.mayPrint);
    EXPECT_EQ(lastOf(outcome.told),
              (std::map<std::string, std::string>{{"VnTapeLength", "62.5"},
                                                  {"VnMargin", "4.2"},
                                                  // The second resolution takes the first quality.
                                                  {"VnPriority", "Speed"},
                                                  {"Resolution", "300x600dpi"},
                                                  {"VnCompress", "On"},
                                                  {"VnResolution", "Q300"}}));
    EXPECT_GT(hostCalls.calls, 100);
    EXPECT_GT(systemCalls.calls, 500);
}

TEST_F(FaultsTest, OfTheDialogItselfNeitherTakeThePanelDownNorComeBackToTheDialog)
{
    const Outcome reference = faultlessSession();
    const int count = hostCalls.calls;
    for (int at = 0; at < count; ++at) {
        for (int kind = all() ? 0 : at % kFaults; kind < (all() ? kFaults : at % kFaults + 1);
             ++kind) {
            hostCalls = {.fault = static_cast<Fault>(kind), .at = at};
            systemCalls = {};
            const Outcome outcome = runSession();
            const std::string when =
                "when call " + std::to_string(at) + ", " + hostCalls.struck + ", fails";
            ASSERT_NE(hostCalls.struck, "") << at;
            EXPECT_EQ(outcome.escaped, Texts()) << when;
            EXPECT_TRUE(outcome.mayPrint) << when;
            expectWhole(outcome.told, when);
            if (at < reference.hostCallsUntilOpen)
                continue;
            // What the dialog refuses on Print is nobody's to tell again.
            if (at < reference.hostCallsUntilPrint)
                expectAgreement(outcome, when);
            // A choice that the dialog did not take is not the panel's any more either; whatever
            // else the user does is done as if nothing had been.
            const auto expected = lastOf(reference.told);
            for (const auto& [option, choice] : lastOf(outcome.told)) {
                if (hostCalls.struck != "willChange" || isLengthOption(option))
                    EXPECT_EQ(choice, expected.at(option)) << option << " " << when;
            }
        }
    }
}

Texts logLines;

static void keepLogLine(NSString* line)
{
    const std::string text = textOf(line);
    logLines.push_back(text.substr(text.find("] ") + 2)); // without date, time, program
}

TEST_F(FaultsTest, OfTheDialogAreLoggedByKindAndReason)
{
    const auto logOf = [](Fault fault) {
        logLines.clear();
        hostCalls = {.fault = fault, .at = 0};
        NSLog_printf_handler* const before = _NSLog_printf_handler;
        _NSLog_printf_handler = keepLogLine;
        runSession();
        _NSLog_printf_handler = before;
        return logLines;
    };
    EXPECT_EQ(logOf(Fault::Raise),
              Texts{"The print dialog raised NSException: printSession fails\n"});
    EXPECT_EQ(logOf(Fault::RaiseObject),
              Texts{"The print dialog raised " + textOf(NSStringFromClass([@"" class])) + ": \n"});
    EXPECT_EQ(logOf(Fault::Nothing), Texts{});
}

TEST_F(FaultsTest, OfThePrintSystemLeaveThePanelAtWork)
{
    for (const bool namesPaper : {true, false}) {
        faultlessSession(namesPaper);
        const int count = systemCalls.calls;
        for (int at = 0; at < count; at += all() ? 1 : 7) {
            hostCalls = {};
            systemCalls = {.at = at};
            const Outcome outcome = runSession(namesPaper);
            const std::string when =
                "when call " + std::to_string(at) + ", " + systemCalls.struck + ", fails";
            ASSERT_NE(systemCalls.struck, "") << at;
            EXPECT_EQ(outcome.escaped, Texts()) << when;
            EXPECT_TRUE(outcome.mayPrint) << when;
            expectWhole(outcome.told, when);
        }
    }
}

TEST_F(FaultsTest, OfThePrintSystemAreForgottenByTheNextSession)
{
    const Outcome reference = faultlessSession();
    const int count = systemCalls.calls;
    for (int at = 0; at < count; at += all() ? 7 : 49) {
        hostCalls = {};
        systemCalls = {.at = at};
        runSession();
        const Outcome after = faultlessSession();
        ASSERT_EQ(after.told, reference.told) << "after call " << at << " failed";
    }
}

TEST_F(FaultsTest, OfADialogThatIsAskedForTheTapeLeaveTheLengthAsItWasSaved)
{
    FakeDialog dialog(usbDialog(wholePrinter(), paperOf(60)));
    FaultyHost* const host = [[[FaultyHost alloc] init] autorelease];
    host->real = dialog.callback();
    PanelSession session(dialog, host);
    session.open();
    for (int at = 0; at < 2; ++at) {
        host->told.clear();
        hostCalls = {.fault = Fault::Raise, .at = at};
        [session.panel() saveSetting_Length];
        EXPECT_EQ(hostCalls.struck, at == 0 ? "printSettings" : "pageFormat");
        // The stand-in for an unreadable tape would be 100.
        EXPECT_EQ(host->told, Texts());
        EXPECT_EQ(textOf([ivarOf<NSTextField*>(session.panel(), "mLengthTxFld") stringValue]),
                  "60.0");
    }
    [session.panel() saveSetting_Length];
    EXPECT_EQ(host->told, Texts{"VnTapeLength=60.0"});
}
