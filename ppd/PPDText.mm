#include "ppd/PPDText.h"

#include <CoreFoundation/CoreFoundation.h>

namespace ppd {

NSStringEncoding systemEncoding() noexcept
{
    return static_cast<NSStringEncoding>(
        CFStringConvertEncodingToNSStringEncoding(CFStringGetSystemEncoding()));
}

NSString* newString(const char* bytes, NSStringEncoding encoding) noexcept
{
    // The toolkit has a shorter road for the encoding of nearly every text.
    if (bytes && encoding == NSUTF8StringEncoding)
        return [[NSString alloc] initWithUTF8String:bytes];
    return bytes ? [[NSString alloc] initWithCString:bytes encoding:encoding] : nil;
}

NSString* string(const char* bytes, NSStringEncoding encoding) noexcept
{
    return [newString(bytes, encoding) autorelease];
}

} // namespace ppd
