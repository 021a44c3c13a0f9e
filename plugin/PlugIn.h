// PlugIn.h - the bundle's principal object, which the print dialog asks for panels.
//
//     plugIn = [[principalClass alloc] init...]: initWithBundle: answers whether the plug-in may be
//     used, not an object, so keep what alloc gave.
#pragma once

#include <AppKit/AppKit.h>

@interface VNKMZRPageSettings13PlugIn13_v100_ : NSObject
{
    NSBundle* pluginBundle; // borrowed: the dialog keeps the bundle loaded
    NSMutableArray* pdes;   // owned: the panels of the last request, or nil
}

// Whether the system is release 10.5 or later; asked once per process.
- (BOOL)runningOnLeopardOrLater;

// NO on a system that is too old.
- (BOOL)initWithBundle:(NSBundle*)bundle;

// One new panel for the print dialog, nil if it cannot be made; an empty array for any other
// dialog.  `hostInfo` is the dialog's callback object (PDEPluginCallback.h).
- (NSArray*)PDEPanelsForType:(NSString*)type withHostInfo:(id)hostInfo;

@end
