// ReplaceMethod.h - a method of the toolkit that does otherwise from then on.
#pragma once

#include <objc/runtime.h>

namespace dialog {

// The class has the method itself; one that it inherits would change for all who inherit it.
// `before` is what was called until then.
template <typename Function>
void replaceOwnMethod(Class cls, SEL selector, Function function, Function& before)
{
    before = reinterpret_cast<Function>(method_setImplementation(
        class_getInstanceMethod(cls, selector), reinterpret_cast<IMP>(function)));
}

} // namespace dialog
