#include <CoreFoundation/CoreFoundation.h>

#include "platform/NumberConversion.hpp"
#include "platform/PropertyListXML.hpp"
#include "platform/StringEncodings.hpp"
#include "platform/UriScheme.hpp"

#import <Foundation/Foundation.h>

#include <clocale>
#include <cmath>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

namespace {

// Temporaries of one call go when it returns; a caller in plain C has no pool.
class Pool
{
  public:
    Pool() = default;
    ~Pool() { [pool_ drain]; }
    Pool(const Pool&) = delete;
    Pool& operator=(const Pool&) = delete;

  private:
    NSAutoreleasePool* pool_ = [[NSAutoreleasePool alloc] init];
};

// While alive, this thread writes numbers with a point.
class PointAsDecimalSeparator
{
  public:
    PointAsDecimalSeparator()
    {
        locale_t base = duplocale(uselocale(static_cast<locale_t>(nullptr)));
        if (base == nullptr)
            return;
        ours_ = newlocale(LC_NUMERIC_MASK, "C", base);
        if (ours_ == nullptr) {
            freelocale(base);
            return;
        }
        before_ = uselocale(ours_);
    }
    ~PointAsDecimalSeparator()
    {
        if (ours_ == nullptr)
            return;
        uselocale(before_);
        freelocale(ours_);
    }
    PointAsDecimalSeparator(const PointAsDecimalSeparator&) = delete;
    PointAsDecimalSeparator& operator=(const PointAsDecimalSeparator&) = delete;

  private:
    locale_t ours_ = nullptr;
    locale_t before_ = nullptr;
};

id object(CFTypeRef ref)
{
    return (id) const_cast<void*>(ref);
}

NSString* string(CFStringRef ref)
{
    return (NSString*)ref;
}

NSStringEncoding toolkit(CFStringEncoding encoding)
{
    return static_cast<NSStringEncoding>(printing::toolkitEncoding(encoding));
}

// nil when the text holds a character that the encoding lacks.
NSData* encoded(NSString* text, NSStringEncoding encoding)
{
    if (encoding == printing::kNoToolkitEncoding)
        return nil;
    return [text dataUsingEncoding:encoding allowLossyConversion:NO];
}

bool isWide(CFStringEncoding encoding)
{
    // All of the UTF-16 and UTF-32 numbers, whose low part is the same; UTF-8 is apart.
    return (encoding & 0xffffU) == kCFStringEncodingUnicode && encoding != kCFStringEncodingUTF8;
}

// Character by character, with `lossByte` for each that the encoding lacks.
NSData* encodedWithLoss(NSString* text, CFStringEncoding encoding, UInt8 lossByte)
{
    // In UTF-16 and UTF-32 the loss byte is a character like any other, and a mark of the byte
    // order stands once, at the front.
    NSMutableString* replaced = isWide(encoding) ? [NSMutableString string] : nil;
    NSMutableData* bytes = [NSMutableData data];
    const NSUInteger length = [text length];
    NSUInteger at = 0;
    while (at < length) {
        const unichar unit = [text characterAtIndex:at];
        const bool isPair = (unit & 0xfc00) == 0xd800 && at + 1 < length &&
                            ([text characterAtIndex:at + 1] & 0xfc00) == 0xdc00;
        const NSRange range = NSMakeRange(at, isPair ? 2 : 1);
        NSString* character = [text substringWithRange:range];
        // Half a pair is in no encoding.
        NSData* converted = encoded(character, toolkit(encoding));
        if (replaced != nil)
            [replaced appendString:converted != nil
                                       ? character
                                       : [NSString stringWithFormat:@"%C", (unichar)lossByte]];
        else if (converted != nil)
            [bytes appendData:converted];
        else
            [bytes appendBytes:&lossByte length:1];
        at += range.length;
    }
    return replaced != nil ? encoded(replaced, toolkit(encoding)) : bytes;
}

template <typename To, typename From>
bool writeNumber(From from, void* to)
{
    const auto converted = printing::convertNumber<To>(from);
    std::memcpy(to, &converted.value, sizeof converted.value);
    return converted.exact;
}

template <typename From>
bool writeNumber(From from, CFNumberType type, void* to)
{
    switch (type) {
    case kCFNumberSInt8Type:
    case kCFNumberCharType:
        return writeNumber<std::int8_t>(from, to);
    case kCFNumberSInt16Type:
    case kCFNumberShortType:
        return writeNumber<std::int16_t>(from, to);
    case kCFNumberSInt32Type:
    case kCFNumberIntType:
        return writeNumber<std::int32_t>(from, to);
    case kCFNumberSInt64Type:
    case kCFNumberLongType:
    case kCFNumberLongLongType:
    case kCFNumberCFIndexType:
    case kCFNumberNSIntegerType:
        return writeNumber<std::int64_t>(from, to);
    case kCFNumberFloat32Type:
    case kCFNumberFloatType:
        return writeNumber<float>(from, to);
    case kCFNumberFloat64Type:
    case kCFNumberDoubleType:
    case kCFNumberCGFloatType:
        return writeNumber<double>(from, to);
    default:
        return false;
    }
}
static_assert(sizeof(long) == 8 && sizeof(CGFloat) == 8, "the types above are those of 64 bits");

template <typename T>
T read(const void* from)
{
    T value;
    std::memcpy(&value, from, sizeof value);
    return value;
}

// Numbers of the types; 0 is none of them.
enum : CFTypeID
{
    kStringType = 1,
    kDataType,
    kURLType,
    kArrayType,
    kDictionaryType,
    kNumberType,
    kBooleanType
};

using ListType = printing::PropertyListValue::Type;

std::optional<std::string> listText(NSString* text)
{
    NSData* bytes = encoded(text, NSUTF8StringEncoding);
    if (bytes == nil)
        return std::nullopt;
    std::string utf8(static_cast<const char*>([bytes bytes]), [bytes length]);
    if (!printing::isXMLText(utf8))
        return std::nullopt;
    return utf8;
}

bool fill(printing::PropertyListValue& value, id from, int depth);

bool fillDictionary(printing::PropertyListValue& value, NSDictionary* from, int depth)
{
    value.type = ListType::Dictionary;
    // In order of the keys, so that equal dictionaries make equal texts.
    for (id key in [from allKeys])
        if (![key isKindOfClass:[NSString class]])
            return false;
    for (NSString* key in [[from allKeys] sortedArrayUsingSelector:@selector(compare:)]) {
        auto text = listText(key);
        if (!text || !fill(value.items.emplace_back(), [from objectForKey:key], depth + 1))
            return false;
        value.keys.push_back(std::move(*text));
    }
    return true;
}

void fillNumber(printing::PropertyListValue& value, NSNumber* from)
{
    const char type = *[from objCType];
    const bool isReal = type == 'f' || type == 'd' ||
                        ((type == 'Q' || type == 'L') && [from unsignedLongLongValue] > INT64_MAX);
    if (CFGetTypeID(from) == kBooleanType) {
        value.type = ListType::Boolean;
        value.integer = [from boolValue] ? 1 : 0;
    } else if (isReal) {
        value.type = ListType::Real;
        value.real = [from doubleValue];
    } else {
        value.type = ListType::Integer;
        value.integer = [from longLongValue];
    }
}

// False for an object that no property list can hold; the depth ends one that holds itself.
bool fill(printing::PropertyListValue& value, id from, int depth)
{
    if (depth > printing::kDeepestPropertyList)
        return false;
    if ([from isKindOfClass:[NSString class]]) {
        auto text = listText(from);
        if (!text)
            return false;
        value.type = ListType::String;
        value.text = std::move(*text);
    } else if ([from isKindOfClass:[NSData class]]) {
        value.type = ListType::Data;
        if ([from length] > 0)
            value.text.assign(static_cast<const char*>([(NSData*)from bytes]), [from length]);
    } else if ([from isKindOfClass:[NSNumber class]]) {
        fillNumber(value, from);
    } else if ([from isKindOfClass:[NSDate class]]) {
        value.type = ListType::Date;
        value.real = [(NSDate*)from timeIntervalSinceReferenceDate];
    } else if ([from isKindOfClass:[NSArray class]]) {
        value.type = ListType::Array;
        for (id entry in (NSArray*)from)
            if (!fill(value.items.emplace_back(), entry, depth + 1))
                return false;
    } else if ([from isKindOfClass:[NSDictionary class]]) {
        return fillDictionary(value, from, depth);
    } else {
        return false;
    }
    return true;
}

NSString* newText(const std::string& utf8, Class kind)
{
    return [[kind alloc] initWithBytes:utf8.data() length:utf8.size()
                              encoding:NSUTF8StringEncoding];
}

// The caller's own.
id newObject(const printing::PropertyListValue& value, CFOptionFlags mutability)
{
    const bool mutableLeaves = (mutability & kCFPropertyListMutableContainersAndLeaves) != 0;
    switch (value.type) {
    case ListType::String:
        return newText(value.text, mutableLeaves ? [NSMutableString class] : [NSString class]);
    case ListType::Data:
        return [[(mutableLeaves ? [NSMutableData class] : [NSData class]) alloc]
            initWithBytes:value.text.data()
                   length:value.text.size()];
    case ListType::Integer:
        return [[NSNumber alloc] initWithLongLong:value.integer];
    case ListType::Real:
        return [[NSNumber alloc] initWithDouble:value.real];
    case ListType::Boolean:
        return (id)CFRetain(value.integer != 0 ? kCFBooleanTrue : kCFBooleanFalse);
    case ListType::Date:
        return [[NSDate alloc] initWithTimeIntervalSinceReferenceDate:value.real];
    case ListType::Array:
    case ListType::Dictionary:
        break;
    }
    id container = value.type == ListType::Array ? [[NSMutableArray alloc] init]
                                                 : [[NSMutableDictionary alloc] init];
    for (std::size_t i = 0; i < value.items.size(); ++i) {
        id item = newObject(value.items[i], mutability);
        if (value.type == ListType::Array) {
            [container addObject:item];
        } else {
            NSString* key = newText(value.keys[i], [NSString class]);
            [container setObject:item forKey:key];
            [key release];
        }
        [item release];
    }
    if (mutability != kCFPropertyListImmutable)
        return container;
    id fixed = [container copy];
    [container release];
    return fixed;
}

} // namespace

const CFAllocatorRef kCFAllocatorDefault = nullptr;
const CFDictionaryKeyCallBacks kCFTypeDictionaryKeyCallBacks = {0};
const CFDictionaryValueCallBacks kCFTypeDictionaryValueCallBacks = {0};

CFTypeRef CFRetain(CFTypeRef ref)
{
    return [object(ref) retain];
}

void CFRelease(CFTypeRef ref)
{
    [object(ref) release];
}

CFTypeID CFGetTypeID(CFTypeRef ref)
{
    const id it = object(ref);
    if ([it isKindOfClass:[NSString class]])
        return kStringType;
    if ([it isKindOfClass:[NSData class]])
        return kDataType;
    if ([it isKindOfClass:[NSURL class]])
        return kURLType;
    if ([it isKindOfClass:[NSArray class]])
        return kArrayType;
    if ([it isKindOfClass:[NSDictionary class]])
        return kDictionaryType;
    // The toolkit has one object for each truth value.
    if (it != nil && (ref == kCFBooleanTrue || ref == kCFBooleanFalse))
        return kBooleanType;
    if ([it isKindOfClass:[NSNumber class]])
        return kNumberType;
    return 0;
}

CFTypeID CFStringGetTypeID(void)
{
    return kStringType;
}
CFTypeID CFDataGetTypeID(void)
{
    return kDataType;
}
CFTypeID CFURLGetTypeID(void)
{
    return kURLType;
}
CFTypeID CFArrayGetTypeID(void)
{
    return kArrayType;
}
CFTypeID CFDictionaryGetTypeID(void)
{
    return kDictionaryType;
}
CFTypeID CFNumberGetTypeID(void)
{
    return kNumberType;
}
CFTypeID CFBooleanGetTypeID(void)
{
    return kBooleanType;
}

Boolean CFEqual(CFTypeRef one, CFTypeRef other)
{
    if (one == nullptr || other == nullptr)
        return one == other;
    return [object(one) isEqual:object(other)];
}

CFStringRef __CFStringMakeConstantString(const char* utf8)
{
    static NSMutableDictionary* const constants = [[NSMutableDictionary alloc] init];
    if (utf8 == nullptr)
        return nullptr;
    const Pool pool;
    NSString* text = [[[NSString alloc] initWithBytes:utf8 length:std::strlen(utf8)
                                             encoding:NSUTF8StringEncoding] autorelease];
    if (text == nil)
        return nullptr;
    @synchronized(constants) {
        NSString* known = [constants objectForKey:text];
        if (known == nil) {
            [constants setObject:text forKey:text];
            known = [constants objectForKey:text];
        }
        return (CFStringRef)known;
    }
}

CFStringRef CFStringCreateWithCString(CFAllocatorRef allocator, const char* text,
                                      CFStringEncoding encoding)
{
    if (text == nullptr)
        return nullptr;
    return CFStringCreateWithBytes(allocator, reinterpret_cast<const UInt8*>(text),
                                   static_cast<CFIndex>(std::strlen(text)), encoding, false);
}

CFStringRef CFStringCreateWithBytes(CFAllocatorRef allocator, const UInt8* bytes, CFIndex length,
                                    CFStringEncoding encoding, Boolean isExternalRepresentation)
{
    if (bytes == nullptr || length < 0 || toolkit(encoding) == printing::kNoToolkitEncoding)
        return nullptr;
    return (CFStringRef)[[NSString alloc] initWithBytes:bytes length:static_cast<NSUInteger>(length)
                                               encoding:toolkit(encoding)];
}

CFStringRef CFStringCreateCopy(CFAllocatorRef allocator, CFStringRef ref)
{
    return (CFStringRef)[string(ref) copy];
}

CFStringRef CFStringCreateWithFormat(CFAllocatorRef allocator, CFDictionaryRef options,
                                     CFStringRef format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    CFStringRef text = CFStringCreateWithFormatAndArguments(allocator, options, format, arguments);
    va_end(arguments);
    return text;
}

CFStringRef CFStringCreateWithFormatAndArguments(CFAllocatorRef allocator, CFDictionaryRef options,
                                                 CFStringRef format, va_list arguments)
{
    if (format == nullptr)
        return nullptr;
    const Pool pool;
    const PointAsDecimalSeparator point;
// The format is the caller's own.
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wformat-nonliteral"
    return (CFStringRef)[[NSString alloc] initWithFormat:string(format) arguments:arguments];
#pragma clang diagnostic pop
}

CFIndex CFStringGetLength(CFStringRef ref)
{
    return static_cast<CFIndex>([string(ref) length]);
}

Boolean CFStringGetCString(CFStringRef ref, char* buffer, CFIndex bufferSize,
                           CFStringEncoding encoding)
{
    if (buffer == nullptr || bufferSize <= 0)
        return false;
    buffer[0] = '\0';
    const Pool pool;
    NSData* bytes = encoded(string(ref), toolkit(encoding));
    if (bytes == nil || [bytes length] >= static_cast<NSUInteger>(bufferSize))
        return false;
    [bytes getBytes:buffer length:[bytes length]];
    buffer[[bytes length]] = '\0';
    return true;
}

CFComparisonResult CFStringCompare(CFStringRef one, CFStringRef other, CFStringCompareFlags options)
{
    if (one == nullptr || other == nullptr) {
        if (one == other)
            return kCFCompareEqualTo;
        return one == nullptr ? kCFCompareLessThan : kCFCompareGreaterThan;
    }
    NSStringCompareOptions mask = 0;
    if ((options & kCFCompareNonliteral) == 0)
        mask |= NSLiteralSearch;
    if ((options & kCFCompareCaseInsensitive) != 0)
        mask |= NSCaseInsensitiveSearch;
    const Pool pool;
    return [string(one) compare:string(other) options:mask];
}

CFDataRef CFStringCreateExternalRepresentation(CFAllocatorRef allocator, CFStringRef ref,
                                               CFStringEncoding encoding, UInt8 lossByte)
{
    if (ref == nullptr || toolkit(encoding) == printing::kNoToolkitEncoding)
        return nullptr;
    const Pool pool;
    NSData* bytes = encoded(string(ref), toolkit(encoding));
    if (bytes == nil && lossByte != 0)
        bytes = encodedWithLoss(string(ref), encoding, lossByte);
    return (CFDataRef)[bytes copy];
}

CFStringEncoding CFStringGetSystemEncoding(void)
{
    return printing::foundationEncoding([NSString defaultCStringEncoding]);
}

unsigned long CFStringConvertEncodingToNSStringEncoding(CFStringEncoding encoding)
{
    return printing::toolkitEncoding(encoding);
}

CFStringEncoding CFStringConvertNSStringEncodingToEncoding(unsigned long encoding)
{
    return printing::foundationEncoding(encoding);
}

CFDataRef CFDataCreate(CFAllocatorRef allocator, const UInt8* bytes, CFIndex length)
{
    if (length < 0 || (bytes == nullptr && length > 0))
        return nullptr;
    return (CFDataRef)[[NSData alloc] initWithBytes:bytes length:static_cast<NSUInteger>(length)];
}

CFIndex CFDataGetLength(CFDataRef data)
{
    return static_cast<CFIndex>([(NSData*)data length]);
}

const UInt8* CFDataGetBytePtr(CFDataRef data)
{
    return static_cast<const UInt8*>([(NSData*)data bytes]);
}

CFURLRef CFURLCreateWithString(CFAllocatorRef allocator, CFStringRef text, CFURLRef base)
{
    if (text == nullptr || ([string(text) length] == 0 && base == nullptr))
        return nullptr;
    const Pool pool;
    return (CFURLRef)[[NSURL alloc] initWithString:string(text) relativeToURL:(NSURL*)base];
}

// absoluteString writes the scheme in small letters; the relative string is the text as given.
CFStringRef CFURLGetString(CFURLRef url)
{
    return (CFStringRef)[(NSURL*)url relativeString];
}

CFStringRef CFURLCopyScheme(CFURLRef url)
{
    const Pool pool;
    for (NSURL* part = (NSURL*)url; part != nil; part = [part baseURL]) {
        NSData* text = encoded([part relativeString], NSUTF8StringEncoding);
        const auto scheme = printing::schemeOf(
            std::string_view(static_cast<const char*>([text bytes]), [text length]));
        if (!scheme.empty())
            return CFStringCreateWithBytes(
                kCFAllocatorDefault, reinterpret_cast<const UInt8*>(scheme.data()),
                static_cast<CFIndex>(scheme.size()), kCFStringEncodingASCII, false);
    }
    return nullptr;
}

CFDictionaryRef CFDictionaryCreate(CFAllocatorRef allocator, const void** keys, const void** values,
                                   CFIndex count, const CFDictionaryKeyCallBacks* keyCallBacks,
                                   const CFDictionaryValueCallBacks* valueCallBacks)
{
    const Pool pool;
    NSMutableDictionary* entries = [NSMutableDictionary dictionary];
    if (keys != nullptr && values != nullptr)
        for (CFIndex i = 0; i < count; ++i)
            if (keys[i] != nullptr && values[i] != nullptr)
                [entries setObject:object(values[i]) forKey:object(keys[i])];
    return (CFDictionaryRef)[entries copy];
}

CFIndex CFDictionaryGetCount(CFDictionaryRef dictionary)
{
    return static_cast<CFIndex>([(NSDictionary*)dictionary count]);
}

const void* CFDictionaryGetValue(CFDictionaryRef dictionary, const void* key)
{
    return key != nullptr ? [(NSDictionary*)dictionary objectForKey:object(key)] : nullptr;
}

Boolean CFDictionaryGetValueIfPresent(CFDictionaryRef dictionary, const void* key,
                                      const void** value)
{
    const void* found = CFDictionaryGetValue(dictionary, key);
    if (found == nullptr)
        return false;
    if (value != nullptr)
        *value = found;
    return true;
}

CFNumberRef CFNumberCreate(CFAllocatorRef allocator, CFNumberType type, const void* value)
{
    if (value == nullptr)
        return nullptr;
    NSNumber* const made = [NSNumber alloc];
    switch (type) {
    case kCFNumberSInt8Type:
    case kCFNumberCharType:
        // As an int: the toolkit's number of a char takes part in truth values.
        return (CFNumberRef)[made initWithInt:read<std::int8_t>(value)];
    case kCFNumberSInt16Type:
    case kCFNumberShortType:
        return (CFNumberRef)[made initWithInt:read<std::int16_t>(value)];
    case kCFNumberSInt32Type:
    case kCFNumberIntType:
        return (CFNumberRef)[made initWithInt:read<std::int32_t>(value)];
    case kCFNumberSInt64Type:
    case kCFNumberLongType:
    case kCFNumberLongLongType:
    case kCFNumberCFIndexType:
    case kCFNumberNSIntegerType:
        return (CFNumberRef)[made initWithLongLong:read<std::int64_t>(value)];
    case kCFNumberFloat32Type:
    case kCFNumberFloatType:
        return (CFNumberRef)[made initWithFloat:read<float>(value)];
    case kCFNumberFloat64Type:
    case kCFNumberDoubleType:
    case kCFNumberCGFloatType:
        return (CFNumberRef)[made initWithDouble:read<double>(value)];
    default:
        [made release];
        return nullptr;
    }
}

Boolean CFNumberGetValue(CFNumberRef ref, CFNumberType type, void* value)
{
    NSNumber* number = (NSNumber*)ref;
    if (value == nullptr || ![number isKindOfClass:[NSNumber class]])
        return false;
    switch (*[number objCType]) {
    case 'f':
    case 'd':
        return writeNumber([number doubleValue], type, value);
    case 'Q':
    case 'L':
        if ([number unsignedLongLongValue] > INT64_MAX) {
            // Beyond every integer type here: only a floating-point type can come near.
            writeNumber([number doubleValue], type, value);
            return false;
        }
        break;
    default:
        break;
    }
    return writeNumber(static_cast<std::int64_t>([number longLongValue]), type, value);
}

CFBooleanRef __CFBooleanConstant(Boolean truth)
{
    return (CFBooleanRef)[NSNumber numberWithBool:truth ? YES : NO];
}

Boolean CFBooleanGetValue(CFBooleanRef truth)
{
    return [(NSNumber*)truth boolValue];
}

CFPropertyListRef CFPropertyListCreateFromXMLData(CFAllocatorRef allocator, CFDataRef data,
                                                  CFOptionFlags mutability, CFStringRef* error)
{
    const Pool pool;
    const auto list = printing::parsePropertyListXML(
        std::string_view(static_cast<const char*>([(NSData*)data bytes]), [(NSData*)data length]));
    if (error != nullptr)
        *error = list.value ? nullptr
                            : CFStringCreateWithFormat(allocator, nullptr, CFSTR("Line %d: %s"),
                                                       list.line, list.problem);
    return list.value ? newObject(*list.value, mutability) : nullptr;
}

Boolean CFPropertyListIsValid(CFPropertyListRef list, CFPropertyListFormat format)
{
    const Pool pool;
    printing::PropertyListValue value;
    return format == kCFPropertyListXMLFormat_v1_0 && fill(value, object(list), 0);
}

CFDataRef CFPropertyListCreateXMLData(CFAllocatorRef allocator, CFPropertyListRef list)
{
    const Pool pool;
    printing::PropertyListValue value;
    if (!fill(value, object(list), 0))
        return nullptr;
    const std::string xml = printing::propertyListXML(value);
    return CFDataCreate(allocator, reinterpret_cast<const UInt8*>(xml.data()),
                        static_cast<CFIndex>(xml.size()));
}
