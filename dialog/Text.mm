#include "dialog/Text.h"

#include "dialog/Translate.hpp"

namespace dialog {

NSString* toNSString(std::string_view text)
{
    for (const NSStringEncoding encoding : {NSUTF8StringEncoding, NSISOLatin1StringEncoding}) {
        NSString* const string = [[NSString alloc] initWithBytes:text.data() length:text.size()
                                                        encoding:encoding];
        if (string != nil) {
            return [string autorelease];
        }
    }
    return @"";
}

NSString* localized(const char* english)
{
    return toNSString(tr(english));
}

std::string toString(NSString* text)
{
    NSData* const bytes = [text dataUsingEncoding:NSUTF8StringEncoding allowLossyConversion:NO];
    return bytes == nil ? std::string()
                        : std::string(static_cast<const char*>([bytes bytes]),
                                      static_cast<std::size_t>([bytes length]));
}

} // namespace dialog
