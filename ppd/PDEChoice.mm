#include "ppd/PDEChoice.h"

#include "ppd/ChoiceLookup.hpp"
#include "ppd/PPDText.h"

// The encoding of user titles, of every choice.
static NSStringEncoding ppdEncoding;

@implementation PDEChoice

+ (void)initialize
{
    ppdEncoding = NSUTF8StringEncoding;
}

+ (PDEChoice*)choiceWithChoice:(ppd_choice_t*)choice
{
    return [[[PDEChoice alloc] initWithChoice:choice] autorelease];
}

- (id)initWithChoice:(ppd_choice_t*)choice
{
    self = [super init];
    if (self) {
        mUserTitle = nil;
        mPPDTitle = nil;
        mChoice = choice;
    }
    return self;
}

- (void)dealloc
{
    [mUserTitle release];
    [mPPDTitle release];
    [super dealloc];
}

- (NSString*)userTitle
{
    if (!mUserTitle && mChoice)
        mUserTitle = ppd::newString(mChoice->text, ppdEncoding);
    return mUserTitle;
}

- (NSString*)ppdTitle
{
    if (!mPPDTitle && mChoice)
        mPPDTitle = ppd::newString(mChoice->choice, NSASCIIStringEncoding);
    return mPPDTitle;
}

- (ppd_choice_t*)choice
{
    return mChoice;
}

- (BOOL)isDefaultChoice
{
    if (!mChoice || !mChoice->option)
        return NO;
    return ppd::isDefaultKeyword(ppd::keyword(mChoice->choice),
                                 ppd::keyword(mChoice->option->defchoice));
}

- (NSString*)description
{
    const ppd_option_t* const option = mChoice ? mChoice->option : nullptr;
    const int position = option ? static_cast<int>(mChoice - option->choices) + 1 : 0;
    return [NSString
        stringWithFormat:@"<%@ %p userTitle:\"%@\" ppdTitle:\"%@\" marked:%s choice:%i of %i>",
                         [self class], self, [self userTitle], [self ppdTitle],
                         mChoice && mChoice->marked ? "YES" : "NO", position,
                         option ? option->num_choices : 0];
}

@end
