#include "support/PanelTest.hpp"

#include <cstdlib>
#include <cstring>

@protocol ChoiceInAList <NSObject>
- (NSString*)ppdTitle;
@end

@interface NSObject (UtilitiesUnderTest)
+ (BOOL)runningOn105OrLater;
+ (NSString*)ppdAttrValStr:(ppd_file_t*)ppd cStrKey:(const char*)key;
+ (NSString*)ppdOptionTextStr:(ppd_file_t*)ppd cStrKey:(const char*)key;
+ (BOOL)isSupportedItem:(ppd_file_t*)ppd cStrKey:(const char*)key;
+ (NSPoint)originItem:(ppd_file_t*)ppd cStrKey:(const char*)key;
+ (NSMutableArray*)arrayFromPPDOption:(ppd_option_t*)option;
+ (id)findChoiceForString:(NSString*)keyword choices:(NSArray*)choices;
+ (NSString*)newOptionTitle:(ppd_option_t*)option;
+ (NSString*)newChoiceTitle:(ppd_choice_t*)choice;
+ (void)setEnabledForText:(BOOL)flag item:(id)control;
+ (NSUInteger)stringLengthConvertedToEncoding:(NSString*)string;
+ (BOOL)scanString:(NSString*)string intoString:(NSString*)searched;
+ (NSMutableString*)deleteString:(NSString*)string intoString:(NSString*)searched;
@end

// A string that no encoding can hold.
@interface UnconvertibleString : NSString
@end

@implementation UnconvertibleString

- (NSUInteger)length
{
    return 1;
}

- (unichar)characterAtIndex:(NSUInteger)index
{
    return 'x';
}

- (BOOL)canBeConvertedToEncoding:(NSStringEncoding)encoding
{
    return NO;
}

@end

namespace {

// The system encoding of this program is Latin-1, so that it differs from the UTF-8 of titles.  The
// toolkit reads the choice when it is first asked, which is after this.
const int chosen = setenv("GNUSTEP_STRING_ENCODING", "NSISOLatin1StringEncoding", 1);

Class utilities()
{
    EXPECT_EQ([NSString defaultCStringEncoding], NSISOLatin1StringEncoding);
    return classNamed("PDEUtilsMethod13");
}

PPDText resolutions()
{
    return PPDText().option("Resolution", "Auflösung",
                            {{"300dpi", "300 dpi"}, {"300x600dpi", "fein"}, {"600dpi", "ü"}},
                            "300x600dpi");
}

Texts keywordsOf(NSArray* choices)
{
    Texts keywords;
    for (id<ChoiceInAList> choice in choices)
        keywords.push_back(textOf([choice ppdTitle]));
    return keywords;
}

std::string valueOf(const PPDFile& ppd, const char* key)
{
    return textOf([utilities() ppdAttrValStr:ppd.get() cStrKey:key]);
}

} // namespace

TEST(RunningOn105OrLater, IsAlwaysYes)
{
    EXPECT_EQ([utilities() runningOn105OrLater], YES);
}

// Attributes.

TEST(AttributeValue, IsTheText)
{
    EXPECT_EQ(valueOf(PPDText().attribute("VnUnitType", "inch").open(), "VnUnitType"), "inch");
}

TEST(AttributeValue, IsThatOfTheFirstAttributeOfItsKeyword)
{
    const PPDFile ppd = PPDText()
                            .line("*VnThing one/One: \"first\"")
                            .line("*VnThing another/Another: \"second\"")
                            .open();
    EXPECT_EQ(valueOf(ppd, "VnThing"), "first");
}

TEST(AttributeValue, IsNilWithoutPPDOrAttribute)
{
    EXPECT_EQ(valueOf(PPDText().open(), "VnUnitType"), "(nil)");
    EXPECT_EQ(valueOf(nullptr, "VnUnitType"), "(nil)");
}

TEST(AttributeValue, IsNilForAnAttributeWithoutValue)
{
    const PPDFile ppd = PPDText().attribute("VnUnitType", "inch").open();
    ppd_attr_t* attribute = ppdFindAttr(ppd.get(), "VnUnitType", nullptr);
    char* const value = attribute->value;
    attribute->value = nullptr;
    EXPECT_EQ(valueOf(ppd, "VnUnitType"), "(nil)");
    attribute->value = value;
}

TEST(AttributeValue, IsReadInTheSystemEncodingWhileTitlesAreUTF8)
{
    const PPDFile ppd = resolutions().attribute("VnThing", "inch").open();
    ppd_attr_t* attribute = ppdFindAttr(ppd.get(), "VnThing", nullptr);
    std::strcpy(attribute->value, "\xe9t\xe9");
    EXPECT_EQ(valueOf(ppd, "VnThing"), "été");
    std::strcpy(attribute->value, "\xc3\xa9");
    EXPECT_EQ(valueOf(ppd, "VnThing"), "\u00c3\u00a9"); // both bytes are characters of their own

    ppd_option_t* option = optionOf(ppd, "Resolution");
    EXPECT_EQ(textOf([[utilities() newOptionTitle:option] autorelease]), "Auflösung");
    std::strcpy(option->text, "\xe9t\xe9");
    EXPECT_EQ([utilities() newOptionTitle:option], nil);
    EXPECT_EQ(textOf([utilities() ppdOptionTextStr:ppd.get() cStrKey:"Resolution"]), "été");
}

TEST(OptionText, IsNilWithoutPPDOrOption)
{
    const PPDFile ppd = resolutions().open();
    EXPECT_EQ([utilities() ppdOptionTextStr:ppd.get() cStrKey:"VnPriority"], nil);
    EXPECT_EQ([utilities() ppdOptionTextStr:nullptr cStrKey:"Resolution"], nil);
}

TEST(SupportedItem, IsYesForFalseAndForNothingElse)
{
    const auto answer = [](const char* value) {
        const PPDFile ppd = PPDText().attribute("VnThing", value).open();
        return [utilities() isSupportedItem:ppd.get() cStrKey:"VnThing"];
    };
    EXPECT_EQ(answer("False"), YES);
    EXPECT_EQ(answer("false"), NO);
    EXPECT_EQ(answer("True"), NO);
    EXPECT_EQ(answer("False "), NO);
    EXPECT_EQ(answer(""), NO);
    EXPECT_EQ([utilities() isSupportedItem:PPDText().open().get() cStrKey:"VnThing"], NO);
    EXPECT_EQ([utilities() isSupportedItem:nullptr cStrKey:"VnThing"], NO);
}

TEST(OriginItem, IsThePointInTheAttribute)
{
    const PPDFile ppd = PPDText().attribute("VnThing", "{12, 34.5}").open();
    const NSPoint point = [utilities() originItem:ppd.get() cStrKey:"VnThing"];
    EXPECT_EQ(point.x, 12);
    EXPECT_EQ(point.y, 34.5);
}

TEST(OriginItem, IsTheZeroPointWithoutAValue)
{
    const auto isZero = [](const PPDFile& ppd) {
        const NSPoint point = [utilities() originItem:ppd.get() cStrKey:"VnThing"];
        return point.x == 0 && point.y == 0;
    };
    EXPECT_TRUE(isZero(PPDText().attribute("VnThing", "").open()));
    EXPECT_TRUE(isZero(PPDText().attribute("VnThing", "no point").open()));
    EXPECT_TRUE(isZero(PPDText().open()));
    EXPECT_TRUE(isZero(nullptr));
}

// Choice lists.

TEST(ChoiceList, HoldsTheOptionsChoicesInOrder)
{
    const PPDFile ppd = resolutions().open();
    NSMutableArray* list = [utilities() arrayFromPPDOption:optionOf(ppd, "Resolution")];
    EXPECT_EQ(keywordsOf(list), (Texts{"300dpi", "300x600dpi", "600dpi"}));
    EXPECT_EQ([[list objectAtIndex:0] class], classNamed("PDEChoice"));
    [list release];
}

TEST(ChoiceList, BelongsToTheCallerAndMayBeChanged)
{
    const PPDFile ppd = resolutions().open();
    NSMutableArray* list = nil;
    {
        const ScopedPool pool;
        list = [utilities() arrayFromPPDOption:optionOf(ppd, "Resolution")];
    }
    EXPECT_EQ([list retainCount], 1u);
    [list removeLastObject];
    EXPECT_EQ(keywordsOf(list), (Texts{"300dpi", "300x600dpi"}));
    [list release];
}

TEST(ChoiceList, IsNilWithoutAnOptionAndEmptyWithoutChoices)
{
    EXPECT_EQ([utilities() arrayFromPPDOption:nullptr], nil);
    ppd_option_t bare{};
    NSMutableArray* list = [utilities() arrayFromPPDOption:&bare];
    ASSERT_NE(list, nil);
    EXPECT_EQ([list count], 0u);
    [list release];
}

TEST(ChoiceList, HoldsTwoThousandChoices)
{
    std::vector<PPDChoiceText> many;
    for (int i = 0; i < 2000; ++i)
        many.push_back({"Choice" + std::to_string(i), ""});
    const PPDFile ppd = PPDText().option("Resolution", "", many, "Choice1999").open();
    NSArray* list = [[utilities() arrayFromPPDOption:optionOf(ppd, "Resolution")] autorelease];
    EXPECT_EQ([list count], 2000u);
    EXPECT_EQ([utilities() findChoiceForString:nil choices:list], [list lastObject]);
    EXPECT_EQ([utilities() findChoiceForString:@"Choice1234" choices:list],
              [list objectAtIndex:1234]);
}

TEST(FindChoice, TakesTheFirstOfTheKeyword)
{
    const PPDFile ppd = resolutions().open();
    NSArray* list = [[utilities() arrayFromPPDOption:optionOf(ppd, "Resolution")] autorelease];
    EXPECT_EQ([utilities() findChoiceForString:@"600dpi" choices:list], [list objectAtIndex:2]);
    NSArray* twice = [list arrayByAddingObjectsFromArray:list];
    EXPECT_EQ([utilities() findChoiceForString:@"600dpi" choices:twice], [list objectAtIndex:2]);
}

TEST(FindChoice, FindsNoOtherLetterCaseOrPart)
{
    const PPDFile ppd = resolutions().open();
    NSArray* list = [[utilities() arrayFromPPDOption:optionOf(ppd, "Resolution")] autorelease];
    EXPECT_EQ([utilities() findChoiceForString:@"600DPI" choices:list], nil);
    EXPECT_EQ([utilities() findChoiceForString:@"600" choices:list], nil);
    EXPECT_EQ([utilities() findChoiceForString:@"" choices:list], nil);
    EXPECT_EQ([utilities() findChoiceForString:@"fein" choices:list], nil); // that is its title
}

TEST(FindChoice, TakesTheDefaultWithoutAKeyword)
{
    const PPDFile ppd = resolutions().open();
    NSArray* list = [[utilities() arrayFromPPDOption:optionOf(ppd, "Resolution")] autorelease];
    EXPECT_EQ([utilities() findChoiceForString:nil choices:list], [list objectAtIndex:1]);
}

TEST(FindChoice, FindsNothingWithoutKeywordAndDefault)
{
    const PPDFile ppd = resolutions().open();
    std::strcpy(optionOf(ppd, "Resolution")->defchoice, "1200dpi");
    NSArray* list = [[utilities() arrayFromPPDOption:optionOf(ppd, "Resolution")] autorelease];
    EXPECT_EQ([utilities() findChoiceForString:nil choices:list], nil);
    EXPECT_EQ([utilities() findChoiceForString:nil choices:nil], nil);
    EXPECT_EQ([utilities() findChoiceForString:@"600dpi" choices:nil], nil);
    EXPECT_EQ([utilities() findChoiceForString:nil choices:[NSArray array]], nil);
}

TEST(FindChoice, PassesOverAKeywordThatIsNotASCII)
{
    const PPDFile ppd = resolutions().open();
    std::strcpy(optionOf(ppd, "Resolution")->choices[0].choice, "\xff");
    NSArray* list = [[utilities() arrayFromPPDOption:optionOf(ppd, "Resolution")] autorelease];
    EXPECT_EQ([utilities() findChoiceForString:@"600dpi" choices:list], [list objectAtIndex:2]);
}

// Titles.

TEST(Titles, AreNewStringsOfTheCallers)
{
    const PPDFile ppd = resolutions().open();
    ppd_option_t* option = optionOf(ppd, "Resolution");
    NSString* optionTitle = nil;
    NSString* choiceTitle = nil;
    {
        const ScopedPool pool;
        optionTitle = [utilities() newOptionTitle:option];
        choiceTitle = [utilities() newChoiceTitle:&option->choices[2]];
    }
    EXPECT_EQ(textOf(optionTitle), "Auflösung");
    EXPECT_EQ(textOf(choiceTitle), "ü");
    [optionTitle release];
    [choiceTitle release];
}

TEST(Titles, AreNilOutOfBytesThatAreNotUTF8OrOutOfNothing)
{
    const PPDFile ppd = resolutions().open();
    ppd_option_t* option = optionOf(ppd, "Resolution");
    std::strcpy(option->choices[0].text, "cut \xe3\x81");
    EXPECT_EQ([utilities() newChoiceTitle:&option->choices[0]], nil);
    EXPECT_EQ([utilities() newChoiceTitle:nullptr], nil);
    EXPECT_EQ([utilities() newOptionTitle:nullptr], nil);
}

// Greying.

TEST(EnabledText, IsGreyUnlessTheFlagIsExactlyOne)
{
    NSTextField* label = [[[NSTextField alloc] initWithFrame:NSZeroRect] autorelease];
    [label setTextColor:[NSColor redColor]];
    [utilities() setEnabledForText:1 item:label];
    EXPECT_TRUE([[label textColor] isEqual:[NSColor controlTextColor]]);
    [utilities() setEnabledForText:0 item:label];
    EXPECT_TRUE([[label textColor] isEqual:[NSColor disabledControlTextColor]]);
    EXPECT_FALSE([[label textColor] isEqual:[NSColor controlTextColor]]);
    [utilities() setEnabledForText:1 item:label];
    [utilities() setEnabledForText:2 item:label];
    EXPECT_TRUE([[label textColor] isEqual:[NSColor disabledControlTextColor]]);
}

TEST(EnabledText, LeavesAControlWithoutTextColourAlone)
{
    NSView* view = [[[NSView alloc] initWithFrame:NSZeroRect] autorelease];
    ASSERT_FALSE([view respondsToSelector:@selector(setTextColor:)]);
    [utilities() setEnabledForText:1 item:view];
    [utilities() setEnabledForText:1 item:nil];
}

// Strings.

TEST(EncodedLength, CountsTheBytesInTheSystemEncoding)
{
    EXPECT_EQ([utilities() stringLengthConvertedToEncoding:@"12.5"], 4u);
    EXPECT_EQ([utilities() stringLengthConvertedToEncoding:@"\u00e9t\u00e9"], 3u); // Latin-1
    EXPECT_EQ([utilities() stringLengthConvertedToEncoding:@""], 0u);
    EXPECT_EQ([utilities() stringLengthConvertedToEncoding:nil], 0u);
}

TEST(EncodedLength, TakesTheFirstEncodingThatCanHoldTheString)
{
    NSString* string = @"\u65e5\u672c"; // no Latin-1
    NSUInteger expected = 0;
    for (const NSStringEncoding* e = [NSString availableStringEncodings]; *e != 0; ++e) {
        if ([string canBeConvertedToEncoding:*e]) {
            expected = [string lengthOfBytesUsingEncoding:*e];
            break;
        }
    }
    ASSERT_GE(expected, 4u);
    EXPECT_EQ([utilities() stringLengthConvertedToEncoding:string], expected);
}

TEST(EncodedLength, LivesWithHalfASurrogatePair)
{
    const unichar half = 0xd800;
    // Made of characters it would be nil.
    NSString* const string = [NSString stringWithFormat:@"%C", half];
    ASSERT_EQ([string length], 1u);
    // UTF-8 has no bytes for it; an encoding that writes any number of 16 bits has.
    EXPECT_GT([utilities() stringLengthConvertedToEncoding:string], 0u);
}

TEST(EncodedLength, IsZeroForAStringThatNoEncodingCanHold)
{
    id const string = [[[UnconvertibleString alloc] init] autorelease];
    EXPECT_EQ([utilities() stringLengthConvertedToEncoding:string], 0u);
}

TEST(ScanString, FindsOneStringInAnother)
{
    EXPECT_EQ([utilities() scanString:@"12.5" intoString:@"."], YES);
    EXPECT_EQ([utilities() scanString:@"12.5" intoString:@"12.5"], YES);
    EXPECT_EQ([utilities() scanString:@"12.5" intoString:@"5"], YES);
    EXPECT_EQ([utilities() scanString:@"12.5" intoString:@"1"], YES);
    EXPECT_EQ([utilities() scanString:@"12.5" intoString:@","], NO);
    EXPECT_EQ([utilities() scanString:@"5" intoString:@"12.5"], NO);
}

TEST(ScanString, IsLiteralAndMindsTheLetterCase)
{
    EXPECT_EQ([utilities() scanString:@"abc" intoString:@"B"], NO);
    EXPECT_EQ([utilities() scanString:@"caf\u00e9" intoString:@"e\u0301"], NO);
    EXPECT_EQ([utilities() scanString:@"a.c" intoString:@"abc"], NO);
}

TEST(ScanString, FindsNothingInOrOfNothing)
{
    EXPECT_EQ([utilities() scanString:@"" intoString:@"1"], NO);
    EXPECT_EQ([utilities() scanString:@"" intoString:@""], NO);
    EXPECT_EQ([utilities() scanString:nil intoString:@"1"], NO);
    EXPECT_EQ([utilities() scanString:@"12" intoString:nil], NO);
}

TEST(DeleteString, RemovesTheFirstOccurrence)
{
    NSMutableString* rest = [utilities() deleteString:@"1.2.3" intoString:@"."];
    EXPECT_EQ(textOf(rest), "12.3");
    [rest appendString:@"!"];
    EXPECT_EQ(textOf(rest), "12.3!");
    EXPECT_EQ(textOf([utilities() deleteString:@"mm" intoString:@"mm"]), "");
}

TEST(DeleteString, IsNilWhereThereIsNothingToRemove)
{
    EXPECT_EQ([utilities() deleteString:@"12" intoString:@"."], nil);
    EXPECT_EQ([utilities() deleteString:@"abc" intoString:@"B"], nil);
    EXPECT_EQ([utilities() deleteString:@"" intoString:@"1"], nil);
    EXPECT_EQ([utilities() deleteString:nil intoString:@"1"], nil);
    EXPECT_EQ([utilities() deleteString:@"12" intoString:nil], nil);
}
