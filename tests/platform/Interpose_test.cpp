#include "platform/PrintingHost.hpp"

#include <gtest/gtest.h>

extern "C" OSStatus callPMGetFirstPage(PMPrintSettings, UInt32*);
extern "C" OSStatus callPMGetLastPage(PMPrintSettings, UInt32*);
extern "C" OSErr callGestalt(OSType, SInt32*);
extern "C" CFStringEncoding callCFStringGetSystemEncoding();

// This program's own versions, in front of the library's.

extern "C" OSStatus PMGetFirstPage(PMPrintSettings, UInt32* page)
{
    *page = 77;
    return kPMGeneralError;
}

extern "C" OSErr Gestalt(OSType, SInt32* response)
{
    *response = 9;
    return 12;
}

extern "C" CFStringEncoding CFStringGetSystemEncoding()
{
    return 4711;
}

TEST(Interposing, GivesASharedObjectTheProgramsOwnCalls)
{
    printing::PrintSettings settings;
    UInt32 page = 0;
    EXPECT_EQ(callPMGetFirstPage(settings.handle(), &page), kPMGeneralError);
    EXPECT_EQ(page, 77u);
    SInt32 number = 0;
    EXPECT_EQ(callGestalt(gestaltSystemVersionMajor, &number), 12);
    EXPECT_EQ(number, 9);
    EXPECT_EQ(callCFStringGetSystemEncoding(), 4711u);
}

// What another call of the library makes of it is seen below.
extern "C" CFDataRef CFPropertyListCreateXMLData(CFAllocatorRef, CFPropertyListRef)
{
    return nullptr;
}

TEST(Interposing, ReachesTheCallsInsideTheLibrary)
{
    printing::PrintSettings settings;
    CFDataRef data = nullptr;
    EXPECT_EQ(PMPrintSettingsCreateDataRepresentation(settings.handle(), &data, 0),
              kPMGeneralError);
    EXPECT_EQ(data, nullptr);
}

TEST(Interposing, LeavesTheOtherCallsToTheLibrary)
{
    printing::PrintSettings settings;
    UInt32 page = 0;
    EXPECT_EQ(callPMGetLastPage(settings.handle(), &page), kPMNoError);
    EXPECT_EQ(page, kPMPrintAllPages);
}
