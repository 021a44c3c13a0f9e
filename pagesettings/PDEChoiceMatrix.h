// PDEChoiceMatrix.h - the radio groups of the panel.
#pragma once

#import <AppKit/AppKit.h>

@interface PDEChoiceMatrix13_v100_ : NSMatrix
@end
