#include "support/CoreFoundationCalls.hpp"

#include <dlfcn.h>

#include <cstdarg>
#include <cstring>
#include <set>

#define CALLER __builtin_return_address(0)
#define REPLACED extern "C" __attribute__((visibility("default")))

namespace {

struct State
{
    std::multiset<const void*> owned;
    int released = 0;
    Texts withNull;
    bool cutsTexts = false;
};

State& state()
{
    static State only;
    return only;
}

bool isIn(const char* file, void* caller)
{
    Dl_info where{};
    return dladdr(caller, &where) != 0 && std::strstr(where.dli_fname, file) != nullptr;
}

bool isBundle(void* caller)
{
    return isIn("PageSettings.plugin", caller);
}

// A call that is a function's last may seem to come from that function's caller, but never from
// the library, which releases objects of its own.
bool isOutsideTheLibrary(void* caller)
{
    return !isIn("libPageSettingsPlatform", caller);
}

// The library's own version.
template <class Function>
Function next(Function, const char* name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

void look(void* caller, const char* call, const void* object)
{
    if (object == nullptr && isOutsideTheLibrary(caller))
        state().withNull.push_back(call);
}

template <class Object>
Object own(void* caller, Object made)
{
    if (made != nullptr && isBundle(caller))
        state().owned.insert(made);
    return made;
}

} // namespace

void CoreFoundationCalls::reset()
{
    state() = State{};
}

int CoreFoundationCalls::owned()
{
    return static_cast<int>(state().owned.size());
}

int CoreFoundationCalls::released()
{
    return state().released;
}

Texts CoreFoundationCalls::withNull()
{
    return state().withNull;
}

void CoreFoundationCalls::cutTexts()
{
    state().cutsTexts = true;
}

REPLACED void CFRelease(CFTypeRef object)
{
    look(CALLER, "CFRelease", object);
    const auto found = state().owned.find(object);
    if (found != state().owned.end() && isOutsideTheLibrary(CALLER)) {
        state().owned.erase(found);
        ++state().released;
    }
    next(CFRelease, "CFRelease")(object);
}

REPLACED CFTypeRef CFRetain(CFTypeRef object)
{
    look(CALLER, "CFRetain", object);
    return own(CALLER, next(CFRetain, "CFRetain")(object));
}

REPLACED CFStringRef CFURLGetString(CFURLRef url)
{
    look(CALLER, "CFURLGetString", url);
    return next(CFURLGetString, "CFURLGetString")(url);
}

REPLACED CFStringRef CFURLCopyScheme(CFURLRef url)
{
    look(CALLER, "CFURLCopyScheme", url);
    return own(CALLER, next(CFURLCopyScheme, "CFURLCopyScheme")(url));
}

REPLACED CFComparisonResult CFStringCompare(CFStringRef one, CFStringRef other,
                                            CFStringCompareFlags flags)
{
    look(CALLER, "CFStringCompare", one);
    look(CALLER, "CFStringCompare", other);
    return next(CFStringCompare, "CFStringCompare")(one, other, flags);
}

REPLACED CFStringRef CFStringCreateCopy(CFAllocatorRef allocator, CFStringRef text)
{
    look(CALLER, "CFStringCreateCopy", text);
    return own(CALLER, next(CFStringCreateCopy, "CFStringCreateCopy")(allocator, text));
}

REPLACED Boolean CFStringGetCString(CFStringRef text, char* buffer, CFIndex size,
                                    CFStringEncoding encoding)
{
    look(CALLER, "CFStringGetCString", text);
    if (state().cutsTexts && isBundle(CALLER)) {
        std::strcpy(buffer, "usb");
        return false;
    }
    return next(CFStringGetCString, "CFStringGetCString")(text, buffer, size, encoding);
}

REPLACED CFStringRef CFStringCreateWithFormatAndArguments(CFAllocatorRef allocator,
                                                          CFDictionaryRef options,
                                                          CFStringRef format, va_list arguments)
{
    look(CALLER, "CFStringCreateWithFormatAndArguments", format);
    return own(CALLER,
               next(CFStringCreateWithFormatAndArguments,
                    "CFStringCreateWithFormatAndArguments")(allocator, options, format, arguments));
}

REPLACED CFDataRef CFStringCreateExternalRepresentation(CFAllocatorRef allocator, CFStringRef text,
                                                        CFStringEncoding encoding, UInt8 lossByte)
{
    look(CALLER, "CFStringCreateExternalRepresentation", text);
    return own(CALLER,
               next(CFStringCreateExternalRepresentation,
                    "CFStringCreateExternalRepresentation")(allocator, text, encoding, lossByte));
}

REPLACED OSStatus PMPrintSettingsCreateDataRepresentation(PMPrintSettings settings, CFDataRef* data,
                                                          PMDataFormat format)
{
    look(CALLER, "PMPrintSettingsCreateDataRepresentation", settings);
    const OSStatus status = next(PMPrintSettingsCreateDataRepresentation,
                                 "PMPrintSettingsCreateDataRepresentation")(settings, data, format);
    own(CALLER, *data);
    return status;
}
