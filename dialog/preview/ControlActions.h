// ControlActions.h - tells when a control has done what it does.
#pragma once

#include <AppKit/AppKit.h>

namespace dialog {

// Posted once a control's action has run; the object is the control.  Every step of a dragged
// slider is one.
extern NSString* const kControlHasActed;

} // namespace dialog

// The application of this program.  The panel's controls send their actions through it, so the
// dialog need not know them, and leaves their targets alone.
@interface TapePrintApplication : NSApplication
@end
