#include "support/PanelTestPrinting.hpp"

#include <dlfcn.h>

#include <map>

namespace {

struct State
{
    Texts record;
    std::map<std::string, OSStatus> failing;
    std::map<std::string, OSStatus> failingLate;
    std::map<std::string, bool> answeringNull;
    bool (*fails)(const char* call, void* caller) = nullptr;
};

State& state()
{
    static State only;
    return only;
}

// The library's own version.
template <class Function>
Function next(Function, const char* name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

// Whether the call is spoiled; `status` is then its answer.
bool spoiled(const char* name, void* caller, OSStatus& status)
{
    if (state().fails != nullptr && state().fails(name, caller)) {
        status = kPMGeneralError;
        return true;
    }
    const auto failing = state().failing.find(name);
    if (failing != state().failing.end()) {
        status = failing->second;
        return true;
    }
    status = noErr;
    return state().answeringNull.count(name) != 0;
}

// A call that answers through a pointer.
template <class Function, class Object, class Answer, class... Key>
OSStatus ask(void* caller, Function function, const char* name, Object object, Answer* answer,
             Key... key)
{
    state().record.push_back(name);
    OSStatus status = noErr;
    if (spoiled(name, caller, status)) {
        if (status == noErr)
            *answer = Answer{};
        return status;
    }
    status = next(function, name)(object, key..., answer);
    const auto failing = state().failingLate.find(name);
    return failing != state().failingLate.end() ? failing->second : status;
}

OSStatus setPage(void* caller, OSStatus (*function)(PMPrintSettings, UInt32, Boolean),
                 const char* name, PMPrintSettings settings, UInt32 page, Boolean lock)
{
    state().record.push_back(std::string(name) + " " + std::to_string(page) +
                             " lock=" + std::to_string(static_cast<int>(lock)));
    OSStatus status = noErr;
    if (spoiled(name, caller, status))
        return status;
    return next(function, name)(settings, page, lock);
}

} // namespace

void PrintingCalls::fail(const std::string& call, OSStatus status)
{
    state().failing[call] = status;
}

void PrintingCalls::failAfterAnswering(const std::string& call, OSStatus status)
{
    state().failingLate[call] = status;
}

void PrintingCalls::answerNull(const std::string& call)
{
    state().answeringNull[call] = true;
}

Texts PrintingCalls::taken()
{
    Texts record;
    record.swap(state().record);
    return record;
}

void PrintingCalls::askFirst(bool (*fails)(const char* call, void* caller))
{
    state().fails = fails;
}

void PrintingCalls::reset()
{
    state() = State{};
}

extern "C" {

OSStatus PMPrinterCopyDeviceURI(PMPrinter printer, CFURLRef* uri)
{
    return ask(__builtin_return_address(0), PMPrinterCopyDeviceURI, "PMPrinterCopyDeviceURI",
               printer, uri);
}

OSStatus PMGetPageFormatPaper(PMPageFormat format, PMPaper* paper)
{
    return ask(__builtin_return_address(0), PMGetPageFormatPaper, "PMGetPageFormatPaper", format,
               paper);
}

OSStatus PMPaperGetPPDPaperName(PMPaper paper, CFStringRef* name)
{
    return ask(__builtin_return_address(0), PMPaperGetPPDPaperName, "PMPaperGetPPDPaperName", paper,
               name);
}

OSStatus PMPaperGetHeight(PMPaper paper, double* height)
{
    return ask(__builtin_return_address(0), PMPaperGetHeight, "PMPaperGetHeight", paper, height);
}

OSStatus PMPrintSettingsGetValue(PMPrintSettings settings, CFStringRef key, CFTypeRef* value)
{
    return ask(__builtin_return_address(0), PMPrintSettingsGetValue, "PMPrintSettingsGetValue",
               settings, value, key);
}

OSStatus PMSessionGetDataFromSession(PMPrintSession session, CFStringRef key, CFTypeRef* data)
{
    return ask(__builtin_return_address(0), PMSessionGetDataFromSession,
               "PMSessionGetDataFromSession", session, data, key);
}

OSStatus PMGetFirstPage(PMPrintSettings settings, UInt32* first)
{
    return ask(__builtin_return_address(0), PMGetFirstPage, "PMGetFirstPage", settings, first);
}

OSStatus PMGetLastPage(PMPrintSettings settings, UInt32* last)
{
    return ask(__builtin_return_address(0), PMGetLastPage, "PMGetLastPage", settings, last);
}

OSStatus PMSetFirstPage(PMPrintSettings settings, UInt32 first, Boolean lock)
{
    return setPage(__builtin_return_address(0), PMSetFirstPage, "PMSetFirstPage", settings, first,
                   lock);
}

OSStatus PMSetLastPage(PMPrintSettings settings, UInt32 last, Boolean lock)
{
    return setPage(__builtin_return_address(0), PMSetLastPage, "PMSetLastPage", settings, last,
                   lock);
}

} // extern "C"
