#include "plugin/HostCall.h"

namespace plugin {

void noteRaised(NSObject* raised) noexcept
{
    NSString* const reason =
        [raised isKindOfClass:[NSException class]] ? [(NSException*)raised reason] : nil;
    NSLog(@"The print dialog raised %@: %@", NSStringFromClass([raised class]),
          reason ? reason : @"");
}

} // namespace plugin
