#include <ApplicationServices/ApplicationServices.h>
#include <CoreFoundation/CoreFoundation.h>
#include <CoreServices/CoreServices.h>

int probe(PMPrintSettings settings);

int probe(PMPrintSettings settings)
{
    CFTypeRef value = NULL;
    SInt32 major = 0;
    CFRange range = CFRangeMake(0, 1);
    OSErr asked = Gestalt(gestaltSystemVersionMajor, &major);
    OSStatus status = PMPrintSettingsGetValue(settings, CFSTR("key"), &value);
    return (int)(asked + status + range.length + (kCFBooleanTrue == kCFBooleanFalse));
}
