#include "dialog/twin/PanelCheck.h"

#include "dialog/BuiltIn.hpp"
#include "dialog/Text.h"
#include "dialog/panel/PanelHost.h"
#include "dialog/panel/PanelLoader.h"

namespace dialog {

std::string BundleLook::marginAlert()
{
    NSBundle* const bundle = [NSBundle bundleWithPath:toNSString(path_)];
    NSString* const key = @"RS_Alrt_LengthByMargin";
    NSString* const text = [bundle localizedStringForKey:key value:@"" table:nil];
    return [text isEqualToString:key] ? std::string() : toString(text);
}

Failure BundleLook::load(std::string& name)
{
    Failure failure;
    PanelHost* const host =
        [[PanelHost alloc] initWithPrinter:"Check" deviceURI:"usb://Sample/Tape"
                                       ppd:PPDFile::fromBytes("Check", samplePPD(), failure)
                                     paper:{}
                                    wanted:{}];
    NSString* const found = [LoadedPanel nameOfPanelInBundle:path_ host:host failure:failure];
    name = toString(found);
    [host release];
    return failure;
}

} // namespace dialog
