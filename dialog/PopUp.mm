#include "dialog/PopUp.h"

#include "dialog/Text.h"
#include "dialog/longlist/LongPopUp.h"

namespace dialog {

// Through the menu itself: the pop-up's own way of adding drops an earlier item of the same title
// and looks for it each time.
void fillPopUp(NSPopUpButton* popUp, const std::vector<std::string>& titles)
{
    if ([popUp isKindOfClass:[LongPopUp class]]) {
        LongPopUp* const longOne = (LongPopUp*)popUp;
        if (titles.size() > kMostMenuItems) {
            [longOne showLong:titles];
            [longOne setEnabled:YES];
            return;
        }
        [longOne showShort];
    }
    [popUp removeAllItems];
    NSMenu* const menu = [popUp menu];
    [menu setMenuChangedMessagesEnabled:NO];
    for (const std::string& title : titles) {
        NSMenuItem* const item = [[NSMenuItem alloc] initWithTitle:toNSString(title) action:NULL
                                                     keyEquivalent:@""];
        [item setEnabled:YES];
        [menu addItem:item];
        [item release];
    }
    [menu setMenuChangedMessagesEnabled:YES];
    [popUp setEnabled:!titles.empty()];
    if (!titles.empty()) {
        [popUp selectItemAtIndex:0];
    }
}

// A menu that hears of another title measures all its rows at once, though nobody sees them.
void retitle(NSMenuItem* item, NSString* title)
{
    NSMenu* const menu = [item menu];
    NSMenuView* const rows = [menu menuRepresentation];
    [item setMenu:nil];
    [item setTitle:title];
    [item setMenu:menu];
    [[rows menuItemCellForItemAtIndex:[menu indexOfItem:item]] setNeedsSizing:YES];
    [rows setNeedsSizing:YES];
    [rows setNeedsDisplay:YES];
}

} // namespace dialog
