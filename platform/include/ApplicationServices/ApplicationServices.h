/* ApplicationServices/ApplicationServices.h - the printing framework's calls that a print-dialog
 * panel makes.
 *
 * Names, argument order and numbers are the framework's own.  The objects behind the handles belong
 * to the print dialog, which makes them through PrintingHost.hpp; a panel borrows them.
 *
 * What a Get call answers is borrowed and lives as long as its object keeps it; what a Copy or
 * Create call answers belongs to the caller.  On an error the answer is NULL or 0.
 *
 *   kPMInvalidPrinter, ...PageFormat, ...   the handle is null or of another kind
 *   kPMInvalidParameter                     nowhere to put the answer
 *
 * A handle whose object is gone must not be passed.  Main thread only.
 */
#pragma once

#include <CoreFoundation/CoreFoundation.h>
#include <CoreServices/CoreServices.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct OpaquePMPrinter* PMPrinter;
typedef struct OpaquePMPaper* PMPaper;
typedef struct OpaquePMPageFormat* PMPageFormat;
typedef struct OpaquePMPrintSettings* PMPrintSettings;
typedef struct OpaquePMPrintSession* PMPrintSession;

enum
{
    kPMNoError = 0,
    kPMInvalidParameter = -50,
    kPMKeyNotFound = -9589,
    kPMGeneralError = -30870,
    kPMNotImplemented = -30873,
    kPMNoSuchEntry = -30874,
    kPMInvalidPrintSettings = -30875,
    kPMInvalidPageFormat = -30876,
    kPMValueOutOfRange = -30877,
    kPMInvalidPrintSession = -30879,
    kPMInvalidPrinter = -30880,
    kPMStringConversionFailure = -30883,
    kPMInvalidKey = -30888,
    kPMInvalidValue = -30889,
    kPMInvalidTicket = -30891,
    kPMInvalidType = -30893,
    kPMInvalidObject = -30896,
    kPMInvalidPaper = -30897
};

typedef CFIndex PMDataFormat;
enum
{
    kPMDataFormatXMLDefault = 0,
    kPMDataFormatXMLMinimal = 1,
    kPMDataFormatXMLCompressed = 2
};

/* The last page of a job that prints all of them. */
#define kPMPrintAllPages ((UInt32)-1)

/* kPMNoSuchEntry for a printer without a URI, kPMStringConversionFailure for a URI that makes no
 * URL. */
CF_EXPORT OSStatus PMPrinterCopyDeviceURI(PMPrinter printer, CFURLRef* uri);

/* kPMNoError and NULL while no paper is set. */
CF_EXPORT OSStatus PMGetPageFormatPaper(PMPageFormat pageFormat, PMPaper* paper);

/* kPMNoError and NULL for a paper that the PPD does not name. */
CF_EXPORT OSStatus PMPaperGetPPDPaperName(PMPaper paper, CFStringRef* name);

/* In points, 1/72 inch. */
CF_EXPORT OSStatus PMPaperGetWidth(PMPaper paper, double* width);
CF_EXPORT OSStatus PMPaperGetHeight(PMPaper paper, double* height);

/* kPMInvalidKey for a null key, kPMKeyNotFound for one that has no value. */
CF_EXPORT OSStatus PMPrintSettingsGetValue(PMPrintSettings settings, CFStringRef key,
                                           CFTypeRef* value);

/* A null value removes the key.  kPMInvalidValue for a value that no property list can hold.  The
 * value is kept, not copied; `locked` changes nothing. */
CF_EXPORT OSStatus PMPrintSettingsSetValue(PMPrintSettings settings, CFStringRef key,
                                           CFTypeRef value, Boolean locked);

/* Pages count from 1; the last may be kPMPrintAllPages.  kPMValueOutOfRange, and no change, for
 * page 0 and for a first page after the last.  `lock` changes nothing. */
CF_EXPORT OSStatus PMGetFirstPage(PMPrintSettings settings, UInt32* first);
CF_EXPORT OSStatus PMSetFirstPage(PMPrintSettings settings, UInt32 first, Boolean lock);
CF_EXPORT OSStatus PMGetLastPage(PMPrintSettings settings, UInt32* last);
CF_EXPORT OSStatus PMSetLastPage(PMPrintSettings settings, UInt32 last, Boolean lock);

/* An XML property list: a dictionary of the values under their keys, with the page range as the
 * numbers "PMFirstPage" and "PMLastPage".  kPMNotImplemented for the compressed form. */
CF_EXPORT OSStatus PMPrintSettingsCreateDataRepresentation(PMPrintSettings settings,
                                                           CFDataRef* data, PMDataFormat format);

/* As PMPrintSettingsGetValue. */
CF_EXPORT OSStatus PMSessionGetDataFromSession(PMPrintSession session, CFStringRef key,
                                               CFTypeRef* data);

#ifdef __cplusplus
}
#endif
