// PanelLoader.h - an extension loaded by its path, and the one panel it offers for a host.
#pragma once

#include "dialog/Messages.hpp"
#include "dialog/panel/PanelHost.h"

#include <string>

@interface LoadedPanel : NSObject
{
    id principal_; // the extension's own; owned
    id<PrintDialogPanel> panel_;
    NSView* view_;
    NSString* name_;
    NSArray* keys_;
}

// Loads the bundle, makes its principal object and asks it for the panel, its view, its name, its
// kind and its option keys, in the order of the protocol.  nil with `failure` when any is missing.
// Autoreleased.
+ (LoadedPanel*)panelFromBundle:(const std::string&)path
                           host:(PanelHost*)host
                        failure:(dialog::Failure&)failure;

// As far as one gets without a display: the panel is made and asked for its name, but not for its
// view.  nil with `failure`.  Autoreleased.
+ (NSString*)nameOfPanelInBundle:(const std::string&)path
                            host:(PanelHost*)host
                         failure:(dialog::Failure&)failure;

- (id<PrintDialogPanel>)panel;
- (NSView*)view;
- (NSString*)name;

// Whether the panel asked to hear of the option.
- (BOOL)wantsOption:(NSString*)key;

// A choice made elsewhere in the dialog; the panel hears of the options it asked for alone.
- (void)optionDidChange:(NSString*)key choice:(NSString*)choice;

@end
