#include "dialog/preview/ControlActions.h"

namespace dialog {

NSString* const kControlHasActed = @"TapePrintControlHasActed";

} // namespace dialog

@implementation TapePrintApplication

- (BOOL)sendAction:(SEL)action to:(id)target from:(id)sender
{
    // The action may close the window that the sender lives in.
    [[sender retain] autorelease];
    const BOOL sent = [super sendAction:action to:target from:sender];
    [[NSNotificationCenter defaultCenter] postNotificationName:dialog::kControlHasActed
                                                        object:sender];
    return sent;
}

@end
