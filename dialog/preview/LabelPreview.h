// LabelPreview.h - the label beside the panel: the picture, and what is said of it.
//
//     LabelPreview* const preview = [[LabelPreview alloc] initWithRequest:std::move(request)];
//     [window showPreview:[preview view]];
//     [preview showPanel:[panel view] host:host];
//
// It follows the panel by itself: typed characters, moved sliders, options told to the host.  Main
// thread only.
#pragma once

#include "dialog/panel/PanelHost.h"
#include "dialog/preview/LabelFollower.hpp"
#include "dialog/preview/LabelView.h"
#include "dialog/preview/PictureRequest.hpp"

#include <AppKit/AppKit.h>

#include <memory>
#include <string>

@interface LabelPreview : NSObject
{
    NSBox* box_;
    NSTextField* size_;
    LabelView* picture_;
    NSTextField* used_;
    NSTextField* remarks_;
    PanelHost* host_; // owned while a panel is shown, as is its view
    NSView* panelView_;
    dialog::LabelFollower follower_;
    std::unique_ptr<dialog::PictureRequest> request_; // while the document is being read
    std::shared_ptr<const dialog::DocumentPicture> document_;
    NSTimer* waiting_;
    bool refreshIsDue_;
}

// `request` is for the document's picture; none when the document cannot be read.
- (id)initWithRequest:(std::unique_ptr<dialog::PictureRequest>&&)request;

- (NSView*)view;

// The parts that a script can ask for, with their names.
- (NSControl*)pictureControl;
- (NSControl*)sizeField;
- (NSControl*)usedField;
- (NSControl*)remarksField;

// A panel was opened; `view` is the panel's.
- (void)showPanel:(NSView*)view host:(PanelHost*)host;
// There is no panel now: an empty picture.
- (void)forgetPanel;

// Looks at the panel again as soon as what is going on has ended.
- (void)refreshSoon;
- (void)refresh;

// Takes the document's picture if it has come meanwhile.
- (void)lookForDocument;
// Waits until the document is there, or why it is not.
- (void)finishDocument;

@end
