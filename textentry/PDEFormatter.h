// PDEFormatter.h - filters what is typed into a numeric field, and turns values into display texts.
//
//     PDEFormatter* formatter = [[PDEFormatter alloc] initWithStyle:4]; // digits and a point
//     [formatter setMaxValue:100];
//     [field setFormatter:formatter];
//
// A refused keystroke beeps and posts, on the default notification centre and without user
// information, one of
//     "InvalidCharacterNotification"  a character or text that the field does not take
//     "FormatErrorNotification"       a whole number outside the limits
// with, as object, the offending character as a string where one is known (a text that cannot be
// converted, or is in the list of invalid strings), else the notification object, else the
// formatter.  The text styles are told in KeystrokeRules.cpp.
//
// Main thread only.  Setters retain or copy; getters answer borrowed objects.
#pragma once

#include <AppKit/AppKit.h>

#include <cstdint>

@interface PDEFormatter : NSFormatter
{
    NSString* mFormatString; // a copy; nil only after initWithCalendarDate:locale:
    int32_t mTextStyle;
    int32_t mMaxLength; // bytes in the system encoding; 0 is no limit
    BOOL mIsValidityMaxValue;
    BOOL mIsValidityMinValue;
    int32_t mMaxValue;
    int32_t mMinValue;
    id mObject;                        // retained
    NSMutableArray* mInvalidCaracters; // owned; of strings; made on first use
    NSCalendarDate* mDate;             // retained
    NSLocale* mLocale;                 // retained
}

- (id)init;
- (id)initWithStyle:(int32_t)style;
- (id)initWithFormatString:(NSString*)format; // nil is "%@"
- (id)initWithFormatString:(NSString*)format withStyle:(int32_t)style;

// Style 5, and no format: the date is described with a nil format.
- (id)initWithCalendarDate:(NSCalendarDate*)date locale:(NSLocale*)locale;

// The date in style 5, else the format applied to the object, or to its whole number in styles 2
// and 4 with a format that has no "%@".  No object is an empty text.  A format that cannot be
// applied to the one value (none at all, "%s", "%n", "%f", two directives) shows the value bare.
// Numbers are written the same in every locale.
- (NSString*)stringForObjectValue:(id)object;

// Never fails; the object is the text that stringForObjectValue: makes of the string.
- (BOOL)getObjectValue:(id*)object forString:(NSString*)string errorDescription:(NSString**)error;

// The keystroke check.  Changes neither the text nor the range and never writes the error.
- (BOOL)isPartialStringValid:(NSString**)proposed
       proposedSelectedRange:(NSRange*)proposedRange
              originalString:(NSString*)original
       originalSelectedRange:(NSRange)originalRange
            errorDescription:(NSString**)error;

- (NSString*)formatString; // a new string
- (void)setFormatString:(NSString*)format;
- (NSCalendarDate*)calendarDate;
- (void)setCalendarDate:(NSCalendarDate*)date;
- (NSLocale*)calendarLocale;
- (void)setCalendarLocale:(NSLocale*)locale;
- (id)notificationObject;
- (void)setNotificationObject:(id)object;
- (int32_t)textStyle;
- (void)setTextStyle:(int32_t)style;
- (int32_t)maxLength;
- (void)setMaxLength:(int32_t)bytes;

// Setting a limit also puts it in force.
- (int32_t)maxValue;
- (void)setMaxValue:(int32_t)value;
- (int32_t)minValue;
- (void)setMinValue:(int32_t)value;
- (BOOL)isValidityMaxValue;
- (void)setValidityMaxValue:(BOOL)flag;
- (BOOL)isValidityMinValue;
- (void)setValidityMinValue:(BOOL)flag;

// Strings that may not be typed, each compared with the whole inserted text.
- (void)addInvalidCharacter:(NSString*)string;    // nil is ignored; duplicates are kept
- (void)removeInvalidCharacter:(NSString*)string; // with every duplicate
- (BOOL)isInvalidCharacter:(NSString*)string;

@end
