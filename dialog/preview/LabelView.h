// LabelView.h - draws the label: tape, printable band, document, ruler.
//
// A control only so far as it has a text, which says in words what is drawn; it takes no clicks and
// no keys.
#pragma once

#include "dialog/preview/DocumentPicture.hpp"
#include "dialog/preview/PictureLayout.hpp"

#include <AppKit/AppKit.h>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

@interface LabelView : NSControl
{
    std::shared_ptr<const dialog::DocumentPicture> document_;
    std::optional<dialog::PictureLayout> layout_;
    dialog::Placement place_;
    std::string unit_;
    NSBitmapImageRep* pixels_; // the document's ink as last drawn; nil when it must be made
    bool pixelsTurned_;
    std::map<std::string, CGFloat> widths_; // of the ruler's numbers, in points
}

// What there is of the document; may be nullptr.  Shared, never changed.
- (void)setDocument:(std::shared_ptr<const dialog::DocumentPicture>)document;

// What is drawn next, `sentence` in words.
- (void)show:(const std::optional<dialog::PictureLayout>&)layout
       place:(const dialog::Placement&)place
        unit:(const std::string&)unit
    sentence:(NSString*)sentence;

@end
