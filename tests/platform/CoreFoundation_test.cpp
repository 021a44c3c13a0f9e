#include <CoreFoundation/CoreFoundation.h>

#include "platform/CFOwner.hpp"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <string>
#include <vector>

using printing::CFOwner;

namespace {

CFOwner<CFStringRef> string(const char* utf8)
{
    return CFOwner<CFStringRef>(
        CFStringCreateWithCString(kCFAllocatorDefault, utf8, kCFStringEncodingUTF8));
}

// One half of a surrogate pair between two letters.
CFOwner<CFStringRef> brokenString()
{
    CFOwner<CFStringRef> broken(
        CFStringCreateWithFormat(kCFAllocatorDefault, nullptr, CFSTR("a%Cb"), 0xd800));
    EXPECT_EQ(CFStringGetLength(broken.get()), 3);
    return broken;
}

CFOwner<CFDataRef> data(std::string_view bytes)
{
    return CFOwner<CFDataRef>(CFDataCreate(kCFAllocatorDefault,
                                           reinterpret_cast<const UInt8*>(bytes.data()),
                                           static_cast<CFIndex>(bytes.size())));
}

std::string bytesOf(CFDataRef ref)
{
    return std::string(reinterpret_cast<const char*>(CFDataGetBytePtr(ref)),
                       static_cast<std::size_t>(CFDataGetLength(ref)));
}

std::string textOf(CFStringRef ref)
{
    char buffer[512];
    EXPECT_TRUE(CFStringGetCString(ref, buffer, sizeof buffer, kCFStringEncodingUTF8));
    return buffer;
}

CFOwner<CFURLRef> url(const char* text)
{
    return CFOwner<CFURLRef>(
        CFURLCreateWithString(kCFAllocatorDefault, string(text).get(), nullptr));
}

} // namespace

TEST(CoreFoundation, TakesNullQuietly)
{
    EXPECT_EQ(CFRetain(nullptr), nullptr);
    CFRelease(nullptr);
    EXPECT_EQ(CFGetTypeID(nullptr), 0u);
    EXPECT_EQ(CFStringCreateCopy(nullptr, nullptr), nullptr);
    EXPECT_EQ(CFStringCreateWithCString(nullptr, nullptr, kCFStringEncodingUTF8), nullptr);
    EXPECT_EQ(CFStringCreateWithBytes(nullptr, nullptr, 3, kCFStringEncodingUTF8, false), nullptr);
    EXPECT_EQ(CFStringCreateWithFormat(nullptr, nullptr, nullptr), nullptr);
    EXPECT_EQ(CFStringGetLength(nullptr), 0);
    EXPECT_EQ(CFStringCreateExternalRepresentation(nullptr, nullptr, kCFStringEncodingUTF8, '?'),
              nullptr);
    EXPECT_EQ(CFDataCreate(nullptr, nullptr, 1), nullptr);
    EXPECT_EQ(CFDataGetLength(nullptr), 0);
    EXPECT_EQ(CFDataGetBytePtr(nullptr), nullptr);
    EXPECT_EQ(CFURLCreateWithString(nullptr, nullptr, nullptr), nullptr);
    EXPECT_EQ(CFURLGetString(nullptr), nullptr);
    EXPECT_EQ(CFURLCopyScheme(nullptr), nullptr);
    EXPECT_EQ(CFDictionaryGetCount(nullptr), 0);
    EXPECT_EQ(CFDictionaryGetValue(nullptr, CFSTR("a")), nullptr);
    EXPECT_FALSE(CFDictionaryGetValueIfPresent(nullptr, CFSTR("a"), nullptr));
    EXPECT_EQ(CFNumberCreate(nullptr, kCFNumberSInt32Type, nullptr), nullptr);
    SInt32 number = 5;
    EXPECT_FALSE(CFNumberGetValue(nullptr, kCFNumberSInt32Type, &number));
    EXPECT_EQ(number, 5);
    EXPECT_FALSE(CFBooleanGetValue(nullptr));
    EXPECT_FALSE(CFPropertyListIsValid(nullptr, kCFPropertyListXMLFormat_v1_0));
    EXPECT_EQ(CFPropertyListCreateXMLData(nullptr, nullptr), nullptr);
    EXPECT_EQ(__CFStringMakeConstantString(nullptr), nullptr);
    EXPECT_TRUE(CFEqual(nullptr, nullptr));
    EXPECT_FALSE(CFEqual(nullptr, CFSTR("a")));
    EXPECT_FALSE(CFEqual(CFSTR("a"), nullptr));
}

TEST(CoreFoundation, TellsTheTypesApart)
{
    const auto text = string("a");
    const auto bytes = data("a");
    const auto link = url("usb://x");
    const CFOwner<CFDictionaryRef> dictionary(
        CFDictionaryCreate(nullptr, nullptr, nullptr, 0, nullptr, nullptr));
    const SInt32 one = 1;
    const CFOwner<CFNumberRef> number(CFNumberCreate(nullptr, kCFNumberSInt32Type, &one));
    EXPECT_EQ(CFGetTypeID(text.get()), CFStringGetTypeID());
    EXPECT_EQ(CFGetTypeID(CFSTR("a")), CFStringGetTypeID());
    EXPECT_EQ(CFGetTypeID(bytes.get()), CFDataGetTypeID());
    EXPECT_EQ(CFGetTypeID(link.get()), CFURLGetTypeID());
    EXPECT_EQ(CFGetTypeID(dictionary.get()), CFDictionaryGetTypeID());
    EXPECT_EQ(CFGetTypeID(number.get()), CFNumberGetTypeID());
    EXPECT_EQ(CFGetTypeID(kCFBooleanTrue), CFBooleanGetTypeID());
    EXPECT_EQ(CFGetTypeID(kCFBooleanFalse), CFBooleanGetTypeID());
    const CFTypeID all[] = {
        CFStringGetTypeID(), CFDataGetTypeID(),    CFURLGetTypeID(),        CFArrayGetTypeID(),
        CFNumberGetTypeID(), CFBooleanGetTypeID(), CFDictionaryGetTypeID(), 0};
    for (const CFTypeID& type : all)
        for (const CFTypeID& other : all)
            EXPECT_EQ(type == other, &type == &other);
}

TEST(CFSTR, AnswersOneObjectForEqualLiterals)
{
    EXPECT_EQ(CFSTR("one literal"), CFSTR("one literal"));
    EXPECT_NE(CFSTR("one literal"), CFSTR("another literal"));
    EXPECT_EQ(textOf(CFSTR("caf\xc3\xa9")), "caf\xc3\xa9");
    EXPECT_EQ(CFStringGetLength(CFSTR("caf\xc3\xa9")), 4);
    // Never gone, however often it is released in pairs with a retain.
    CFRelease(CFRetain(CFSTR("one literal")));
    EXPECT_EQ(textOf(CFSTR("one literal")), "one literal");
}

TEST(CFStringCreate, AnswersNullForBytesThatTheEncodingLacks)
{
    EXPECT_EQ(CFStringCreateWithCString(nullptr, "\xff", kCFStringEncodingUTF8), nullptr);
    EXPECT_EQ(CFStringCreateWithCString(nullptr, "a\xc3", kCFStringEncodingUTF8), nullptr);
    EXPECT_EQ(CFStringCreateWithCString(nullptr, "a", 0x7777), nullptr);
    EXPECT_EQ(CFStringCreateWithCString(nullptr, "a", kCFStringEncodingInvalidId), nullptr);
}

TEST(CFStringCreate, ReadsTheEncodingThatIsNamed)
{
    const CFOwner<CFStringRef> roman(
        CFStringCreateWithCString(nullptr, "\x8e", kCFStringEncodingMacRoman));
    EXPECT_EQ(textOf(roman.get()), "\xc3\xa9");
    const CFOwner<CFStringRef> latin(
        CFStringCreateWithCString(nullptr, "\xe9", kCFStringEncodingISOLatin1));
    EXPECT_TRUE(CFEqual(roman.get(), latin.get()));
    const UInt8 bytes[] = {'a', 'b', 'c'};
    const CFOwner<CFStringRef> part(
        CFStringCreateWithBytes(nullptr, bytes, 2, kCFStringEncodingASCII, false));
    EXPECT_EQ(textOf(part.get()), "ab");
    EXPECT_EQ(CFStringCreateWithBytes(nullptr, bytes, -1, kCFStringEncodingASCII, false), nullptr);
}

TEST(CFStringCreateCopy, IsEqualAndOwned)
{
    CFOwner<CFStringRef> copy;
    {
        const auto original = string("TC24");
        copy = CFOwner<CFStringRef>(CFStringCreateCopy(kCFAllocatorDefault, original.get()));
    }
    EXPECT_EQ(textOf(copy.get()), "TC24");
}

TEST(CFStringGetLength, CountsUnitsOfSixteenBits)
{
    EXPECT_EQ(CFStringGetLength(string("a\xc3\xa9").get()), 2);
    EXPECT_EQ(CFStringGetLength(string("\xf0\x9f\x8f\xb7").get()), 2);
    EXPECT_EQ(CFStringGetLength(string("").get()), 0);
}

TEST(CFStringGetCString, NeedsRoomForTheTerminator)
{
    char buffer[4] = {'x', 'x', 'x', 'x'};
    EXPECT_TRUE(CFStringGetCString(string("abc").get(), buffer, 4, kCFStringEncodingUTF8));
    EXPECT_STREQ(buffer, "abc");
}

TEST(CFStringGetCString, LeavesAnEmptyBufferWhenTheTextDoesNotFit)
{
    char buffer[4] = {'x', 'x', 'x', 'x'};
    EXPECT_FALSE(CFStringGetCString(string("abc").get(), buffer, 3, kCFStringEncodingUTF8));
    EXPECT_EQ(buffer[0], '\0');
    EXPECT_EQ(buffer[3], 'x');
    // Two characters, three bytes.
    EXPECT_FALSE(CFStringGetCString(string("a\xc3\xa9").get(), buffer, 3, kCFStringEncodingUTF8));
    EXPECT_EQ(buffer[0], '\0');
    EXPECT_TRUE(
        CFStringGetCString(string("a\xc3\xa9").get(), buffer, 3, kCFStringEncodingISOLatin1));
    EXPECT_STREQ(buffer, "a\xe9");
}

TEST(CFStringGetCString, LeavesAnEmptyBufferWhenTheTextCannotBeConverted)
{
    char buffer[8] = "before";
    EXPECT_FALSE(
        CFStringGetCString(string("caf\xc3\xa9").get(), buffer, 8, kCFStringEncodingASCII));
    EXPECT_STREQ(buffer, "");
    std::strcpy(buffer, "before");
    EXPECT_FALSE(CFStringGetCString(brokenString().get(), buffer, 8, kCFStringEncodingUTF8));
    EXPECT_STREQ(buffer, "");
    std::strcpy(buffer, "before");
    EXPECT_FALSE(CFStringGetCString(string("a").get(), buffer, 8, 0x7777));
    EXPECT_STREQ(buffer, "");
    std::strcpy(buffer, "before");
    EXPECT_FALSE(CFStringGetCString(nullptr, buffer, 8, kCFStringEncodingUTF8));
    EXPECT_STREQ(buffer, "");
}

TEST(CFStringGetCString, TouchesNothingWithoutABuffer)
{
    char buffer[2] = {'x', 'y'};
    EXPECT_FALSE(CFStringGetCString(string("a").get(), buffer, 0, kCFStringEncodingUTF8));
    EXPECT_FALSE(CFStringGetCString(string("a").get(), buffer, -1, kCFStringEncodingUTF8));
    EXPECT_EQ(buffer[0], 'x');
    EXPECT_FALSE(CFStringGetCString(string("a").get(), nullptr, 8, kCFStringEncodingUTF8));
}

TEST(CFStringGetCString, FillsABufferOfOneWithTheEmptyText)
{
    char buffer[1] = {'x'};
    EXPECT_TRUE(CFStringGetCString(string("").get(), buffer, 1, kCFStringEncodingUTF8));
    EXPECT_EQ(buffer[0], '\0');
}

TEST(CFStringCompare, MindsTheLetterCaseWithoutOptions)
{
    EXPECT_EQ(CFStringCompare(CFSTR("usb"), CFSTR("usb"), 0), kCFCompareEqualTo);
    EXPECT_NE(CFStringCompare(CFSTR("USB"), CFSTR("usb"), 0), kCFCompareEqualTo);
    EXPECT_NE(CFStringCompare(CFSTR("vnkmusb"), CFSTR("VNKMUSB"), 0), kCFCompareEqualTo);
    EXPECT_EQ(CFStringCompare(CFSTR("USB"), CFSTR("usb"), kCFCompareCaseInsensitive),
              kCFCompareEqualTo);
}

TEST(CFStringCompare, OrdersByUnitAndThenByLength)
{
    EXPECT_EQ(CFStringCompare(CFSTR("a"), CFSTR("b"), 0), kCFCompareLessThan);
    EXPECT_EQ(CFStringCompare(CFSTR("a"), CFSTR("B"), 0), kCFCompareGreaterThan);
    EXPECT_EQ(CFStringCompare(CFSTR("usb"), CFSTR("usbx"), 0), kCFCompareLessThan);
    EXPECT_EQ(CFStringCompare(CFSTR("usbx"), CFSTR("usb"), 0), kCFCompareGreaterThan);
}

TEST(CFStringCompare, IsLiteralUnlessTold)
{
    const auto composed = string("\xc3\xa9");
    const auto decomposed = string("e\xcc\x81");
    EXPECT_NE(CFStringCompare(composed.get(), decomposed.get(), 0), kCFCompareEqualTo);
    EXPECT_EQ(CFStringCompare(composed.get(), decomposed.get(), kCFCompareNonliteral),
              kCFCompareEqualTo);
}

TEST(CFStringCompare, PutsNullBeforeEveryString)
{
    EXPECT_EQ(CFStringCompare(nullptr, nullptr, 0), kCFCompareEqualTo);
    EXPECT_EQ(CFStringCompare(nullptr, CFSTR(""), 0), kCFCompareLessThan);
    EXPECT_EQ(CFStringCompare(CFSTR(""), nullptr, 0), kCFCompareGreaterThan);
}

namespace {

std::string representation(CFStringRef text, CFStringEncoding encoding, UInt8 lossByte)
{
    const CFOwner<CFDataRef> bytes(
        CFStringCreateExternalRepresentation(nullptr, text, encoding, lossByte));
    return bytes ? bytesOf(bytes.get()) : "(null)";
}

} // namespace

TEST(CFStringCreateExternalRepresentation, ConvertsWhatTheEncodingHas)
{
    const auto text = string("caf\xc3\xa9 \xf0\x9f\x8f\xb7");
    EXPECT_EQ(representation(text.get(), kCFStringEncodingUTF8, '?'),
              "caf\xc3\xa9 \xf0\x9f\x8f\xb7");
    EXPECT_EQ(representation(string("").get(), kCFStringEncodingUTF8, '?'), "");
    EXPECT_EQ(representation(string("caf\xc3\xa9").get(), kCFStringEncodingMacRoman, '?'),
              "caf\x8e");
}

TEST(CFStringCreateExternalRepresentation, PutsOneLossByteForEachCharacterThatIsLacking)
{
    const auto text = string("a\xc3\xa9"
                             "b\xf0\x9f\x8f\xb7"
                             "c");
    EXPECT_EQ(representation(text.get(), kCFStringEncodingASCII, '?'), "a?b?c");
    EXPECT_EQ(representation(text.get(), kCFStringEncodingASCII, '*'), "a*b*c");
    EXPECT_EQ(representation(text.get(), kCFStringEncodingISOLatin1, '?'), "a\xe9"
                                                                           "b?c");
}

TEST(CFStringCreateExternalRepresentation, PutsALossByteForHalfASurrogatePair)
{
    EXPECT_EQ(representation(brokenString().get(), kCFStringEncodingUTF8, '?'), "a?b");
    EXPECT_EQ(representation(brokenString().get(), kCFStringEncodingASCII, '?'), "a?b");
    const std::string wide = representation(brokenString().get(), kCFStringEncodingUTF32LE, '?');
    EXPECT_EQ(wide, std::string("a\0\0\0?\0\0\0b\0\0\0", 12));
}

TEST(CFStringCreateExternalRepresentation, AnswersNullWithoutALossByte)
{
    EXPECT_EQ(representation(string("\xc3\xa9").get(), kCFStringEncodingASCII, 0), "(null)");
    EXPECT_EQ(representation(brokenString().get(), kCFStringEncodingUTF8, 0), "(null)");
    EXPECT_EQ(representation(string("a").get(), 0x7777, '?'), "(null)");
}

TEST(StringEncodingNumbers, GoBothWays)
{
    EXPECT_EQ(CFStringConvertEncodingToNSStringEncoding(kCFStringEncodingMacRoman), 30u);
    EXPECT_EQ(CFStringConvertEncodingToNSStringEncoding(kCFStringEncodingUTF8), 4u);
    EXPECT_EQ(CFStringConvertNSStringEncodingToEncoding(1), 0x0600u);
    EXPECT_EQ(CFStringConvertEncodingToNSStringEncoding(0x7777), 0u);
    EXPECT_EQ(CFStringConvertNSStringEncodingToEncoding(999), kCFStringEncodingInvalidId);
}

TEST(CFData, KeepsItsBytes)
{
    const auto some = data(std::string_view("a\0b", 3));
    EXPECT_EQ(CFDataGetLength(some.get()), 3);
    EXPECT_EQ(bytesOf(some.get()), std::string("a\0b", 3));
    const CFOwner<CFDataRef> none(CFDataCreate(nullptr, nullptr, 0));
    ASSERT_TRUE(none);
    EXPECT_EQ(CFDataGetLength(none.get()), 0);
    EXPECT_EQ(CFDataCreate(nullptr, reinterpret_cast<const UInt8*>("a"), -1), nullptr);
}

TEST(CFURL, KeepsTheLetterCaseOfItsText)
{
    struct
    {
        const char* text;
        const char* scheme;
    } const urls[] = {{"VNKMUSB://x", "VNKMUSB"},
                      {"usb://", "usb"},
                      {"USB://", "USB"},
                      {"usb://Maker/Model%20X?serial=Ab1", "usb"},
                      {"Ipp://Host.local:631/printers/Q", "Ipp"},
                      {"dnssd://Name._ipp._tcp.local./?uuid=1", "dnssd"},
                      {"cups-pdf:/", "cups-pdf"},
                      {"file:/dev/null", "file"}};
    for (const auto& [text, scheme] : urls) {
        const auto made = url(text);
        ASSERT_TRUE(made) << text;
        EXPECT_EQ(textOf(CFURLGetString(made.get())), text);
        const CFOwner<CFStringRef> itsScheme(CFURLCopyScheme(made.get()));
        ASSERT_TRUE(itsScheme) << text;
        EXPECT_EQ(textOf(itsScheme.get()), scheme);
    }
}

TEST(CFURL, IsNullForATextThatIsNoURL)
{
    EXPECT_FALSE(url("usb://Maker/Model X"));
    EXPECT_FALSE(url(""));
    EXPECT_FALSE(url("usb://caf\xc3\xa9"));
    EXPECT_FALSE(url("usb://a%zz"));
}

TEST(CFURL, HasNoSchemeWithoutOne)
{
    const auto made = url("printer/queue");
    ASSERT_TRUE(made);
    EXPECT_EQ(CFURLCopyScheme(made.get()), nullptr);
    EXPECT_EQ(textOf(CFURLGetString(made.get())), "printer/queue");
}

TEST(CFURL, TakesTheSchemeOfItsBase)
{
    const auto base = url("VNKMUSB://host/");
    const CFOwner<CFURLRef> relative(
        CFURLCreateWithString(nullptr, string("queue").get(), base.get()));
    ASSERT_TRUE(relative);
    const CFOwner<CFStringRef> scheme(CFURLCopyScheme(relative.get()));
    ASSERT_TRUE(scheme);
    EXPECT_EQ(textOf(scheme.get()), "VNKMUSB");
    EXPECT_EQ(textOf(CFURLGetString(relative.get())), "queue");
}

TEST(CFDictionary, FindsValuesByEqualKeys)
{
    const auto key = string("key");
    const auto value = string("value");
    const void* keys[] = {key.get()};
    const void* values[] = {value.get()};
    const CFOwner<CFDictionaryRef> dictionary(CFDictionaryCreate(nullptr, keys, values, 1,
                                                                 &kCFTypeDictionaryKeyCallBacks,
                                                                 &kCFTypeDictionaryValueCallBacks));
    EXPECT_EQ(CFDictionaryGetCount(dictionary.get()), 1);
    EXPECT_EQ(CFDictionaryGetValue(dictionary.get(), string("key").get()), value.get());
    const void* found = nullptr;
    EXPECT_TRUE(CFDictionaryGetValueIfPresent(dictionary.get(), CFSTR("key"), &found));
    EXPECT_EQ(found, value.get());
    EXPECT_TRUE(CFDictionaryGetValueIfPresent(dictionary.get(), CFSTR("key"), nullptr));
}

TEST(CFDictionary, LeavesTheAnswerAloneWhenTheKeyIsNotThere)
{
    const void* keys[] = {CFSTR("a"), nullptr};
    const void* values[] = {nullptr, CFSTR("b")};
    const CFOwner<CFDictionaryRef> dictionary(
        CFDictionaryCreate(nullptr, keys, values, 2, nullptr, nullptr));
    EXPECT_EQ(CFDictionaryGetCount(dictionary.get()), 0);
    const void* found = keys;
    EXPECT_FALSE(CFDictionaryGetValueIfPresent(dictionary.get(), CFSTR("a"), &found));
    EXPECT_EQ(found, keys);
    EXPECT_FALSE(CFDictionaryGetValueIfPresent(dictionary.get(), nullptr, &found));
    EXPECT_EQ(CFDictionaryGetValue(dictionary.get(), CFSTR("a")), nullptr);
}

TEST(CFNumber, GoesThroughEveryType)
{
    const std::int64_t seven = 7;
    const CFOwner<CFNumberRef> number(CFNumberCreate(nullptr, kCFNumberSInt64Type, &seven));
    for (CFNumberType type = kCFNumberSInt8Type; type <= kCFNumberMaxType; ++type) {
        // Sixteen bytes: a type that is written too wide is seen in the second half.
        unsigned char bytes[16];
        std::memset(bytes, 0xa5, sizeof bytes);
        ASSERT_TRUE(CFNumberGetValue(number.get(), type, bytes)) << type;
        const CFOwner<CFNumberRef> again(CFNumberCreate(nullptr, type, bytes));
        ASSERT_TRUE(again) << type;
        EXPECT_TRUE(CFEqual(again.get(), number.get())) << type;
        EXPECT_EQ(bytes[8], 0xa5) << type;
        EXPECT_EQ(CFGetTypeID(again.get()), CFNumberGetTypeID()) << type;
    }
    unsigned char untouched = 0xa5;
    EXPECT_FALSE(CFNumberGetValue(number.get(), 0, &untouched));
    EXPECT_FALSE(CFNumberGetValue(number.get(), 17, &untouched));
    EXPECT_EQ(untouched, 0xa5);
    EXPECT_EQ(CFNumberCreate(nullptr, 0, &seven), nullptr);
}

TEST(CFNumber, TellsWhenItDoesNotFitAndAnswersTheNearest)
{
    const std::int64_t big = 4294967297;
    const CFOwner<CFNumberRef> number(CFNumberCreate(nullptr, kCFNumberSInt64Type, &big));
    SInt32 narrow = 0;
    EXPECT_FALSE(CFNumberGetValue(number.get(), kCFNumberSInt32Type, &narrow));
    EXPECT_EQ(narrow, 2147483647);
    const double half = -0.5;
    const CFOwner<CFNumberRef> fraction(CFNumberCreate(nullptr, kCFNumberDoubleType, &half));
    EXPECT_FALSE(CFNumberGetValue(fraction.get(), kCFNumberSInt32Type, &narrow));
    EXPECT_EQ(narrow, 0);
    float single = 0;
    EXPECT_TRUE(CFNumberGetValue(fraction.get(), kCFNumberFloatType, &single));
    EXPECT_EQ(single, -0.5f);
}

TEST(CFNumber, AnswersNothingForAnObjectOfAnotherKind)
{
    SInt32 number = 5;
    EXPECT_FALSE(
        CFNumberGetValue(reinterpret_cast<CFNumberRef>(CFSTR("7")), kCFNumberSInt32Type, &number));
    EXPECT_EQ(number, 5);
}

TEST(CFBoolean, IsTrueOrFalse)
{
    EXPECT_TRUE(CFBooleanGetValue(kCFBooleanTrue));
    EXPECT_FALSE(CFBooleanGetValue(kCFBooleanFalse));
    EXPECT_NE(kCFBooleanTrue, kCFBooleanFalse);
}

namespace {

CFOwner<CFPropertyListRef> listFrom(std::string_view xml,
                                    CFOptionFlags mutability = kCFPropertyListImmutable)
{
    return CFOwner<CFPropertyListRef>(
        CFPropertyListCreateFromXMLData(nullptr, data(xml).get(), mutability, nullptr));
}

} // namespace

TEST(CFPropertyList, ReadsADictionary)
{
    CFStringRef error = CFSTR("not written");
    const CFOwner<CFPropertyListRef> list(CFPropertyListCreateFromXMLData(
        kCFAllocatorDefault,
        data("<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>KmPaperName2</key>"
             "<string>TC24</string></dict></plist>")
            .get(),
        kCFPropertyListImmutable, &error));
    ASSERT_TRUE(list);
    EXPECT_EQ(error, nullptr);
    ASSERT_EQ(CFGetTypeID(list.get()), CFDictionaryGetTypeID());
    const auto name = static_cast<CFStringRef>(
        CFDictionaryGetValue(static_cast<CFDictionaryRef>(list.get()), CFSTR("KmPaperName2")));
    ASSERT_NE(name, nullptr);
    EXPECT_EQ(textOf(name), "TC24");
}

TEST(CFPropertyList, GivesAReasonForWhatIsNone)
{
    for (const char* garbage :
         {"", "hello", "<plist>", "<plist version=\"", "<plist><dict><", "\xff\xfe", "bplist00",
          "<plist><dict><key>a</key></dict></plist>"}) {
        CFStringRef reason = nullptr;
        EXPECT_EQ(CFPropertyListCreateFromXMLData(nullptr, data(garbage).get(),
                                                  kCFPropertyListImmutable, &reason),
                  nullptr)
            << garbage;
        const CFOwner<CFStringRef> owned(reason);
        ASSERT_TRUE(owned) << garbage;
        EXPECT_EQ(textOf(reason).substr(0, 6), "Line 1") << garbage;
        EXPECT_FALSE(listFrom(garbage)) << garbage;
    }
    CFStringRef reason = nullptr;
    EXPECT_EQ(CFPropertyListCreateFromXMLData(nullptr, nullptr, 0, &reason), nullptr);
    EXPECT_NE(reason, nullptr);
    CFRelease(reason);
}

TEST(CFPropertyList, ReadsBackWhatItWrites)
{
    const double half = 0.5;
    const SInt32 minus = -7;
    const CFOwner<CFNumberRef> real(CFNumberCreate(nullptr, kCFNumberDoubleType, &half));
    const CFOwner<CFNumberRef> integer(CFNumberCreate(nullptr, kCFNumberSInt32Type, &minus));
    const auto bytes = data(std::string_view("\0\xff", 2));
    const void* keys[] = {CFSTR("text <&>"), CFSTR("real"), CFSTR("integer"),
                          CFSTR("data"),     CFSTR("true"), CFSTR("empty")};
    const void* values[] = {CFSTR("caf\xc3\xa9 \r\n"),
                            real.get(),
                            integer.get(),
                            bytes.get(),
                            kCFBooleanTrue,
                            CFSTR("")};
    const CFOwner<CFDictionaryRef> dictionary(
        CFDictionaryCreate(nullptr, keys, values, 6, nullptr, nullptr));
    EXPECT_TRUE(CFPropertyListIsValid(dictionary.get(), kCFPropertyListXMLFormat_v1_0));
    const CFOwner<CFDataRef> xml(CFPropertyListCreateXMLData(nullptr, dictionary.get()));
    ASSERT_TRUE(xml);
    const auto again = listFrom(bytesOf(xml.get()));
    ASSERT_TRUE(again);
    EXPECT_TRUE(CFEqual(again.get(), dictionary.get()));
    EXPECT_EQ(CFDictionaryGetValue(static_cast<CFDictionaryRef>(again.get()), CFSTR("true")),
              kCFBooleanTrue);
}

TEST(CFPropertyList, CannotHoldOtherObjects)
{
    const auto link = url("usb://x");
    EXPECT_FALSE(CFPropertyListIsValid(link.get(), kCFPropertyListXMLFormat_v1_0));
    EXPECT_EQ(CFPropertyListCreateXMLData(nullptr, link.get()), nullptr);
    EXPECT_FALSE(CFPropertyListIsValid(brokenString().get(), kCFPropertyListXMLFormat_v1_0));
    EXPECT_FALSE(CFPropertyListIsValid(CFSTR("\x01"), kCFPropertyListXMLFormat_v1_0));
    EXPECT_FALSE(CFPropertyListIsValid(CFSTR("a"), kCFPropertyListBinaryFormat_v1_0));
    const void* keys[] = {kCFBooleanTrue};
    const void* values[] = {CFSTR("a")};
    const CFOwner<CFDictionaryRef> oddKey(
        CFDictionaryCreate(nullptr, keys, values, 1, nullptr, nullptr));
    EXPECT_FALSE(CFPropertyListIsValid(oddKey.get(), kCFPropertyListXMLFormat_v1_0));
}
