#include <CoreFoundation/CoreFoundation.h>

#include <gtest/gtest.h>

#import <Foundation/Foundation.h>

TEST(TollFree, AStringOfOneSideIsAStringOfTheOther)
{
    CFStringRef made = CFStringCreateWithCString(nullptr, "TC24", kCFStringEncodingUTF8);
    EXPECT_TRUE([(NSString*)made isEqualToString:@"TC24"]);
    CFRelease(made);
    EXPECT_EQ(CFStringGetLength((CFStringRef) @"TC24"), 4);
    EXPECT_EQ(CFStringCompare(CFSTR("TC24"), (CFStringRef) @"TC24", 0), kCFCompareEqualTo);
}

TEST(TollFree, ALiteralIsAConstantOfTheLanguage)
{
    EXPECT_TRUE([(NSString*)CFSTR("RS_LENGTH") isEqualToString:@"RS_LENGTH"]);
}

TEST(TollFree, TheReferenceCountIsOne)
{
    NSMutableString* text = [[NSMutableString alloc] initWithString:@"a"];
    const NSUInteger before = [text retainCount];
    CFRetain(text);
    EXPECT_EQ([text retainCount], before + 1);
    CFRelease(text);
    EXPECT_EQ([text retainCount], before);
    [text release];
}

TEST(TollFree, ACopyOfAMutableStringStaysAsItWas)
{
    NSMutableString* text = [NSMutableString stringWithString:@"a"];
    CFStringRef copy = CFStringCreateCopy(nullptr, (CFStringRef)text);
    [text appendString:@"b"];
    EXPECT_TRUE([(NSString*)copy isEqualToString:@"a"]);
    CFRelease(copy);
}

TEST(TollFree, TheToolkitsObjectsHaveTypes)
{
    EXPECT_EQ(CFGetTypeID([NSMutableString string]), CFStringGetTypeID());
    EXPECT_EQ(CFGetTypeID([NSMutableData data]), CFDataGetTypeID());
    EXPECT_EQ(CFGetTypeID([NSArray array]), CFArrayGetTypeID());
    EXPECT_EQ(CFGetTypeID([NSMutableDictionary dictionary]), CFDictionaryGetTypeID());
    EXPECT_EQ(CFGetTypeID([NSNumber numberWithDouble:0.5]), CFNumberGetTypeID());
    EXPECT_EQ(CFGetTypeID([NSNumber numberWithBool:YES]), CFBooleanGetTypeID());
    EXPECT_EQ(CFGetTypeID([[[NSObject alloc] init] autorelease]), 0u);
}

TEST(TollFree, AFormatTakesObjects)
{
    CFStringRef text = CFStringCreateWithFormat(nullptr, nullptr, CFSTR("%@ is %d, %s and %.1f"),
                                                @"It", 3, "four", 5.5);
    EXPECT_TRUE([(NSString*)text isEqualToString:@"It is 3, four and 5.5"])
        << [(NSString*)text UTF8String];
    CFRelease(text);
}

TEST(TollFree, AnUnsignedNumberBeyondAllIntegersIsNotExact)
{
    NSNumber* huge = [NSNumber numberWithUnsignedLongLong:UINT64_MAX];
    std::int64_t whole = 0;
    EXPECT_FALSE(CFNumberGetValue((CFNumberRef)huge, kCFNumberSInt64Type, &whole));
    EXPECT_EQ(whole, INT64_MAX);
    double real = 0;
    EXPECT_FALSE(CFNumberGetValue((CFNumberRef)huge, kCFNumberDoubleType, &real));
    EXPECT_EQ(real, 18446744073709551616.0);
}

TEST(TollFree, APropertyListIsAsMutableAsAsked)
{
    NSData* xml = [@"<plist><dict><key>a</key><array><string>b</string></array></dict></plist>"
        dataUsingEncoding:NSUTF8StringEncoding];
    const auto isMutable = [xml](CFOptionFlags flags, NSString* text) {
        NSMutableDictionary* list =
            (id)CFPropertyListCreateFromXMLData(nullptr, (CFDataRef)xml, flags, nullptr);
        [list autorelease];
        NSMutableArray* entries = [list objectForKey:@"a"];
        if (text == nil)
            return static_cast<bool>([entries isKindOfClass:[NSMutableArray class]] &&
                                     [list isKindOfClass:[NSMutableDictionary class]]);
        [[entries objectAtIndex:0] appendString:text];
        return static_cast<bool>([[entries objectAtIndex:0] isEqualToString:@"bc"]);
    };
    EXPECT_FALSE(isMutable(kCFPropertyListImmutable, nil));
    EXPECT_TRUE(isMutable(kCFPropertyListMutableContainers, nil));
    EXPECT_TRUE(isMutable(kCFPropertyListMutableContainersAndLeaves, nil));
    EXPECT_TRUE(isMutable(kCFPropertyListMutableContainersAndLeaves, @"c"));
}

TEST(TollFree, AListThatHoldsItselfIsNone)
{
    NSMutableArray* list = [NSMutableArray array];
    NSMutableArray* inner = [NSMutableArray arrayWithObject:list];
    [list addObject:inner];
    EXPECT_FALSE(CFPropertyListIsValid(list, kCFPropertyListXMLFormat_v1_0));
    [list removeAllObjects];
    EXPECT_TRUE(CFPropertyListIsValid(list, kCFPropertyListXMLFormat_v1_0));
}

TEST(TollFree, DatesGoThroughAPropertyList)
{
    NSDate* date = [NSDate dateWithTimeIntervalSinceReferenceDate:86400];
    CFDataRef xml = CFPropertyListCreateXMLData(nullptr, date);
    ASSERT_NE(xml, nullptr);
    NSDate* again = (id)CFPropertyListCreateFromXMLData(nullptr, xml, 0, nullptr);
    EXPECT_TRUE([again isEqualToDate:date]);
    CFRelease(again);
    CFRelease(xml);
}
