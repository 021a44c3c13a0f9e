// KeyboardWindow.h - a window all of whose controls are reached by keys.
//
// Tab and Shift-Tab go through the controls of its parts and round, Alt with the letter underlined
// in a caption goes to that caption's control, Control with Page Up or Page Down turns the pages of
// a pop-up.
#pragma once

#include "dialog/keyboard/AccessKeys.hpp"

#include <AppKit/AppKit.h>

#include <vector>

@protocol KeyboardParts
// In the order of Tab: controls, and views whose controls are read row by row.
- (std::vector<NSView*>)keyboardParts;
// Whose entries Control with Page Up and Page Down choose.
- (NSPopUpButton*)pages;
@end

@interface KeyboardWindow : NSWindow
{
    id<KeyboardParts> parts_; // not owned
    struct Access
    {
        char32_t letter;
        NSControl* control; // not owned
    };
    std::vector<Access> access_;
}

- (void)setParts:(id<KeyboardParts>)parts;

// Underlines a letter in each caption that goes to the control at the same place.
- (void)letCaptions:(NSArray*)captions leadTo:(NSArray*)controls;

// What a key would act on; a field while it is being typed in.  nil when there is none.
- (NSView*)focusedView;

// Ends what is being typed.  Any other control keeps the keyboard.
- (void)endTyping;

@end
