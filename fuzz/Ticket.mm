// A print-settings ticket: the reader of XML property lists, and what the panel takes from it.
#include "fuzz/Process.h"
#include "platform/PrintingHost.hpp"
#include "platform/PropertyListXML.hpp"

#include <CoreFoundation/CoreFoundation.h>

#include <cmath>
#include <dlfcn.h>

namespace {

using printing::PropertyListValue;

struct TapeInfo
{
    double length;
    std::int32_t state;
    CFStringRef paperName;
};
using GetTapeInfo2Function = OSStatus (*)(std::intptr_t, PMPrintSettings, TapeInfo*);
GetTapeInfo2Function getTapeInfo2 = nullptr;

bool same(const PropertyListValue& a, const PropertyListValue& b)
{
    if (a.type != b.type || a.text != b.text || a.integer != b.integer || a.keys != b.keys ||
        a.items.size() != b.items.size())
        return false;
    // A date is written to the second.
    if (a.type == PropertyListValue::Type::Date
            ? std::fabs(a.real - b.real) >= 1
            : !(a.real == b.real || (std::isnan(a.real) && std::isnan(b.real))))
        return false;
    for (std::size_t i = 0; i < a.items.size(); ++i) {
        if (!same(a.items[i], b.items[i]))
            return false;
    }
    return true;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    fuzz::start(fuzz::Windows::No);
    void* const loaded = dlopen(PLUGIN_PATH "/PageSettings", RTLD_NOLOAD | RTLD_LAZY);
    fuzz::require(loaded != nullptr, "the bundle is loaded");
    getTapeInfo2 = reinterpret_cast<GetTapeInfo2Function>(dlsym(loaded, "GetTapeInfo2"));
    fuzz::require(getTapeInfo2 != nullptr, "the bundle exports GetTapeInfo2");
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const fuzz::Pool pool;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const printing::ParsedPropertyList first = printing::parsePropertyListXML(bytes);
    if (first.value) {
        const std::string written = printing::propertyListXML(*first.value);
        const printing::ParsedPropertyList second = printing::parsePropertyListXML(written);
        fuzz::require(second.value && same(*first.value, *second.value),
                      "a list that is written and read again is the same");
    } else {
        fuzz::require(*first.problem != '\0' && first.line > 0, "a problem is said with its line");
    }
    printing::PrintSettings settings;
    settings.setData("jp.co.vendor.print.PrintSettingsTicket.KmE5", bytes);
    TapeInfo tape = {0, 0, nullptr};
    fuzz::require(getTapeInfo2(0, settings.handle(), &tape) == 0, "a ticket has no status");
    if (tape.paperName)
        CFRelease(tape.paperName);
    return 0;
}
