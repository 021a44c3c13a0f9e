#include "dialog/KeepToOneself.h"

#include <Foundation/Foundation.h>

#include <objc/runtime.h>

namespace dialog {

namespace {

id noCenter(id, SEL, NSString*)
{
    return nil;
}

} // namespace

void keepToOneself()
{
    const Method method = class_getClassMethod([NSDistributedNotificationCenter class],
                                               @selector(notificationCenterForType:));
    if (method != nullptr) {
        method_setImplementation(method, reinterpret_cast<IMP>(&noCenter));
    }
}

} // namespace dialog
