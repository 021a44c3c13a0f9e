// PDEUtilsMethod13.h - queries of a PPD and a few string operations, for every panel.
//
// Stateless.  A missing PPD, option, choice or attribute answers nil, NO, 0 or the zero point.
#pragma once

#include <AppKit/AppKit.h>
#include <cups/ppd.h>

@class PDEChoice;

@interface PDEUtilsMethod13 : NSObject

+ (BOOL)runningOn105OrLater; // YES

// The value of the first attribute of that keyword, in the system encoding.  Callers treat an empty
// value as none.
+ (NSString*)ppdAttrValStr:(ppd_file_t*)ppd cStrKey:(const char*)key;

// The option's text for the user, in the system encoding.
+ (NSString*)ppdOptionTextStr:(ppd_file_t*)ppd cStrKey:(const char*)key;

// YES exactly for an attribute that says "False": the attribute marks what a printer lacks.
+ (BOOL)isSupportedItem:(ppd_file_t*)ppd cStrKey:(const char*)key;

// The point in an attribute such as "{10, 20}".
+ (NSPoint)originItem:(ppd_file_t*)ppd cStrKey:(const char*)key;

// A new array, owned by the caller, of one PDEChoice a choice, in the PPD's order; nil without an
// option.
+ (NSMutableArray*)arrayFromPPDOption:(ppd_option_t*)option;

// The first choice with that keyword; with nil, the first default choice.
+ (PDEChoice*)findChoiceForString:(NSString*)keyword choices:(NSArray*)choices;

// The texts for the user as new strings, owned by the caller; nil where the bytes are not UTF-8.
+ (NSString*)newOptionTitle:(ppd_option_t*)option;
+ (NSString*)newChoiceTitle:(ppd_choice_t*)choice;

// Text colour of an enabled control when the flag is exactly 1, else of a disabled one.
+ (void)setEnabledForText:(BOOL)flag item:(id)control;

// The same in two steps, for several controls, all of which have a text colour.
+ (NSColor*)colourForText:(BOOL)flag;
+ (void)setColour:(NSColor*)colour ofText:(id)control;

@end

@interface PDEUtilsMethod13 (PDEUtils_String)

// Bytes in the system encoding, or in the first available encoding that can hold the string.
+ (NSUInteger)stringLengthConvertedToEncoding:(NSString*)string;

// Whether `string` holds `searched`, unit by unit.
+ (BOOL)scanString:(NSString*)string intoString:(NSString*)searched;

// `string` without the first `searched`; nil when it holds none.
+ (NSMutableString*)deleteString:(NSString*)string intoString:(NSString*)searched;

@end
