// The toolkit asks each interface file for its format by reading the whole document, and never lets
// go of it: a few hundred kilobytes for every panel that is opened.  The same question here, with
// the document given back.

#include <AppKit/AppKit.h>
#include <GNUstepGUI/GSXibKeyedUnarchiver.h>

@interface GSXibKeyedUnarchiver (DocumentGivenBack)
@end

@implementation GSXibKeyedUnarchiver (DocumentGivenBack)

// In place of the class's own, for a category that is loaded later wins.
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wobjc-protocol-method-implementation"
+ (BOOL)checkXib5:(NSData*)data
{
    NSXMLDocument* const document = [[[NSXMLDocument alloc] initWithData:data options:0
                                                                   error:NULL] autorelease];
    return [[document nodesForXPath:@"/document" error:NULL] count] > 0;
}
#pragma clang diagnostic pop

@end
