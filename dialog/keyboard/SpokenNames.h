// SpokenNames.h - names of controls for assistive technology.
//
// The toolkit has no such methods of its own and tells no screen reader of its controls.  They are
// named all the same, by the method that the toolkit's interface provides for it.
#pragma once

#include <AppKit/AppKit.h>

// A view that knows what the controls inside of it are called; nil for any other.
@protocol SpokenNaming
- (NSString*)spokenNameOfControl:(NSView*)control;
@end

@interface NSControl (SpokenNames)
// What a view around it says, its own title, the caption beside it, or its tool tip; empty for
// plain text, which speaks for itself.
- (NSString*)accessibilityLabel;
@end
