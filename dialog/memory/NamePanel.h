// NamePanel.h - a small window that asks for the name of a preset, or whether to go on without one.
//
// Modal: it holds the dialog until it is answered.  What is wrong with a name it says itself and
// stays.
#pragma once

#include "dialog/memory/PresetSession.hpp"

#include <AppKit/AppKit.h>

#include <string>

@protocol NamePanelTaker
// An empty sentence ends the panel.  `replacing`: the user knows that the name is taken.
- (dialog::NameAnswer)takeName:(const std::string&)typed replacing:(BOOL)replacing;
@end

@interface NamePanel : NSObject
{
    NSPanel* panel_;
    NSTextField* field_; // nil when no name is asked for
    NSTextField* text_;
    NSTextField* message_;
    NSButton* cancel_;
    NSButton* button_;
    NSString* verb_;
    id<NamePanelTaker> taker_; // not owned
    BOOL replacing_;
    BOOL taken_;
}

// `question` stands before the field, or, when `name` is nil, alone.  `verb` is the button's title.
- (id)initWithTitle:(NSString*)title
           question:(NSString*)question
               name:(NSString*)name
               verb:(NSString*)verb
              taker:(id<NamePanelTaker>)taker;

// NO when it was cancelled.
- (BOOL)runOver:(NSWindow*)window;

@end
