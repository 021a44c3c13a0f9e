#include "dialog/start/ShortSleep.h"

#include <Foundation/Foundation.h>

#include <objc/runtime.h>

namespace dialog {

namespace {

constexpr NSTimeInterval kShortest = 0.01; // longer ones wait for more than an answer
constexpr double kPart = 0.01;

using Sleep = void (*)(id, SEL, NSDate*);
Sleep sleepOfToolkit = nullptr;

Method sleepMethod()
{
    return class_getClassMethod([NSThread class], @selector(sleepUntilDate:));
}

void sleepShortly(id thread, SEL command, NSDate* until)
{
    const NSTimeInterval rest = [until timeIntervalSinceNow];
    if (rest <= kShortest) {
        until = [NSDate dateWithTimeIntervalSinceNow:rest * kPart];
    }
    sleepOfToolkit(thread, command, until);
}

} // namespace

ShortSleep::ShortSleep()
{
    if (const Method method = sleepMethod()) {
        sleepOfToolkit = reinterpret_cast<Sleep>(
            method_setImplementation(method, reinterpret_cast<IMP>(&sleepShortly)));
    }
}

ShortSleep::~ShortSleep()
{
    if (const Method method = sleepMethod()) {
        method_setImplementation(method, reinterpret_cast<IMP>(sleepOfToolkit));
    }
}

} // namespace dialog
