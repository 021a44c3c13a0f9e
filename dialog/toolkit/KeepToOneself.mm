#include "dialog/toolkit/KeepToOneself.h"

#include <AppKit/AppKit.h>

#include <objc/runtime.h>

namespace dialog {

namespace {

id noCenter(id, SEL, NSString*)
{
    return nil;
}

void noSearch(id, SEL) {}

void replace(Method method, IMP implementation)
{
    if (method != nullptr) {
        method_setImplementation(method, implementation);
    }
}

} // namespace

void keepToOneself()
{
    replace(class_getClassMethod([NSDistributedNotificationCenter class],
                                 @selector(notificationCenterForType:)),
            reinterpret_cast<IMP>(&noCenter));
    replace(class_getInstanceMethod([NSWorkspace class], @selector(findApplications)),
            reinterpret_cast<IMP>(&noSearch));
}

} // namespace dialog
