// PDEChoice.h - one choice of a PPD option, with its title and keyword as strings.
#pragma once

#include <AppKit/AppKit.h>
#include <cups/ppd.h>

// Wraps a choice record that it borrows: the PPD must outlive it.  Main thread only.
@interface PDEChoice : NSObject
{
    NSString* mUserTitle; // owned; made on first request
    NSString* mPPDTitle;  // owned; made on first request
    ppd_choice_t* mChoice;
}

// Autoreleased; always a PDEChoice, never a subclass.
+ (PDEChoice*)choiceWithChoice:(ppd_choice_t*)choice;

- (id)initWithChoice:(ppd_choice_t*)choice;

// The text for the user (UTF-8 in the PPD) and the keyword (ASCII); nil where the bytes are not
// valid.
- (NSString*)userTitle;
- (NSString*)ppdTitle;

- (ppd_choice_t*)choice;

// Whether the keyword is the option's default.
- (BOOL)isDefaultChoice;

@end
