// FeaturesPane.h - the controls of the printer's features in a scrolling view.
#pragma once

#include "dialog/ControlList.h"
#include "dialog/features/Features.hpp"

#include <AppKit/AppKit.h>

#include <functional>
#include <string>
#include <vector>

@protocol FeaturesPaneTarget
// A choice as a job has it; those of a PickMany with commas between them, or None.
- (void)chooseFeature:(const std::string&)keyword choice:(const std::string&)choice;
@end

namespace dialog {
using MarkedChoices = std::function<std::vector<std::string>(const std::string& keyword)>;
}

@interface FeaturesPane : NSObject
{
    struct FeatureControls
    {
        dialog::Feature feature;
        std::vector<NSControl*> controls; // one, or one for each choice of a PickMany; the view's
    };
    std::vector<FeatureControls> rows_;
    NSScrollView* view_;
    NSMutableArray* choosers_;      // the controls' targets
    id<FeaturesPaneTarget> target_; // not owned
}

- (id)initWithFeatures:(const dialog::Features&)offered
                  size:(NSSize)size
                target:(id<FeaturesPaneTarget>)target;

// The target is no longer asked.
- (void)close;

- (NSView*)view;
- (void)show:(const dialog::MarkedChoices&)marked;

@end
