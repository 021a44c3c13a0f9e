/* CoreFoundation/CoreFoundation.h - the few Core Foundation calls that a print-dialog panel makes.
 *
 * Toll-free with the toolkit: a CFStringRef is an NSString*, a CFDataRef an NSData*, a CFURLRef an
 * NSURL*, and so on; a cast is all it takes.  Names, argument order and constant numbers are the
 * framework's own.  Usable from C, C++ and Objective-C++.
 *
 * Ownership: what a call with Create or Copy in its name answers belongs to the caller
 * (CFRelease); what a Get call answers is borrowed.
 *
 * Each behaviour is marked by where it comes from:
 *   [framework]  as the original documents it
 *   [toolkit]    what the toolkit's Foundation does
 *   [ours]       chosen here, where the original crashes or says nothing
 *
 * A null argument answers quietly: NULL, 0, false, or nothing done [ours].  Allocators are ignored
 * [ours]: there is one heap.  Nothing here raises.
 */
#pragma once

#include <stdarg.h>
#include <stddef.h>
#include <stdint.h>

#ifdef __OBJC__
#import <Foundation/Foundation.h>
#endif

#define CF_EXPORT extern __attribute__((visibility("default")))

#ifdef __cplusplus
extern "C" {
#endif

/* Plain types. */

typedef unsigned char Boolean;
typedef uint8_t UInt8;
typedef int8_t SInt8;
typedef uint16_t UInt16;
typedef int16_t SInt16;
typedef uint32_t UInt32;
typedef int32_t SInt32;
typedef uint64_t UInt64;
typedef int64_t SInt64;
typedef UInt16 UniChar;
typedef float Float32;
typedef double Float64;
typedef SInt16 OSErr;
typedef SInt32 OSStatus;
typedef UInt32 OSType;

enum
{
    noErr = 0,
    paramErr = -50
};

#ifndef TRUE
#define TRUE 1
#endif
#ifndef FALSE
#define FALSE 0
#endif

typedef long CFIndex;
typedef unsigned long CFTypeID;
typedef unsigned long CFOptionFlags;

typedef const void* CFTypeRef;
typedef CFTypeRef CFPropertyListRef;
typedef const struct __CFAllocator* CFAllocatorRef;
typedef const struct __CFString* CFStringRef;
typedef const struct __CFData* CFDataRef;
typedef const struct __CFURL* CFURLRef;
typedef const struct __CFArray* CFArrayRef;
typedef const struct __CFDictionary* CFDictionaryRef;
typedef const struct __CFNumber* CFNumberRef;
typedef const struct __CFBoolean* CFBooleanRef;

typedef struct
{
    CFIndex location;
    CFIndex length;
} CFRange;

static inline CFRange CFRangeMake(CFIndex location, CFIndex length)
{
    CFRange range;
    range.location = location;
    range.length = length;
    return range;
}

typedef CFIndex CFComparisonResult;
enum
{
    kCFCompareLessThan = -1,
    kCFCompareEqualTo = 0,
    kCFCompareGreaterThan = 1
};

enum
{
    kCFNotFound = -1
};

CF_EXPORT const CFAllocatorRef kCFAllocatorDefault; /* NULL */

/* Every object. */

/* Both answer or take NULL quietly [ours].  CFRetain answers its argument [framework]. */
CF_EXPORT CFTypeRef CFRetain(CFTypeRef object);
CF_EXPORT void CFRelease(CFTypeRef object);

/* The numbers themselves are not fixed by the framework and are ours; 0 is none of the types here
 * [ours]. */
CF_EXPORT CFTypeID CFGetTypeID(CFTypeRef object);
CF_EXPORT CFTypeID CFStringGetTypeID(void);
CF_EXPORT CFTypeID CFDataGetTypeID(void);
CF_EXPORT CFTypeID CFURLGetTypeID(void);
CF_EXPORT CFTypeID CFArrayGetTypeID(void);
CF_EXPORT CFTypeID CFDictionaryGetTypeID(void);
CF_EXPORT CFTypeID CFNumberGetTypeID(void);
CF_EXPORT CFTypeID CFBooleanGetTypeID(void);

/* Equal in value [framework]; NULL equals NULL alone [ours]. */
CF_EXPORT Boolean CFEqual(CFTypeRef one, CFTypeRef other);

/* Strings. */

typedef UInt32 CFStringEncoding;

#define kCFStringEncodingInvalidId (0xffffffffU)

enum
{
    kCFStringEncodingMacRoman = 0,
    kCFStringEncodingWindowsLatin1 = 0x0500,
    kCFStringEncodingISOLatin1 = 0x0201,
    kCFStringEncodingNextStepLatin = 0x0B01,
    kCFStringEncodingASCII = 0x0600,
    kCFStringEncodingUnicode = 0x0100,
    kCFStringEncodingUTF8 = 0x08000100,
    kCFStringEncodingNonLossyASCII = 0x0BFF,

    kCFStringEncodingUTF16 = 0x0100,
    kCFStringEncodingUTF16BE = 0x10000100,
    kCFStringEncodingUTF16LE = 0x14000100,
    kCFStringEncodingUTF32 = 0x0c000100,
    kCFStringEncodingUTF32BE = 0x18000100,
    kCFStringEncodingUTF32LE = 0x1c000100,

    kCFStringEncodingISOLatin2 = 0x0202,
    kCFStringEncodingISOLatin3 = 0x0203,
    kCFStringEncodingISOLatin4 = 0x0204,
    kCFStringEncodingISOLatinCyrillic = 0x0205,
    kCFStringEncodingISOLatinArabic = 0x0206,
    kCFStringEncodingISOLatinGreek = 0x0207,
    kCFStringEncodingISOLatinHebrew = 0x0208,
    kCFStringEncodingISOLatin5 = 0x0209,
    kCFStringEncodingISOLatin6 = 0x020A,
    kCFStringEncodingISOLatinThai = 0x020B,
    kCFStringEncodingISOLatin7 = 0x020D,
    kCFStringEncodingISOLatin8 = 0x020E,
    kCFStringEncodingISOLatin9 = 0x020F,

    kCFStringEncodingWindowsLatin2 = 0x0501,
    kCFStringEncodingWindowsCyrillic = 0x0502,
    kCFStringEncodingWindowsGreek = 0x0503,
    kCFStringEncodingWindowsLatin5 = 0x0504,

    kCFStringEncodingISO_2022_JP = 0x0820,
    kCFStringEncodingEUC_JP = 0x0920,
    kCFStringEncodingEUC_CN = 0x0930,
    kCFStringEncodingEUC_KR = 0x0940,
    kCFStringEncodingShiftJIS = 0x0A01,
    kCFStringEncodingKOI8_R = 0x0A02,
    kCFStringEncodingBig5 = 0x0A03
};

typedef CFOptionFlags CFStringCompareFlags;
enum
{
    kCFCompareCaseInsensitive = 1,
    kCFCompareNonliteral = 16
};

/* A string from a literal, never to be released [framework]. */
#ifdef __OBJC__
#define CFSTR(literal) ((CFStringRef) @"" literal)
#else
#define CFSTR(literal) __CFStringMakeConstantString("" literal "")
#endif
CF_EXPORT CFStringRef __CFStringMakeConstantString(const char* utf8);

/* NULL for bytes that are not valid in the encoding, or an encoding the toolkit lacks
 * [framework]. */
CF_EXPORT CFStringRef CFStringCreateWithCString(CFAllocatorRef allocator, const char* text,
                                                CFStringEncoding encoding);
CF_EXPORT CFStringRef CFStringCreateWithBytes(CFAllocatorRef allocator, const UInt8* bytes,
                                              CFIndex length, CFStringEncoding encoding,
                                              Boolean isExternalRepresentation);
CF_EXPORT CFStringRef CFStringCreateCopy(CFAllocatorRef allocator, CFStringRef string);

/* %@ takes an object.  Numbers are written with a point whatever the process's locale: the original
 * follows the locale of `options` alone, and without one writes a point [framework].  `options` is
 * ignored [ours]. */
CF_EXPORT CFStringRef CFStringCreateWithFormat(CFAllocatorRef allocator, CFDictionaryRef options,
                                               CFStringRef format, ...);
CF_EXPORT CFStringRef CFStringCreateWithFormatAndArguments(CFAllocatorRef allocator,
                                                           CFDictionaryRef options,
                                                           CFStringRef format, va_list arguments);

/* In UTF-16 units [framework]. */
CF_EXPORT CFIndex CFStringGetLength(CFStringRef string);

/* Writes the text and a NUL.  False when the text does not fit in `bufferSize` bytes or cannot be
 * converted [framework]; the buffer is then the empty string [ours]. */
CF_EXPORT Boolean CFStringGetCString(CFStringRef string, char* buffer, CFIndex bufferSize,
                                     CFStringEncoding encoding);

/* Literally, unit by unit, without options [framework].  NULL comes before every string and equals
 * NULL alone [ours]. */
CF_EXPORT CFComparisonResult CFStringCompare(CFStringRef one, CFStringRef other,
                                             CFStringCompareFlags options);

/* The encoding with `lossByte` in place of every character that it lacks, a half of a surrogate
 * pair included; with a loss byte of 0 such a text answers NULL [framework]. */
CF_EXPORT CFDataRef CFStringCreateExternalRepresentation(CFAllocatorRef allocator,
                                                         CFStringRef string,
                                                         CFStringEncoding encoding, UInt8 lossByte);

/* What the toolkit takes as its default for C strings: the locale's, or the one that the variable
 * GNUSTEP_STRING_ENCODING names [toolkit]. */
CF_EXPORT CFStringEncoding CFStringGetSystemEncoding(void);

/* Unknown encodings answer 0, which is no NSStringEncoding [ours], and kCFStringEncodingInvalidId
 * [framework]. */
CF_EXPORT unsigned long CFStringConvertEncodingToNSStringEncoding(CFStringEncoding encoding);
CF_EXPORT CFStringEncoding CFStringConvertNSStringEncodingToEncoding(unsigned long encoding);

/* Data. */

CF_EXPORT CFDataRef CFDataCreate(CFAllocatorRef allocator, const UInt8* bytes, CFIndex length);
CF_EXPORT CFIndex CFDataGetLength(CFDataRef data);
CF_EXPORT const UInt8* CFDataGetBytePtr(CFDataRef data);

/* URLs. */

/* NULL for a text that is no URL, one with a space for example, and for the empty text
 * [framework]. */
CF_EXPORT CFURLRef CFURLCreateWithString(CFAllocatorRef allocator, CFStringRef text, CFURLRef base);

/* The text as it was given, letter case included; of a URL relative to another its own part only
 * [framework]. */
CF_EXPORT CFStringRef CFURLGetString(CFURLRef url);

/* The scheme in its own letter case, without the colon; the base's for a relative URL; NULL when
 * there is none [framework]. */
CF_EXPORT CFStringRef CFURLCopyScheme(CFURLRef url);

/* Dictionaries. */

typedef struct
{
    CFIndex version;
} CFDictionaryKeyCallBacks;
typedef struct
{
    CFIndex version;
} CFDictionaryValueCallBacks;

CF_EXPORT const CFDictionaryKeyCallBacks kCFTypeDictionaryKeyCallBacks;
CF_EXPORT const CFDictionaryValueCallBacks kCFTypeDictionaryValueCallBacks;

/* Keys and values are objects, whatever the callbacks [ours]; a null one is left out [ours]. */
CF_EXPORT CFDictionaryRef CFDictionaryCreate(CFAllocatorRef allocator, const void** keys,
                                             const void** values, CFIndex count,
                                             const CFDictionaryKeyCallBacks* keyCallBacks,
                                             const CFDictionaryValueCallBacks* valueCallBacks);
CF_EXPORT CFIndex CFDictionaryGetCount(CFDictionaryRef dictionary);
CF_EXPORT const void* CFDictionaryGetValue(CFDictionaryRef dictionary, const void* key);

/* `value` may be NULL; it is left alone when the key is not there [framework]. */
CF_EXPORT Boolean CFDictionaryGetValueIfPresent(CFDictionaryRef dictionary, const void* key,
                                                const void** value);

/* Numbers and booleans. */

typedef CFIndex CFNumberType;
enum
{
    kCFNumberSInt8Type = 1,
    kCFNumberSInt16Type = 2,
    kCFNumberSInt32Type = 3,
    kCFNumberSInt64Type = 4,
    kCFNumberFloat32Type = 5,
    kCFNumberFloat64Type = 6,
    kCFNumberCharType = 7,
    kCFNumberShortType = 8,
    kCFNumberIntType = 9,
    kCFNumberLongType = 10,
    kCFNumberLongLongType = 11,
    kCFNumberFloatType = 12,
    kCFNumberDoubleType = 13,
    kCFNumberCFIndexType = 14,
    kCFNumberNSIntegerType = 15,
    kCFNumberCGFloatType = 16,
    kCFNumberMaxType = 16
};

CF_EXPORT CFNumberRef CFNumberCreate(CFAllocatorRef allocator, CFNumberType type,
                                     const void* value);

/* False when the number does not fit the type exactly; the nearest value is then written all the
 * same [framework], and 0 for a number that is not a number [ours].  An object that is no number
 * answers false and writes nothing [ours]. */
CF_EXPORT Boolean CFNumberGetValue(CFNumberRef number, CFNumberType type, void* value);

/* Calls rather than variables: the toolkit makes its truth values when first asked. */
#define kCFBooleanTrue __CFBooleanConstant(1)
#define kCFBooleanFalse __CFBooleanConstant(0)
CF_EXPORT CFBooleanRef __CFBooleanConstant(Boolean truth);
CF_EXPORT Boolean CFBooleanGetValue(CFBooleanRef truth);

/* Property lists. */

enum
{
    kCFPropertyListImmutable = 0,
    kCFPropertyListMutableContainers = 1,
    kCFPropertyListMutableContainersAndLeaves = 2
};

/* NULL for anything that is no valid property list, with a reason in `error`, which may be NULL and
 * otherwise belongs to the caller; NULL there on success [framework].  Only the XML form is read,
 * in UTF-8, and arrays and dictionaries 128 deep [ours]. */
CF_EXPORT CFPropertyListRef CFPropertyListCreateFromXMLData(CFAllocatorRef allocator,
                                                            CFDataRef data,
                                                            CFOptionFlags mutability,
                                                            CFStringRef* error);

typedef CFIndex CFPropertyListFormat;
enum
{
    kCFPropertyListOpenStepFormat = 1,
    kCFPropertyListXMLFormat_v1_0 = 100,
    kCFPropertyListBinaryFormat_v1_0 = 200
};

/* Strings, data, numbers, booleans, dates, and arrays and dictionaries of them under string
 * keys [framework].  False for a text with characters that XML lacks, for more than 128 levels and
 * for every form but XML [ours]. */
CF_EXPORT Boolean CFPropertyListIsValid(CFPropertyListRef list, CFPropertyListFormat format);

/* NULL for an object that no property list can hold [framework]. */
CF_EXPORT CFDataRef CFPropertyListCreateXMLData(CFAllocatorRef allocator, CFPropertyListRef list);

#ifdef __cplusplus
}
#endif
