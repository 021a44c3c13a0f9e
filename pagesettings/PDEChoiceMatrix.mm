#import "pagesettings/PDEChoiceMatrix.h"

@implementation PDEChoiceMatrix13_v100_
@end
