// PDETextField.h - a text field that tells the default notification centre when its text is edited
// or selected by a program.
//
// It posts "TextFieldResignFirstResponderNotification" with itself as object and no user
// information.  Gaining the focus and ending the editing post nothing, whatever the name says.
// The interface file assigns the class to the panel's entry fields.  Main thread only.
#pragma once

#include <AppKit/AppKit.h>

@interface PDETextField13_v100_ : NSTextField

// Posts when the flag is NO; does nothing when it is YES.
- (void)sendFirstResponderNotification:(BOOL)flag;

- (void)textDidEndEditing:(NSNotification*)notification;

// Posts, and leaves the selection as it is.  The toolkit's own calls while the field gains the
// focus or is written to post nothing.
- (void)selectText:(id)sender;

// Posts.  The field's delegate gets no controlTextDidChange: from here.
- (void)textDidChange:(NSNotification*)notification;

- (BOOL)becomeFirstResponder;

@end
