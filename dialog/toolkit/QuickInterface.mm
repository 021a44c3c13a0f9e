#include "dialog/toolkit/QuickInterface.h"

#include "dialog/toolkit/ReplaceMethod.h"
#include "dialog/toolkit/UUIDText.hpp"

#include <AppKit/AppKit.h>
#include <GNUstepGUI/GSXibKeyedUnarchiver.h>

#include <cstdarg>
#include <mutex>
#include <unordered_map>

#include <sys/random.h>

namespace dialog {

namespace {

using Init = id (*)(id, SEL);
using IsNewFormat = BOOL (*)(id, SEL, NSData*);
Init initOfToolkit = nullptr;
IsNewFormat isNewFormatOfToolkit = nullptr;

id initWithRandomBytes(id uuid, SEL selector)
{
    UUIDBytes bytes;
    if (getrandom(bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size())) {
        return initOfToolkit(uuid, selector);
    }
    return [uuid initWithUUIDBytes:asRandomUUID(bytes).data()];
}

NSString* UUIDString(id uuid, SEL)
{
    UUIDBytes bytes;
    [uuid getUUIDBytes:bytes.data()];
    const UUIDText text = textOfUUID(bytes);
    return [[[NSString alloc] initWithBytes:text.data() length:text.size()
                                   encoding:NSASCIIStringEncoding] autorelease];
}

// A text of the program's code stays where it is and as it is for as long as the process lives.
bool staysAsItIs(NSString* format)
{
    return object_getClass(format) == object_getClass(@"") &&
           [format rangeOfString:@"%"].location == NSNotFound;
}

NSPredicate* keptPredicate(id cls, SEL, NSString* format, ...)
{
    static std::mutex mutex;
    static auto* const kept = new std::unordered_map<const void*, NSPredicate*>;
    {
        const std::lock_guard lock(mutex);
        if (const auto found = kept->find(format); found != kept->end()) {
            return found->second;
        }
    }
    va_list arguments;
    va_start(arguments, format);
    NSPredicate* const predicate = [cls predicateWithFormat:format arguments:arguments];
    va_end(arguments);
    if (predicate != nil && staysAsItIs(format)) {
        const std::lock_guard lock(mutex);
        if (kept->emplace(format, predicate).second) {
            [predicate retain];
        }
    }
    return predicate;
}

// Of the file asked for last; only the main thread reads interface files.
BOOL keptFormat(id cls, SEL selector, NSData* file)
{
    static NSData* known = nil;
    static BOOL isNew = NO;
    if (known == nil || ![known isEqualToData:file]) {
        isNew = isNewFormatOfToolkit(cls, selector, file);
        [known release];
        known = [file copy];
    }
    return isNew;
}

} // namespace

void readInterfaceFilesQuickly()
{
    if (initOfToolkit != nullptr) {
        return;
    }
    replaceOwnMethod([NSUUID class], @selector(init), &initWithRandomBytes, initOfToolkit);
    method_setImplementation(class_getInstanceMethod([NSUUID class], @selector(UUIDString)),
                             reinterpret_cast<IMP>(&UUIDString));
    method_setImplementation(
        class_getClassMethod([NSPredicate class], @selector(predicateWithFormat:)),
        reinterpret_cast<IMP>(&keptPredicate));
    replaceOwnMethod(object_getClass([GSXibKeyedUnarchiver class]), @selector(checkXib5:),
                     &keptFormat, isNewFormatOfToolkit);
}

} // namespace dialog
