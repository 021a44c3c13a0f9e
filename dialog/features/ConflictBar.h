// ConflictBar.h - a line that says which choices do not go together, with a button that ends it.
#pragma once

#include <AppKit/AppKit.h>

@interface ConflictBar : NSView
{
    NSTextField* sentence_;
    NSButton* remedy_;
}

- (id)initWithTarget:(id)target action:(SEL)action;

// The button names what it does; without a title there is none.
- (void)showSentence:(NSString*)sentence remedy:(NSString*)title;

// What the sentence needs beside the button.
- (double)heightForWidth:(double)width;

- (NSTextField*)sentenceField;
- (NSButton*)remedyButton;

@end
