#include <ApplicationServices/ApplicationServices.h>

extern "C" OSStatus callPMGetFirstPage(PMPrintSettings settings, UInt32* page)
{
    return PMGetFirstPage(settings, page);
}

extern "C" OSStatus callPMGetLastPage(PMPrintSettings settings, UInt32* page)
{
    return PMGetLastPage(settings, page);
}

extern "C" OSErr callGestalt(OSType selector, SInt32* response)
{
    return Gestalt(selector, response);
}

extern "C" CFStringEncoding callCFStringGetSystemEncoding()
{
    return CFStringGetSystemEncoding();
}
