// LongPopUp.h - a pop-up button whose list may have any number of titles.
//
// A menu of a thousand items takes the toolkit a tenth of a second to open, one of ten thousand is
// not drawn at all.  Beyond kMostMenuItems the titles are kept aside: the button's own menu has the
// chosen one alone, and the open list is a view that draws the rows in sight.
//
// Click, Space or an arrow key opens the list; arrows, Page Up, Page Down, Home, End and typing a
// beginning move in it; Return, Space or a click chooses, Escape or a click elsewhere does not.
#pragma once

#include <AppKit/AppKit.h>

#include <cstddef>
#include <string>
#include <vector>

namespace dialog {
inline constexpr std::size_t kMostMenuItems = 40;
} // namespace dialog

@class OpenList;

@interface LongPopUp : NSPopUpButton
{
    std::vector<std::string> titles_; // empty while the menu holds them all
    std::size_t chosen_;
    OpenList* list_; // of these titles, to be opened again; nil before it was opened
}

// More than kMostMenuItems, the first one chosen.
- (void)showLong:(std::vector<std::string>)titles;

// Back to a menu of its own, which is then empty.
- (void)showShort;

// indexOfSelectedItem, selectItemAtIndex:, numberOfItems and itemTitleAtIndex: mean the titles,
// however they are kept.

@end

// The rows of an open list.
@interface LongListView : NSView
{
    const std::vector<std::string>* titles_; // the button's
    std::size_t row_;
}

- (id)initWithTitles:(const std::vector<std::string>&)titles width:(CGFloat)width;
- (std::size_t)row;
- (void)setRow:(std::size_t)row; // scrolls it into sight
- (NSRect)frameOfRow:(std::size_t)row;
- (NSString*)titleOfRow:(std::size_t)row;
- (std::size_t)firstRowInSight;
- (std::size_t)endOfRowsInSight;

@end
