#include "platform/CFOwner.hpp"
#include "platform/PrintingHost.hpp"

#include <gtest/gtest.h>

#include <cstring>

using namespace printing;

namespace {

std::string textOf(CFStringRef ref)
{
    char buffer[512];
    EXPECT_TRUE(CFStringGetCString(ref, buffer, sizeof buffer, kCFStringEncodingUTF8));
    return buffer;
}

std::string bytesOf(CFTypeRef ref)
{
    const auto data = static_cast<CFDataRef>(ref);
    return std::string(reinterpret_cast<const char*>(CFDataGetBytePtr(data)),
                       static_cast<std::size_t>(CFDataGetLength(data)));
}

// A handle of one kind under the type of another.
template <typename To, typename From>
To disguised(From handle)
{
    return reinterpret_cast<To>(handle);
}

template <typename Ref>
Ref garbage()
{
    static int something = 0;
    return reinterpret_cast<Ref>(&something);
}

PMPaper paperOf(const PageFormat& format)
{
    PMPaper paper = nullptr;
    EXPECT_EQ(PMGetPageFormatPaper(format.handle(), &paper), kPMNoError);
    return paper;
}

} // namespace

TEST(PrintingNumbers, AreTheFrameworksOwn)
{
    EXPECT_EQ(kPMNoError, 0);
    EXPECT_EQ(kPMInvalidParameter, -50);
    EXPECT_EQ(kPMInvalidPrintSettings, -30875);
    EXPECT_EQ(kPMInvalidPageFormat, -30876);
    EXPECT_EQ(kPMValueOutOfRange, -30877);
    EXPECT_EQ(kPMInvalidPrintSession, -30879);
    EXPECT_EQ(kPMInvalidPrinter, -30880);
    EXPECT_EQ(kPMInvalidTicket, -30891);
    EXPECT_EQ(kPMInvalidPaper, -30897);
    EXPECT_EQ(kPMKeyNotFound, -9589);
    EXPECT_EQ(kPMDataFormatXMLDefault, 0);
}

TEST(PMPrinterCopyDeviceURI, AnswersAnOwnedURLInItsOwnLetterCase)
{
    CFOwner<CFURLRef> uri;
    {
        const Printer printer("Label", "VNKMUSB://Maker/Model%20X");
        CFURLRef made = nullptr;
        EXPECT_EQ(PMPrinterCopyDeviceURI(printer.handle(), &made), kPMNoError);
        uri = CFOwner<CFURLRef>(made);
        EXPECT_EQ(printer.name(), "Label");
        EXPECT_EQ(printer.deviceURI(), "VNKMUSB://Maker/Model%20X");
    }
    ASSERT_TRUE(uri);
    EXPECT_EQ(textOf(CFURLGetString(uri.get())), "VNKMUSB://Maker/Model%20X");
    const CFOwner<CFStringRef> scheme(CFURLCopyScheme(uri.get()));
    EXPECT_EQ(textOf(scheme.get()), "VNKMUSB");
}

TEST(PMPrinterCopyDeviceURI, AnswersAnErrorAndNullWithoutAURL)
{
    auto* uri = garbage<CFURLRef>();
    EXPECT_EQ(PMPrinterCopyDeviceURI(Printer("Label", "").handle(), &uri), -30874);
    EXPECT_EQ(uri, nullptr);
    for (const char* text : {"usb://Maker/Model X", "usb://caf\xc3\xa9", "\xff"}) {
        uri = garbage<CFURLRef>();
        EXPECT_EQ(PMPrinterCopyDeviceURI(Printer("Label", text).handle(), &uri), -30883) << text;
        EXPECT_EQ(uri, nullptr) << text;
    }
}

TEST(PMPrinterCopyDeviceURI, RefusesNullAndOtherKinds)
{
    const Printer printer("Label", "usb://x");
    const PageFormat format;
    auto* uri = garbage<CFURLRef>();
    EXPECT_EQ(PMPrinterCopyDeviceURI(nullptr, &uri), kPMInvalidPrinter);
    EXPECT_EQ(uri, nullptr);
    uri = garbage<CFURLRef>();
    EXPECT_EQ(PMPrinterCopyDeviceURI(disguised<PMPrinter>(format.handle()), &uri),
              kPMInvalidPrinter);
    EXPECT_EQ(uri, nullptr);
    EXPECT_EQ(PMPrinterCopyDeviceURI(printer.handle(), nullptr), kPMInvalidParameter);
    EXPECT_EQ(PMPrinterCopyDeviceURI(nullptr, nullptr), kPMInvalidPrinter);
}

TEST(PMGetPageFormatPaper, AnswersNullUntilAPaperIsSet)
{
    PageFormat format;
    PMPaper paper = garbage<PMPaper>();
    EXPECT_EQ(PMGetPageFormatPaper(format.handle(), &paper), kPMNoError);
    EXPECT_EQ(paper, nullptr);
    format.setPaper({"TC24", 68, 283.5});
    EXPECT_EQ(PMGetPageFormatPaper(format.handle(), &paper), kPMNoError);
    EXPECT_NE(paper, nullptr);
    format.clearPaper();
    EXPECT_FALSE(format.paper());
    EXPECT_EQ(PMGetPageFormatPaper(format.handle(), &paper), kPMNoError);
    EXPECT_EQ(paper, nullptr);
}

TEST(PMGetPageFormatPaper, RefusesNullAndOtherKinds)
{
    const PageFormat format;
    const PrintSettings settings;
    PMPaper paper = garbage<PMPaper>();
    EXPECT_EQ(PMGetPageFormatPaper(nullptr, &paper), kPMInvalidPageFormat);
    EXPECT_EQ(paper, nullptr);
    EXPECT_EQ(PMGetPageFormatPaper(disguised<PMPageFormat>(settings.handle()), &paper),
              kPMInvalidPageFormat);
    EXPECT_EQ(PMGetPageFormatPaper(format.handle(), nullptr), kPMInvalidParameter);
}

TEST(PMPaper, AnswersItsNameAndSize)
{
    PageFormat format;
    format.setPaper({"TC24", 68, 283.5});
    const PMPaper paper = paperOf(format);
    CFStringRef name = nullptr;
    EXPECT_EQ(PMPaperGetPPDPaperName(paper, &name), kPMNoError);
    EXPECT_EQ(textOf(name), "TC24");
    double width = 0;
    double height = 0;
    EXPECT_EQ(PMPaperGetWidth(paper, &width), kPMNoError);
    EXPECT_EQ(PMPaperGetHeight(paper, &height), kPMNoError);
    EXPECT_EQ(width, 68.0);
    EXPECT_EQ(height, 283.5);
}

TEST(PMPaper, FollowsItsPageFormat)
{
    PageFormat format;
    format.setPaper({"TC24", 68, 283.5});
    const PMPaper paper = paperOf(format);
    format.setPaper({"DC62", 175, 0});
    CFStringRef name = nullptr;
    EXPECT_EQ(PMPaperGetPPDPaperName(paper, &name), kPMNoError);
    EXPECT_EQ(textOf(name), "DC62");
    double height = 1;
    EXPECT_EQ(PMPaperGetHeight(paper, &height), kPMNoError);
    EXPECT_EQ(height, 0.0);
    format.clearPaper();
    EXPECT_EQ(PMPaperGetHeight(paper, &height), kPMInvalidPaper);
    EXPECT_EQ(PMPaperGetPPDPaperName(paper, &name), kPMInvalidPaper);
    EXPECT_EQ(name, nullptr);
}

TEST(PMPaper, HasNoNameThatThePPDDoesNotGive)
{
    PageFormat format;
    for (const char* unnamed : {"", "\xff"}) {
        format.setPaper({unnamed, 68, 100});
        auto* name = garbage<CFStringRef>();
        EXPECT_EQ(PMPaperGetPPDPaperName(paperOf(format), &name), kPMNoError);
        EXPECT_EQ(name, nullptr);
    }
}

TEST(PMPaper, RefusesNullAndOtherKinds)
{
    PageFormat format;
    format.setPaper({"TC24", 68, 100});
    const auto wrong = disguised<PMPaper>(format.handle());
    auto* name = garbage<CFStringRef>();
    double length = 5;
    for (const PMPaper paper : {PMPaper{nullptr}, wrong}) {
        EXPECT_EQ(PMPaperGetPPDPaperName(paper, &name), kPMInvalidPaper);
        EXPECT_EQ(name, nullptr);
        EXPECT_EQ(PMPaperGetHeight(paper, &length), kPMInvalidPaper);
        EXPECT_EQ(PMPaperGetWidth(paper, &length), kPMInvalidPaper);
        EXPECT_EQ(length, 0.0);
    }
    EXPECT_EQ(PMPaperGetPPDPaperName(paperOf(format), nullptr), kPMInvalidParameter);
    EXPECT_EQ(PMPaperGetHeight(paperOf(format), nullptr), kPMInvalidParameter);
    EXPECT_EQ(PMPaperGetWidth(paperOf(format), nullptr), kPMInvalidParameter);
}

TEST(PMPrintSettings, AnswersTheDatasThatTheDialogSet)
{
    PrintSettings settings;
    settings.setData("ticket", std::string_view("a\0b", 3));
    settings.setData("empty", {});
    settings.setString("name", "caf\xc3\xa9");
    CFTypeRef value = nullptr;
    EXPECT_EQ(PMPrintSettingsGetValue(settings.handle(), CFSTR("ticket"), &value), kPMNoError);
    ASSERT_EQ(CFGetTypeID(value), CFDataGetTypeID());
    EXPECT_EQ(bytesOf(value), std::string("a\0b", 3));
    EXPECT_EQ(PMPrintSettingsGetValue(settings.handle(), CFSTR("empty"), &value), kPMNoError);
    EXPECT_EQ(CFDataGetLength(static_cast<CFDataRef>(value)), 0);
    EXPECT_EQ(PMPrintSettingsGetValue(settings.handle(), CFSTR("name"), &value), kPMNoError);
    EXPECT_EQ(textOf(static_cast<CFStringRef>(value)), "caf\xc3\xa9");
}

TEST(PMPrintSettings, HasNoValueUnderAKeyThatWasRemovedOrNeverSet)
{
    PrintSettings settings;
    settings.setString("a", "1");
    settings.remove("a");
    settings.setString("b", "\xff");
    auto* value = garbage<CFTypeRef>();
    for (const CFStringRef key : {CFSTR("a"), CFSTR("b"), CFSTR("c"), CFSTR("")}) {
        value = garbage<CFTypeRef>();
        EXPECT_EQ(PMPrintSettingsGetValue(settings.handle(), key, &value), kPMKeyNotFound);
        EXPECT_EQ(value, nullptr);
    }
}

TEST(PMPrintSettings, KeepsAValueThatAPanelSets)
{
    PrintSettings settings;
    {
        const CFOwner<CFStringRef> value(
            CFStringCreateWithCString(nullptr, "a text of some length", kCFStringEncodingUTF8));
        EXPECT_EQ(PMPrintSettingsSetValue(settings.handle(), CFSTR("k"), value.get(), true),
                  kPMNoError);
    }
    CFTypeRef found = nullptr;
    EXPECT_EQ(PMPrintSettingsGetValue(settings.handle(), CFSTR("k"), &found), kPMNoError);
    EXPECT_EQ(textOf(static_cast<CFStringRef>(found)), "a text of some length");
    EXPECT_EQ(PMPrintSettingsSetValue(settings.handle(), CFSTR("k"), CFSTR("other"), false),
              kPMNoError);
    EXPECT_EQ(PMPrintSettingsGetValue(settings.handle(), CFSTR("k"), &found), kPMNoError);
    EXPECT_EQ(textOf(static_cast<CFStringRef>(found)), "other");
    EXPECT_EQ(PMPrintSettingsSetValue(settings.handle(), CFSTR("k"), nullptr, false), kPMNoError);
    EXPECT_EQ(PMPrintSettingsGetValue(settings.handle(), CFSTR("k"), &found), kPMKeyNotFound);
}

TEST(PMPrintSettings, RefusesAValueThatNoPropertyListCanHold)
{
    const PrintSettings settings;
    const CFOwner<CFURLRef> url(CFURLCreateWithString(nullptr, CFSTR("usb://x"), nullptr));
    EXPECT_EQ(PMPrintSettingsSetValue(settings.handle(), CFSTR("k"), url.get(), false), -30889);
    CFTypeRef found = nullptr;
    EXPECT_EQ(PMPrintSettingsGetValue(settings.handle(), CFSTR("k"), &found), kPMKeyNotFound);
}

TEST(PMPrintSettings, RefusesNullAndOtherKinds)
{
    const PrintSettings settings;
    const PrintSession session;
    const auto wrong = disguised<PMPrintSettings>(session.handle());
    for (const PMPrintSettings bad : {PMPrintSettings{nullptr}, wrong}) {
        auto* value = garbage<CFTypeRef>();
        auto* data = garbage<CFDataRef>();
        UInt32 page = 5;
        EXPECT_EQ(PMPrintSettingsGetValue(bad, CFSTR("k"), &value), kPMInvalidPrintSettings);
        EXPECT_EQ(value, nullptr);
        EXPECT_EQ(PMPrintSettingsSetValue(bad, CFSTR("k"), CFSTR("v"), false),
                  kPMInvalidPrintSettings);
        EXPECT_EQ(PMGetFirstPage(bad, &page), kPMInvalidPrintSettings);
        EXPECT_EQ(page, 0u);
        EXPECT_EQ(PMGetLastPage(bad, &page), kPMInvalidPrintSettings);
        EXPECT_EQ(PMSetFirstPage(bad, 1, false), kPMInvalidPrintSettings);
        EXPECT_EQ(PMSetLastPage(bad, 1, false), kPMInvalidPrintSettings);
        EXPECT_EQ(PMPrintSettingsCreateDataRepresentation(bad, &data, kPMDataFormatXMLDefault),
                  kPMInvalidPrintSettings);
        EXPECT_EQ(data, nullptr);
    }
    CFTypeRef value = nullptr;
    EXPECT_EQ(PMPrintSettingsGetValue(settings.handle(), nullptr, &value), kPMInvalidKey);
    EXPECT_EQ(PMPrintSettingsSetValue(settings.handle(), nullptr, CFSTR("v"), false),
              kPMInvalidKey);
    EXPECT_EQ(PMPrintSettingsGetValue(settings.handle(), CFSTR("k"), nullptr), kPMInvalidParameter);
    EXPECT_EQ(PMGetFirstPage(settings.handle(), nullptr), kPMInvalidParameter);
    EXPECT_EQ(PMGetLastPage(settings.handle(), nullptr), kPMInvalidParameter);
    EXPECT_EQ(PMPrintSettingsCreateDataRepresentation(settings.handle(), nullptr, 0),
              kPMInvalidParameter);
}

TEST(PMPageRange, GoesFromTheFirstPageToAll)
{
    const PrintSettings settings;
    UInt32 page = 0;
    EXPECT_EQ(PMGetFirstPage(settings.handle(), &page), kPMNoError);
    EXPECT_EQ(page, 1u);
    EXPECT_EQ(PMGetLastPage(settings.handle(), &page), kPMNoError);
    EXPECT_EQ(page, kPMPrintAllPages);
    // Setting what is there changes nothing and is no error.
    EXPECT_EQ(PMSetFirstPage(settings.handle(), 1, false), kPMNoError);
    EXPECT_EQ(PMSetLastPage(settings.handle(), kPMPrintAllPages, false), kPMNoError);
}

TEST(PMPageRange, IsSeenByTheDialog)
{
    const PrintSettings settings;
    EXPECT_EQ(PMSetLastPage(settings.handle(), 9, false), kPMNoError);
    EXPECT_EQ(PMSetFirstPage(settings.handle(), 4, true), kPMNoError);
    EXPECT_EQ(settings.firstPage(), 4u);
    EXPECT_EQ(settings.lastPage(), 9u);
    EXPECT_EQ(PMSetFirstPage(settings.handle(), 10, false), kPMValueOutOfRange);
    EXPECT_EQ(PMSetFirstPage(settings.handle(), 0, false), kPMValueOutOfRange);
    EXPECT_EQ(PMSetLastPage(settings.handle(), 3, false), kPMValueOutOfRange);
    EXPECT_EQ(settings.firstPage(), 4u);
    EXPECT_EQ(settings.lastPage(), 9u);
}

TEST(PMPrintSettingsCreateDataRepresentation, ReadsBackWithValuesAndPages)
{
    PrintSettings settings;
    settings.setData("ticket", "<plist>&</plist>");
    settings.setString("name <&>", "caf\xc3\xa9");
    settings.setString("PMFirstPage", "hides nothing");
    ASSERT_EQ(PMSetFirstPage(settings.handle(), 2, false), kPMNoError);
    for (const PMDataFormat format : {kPMDataFormatXMLDefault, kPMDataFormatXMLMinimal}) {
        CFDataRef made = nullptr;
        ASSERT_EQ(PMPrintSettingsCreateDataRepresentation(settings.handle(), &made, format),
                  kPMNoError);
        const CFOwner<CFDataRef> xml(made);
        EXPECT_EQ(bytesOf(made).substr(0, 5), "<?xml");
        const CFOwner<CFPropertyListRef> list(
            CFPropertyListCreateFromXMLData(nullptr, made, kCFPropertyListImmutable, nullptr));
        ASSERT_TRUE(list);
        const auto all = static_cast<CFDictionaryRef>(list.get());
        EXPECT_EQ(CFDictionaryGetCount(all), 4);
        EXPECT_EQ(bytesOf(CFDictionaryGetValue(all, CFSTR("ticket"))), "<plist>&</plist>");
        EXPECT_EQ(textOf(static_cast<CFStringRef>(CFDictionaryGetValue(all, CFSTR("name <&>")))),
                  "caf\xc3\xa9");
        std::int64_t page = 0;
        EXPECT_TRUE(CFNumberGetValue(
            static_cast<CFNumberRef>(CFDictionaryGetValue(all, CFSTR("PMFirstPage"))),
            kCFNumberSInt64Type, &page));
        EXPECT_EQ(page, 2);
        EXPECT_TRUE(CFNumberGetValue(
            static_cast<CFNumberRef>(CFDictionaryGetValue(all, CFSTR("PMLastPage"))),
            kCFNumberSInt64Type, &page));
        EXPECT_EQ(page, 4294967295);
    }
}

TEST(PMPrintSettingsCreateDataRepresentation, RefusesOtherForms)
{
    const PrintSettings settings;
    auto* data = garbage<CFDataRef>();
    EXPECT_EQ(PMPrintSettingsCreateDataRepresentation(settings.handle(), &data,
                                                      kPMDataFormatXMLCompressed),
              -30873);
    EXPECT_EQ(data, nullptr);
    EXPECT_EQ(PMPrintSettingsCreateDataRepresentation(settings.handle(), &data, 9),
              kPMInvalidParameter);
}

TEST(PMSessionGetDataFromSession, AnswersTheNumberThatTheDialogSet)
{
    PrintSession session;
    session.setNumber("ticket", -5);
    CFTypeRef value = nullptr;
    EXPECT_EQ(PMSessionGetDataFromSession(session.handle(), CFSTR("ticket"), &value), kPMNoError);
    SInt32 number = 0;
    EXPECT_TRUE(CFNumberGetValue(static_cast<CFNumberRef>(value), kCFNumberSInt32Type, &number));
    EXPECT_EQ(number, -5);
    session.remove("ticket");
    EXPECT_EQ(PMSessionGetDataFromSession(session.handle(), CFSTR("ticket"), &value),
              kPMKeyNotFound);
    EXPECT_EQ(value, nullptr);
}

TEST(PMSessionGetDataFromSession, RefusesNullAndOtherKinds)
{
    const PrintSession session;
    const Printer printer("Label", "usb://x");
    auto* value = garbage<CFTypeRef>();
    EXPECT_EQ(PMSessionGetDataFromSession(nullptr, CFSTR("k"), &value), kPMInvalidPrintSession);
    EXPECT_EQ(value, nullptr);
    EXPECT_EQ(PMSessionGetDataFromSession(disguised<PMPrintSession>(printer.handle()), CFSTR("k"),
                                          &value),
              kPMInvalidPrintSession);
    EXPECT_EQ(PMSessionGetDataFromSession(session.handle(), nullptr, &value), kPMInvalidKey);
    EXPECT_EQ(PMSessionGetDataFromSession(session.handle(), CFSTR("k"), nullptr),
              kPMInvalidParameter);
}

TEST(PaperFromPPD, IsTheOneOfThatNameWithItsMeasures)
{
    ppd_size_t sizes[2] = {};
    std::strcpy(sizes[0].name, "TC24");
    sizes[0].width = 68;
    sizes[0].length = 283.5f;
    std::strcpy(sizes[1].name, "DC62");
    sizes[1].width = 175;
    sizes[1].length = 285;
    ppd_file_t ppd = {};
    ppd.num_sizes = 2;
    ppd.sizes = sizes;
    const auto second = paperFromPPD(ppd, "DC62");
    ASSERT_TRUE(second.has_value());
    EXPECT_EQ(second->ppdName, "DC62");
    EXPECT_EQ(second->widthPoints, 175.0);
    EXPECT_EQ(second->heightPoints, 285.0);
    EXPECT_EQ(paperFromPPD(ppd, "TC24")->heightPoints, 283.5);
    EXPECT_FALSE(paperFromPPD(ppd, "tc24").has_value());
    EXPECT_FALSE(paperFromPPD(ppd, "TC2").has_value());
    EXPECT_FALSE(paperFromPPD(ppd, "").has_value());
}

TEST(PaperFromPPD, IsNoneForAPPDWithoutSizes)
{
    ppd_file_t ppd = {};
    EXPECT_FALSE(paperFromPPD(ppd, "TC24").has_value());
    ppd.num_sizes = -1;
    EXPECT_FALSE(paperFromPPD(ppd, "TC24").has_value());
    ppd.num_sizes = 3;
    EXPECT_FALSE(paperFromPPD(ppd, "TC24").has_value());
}
