// PDEChoiceMatrix.h - a radio group that fits any number of choices into its slot.
//
// To the panel it is an ordinary matrix of one column: choice i is row i, renewRows:columns: sets
// their number, selectedRow and selectCellAtRow:column: are about rows.  What the user sees stands
// in up to three columns of two lines, with a scroller where even that is not enough
// (ChoiceGrid.hpp); drawing, mouse and keyboard follow the picture.  The interface file gives this
// class to the panel's groups.
//
// Unlike a plain matrix: being enabled is a state of the whole group, kept over renewRows:columns:
// (there it is that of the selected cell); sizeToCells never changes the frame; a click beside the
// choices sends no action; the selection survives renewRows:columns: while its row exists and
// falls back to the first.
#pragma once

#import <AppKit/AppKit.h>

#include "pagesettings/ChoiceGrid.hpp"

#include <array>

// Of a group's titles, 0 where there is none.  A group of more choices is not measured: it scrolls,
// in even columns.
using TitleHashes = std::array<NSUInteger, 2 * kMostColumns>;

@interface PDEChoiceMatrix13_v100_ : NSMatrix
{
    ChoiceGrid mGrid;
    TitleHashes mGridTitles; // that the grid was measured for
    BOOL mGridIsValid;
    BOOL mDisabled;
    BOOL mDrawing;
    BOOL mInToolkit;              // which wants to have single frames drawn again
    BOOL mToolTipsStand;          // for the grid and its first line as they are
    NSInteger mRowToShow;         // one more than the row that is still to be scrolled to; 0: none
    NSScroller* mScroller;        // a subview; nil as long as everything fits
    NSMutableArray* mToolTipTags; // of the choices in sight; nil before the first drawing
}

@end
