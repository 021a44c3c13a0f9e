/* AppKit/AppKit.h - the toolkit's own header, and what the toolkit lacks. */
#pragma once

#include_next <AppKit/AppKit.h>

#include <CoreFoundation/CoreFoundation.h>

/* The toolkit has no tracking-area notifications.  A print dialog posts this one, with the view as
 * object, when its window has grown around a view that asked for more room. */
CF_EXPORT NSString* const NSViewDidUpdateTrackingAreasNotification;
