/* CoreServices/CoreServices.h - the system version query.
 *
 * Answers the release whose toolkit interface the installed toolkit follows: 10.14, the newest that
 * its <GNUstepBase/GSVersionMacros.h> (1.28) names.  The toolkit's NSAppKitVersionNumber says 10.4,
 * which it has long outgrown.
 *
 * For trying how a program takes another release, the environment variable
 * PAGE_SETTINGS_SYSTEM_VERSION names it: one to three numbers with points between ("10.4.11",
 * "10.5", "11"), missing ones being 0.  Any other text makes the query fail; an empty variable
 * counts as none.
 */
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#ifdef __cplusplus
extern "C" {
#endif

enum
{
    gestaltSystemVersionMajor = 0x73797331, /* 'sys1' */
    gestaltSystemVersionMinor = 0x73797332, /* 'sys2' */
    gestaltSystemVersionBugFix = 0x73797333 /* 'sys3' */
};

enum
{
    gestaltUnknownErr = -5550,      /* the answer cannot be had */
    gestaltUndefSelectorErr = -5551 /* no such selector */
};

/* Leaves the response alone on failure.  A null response is paramErr. */
CF_EXPORT OSErr Gestalt(OSType selector, SInt32* response);

#ifdef __cplusplus
}
#endif
