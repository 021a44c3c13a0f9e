#include "platform/Records.hpp"

#include <ApplicationServices/ApplicationServices.h>

#include <map>

using namespace printing;

namespace {

// NULL for a handle that is null or of another kind.
template <typename Record>
Record* recordOf(void* handle, Kind kind)
{
    auto* tagged = static_cast<Tagged*>(handle);
    return tagged != nullptr && tagged->kind == kind ? static_cast<Record*>(tagged) : nullptr;
}

PrinterRecord* recordOf(PMPrinter handle)
{
    return recordOf<PrinterRecord>(static_cast<void*>(handle), Kind::Printer);
}

PaperRecord* recordOf(PMPaper handle)
{
    return recordOf<PaperRecord>(static_cast<void*>(handle), Kind::Paper);
}

PageFormatRecord* recordOf(PMPageFormat handle)
{
    return recordOf<PageFormatRecord>(static_cast<void*>(handle), Kind::PageFormat);
}

PrintSettingsRecord* recordOf(PMPrintSettings handle)
{
    return recordOf<PrintSettingsRecord>(static_cast<void*>(handle), Kind::PrintSettings);
}

PrintSessionRecord* recordOf(PMPrintSession handle)
{
    return recordOf<PrintSessionRecord>(static_cast<void*>(handle), Kind::PrintSession);
}

OSStatus valueUnder(const Values& values, CFStringRef key, CFTypeRef* value)
{
    const auto name = utf8(key);
    if (!name)
        return kPMInvalidKey;
    const auto found = values.find(*name);
    if (found == values.end())
        return kPMKeyNotFound;
    *value = found->second.get();
    return kPMNoError;
}

OSStatus paperLength(PMPaper paper, double Paper::*side, double* points)
{
    if (points != nullptr)
        *points = 0;
    const PaperRecord* record = recordOf(paper);
    if (record == nullptr || !record->paper)
        return kPMInvalidPaper;
    if (points == nullptr)
        return kPMInvalidParameter;
    *points = (*record->paper).*side;
    return kPMNoError;
}

using PageGetter = std::uint32_t (PageRange::*)() const noexcept;
using PageSetter = bool (PageRange::*)(std::uint32_t) noexcept;

OSStatus page(PMPrintSettings settings, PageGetter get, UInt32* number)
{
    if (number != nullptr)
        *number = 0;
    const PrintSettingsRecord* record = recordOf(settings);
    if (record == nullptr)
        return kPMInvalidPrintSettings;
    if (number == nullptr)
        return kPMInvalidParameter;
    *number = (record->pages.*get)();
    return kPMNoError;
}

OSStatus setPage(PMPrintSettings settings, PageSetter set, UInt32 number)
{
    PrintSettingsRecord* record = recordOf(settings);
    if (record == nullptr)
        return kPMInvalidPrintSettings;
    return (record->pages.*set)(number) ? kPMNoError : kPMValueOutOfRange;
}

CFOwner<CFNumberRef> newPageNumber(std::uint32_t page)
{
    const std::int64_t wide = page;
    return CFOwner<CFNumberRef>(CFNumberCreate(kCFAllocatorDefault, kCFNumberSInt64Type, &wide));
}

// One URL for each text, kept for good: panels keep the copy they are given, and a dialog that is
// opened a thousand times must not leave a thousand behind.
CFURLRef urlForText(const std::string& text)
{
    static auto& urls = *new std::map<std::string, CFURLRef>; // outlives every static object
    if (const auto known = urls.find(text); known != urls.end())
        return known->second;
    const auto string = newString(text);
    CFURLRef const url = CFURLCreateWithString(kCFAllocatorDefault, string.get(), nullptr);
    if (url != nullptr)
        urls.emplace(text, url);
    return url;
}

} // namespace

OSStatus PMPrinterCopyDeviceURI(PMPrinter printer, CFURLRef* uri)
{
    if (uri != nullptr)
        *uri = nullptr;
    const PrinterRecord* record = recordOf(printer);
    if (record == nullptr)
        return kPMInvalidPrinter;
    if (uri == nullptr)
        return kPMInvalidParameter;
    if (record->deviceURI.empty())
        return kPMNoSuchEntry;
    CFURLRef const url = urlForText(record->deviceURI);
    if (url == nullptr)
        return kPMStringConversionFailure;
    CFRetain(url);
    *uri = url;
    return kPMNoError;
}

OSStatus PMGetPageFormatPaper(PMPageFormat pageFormat, PMPaper* paper)
{
    if (paper != nullptr)
        *paper = nullptr;
    PageFormatRecord* record = recordOf(pageFormat);
    if (record == nullptr)
        return kPMInvalidPageFormat;
    if (paper == nullptr)
        return kPMInvalidParameter;
    if (record->paper.paper)
        *paper = reinterpret_cast<PMPaper>(static_cast<Tagged*>(&record->paper));
    return kPMNoError;
}

OSStatus PMPaperGetPPDPaperName(PMPaper paper, CFStringRef* name)
{
    if (name != nullptr)
        *name = nullptr;
    const PaperRecord* record = recordOf(paper);
    if (record == nullptr || !record->paper)
        return kPMInvalidPaper;
    if (name == nullptr)
        return kPMInvalidParameter;
    *name = record->ppdName.get();
    return kPMNoError;
}

OSStatus PMPaperGetWidth(PMPaper paper, double* width)
{
    return paperLength(paper, &Paper::widthPoints, width);
}

OSStatus PMPaperGetHeight(PMPaper paper, double* height)
{
    return paperLength(paper, &Paper::heightPoints, height);
}

OSStatus PMPrintSettingsGetValue(PMPrintSettings settings, CFStringRef key, CFTypeRef* value)
{
    if (value != nullptr)
        *value = nullptr;
    const PrintSettingsRecord* record = recordOf(settings);
    if (record == nullptr)
        return kPMInvalidPrintSettings;
    return value != nullptr ? valueUnder(record->values, key, value) : kPMInvalidParameter;
}

OSStatus PMPrintSettingsSetValue(PMPrintSettings settings, CFStringRef key, CFTypeRef value,
                                 Boolean locked)
{
    PrintSettingsRecord* record = recordOf(settings);
    if (record == nullptr)
        return kPMInvalidPrintSettings;
    auto name = utf8(key);
    if (!name)
        return kPMInvalidKey;
    if (value == nullptr) {
        record->values.erase(*name);
        return kPMNoError;
    }
    if (!CFPropertyListIsValid(value, kCFPropertyListXMLFormat_v1_0))
        return kPMInvalidValue;
    record->values.insert_or_assign(std::move(*name), CFOwner<CFTypeRef>(CFRetain(value)));
    return kPMNoError;
}

OSStatus PMGetFirstPage(PMPrintSettings settings, UInt32* first)
{
    return page(settings, &PageRange::first, first);
}

OSStatus PMSetFirstPage(PMPrintSettings settings, UInt32 first, Boolean lock)
{
    return setPage(settings, &PageRange::setFirst, first);
}

OSStatus PMGetLastPage(PMPrintSettings settings, UInt32* last)
{
    return page(settings, &PageRange::last, last);
}

OSStatus PMSetLastPage(PMPrintSettings settings, UInt32 last, Boolean lock)
{
    return setPage(settings, &PageRange::setLast, last);
}

OSStatus PMPrintSettingsCreateDataRepresentation(PMPrintSettings settings, CFDataRef* data,
                                                 PMDataFormat format)
{
    if (data != nullptr)
        *data = nullptr;
    const PrintSettingsRecord* record = recordOf(settings);
    if (record == nullptr)
        return kPMInvalidPrintSettings;
    if (data == nullptr)
        return kPMInvalidParameter;
    if (format == kPMDataFormatXMLCompressed)
        return kPMNotImplemented;
    if (format != kPMDataFormatXMLDefault && format != kPMDataFormatXMLMinimal)
        return kPMInvalidParameter;

    std::vector<CFOwner<CFStringRef>> names;
    std::vector<const void*> keys;
    std::vector<const void*> values;
    for (const auto& [name, value] : record->values) {
        names.push_back(newString(name));
        keys.push_back(names.back().get());
        values.push_back(value.get());
    }
    // Behind the values, so that no value hides the range.
    const auto first = newPageNumber(record->pages.first());
    keys.push_back(CFSTR("PMFirstPage"));
    values.push_back(first.get());
    const auto last = newPageNumber(record->pages.last());
    keys.push_back(CFSTR("PMLastPage"));
    values.push_back(last.get());

    const CFOwner<CFDictionaryRef> all(CFDictionaryCreate(
        kCFAllocatorDefault, keys.data(), values.data(), static_cast<CFIndex>(keys.size()),
        &kCFTypeDictionaryKeyCallBacks, &kCFTypeDictionaryValueCallBacks));
    *data = CFPropertyListCreateXMLData(kCFAllocatorDefault, all.get());
    return *data != nullptr ? kPMNoError : kPMGeneralError;
}

OSStatus PMSessionGetDataFromSession(PMPrintSession session, CFStringRef key, CFTypeRef* data)
{
    if (data != nullptr)
        *data = nullptr;
    const PrintSessionRecord* record = recordOf(session);
    if (record == nullptr)
        return kPMInvalidPrintSession;
    return data != nullptr ? valueUnder(record->values, key, data) : kPMInvalidParameter;
}
