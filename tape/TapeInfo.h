// TapeInfo.h - what tape is selected for the job, and millimetres and inches.
//
// Statuses are the printing framework's: 0 for success.  A caller may use the record whatever the
// status: what was not reached stands at its default, an editable tape of 100 mm.
#pragma once

#include "plugin/Export.h"

#include <ApplicationServices/ApplicationServices.h>
#include <CoreFoundation/CoreFoundation.h>
#include <cups/ppd.h>

#include <cstddef>
#include <cstdint>

struct TapeInfo
{
    double length;         // the paper's height in millimetres; 100.0 when unknown
    std::int32_t state;    // 1 for a label of fixed length, else 0 (tape/TapeState.hpp)
    CFStringRef paperName; // the PPD name of the paper, or NULL; the caller releases it
};

struct PageRange
{
    std::uint32_t firstPage;
    std::uint32_t lastPage;
};

// The binary value of the print settings in which the driver's other parts leave what they chose:
// an XML property list, a dictionary with the paper's PPD name under "KmPaperName2".
#define kPrintSettingsTicketKey "jp.co.vendor.print.PrintSettingsTicket.KmE5"

PDE_EXPORT double MiriToInch(double millimetres);
PDE_EXPORT double InchToMiri(double inches);

// Nearest integer, halves away from zero.
PDE_EXPORT std::intptr_t RoundDouble(double value);

// Fills the record from the page format, its paper's name failing that from the ticket.
PDE_EXPORT OSStatus GetTapeInfo(PMPrintSession session, PMPrintSettings settings,
                                PMPageFormat pageFormat, ppd_file_t* ppd, TapeInfo* info);

// The same for a caller that asks often: keeps where the PPD's list has the paper, from 0.
OSStatus tapeInfo(PMPrintSettings settings, PMPageFormat pageFormat, const ppd_file_t* ppd,
                  TapeInfo* info, std::size_t& sizePlace);

// Fills paperName alone, from the ticket.  Always 0.
PDE_EXPORT OSStatus GetTapeInfo2(std::intptr_t unused, PMPrintSettings settings, TapeInfo* info);

// Sets the job's page range to what it is, unlocked, and answers it.
PDE_EXPORT OSStatus GetTapeInfo3(PMPrintSettings settings, PageRange* range);

// The number that the session holds under the key; -30891 when it holds none.
PDE_EXPORT OSStatus GetTicketFromSession(PMPrintSession session, CFStringRef key,
                                         std::int32_t* value);
