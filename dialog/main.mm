// tape-print: the print dialog for label-tape printers.

#include "dialog/Answer.hpp"
#include "dialog/CommandLine.hpp"
#include "dialog/DialogController.h"
#include "dialog/ExitStatus.hpp"
#include "dialog/Messages.hpp"
#include "dialog/Places.hpp"
#include "dialog/ProcessStart.h"
#include "dialog/Translate.hpp"
#include "dialog/language/Language.hpp"
#include "dialog/language/SpeakLanguage.h"
#include "dialog/preview/ControlActions.h"
#include "dialog/start/Fonts.hpp"
#include "dialog/start/InputMethod.h"
#include "dialog/start/Pictures.h"
#include "dialog/start/QuickHash.h"
#include "dialog/start/ShortSleep.h"
#include "dialog/theme/DesktopSettings.hpp"
#include "dialog/theme/TapeTheme.h"
#include "dialog/toolkit/KeepToOneself.h"
#include "dialog/toolkit/OwnPasteboard.h"
#include "dialog/toolkit/QuickInterface.h"
#include "dialog/toolkit/WindowServer.h"
#include "dialog/twin/PanelCheck.h"

#include <AppKit/AppKit.h>

#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <vector>

namespace {

int statusNumber(dialog::ExitStatus status)
{
    return static_cast<int>(status);
}

// nil when the window server does not answer.
NSApplication* openApplication()
{
    const dialog::ShortSleep shortSleep;
    @try {
        return [TapePrintApplication sharedApplication];
    } @catch (NSException*) {
        return nil;
    }
}

std::string_view variable(const char* name)
{
    const char* const value = std::getenv(name);
    return value == nullptr ? std::string_view() : value;
}

const dialog::Language& wantedLanguage()
{
    return dialog::languageFor(
        {variable("LANGUAGE"), variable("LC_ALL"), variable("LC_MESSAGES"), variable("LANG")});
}

void setUpToolkit(const dialog::Language& language)
{
    [[NSUserDefaults standardUserDefaults] registerDefaults:@{@"GSSuppressAppIcon" : @"YES"}];
    dialog::speak(language);
}

dialog::ExitStatus runWithoutWindow(dialog::CommandLine line)
{
    if (line.plugin.empty()) {
        line.plugin = dialog::bundlePath(dialog::programFolder());
    }
    dialog::BundleLook panel(line.plugin);
    return dialog::runTwin(line, panel);
}

dialog::ExitStatus run(const dialog::CommandLine& line, const dialog::Language& language)
{
    DialogController* const controller = [[DialogController alloc] initWithCommandLine:line];
    dialog::askWindowServerLess();
    dialog::deferInputMethod();
    NSApplication* const application = openApplication();
    if (application == nil) {
        [controller release];
        const dialog::Failure failure = dialog::noDisplay();
        std::fprintf(stderr, "tape-print: %s\n", failure.text.c_str());
        return failure.status;
    }
    dialog::useFontFor(language);
    dialog::useTheme(dialog::appearanceOnThisDesktop(line.appearance));
    [application setDelegate:(id)controller];
    [application run];
    const dialog::ExitStatus status = [controller status];
    [application setDelegate:nil];
    [controller release];
    return status;
}

} // namespace

int main(int argc, char** argv, char** environment)
{
    const dialog::Language& language = wantedLanguage();
    dialog::openCatalogue(dialog::cataloguesFolder(dialog::programFolder()), language.catalogue);
    std::vector<std::string_view> words(argv + (argc > 0 ? 1 : 0), argv + argc);
    const dialog::CommandLine line = dialog::parseCommandLine(words);
    if (!line.error.empty()) {
        std::fprintf(stderr, "tape-print: %s\n%s\n", line.error.c_str(),
                     dialog::tr("Try \"tape-print --help\"."));
        return statusNumber(dialog::ExitStatus::CommandLine);
    }
    if (line.help) {
        dialog::answer(dialog::helpText());
        return statusNumber(dialog::endOfAnswer(dialog::ExitStatus::Printed));
    }
    if (line.version) {
        dialog::answer("tape-print " TAPE_PRINT_VERSION "\n");
        return statusNumber(dialog::endOfAnswer(dialog::ExitStatus::Printed));
    }

    if (dialog::taskOf(line) == dialog::Task::Window) {
        dialog::beginReadingFonts();
    }
    dialog::beginToolkit(environment);
    dialog::keepHashesOfConstantTexts();
    NSAutoreleasePool* const pool = [[NSAutoreleasePool alloc] init];
    setUpToolkit(language);
    if (dialog::taskOf(line) != dialog::Task::Window) {
        const dialog::ExitStatus answered = runWithoutWindow(line);
        [pool drain];
        return statusNumber(answered);
    }
    // Or the first picture that the toolkit looks for by name loads every coder of that library,
    // half of the start's time and 20 MB, for formats that a dialog has no pictures in.
    [NSImageRep unregisterImageRepClass:NSClassFromString(@"GSImageMagickImageRep")];
    dialog::keepToOneself();
    dialog::readInterfaceFilesQuickly();
    dialog::setUpPasteboards();
    dialog::findPicturesAtOnce();
    const dialog::ExitStatus status = run(line, language);
    [pool drain];
    return statusNumber(status);
}
