#include "tape/TapeInfo.h"

#include "ppd/ChoiceLookup.hpp"
#include "tape/TapeState.hpp"
#include "tape/Units.hpp"

#include <algorithm>
#include <cstring>

double MiriToInch(double millimetres)
{
    return tape::inchesFromMillimetres(millimetres);
}

double InchToMiri(double inches)
{
    return tape::millimetresFromInches(inches);
}

std::intptr_t RoundDouble(double value)
{
    return tape::roundHalfAwayFromZero(value);
}

// Only a page size of the PPD is known to be a label; a name that the PPD lacks says nothing.  For
// any other tape it makes no difference whether the PPD lists it.
static std::int32_t stateOfPageSize(const ppd_file_t* ppd, const char* name, std::size_t& place)
{
    const tape::TapeState state = tape::tapeStateForPaper(name);
    if (!ppd || state == tape::kContinuousTape)
        return tape::kContinuousTape;
    const auto listed = ppd::firstIndexFrom(
        place, static_cast<std::size_t>(std::max(ppd->num_sizes, 0)),
        [&](std::size_t i) { return std::strcmp(name, ppd->sizes[i].name) == 0; });
    return listed ? state : tape::kContinuousTape;
}

static CFStringRef copyPaperNameInTicket(CFDataRef ticket)
{
    CFPropertyListRef list = CFPropertyListCreateFromXMLData(kCFAllocatorDefault, ticket,
                                                             kCFPropertyListImmutable, nullptr);
    if (!list)
        return nullptr;
    CFStringRef copy = nullptr;
    if (CFGetTypeID(list) == CFDictionaryGetTypeID()) {
        const void* name =
            CFDictionaryGetValue(static_cast<CFDictionaryRef>(list), CFSTR("KmPaperName2"));
        if (name && CFGetTypeID(name) == CFStringGetTypeID())
            copy = CFStringCreateCopy(kCFAllocatorDefault, static_cast<CFStringRef>(name));
    }
    CFRelease(list);
    return copy;
}

static CFStringRef copyPaperNameOfTicketIn(PMPrintSettings settings)
{
    CFTypeRef ticket = nullptr;
    if (!settings ||
        PMPrintSettingsGetValue(settings, CFSTR(kPrintSettingsTicketKey), &ticket) != 0 ||
        !ticket || CFGetTypeID(ticket) != CFDataGetTypeID())
        return nullptr;
    // The settings may drop the value while it is read.
    CFRetain(ticket);
    CFStringRef copy = copyPaperNameInTicket(static_cast<CFDataRef>(ticket));
    CFRelease(ticket);
    return copy;
}

OSStatus GetTapeInfo2(std::intptr_t, PMPrintSettings settings, TapeInfo* info)
{
    info->paperName = copyPaperNameOfTicketIn(settings);
    return 0;
}

OSStatus GetTapeInfo(PMPrintSession, PMPrintSettings settings, PMPageFormat pageFormat,
                     ppd_file_t* ppd, TapeInfo* info)
{
    std::size_t place{};
    return tapeInfo(settings, pageFormat, ppd, info, place);
}

OSStatus tapeInfo(PMPrintSettings settings, PMPageFormat pageFormat, const ppd_file_t* ppd,
                  TapeInfo* info, std::size_t& sizePlace)
{
    *info = {tape::kDefaultLengthMillimetres, tape::kContinuousTape, nullptr};
    char name[256] = "";

    PMPaper paper = nullptr;
    OSStatus status = PMGetPageFormatPaper(pageFormat, &paper);
    if (status != 0)
        return status;
    if (!paper)
        return 0;

    CFStringRef paperName = nullptr;
    if (PMPaperGetPPDPaperName(paper, &paperName) == 0 && paperName) {
        if (!CFStringGetCString(paperName, name, sizeof name, kCFStringEncodingUTF8))
            *name = '\0';
        info->paperName = CFStringCreateCopy(kCFAllocatorDefault, paperName);
    } else {
        info->paperName = copyPaperNameOfTicketIn(settings);
    }

    double height{};
    status = PMPaperGetHeight(paper, &height);
    if (status != 0)
        return status;
    if (height == 0)
        return 0;
    info->length = tape::millimetresFromPoints(height);

    // The ticket is only a stand-in for the name: a name from there never locks the length.
    info->state = stateOfPageSize(ppd, name, sizePlace);
    return 0;
}

OSStatus GetTapeInfo3(PMPrintSettings settings, PageRange* range)
{
    *range = {0, 0};
    UInt32 page{};
    if (PMGetFirstPage(settings, &page) == 0) {
        PMSetFirstPage(settings, page, false);
        range->firstPage = page;
    }
    const OSStatus status = PMGetLastPage(settings, &page);
    if (status != 0)
        return status;
    const OSStatus set = PMSetLastPage(settings, page, false);
    range->lastPage = page;
    return set;
}

OSStatus GetTicketFromSession(PMPrintSession session, CFStringRef key, std::int32_t* value)
{
    CFTypeRef number = nullptr;
    if (PMSessionGetDataFromSession(session, key, &number) != 0 || !number)
        return kPMInvalidTicket;
    CFNumberGetValue(static_cast<CFNumberRef>(number), kCFNumberSInt32Type, value);
    return 0;
}
