#include "plugin/PlugIn.h"

#include "pagesettings/PageSettingPDE.h"
#include "plugin/SystemVersion.hpp"

#include <CoreServices/CoreServices.h>

static NSString* const kPrintDialogType = @"BDB091F4-E57F-11D3-B5CC-0050E4603277";

static BOOL tested;
static BOOL leopardOrLater;

@implementation VNKMZRPageSettings13PlugIn13_v100_

- (BOOL)runningOnLeopardOrLater
{
    if (tested)
        return leopardOrLater;
    plugin::SystemVersion version;
    Gestalt(gestaltSystemVersionMajor, &version.major);
    Gestalt(gestaltSystemVersionMinor, &version.minor);
    Gestalt(gestaltSystemVersionBugFix, &version.bugFix);
    leopardOrLater = plugin::isLeopardOrLater(version);
    tested = YES;
    return leopardOrLater;
}

- (BOOL)initWithBundle:(NSBundle*)bundle
{
    if (![self runningOnLeopardOrLater])
        return NO;
    pluginBundle = bundle;
    return YES;
}

- (NSArray*)PDEPanelsForType:(NSString*)type withHostInfo:(id)hostInfo
{
    // The array of an earlier request is left to its dialog, which may still hold it unretained.
    pdes = [[NSMutableArray alloc] init];
    if (![type isEqualToString:kPrintDialogType])
        return pdes;

    PageSettingPDE13_v100_* const panel =
        [[[PageSettingPDE13_v100_ alloc] initWithCallback:hostInfo
                                                andBundle:pluginBundle] autorelease];
    if (panel)
        [pdes addObject:panel];
    if ([pdes count] == 0) {
        [pdes release];
        pdes = nil;
    }
    return pdes;
}

- (void)dealloc
{
    [pdes release];
    [super dealloc];
}

@end
