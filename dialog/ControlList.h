// ControlList.h - where the controls on the screen are, for scripts that press them.
#pragma once

#include <AppKit/AppKit.h>

#include <string_view>
#include <utility>
#include <vector>

// A view that knows what the controls inside of it are called.
@protocol ControlNaming
- (NSString*)nameOfControl:(NSView*)control; // nil for any other
@end

namespace dialog {

using ControlNames = std::vector<std::pair<id, std::string_view>>;

// Every control in a visible window of the program, a line each, in the order of the view tree:
// name, left, top, width, height (screen pixels from the top left), enabled or disabled, on or off,
// spoken name, text.  First comes the control that has the keyboard, by the name Focus.  A control
// that `names` does not know is named by a view around it, else by its class; the cells of a matrix
// and the items of an open menu are named "cell" and "item".
NSString* visibleControls(NSView* focused, const ControlNames& names);

} // namespace dialog
