#include "textentry/PDEFormatter.h"

#include "ppd/PPDText.h"
#include "textentry/FormatScan.hpp"
#include "textentry/KeystrokeRules.hpp"

#include <CoreFoundation/CoreFoundation.h>

#include <algorithm>

namespace {

using textentry::FieldRules;
using textentry::FormatScan;
using textentry::FormatValue;
using textentry::KeystrokeCheck;
using textentry::PostedObject;
using textentry::Refusal;
using textentry::TextFacts;
using textentry::TextRange;
using textentry::Verdict;
using textentry::WholeNumberReader;

NSString* const kObjectPlaceholder = @"%@";

// Hands the range's characters to `take` until it answers false, and answers whether it never did.
// Field texts are short: they are read through a small buffer, a part at a time, so that a key
// costs no allocation.
template <class Take>
bool takesEveryCharacter(NSString* string, TextRange range, Take take)
{
    constexpr std::size_t kPart = 64;
    unichar buffer[kPart];
    const std::size_t end = range.start + range.length;
    for (std::size_t start = range.start; start < end; start += kPart) {
        const std::size_t length = std::min(kPart, end - start);
        [string getCharacters:buffer range:NSMakeRange(start, length)];
        for (std::size_t i = 0; i < length; ++i) {
            if (!take(static_cast<char16_t>(buffer[i])))
                return false;
        }
    }
    return true;
}

bool isASCII(NSString* string, TextRange range)
{
    return takesEveryCharacter(string, range, [](char16_t character) { return character < 128; });
}

// As the original toolkit's intValue, which keeps a number beyond 32 bits at the limit.
int32_t wholeNumber(NSString* string)
{
    WholeNumberReader reader;
    takesEveryCharacter(string, TextRange{0, [string length]},
                        [&](char16_t character) { return reader.take(character); });
    return reader.value();
}

int32_t wholeNumberOfObject(id object)
{
    if ([object isKindOfClass:[NSString class]])
        return wholeNumber(object);
    return [object respondsToSelector:@selector(intValue)] ? [object intValue] : 0;
}

// For the roads on which the toolkit makes objects; an ordinary key takes none of them.
class Pool
{
  public:
    Pool() : pool_([[NSAutoreleasePool alloc] init]) {}
    ~Pool() { [pool_ release]; }
    Pool(const Pool&) = delete;
    Pool& operator=(const Pool&) = delete;

  private:
    NSAutoreleasePool* pool_;
};

bool holdsPoint(NSString* string, TextRange range)
{
    return !takesEveryCharacter(string, range,
                                [](char16_t character) { return character != u'.'; });
}

// In the system encoding; the number of characters when the text has none there.
int64_t byteCount(NSString* string)
{
    const Pool pool;
    const NSStringEncoding encoding = ppd::systemEncoding();
    return static_cast<int64_t>([string canBeConvertedToEncoding:encoding]
                                    ? [string lengthOfBytesUsingEncoding:encoding]
                                    : [string length]);
}

FormatScan scanned(NSString* format)
{
    FormatScan scan;
    takesEveryCharacter(format, TextRange{0, [format length]}, [&](char16_t character) {
        scan.take(character);
        return true;
    });
    return scan;
}

// The Core Foundation call writes a decimal point whatever the host's locale.
template <class Value>
NSString* applied(NSString* format, Value value)
{
    CFStringRef text = CFStringCreateWithFormat(NULL, NULL, (CFStringRef)format, value);
    return [(NSString*)text autorelease];
}

NSString* displayText(NSString* format, int32_t style, id object)
{
    const FormatScan scan = scanned(format);
    const bool isNumber = style == textentry::kWholeNumber || style == textentry::kDecimalNumber;
    if (isNumber && !scan.holdsObjectPlaceholder()) {
        const bool fits = format != nil && scan.takesOne(FormatValue::Integer);
        return applied(fits ? format : @"%d", wholeNumberOfObject(object));
    }
    // A control without a value shows nothing, not the toolkit's "(null)".
    if (object == nil)
        object = @"";
    if (scan.isObjectPlaceholder() && [object isKindOfClass:[NSString class]])
        return [NSString stringWithString:object];
    const bool fits = format != nil && scan.takesOne(FormatValue::Object);
    return applied(fits ? format : kObjectPlaceholder, object);
}

// Half of a surrogate pair is a character too; the plain call answers nil for it on some toolkits.
NSString* oneCharacter(unichar character)
{
    NSString* const string = [NSString stringWithCharacters:&character length:1];
    return string != nil ? string : [NSString stringWithFormat:@"%C", character];
}

NSString* notificationName(Refusal refusal)
{
    return refusal == Refusal::FormatError ? @"FormatErrorNotification"
                                           : @"InvalidCharacterNotification";
}

} // namespace

@interface PDEFormatter ()
- (NSString*)textForValue:(id)value;
- (NSString*)entryEqualTo:(NSString*)string;
- (void)refuse:(Verdict)verdict;
@end

@implementation PDEFormatter

- (id)init
{
    return [self initWithFormatString:nil withStyle:textentry::kAnyText];
}

- (id)initWithStyle:(int32_t)style
{
    return [self initWithFormatString:nil withStyle:style];
}

- (id)initWithFormatString:(NSString*)format
{
    return [self initWithFormatString:format withStyle:textentry::kAnyText];
}

- (id)initWithFormatString:(NSString*)format withStyle:(int32_t)style
{
    self = [super init];
    if (self != nil) {
        [self setFormatString:format];
        mTextStyle = style;
    }
    return self;
}

- (id)initWithCalendarDate:(NSCalendarDate*)date locale:(NSLocale*)locale
{
    self = [super init];
    if (self != nil) {
        mTextStyle = textentry::kCalendarDate;
        [self setCalendarDate:date];
        [self setCalendarLocale:locale];
    }
    return self;
}

// The toolkit's own copy shares the objects without retaining them.
- (id)copyWithZone:(NSZone*)zone
{
    // The initialiser that leaves the format nil.
    PDEFormatter* copy = [[[self class] allocWithZone:zone] initWithCalendarDate:mDate
                                                                          locale:mLocale];
    if (copy == nil)
        return nil;
    copy->mFormatString = [mFormatString copy];
    copy->mTextStyle = mTextStyle;
    copy->mMaxLength = mMaxLength;
    copy->mIsValidityMaxValue = mIsValidityMaxValue;
    copy->mIsValidityMinValue = mIsValidityMinValue;
    copy->mMaxValue = mMaxValue;
    copy->mMinValue = mMinValue;
    copy->mObject = [mObject retain];
    copy->mInvalidCaracters = [mInvalidCaracters mutableCopy];
    return copy;
}

- (void)dealloc
{
    [mInvalidCaracters release];
    [mFormatString release];
    [mObject release];
    [mDate release];
    [mLocale release];
    [super dealloc];
}

- (NSString*)textForValue:(id)value
{
    if (mTextStyle == textentry::kCalendarDate && mDate != nil) {
        // The toolkits differ in the class that they name for a locale.
        id locale = mLocale;
        return [mDate descriptionWithCalendarFormat:mFormatString locale:locale];
    }
    return displayText(mFormatString, mTextStyle, value);
}

- (NSString*)stringForObjectValue:(id)object
{
    return [self textForValue:object];
}

- (BOOL)getObjectValue:(id*)object forString:(NSString*)string errorDescription:(NSString**)error
{
    if (object != NULL && string != nil)
        *object = [self textForValue:string];
    return YES;
}

- (BOOL)isPartialStringValid:(NSString**)proposed
       proposedSelectedRange:(NSRange*)proposedRange
              originalString:(NSString*)original
       originalSelectedRange:(NSRange)originalRange
            errorDescription:(NSString**)error
{
    if (proposed == NULL || proposedRange == NULL)
        return YES;
    NSString* const text = *proposed;
    const auto inserted =
        textentry::insertedRange([text length], proposedRange -> location, originalRange.location);
    if (!inserted)
        return YES;

    const FieldRules rules{.style = mTextStyle,
                           .maxLength = mMaxLength,
                           .hasMaxValue = static_cast<bool>(mIsValidityMaxValue),
                           .hasMinValue = static_cast<bool>(mIsValidityMinValue),
                           .maxValue = mMaxValue,
                           .minValue = mMinValue};

    // The toolkit is asked only what the rules read and plain ASCII does not settle.
    TextFacts facts;
    if (textentry::readsConvertibility(rules)) {
        facts.fitsASCII = isASCII(text, *inserted);
        const bool hasList = [mInvalidCaracters count] != 0;
        if (!facts.fitsASCII || hasList) {
            const Pool pool;
            NSString* const typed =
                [text substringWithRange:NSMakeRange(inserted->start, inserted->length)];
            facts.fitsMacRoman =
                facts.fitsASCII || [typed canBeConvertedToEncoding:NSMacOSRomanStringEncoding];
            facts.isListed = hasList && [self isInvalidCharacter:typed];
        }
    }
    if (textentry::readsByteCount(rules))
        facts.proposedBytes = byteCount(text);
    if (textentry::readsValue(rules))
        facts.proposedValue = wholeNumber(text);
    if (textentry::readsOriginalPoint(rules))
        facts.originalHasPoint =
            holdsPoint(text, *inserted) && holdsPoint(original, TextRange{0, [original length]});

    KeystrokeCheck check(rules, facts);
    takesEveryCharacter(text, *inserted, [&](char16_t character) {
        check.take(character);
        return true;
    });
    const bool isValid = check.verdict().refusal == Refusal::None;
    if (!isValid)
        [self refuse:check.verdict()];
    return isValid;
}

- (void)refuse:(Verdict)verdict
{
    const Pool pool;
    id object = self;
    switch (textentry::postedObject(verdict, mObject != nil)) {
    case PostedObject::Offender:
        object = oneCharacter(*verdict.offender);
        break;
    case PostedObject::NotificationObject:
        object = mObject;
        break;
    case PostedObject::Formatter:
        break;
    }
    NSBeep();
    [[NSNotificationCenter defaultCenter] postNotificationName:notificationName(verdict.refusal)
                                                        object:object];
}

- (NSString*)formatString
{
    return mFormatString != nil ? [NSString stringWithString:mFormatString] : nil;
}

- (void)setFormatString:(NSString*)format
{
    NSString* const copy = [(format != nil ? format : kObjectPlaceholder) copy];
    [mFormatString release];
    mFormatString = copy;
}

- (NSCalendarDate*)calendarDate
{
    return mDate;
}

- (void)setCalendarDate:(NSCalendarDate*)date
{
    [date retain];
    [mDate release];
    mDate = date;
}

- (NSLocale*)calendarLocale
{
    return mLocale;
}

- (void)setCalendarLocale:(NSLocale*)locale
{
    [locale retain];
    [mLocale release];
    mLocale = locale;
}

- (id)notificationObject
{
    return mObject;
}

- (void)setNotificationObject:(id)object
{
    [object retain];
    [mObject release];
    mObject = object;
}

- (int32_t)textStyle
{
    return mTextStyle;
}

- (void)setTextStyle:(int32_t)style
{
    mTextStyle = style;
}

- (int32_t)maxLength
{
    return mMaxLength;
}

- (void)setMaxLength:(int32_t)bytes
{
    mMaxLength = bytes;
}

- (int32_t)maxValue
{
    return mMaxValue;
}

- (void)setMaxValue:(int32_t)value
{
    mMaxValue = value;
    [self setValidityMaxValue:YES];
}

- (int32_t)minValue
{
    return mMinValue;
}

- (void)setMinValue:(int32_t)value
{
    mMinValue = value;
    [self setValidityMinValue:YES];
}

- (BOOL)isValidityMaxValue
{
    return mIsValidityMaxValue;
}

- (void)setValidityMaxValue:(BOOL)flag
{
    mIsValidityMaxValue = flag;
}

- (BOOL)isValidityMinValue
{
    return mIsValidityMinValue;
}

- (void)setValidityMinValue:(BOOL)flag
{
    mIsValidityMinValue = flag;
}

- (void)addInvalidCharacter:(NSString*)string
{
    if (string == nil)
        return;
    if (mInvalidCaracters == nil)
        mInvalidCaracters = [[NSMutableArray alloc] initWithCapacity:0];
    [mInvalidCaracters addObject:string];
}

// The first entry that compares equal to the string; the toolkit's order, not its identity, so that
// two spellings of one accented letter agree.
- (NSString*)entryEqualTo:(NSString*)string
{
    if (string == nil)
        return nil;
    for (NSString* entry in mInvalidCaracters) {
        if ([entry compare:string] == NSOrderedSame)
            return entry;
    }
    return nil;
}

- (void)removeInvalidCharacter:(NSString*)string
{
    NSString* const entry = [[self entryEqualTo:string] retain];
    if (entry != nil)
        [mInvalidCaracters removeObject:entry];
    [entry release];
}

- (BOOL)isInvalidCharacter:(NSString*)string
{
    return [self entryEqualTo:string] != nil;
}

@end
