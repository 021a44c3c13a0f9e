// The formatter out of the loaded bundle: construction, accessors, texts, keystrokes.

#include "textentry/FormatterTest.hpp"

#include <objc/runtime.h>

#include <cstring>

namespace {

void expectAccepted(const KeyAnswer& answer)
{
    EXPECT_TRUE(answer.accepted);
    EXPECT_EQ(answer.beeps, 0);
    EXPECT_TRUE(answer.posted.empty());
}

void expectRefused(const KeyAnswer& answer, const char* name, id object)
{
    EXPECT_FALSE(answer.accepted);
    EXPECT_EQ(answer.beeps, 1);
    ASSERT_EQ(answer.posted.size(), 1u);
    EXPECT_EQ(answer.posted[0].name, name);
    id const posted = answer.posted[0].object;
    EXPECT_TRUE([posted isEqual:object]) << textOf([posted description]);
    EXPECT_FALSE(answer.posted[0].hasUserInfo);
}

constexpr const char* kInvalid = "InvalidCharacterNotification";
constexpr const char* kFormat = "FormatErrorNotification";

PDEFormatter* allocated()
{
    return [classNamed("PDEFormatter") alloc];
}

NSCalendarDate* aDate()
{
    return [NSCalendarDate dateWithYear:2009 month:3 day:7 hour:14 minute:5 second:9
                               timeZone:[NSTimeZone timeZoneForSecondsFromGMT:0]];
}

std::string shown(PDEFormatter* formatter, id object)
{
    return textOf([formatter stringForObjectValue:object]);
}

std::string read(PDEFormatter* formatter, NSString* string)
{
    id object = nil;
    EXPECT_TRUE([formatter getObjectValue:&object forString:string errorDescription:NULL]);
    return textOf(object);
}

} // namespace

// Construction and accessors.

TEST(Formatter, KeepsItsInstanceVariablesInTheirOrder)
{
    Class formatter = classNamed("PDEFormatter");
    EXPECT_EQ(class_getSuperclass(formatter), [NSFormatter class]);
    unsigned count = 0;
    Ivar* ivars = class_copyIvarList(formatter, &count);
    std::vector<std::string> names;
    std::vector<std::string> types;
    for (unsigned i = 0; i < count; ++i) {
        names.push_back(ivar_getName(ivars[i]));
        types.push_back(std::string(ivar_getTypeEncoding(ivars[i])).substr(0, 1));
    }
    free(ivars);
    EXPECT_EQ(names, (Texts{"mFormatString", "mTextStyle", "mMaxLength", "mIsValidityMaxValue",
                            "mIsValidityMinValue", "mMaxValue", "mMinValue", "mObject",
                            "mInvalidCaracters", "mDate", "mLocale"}));
    const std::string truth(@encode(BOOL));
    EXPECT_EQ(types, (Texts{"@", "i", "i", truth, truth, "i", "i", "@", "@", "@", "@"}));
}

TEST(Formatter, StartsWithTheObjectsOwnTextAndNoRules)
{
    PDEFormatter* formatter = [[allocated() init] autorelease];
    EXPECT_EQ(textOf([formatter formatString]), "%@");
    EXPECT_EQ([formatter textStyle], 0);
    EXPECT_EQ([formatter maxLength], 0);
    EXPECT_EQ([formatter maxValue], 0);
    EXPECT_EQ([formatter minValue], 0);
    EXPECT_FALSE([formatter isValidityMaxValue]);
    EXPECT_FALSE([formatter isValidityMinValue]);
    EXPECT_EQ([formatter notificationObject], nil);
    EXPECT_EQ([formatter calendarDate], nil);
    EXPECT_EQ([formatter calendarLocale], nil);
    EXPECT_EQ(ivarOf<id>(formatter, "mInvalidCaracters"), nil);
}

TEST(Formatter, TakesStyleAndFormatFromItsInitialisers)
{
    PDEFormatter* styled = formatterWithStyle(4);
    EXPECT_EQ([styled textStyle], 4);
    EXPECT_EQ(textOf([styled formatString]), "%@");

    PDEFormatter* formatted = [[allocated() initWithFormatString:@"%@ mm"] autorelease];
    EXPECT_EQ([formatted textStyle], 0);
    EXPECT_EQ(textOf([formatted formatString]), "%@ mm");

    PDEFormatter* both = [[allocated() initWithFormatString:@"%d" withStyle:2] autorelease];
    EXPECT_EQ([both textStyle], 2);
    EXPECT_EQ(textOf([both formatString]), "%d");
}

TEST(Formatter, ReadsNoFormatAsTheObjectsOwnText)
{
    PDEFormatter* formatter = [[allocated() initWithFormatString:nil] autorelease];
    EXPECT_EQ(textOf([formatter formatString]), "%@");
    PDEFormatter* styled = [[allocated() initWithFormatString:nil withStyle:2] autorelease];
    EXPECT_EQ(textOf([styled formatString]), "%@");
    [formatter setFormatString:@"%d"];
    [formatter setFormatString:nil];
    EXPECT_EQ(textOf([formatter formatString]), "%@");
}

TEST(Formatter, KeepsACopyOfItsFormat)
{
    NSMutableString* format = [NSMutableString stringWithString:@"%@ mm"];
    PDEFormatter* formatter = [[allocated() initWithFormatString:format] autorelease];
    [format setString:@"%@ inch"];
    EXPECT_EQ(textOf([formatter formatString]), "%@ mm");
    [formatter setFormatString:format];
    [format setString:@"%d"];
    EXPECT_EQ(textOf([formatter formatString]), "%@ inch");
}

TEST(Formatter, MakesTheDateInitialiserLeaveTheFormatNil)
{
    NSDictionary* locale = @{};
    PDEFormatter* formatter =
        [[allocated() initWithCalendarDate:aDate() locale:(NSLocale*)(id)locale] autorelease];
    EXPECT_EQ([formatter textStyle], 5);
    EXPECT_EQ([formatter formatString], nil);
    EXPECT_EQ(ivarOf<id>(formatter, "mFormatString"), nil);
    EXPECT_TRUE([[formatter calendarDate] isEqual:aDate()]);
    EXPECT_EQ((id)[formatter calendarLocale], (id)locale);
}

TEST(Formatter, PutsALimitInForceBySettingIt)
{
    PDEFormatter* formatter = formatterWithStyle(2);
    [formatter setMaxValue:100];
    EXPECT_TRUE([formatter isValidityMaxValue]);
    EXPECT_FALSE([formatter isValidityMinValue]);
    [formatter setMinValue:-4];
    EXPECT_TRUE([formatter isValidityMinValue]);
    EXPECT_EQ([formatter maxValue], 100);
    EXPECT_EQ([formatter minValue], -4);
    [formatter setValidityMaxValue:NO];
    [formatter setValidityMinValue:NO];
    EXPECT_FALSE([formatter isValidityMaxValue]);
    EXPECT_FALSE([formatter isValidityMinValue]);
    EXPECT_EQ([formatter maxValue], 100);
}

TEST(Formatter, AnswersWhatWasSet)
{
    PDEFormatter* formatter = formatterWithStyle(2);
    [formatter setTextStyle:-7];
    [formatter setMaxLength:12];
    EXPECT_EQ([formatter textStyle], -7);
    EXPECT_EQ([formatter maxLength], 12);
}

TEST(Formatter, RetainsItsObjectsAndLetsThemGo)
{
    PDEFormatter* formatter = [allocated() init];
    id object = [[NSObject alloc] init];
    NSCalendarDate* date = [aDate() copy];
    id locale = [[NSMutableDictionary alloc] init];
    const NSUInteger counts[] = {[object retainCount], [date retainCount], [locale retainCount]};
    for (int i = 0; i < 2; ++i) { // the second time the same objects again
        [formatter setNotificationObject:object];
        [formatter setCalendarDate:date];
        [formatter setCalendarLocale:locale];
    }
    EXPECT_EQ([object retainCount], counts[0] + 1);
    EXPECT_EQ([date retainCount], counts[1] + 1);
    EXPECT_EQ([locale retainCount], counts[2] + 1);
    EXPECT_EQ([formatter notificationObject], object);
    [formatter setNotificationObject:nil];
    EXPECT_EQ([formatter notificationObject], nil);
    EXPECT_EQ([object retainCount], counts[0]);
    [formatter setNotificationObject:object];
    [formatter release];
    EXPECT_EQ([object retainCount], counts[0]);
    EXPECT_EQ([date retainCount], counts[1]);
    EXPECT_EQ([locale retainCount], counts[2]);
    [object release];
    [date release];
    [locale release];
}

// A toolkit that cannot make its part of a formatter.
static bool makesFormatters = true;

static id initOrRefuse(id self, SEL selector)
{
    if (makesFormatters) {
        IMP const real = class_getMethodImplementation([NSObject class], selector);
        return reinterpret_cast<id (*)(id, SEL)>(real)(self, selector);
    }
    [self release];
    return nil;
}

TEST(Formatter, IsNotMadeWithoutTheToolkitsPart)
{
    // The toolkit's formatters take theirs from the root class.
    ASSERT_TRUE(class_addMethod([NSFormatter class], @selector(init),
                                reinterpret_cast<IMP>(initOrRefuse), "@@:"));
    makesFormatters = false;
    EXPECT_EQ([allocated() init], nil);
    EXPECT_EQ([allocated() initWithStyle:4], nil);
    EXPECT_EQ([allocated() initWithFormatString:@"%@" withStyle:2], nil);
    EXPECT_EQ([allocated() initWithCalendarDate:aDate() locale:nil], nil);
    makesFormatters = true;
    EXPECT_EQ([formatterWithStyle(4) textStyle], 4);
}

TEST(Formatter, LeavesNothingBehindWhenItGoes)
{
    NSMutableString* const format = [NSMutableString stringWithString:@"a format of its own %@"];
    NSString* kept = nil;
    const LivingObjects formatters("PDEFormatter");
    const LivingObjects lists("GSMutableArray");
    {
        const ScopedPool pool;
        PDEFormatter* const formatter = [allocated() initWithFormatString:format];
        [formatter addInvalidCharacter:@"x"];
        kept = [ivarOf<NSString*>(formatter, "mFormatString") retain];
        PDEFormatter* const copy = [formatter copy];
        [copy setFormatString:@"%d"];
        [copy release];
        [formatter release];
    }
    EXPECT_EQ(formatters.count(), 0);
    EXPECT_EQ(lists.count(), 0);
    EXPECT_EQ([kept retainCount], 1u);
    [kept release];
}

TEST(Formatter, IsCopiedWithAllItHolds)
{
    PDEFormatter* formatter = formatterWithStyle(4);
    [formatter setFormatString:@"%@ mm"];
    [formatter setMaxLength:5];
    [formatter setMaxValue:100];
    [formatter setMinValue:4];
    id object = [[[NSObject alloc] init] autorelease];
    [formatter setNotificationObject:object];
    const NSUInteger held = [object retainCount];
    [formatter addInvalidCharacter:@"7"];
    NSCalendarDate* const date = aDate();
    [formatter setCalendarDate:date];
    id locale = [NSMutableDictionary dictionary];
    [formatter setCalendarLocale:locale];
    const NSUInteger counts[] = {[date retainCount], [locale retainCount]};
    PDEFormatter* copy = [formatter copy];
    EXPECT_EQ([copy calendarLocale], locale);
    EXPECT_EQ([date retainCount], counts[0] + 1);
    EXPECT_EQ([locale retainCount], counts[1] + 1);
    [formatter removeInvalidCharacter:@"7"];
    EXPECT_EQ([copy textStyle], 4);
    EXPECT_EQ(textOf([copy formatString]), "%@ mm");
    EXPECT_EQ([copy maxLength], 5);
    EXPECT_EQ([copy maxValue], 100);
    EXPECT_EQ([copy minValue], 4);
    EXPECT_TRUE([copy isValidityMaxValue]);
    EXPECT_TRUE([copy isValidityMinValue]);
    EXPECT_EQ([copy notificationObject], object);
    EXPECT_EQ([object retainCount], held + 1);
    EXPECT_TRUE([copy isInvalidCharacter:@"7"]);
    EXPECT_EQ([copy calendarDate], date);
    [copy release];
    EXPECT_EQ([date retainCount], counts[0]);
    EXPECT_EQ([locale retainCount], counts[1]);
    EXPECT_EQ([formatter notificationObject], object);
    EXPECT_EQ([object retainCount], held);
}

TEST(Formatter, IsCopiedWithoutAFormatWhereItHasNone)
{
    PDEFormatter* formatter = [[allocated() initWithCalendarDate:aDate() locale:nil] autorelease];
    PDEFormatter* copy = [[formatter copy] autorelease];
    EXPECT_EQ([copy formatString], nil);
    EXPECT_EQ([copy textStyle], 5);
    EXPECT_TRUE([[copy calendarDate] isEqual:aDate()]);
}

// The list of invalid strings.

TEST(InvalidStrings, AreComparedAsAWhole)
{
    PDEFormatter* formatter = formatterWithStyle(1);
    EXPECT_FALSE([formatter isInvalidCharacter:@"x"]);
    [formatter addInvalidCharacter:@"x"];
    EXPECT_TRUE([formatter isInvalidCharacter:@"x"]);
    EXPECT_FALSE([formatter isInvalidCharacter:@"xy"]);
    EXPECT_FALSE([formatter isInvalidCharacter:@"X"]);
    EXPECT_FALSE([formatter isInvalidCharacter:@""]);
    EXPECT_FALSE([formatter isInvalidCharacter:nil]);
}

TEST(InvalidStrings, KeepDuplicatesAndIgnoreNil)
{
    PDEFormatter* formatter = formatterWithStyle(1);
    [formatter addInvalidCharacter:nil];
    EXPECT_EQ(ivarOf<id>(formatter, "mInvalidCaracters"), nil);
    [formatter addInvalidCharacter:@"x"];
    [formatter addInvalidCharacter:@"y"];
    [formatter addInvalidCharacter:@"x"];
    EXPECT_EQ(textsOf(ivarOf<NSArray*>(formatter, "mInvalidCaracters")), (Texts{"x", "y", "x"}));
}

TEST(InvalidStrings, AreRemovedWithEveryDuplicate)
{
    PDEFormatter* formatter = formatterWithStyle(1);
    [formatter removeInvalidCharacter:@"x"]; // no list yet
    for (NSString* string in @[ @"x", @"y", @"x", @"z" ])
        [formatter addInvalidCharacter:string];
    [formatter removeInvalidCharacter:@"q"];
    [formatter removeInvalidCharacter:nil];
    EXPECT_EQ(textsOf(ivarOf<NSArray*>(formatter, "mInvalidCaracters")),
              (Texts{"x", "y", "x", "z"}));
    [formatter removeInvalidCharacter:@"x"];
    EXPECT_EQ(textsOf(ivarOf<NSArray*>(formatter, "mInvalidCaracters")), (Texts{"y", "z"}));
    EXPECT_FALSE([formatter isInvalidCharacter:@"x"]);
    [formatter removeInvalidCharacter:@"y"];
    [formatter removeInvalidCharacter:@"z"];
    [formatter removeInvalidCharacter:@"z"];
    EXPECT_EQ([ivarOf<NSArray*>(formatter, "mInvalidCaracters") count], 0u);
}

TEST(InvalidStrings, AreKeptAndLetGo)
{
    NSMutableString* const text = [[NSMutableString alloc] initWithString:@"x"];
    PDEFormatter* formatter = formatterWithStyle(1);
    [formatter addInvalidCharacter:text];
    EXPECT_EQ([text retainCount], 2u);
    [formatter removeInvalidCharacter:@"x"];
    EXPECT_EQ([text retainCount], 1u);
    [text release];
}

// Display texts.

TEST(DisplayText, AppliesTheFormatToTheObject)
{
    PDEFormatter* formatter = [[allocated() initWithFormatString:@"L %@ mm"] autorelease];
    EXPECT_EQ(shown(formatter, @"12.5"), "L 12.5 mm");
    EXPECT_EQ(shown(formatter, @7), "L 7 mm");
}

TEST(DisplayText, IsTheObjectsOwnInTheNumericStylesWithAPlaceholder)
{
    EXPECT_EQ(shown(formatterWithStyle(4), @"12.5"), "12.5");
    EXPECT_EQ(shown(formatterWithStyle(2), @"12.5"), "12.5");
    EXPECT_EQ(shown(formatterWithStyle(4), @""), "");
    EXPECT_EQ(shown(formatterWithStyle(4), @"no number"), "no number");
}

TEST(DisplayText, IsTheWholeNumberInTheNumericStylesWithoutAPlaceholder)
{
    for (const int32_t style : {2, 4}) {
        PDEFormatter* formatter = [[allocated() initWithFormatString:@"%d mm"
                                                           withStyle:style] autorelease];
        EXPECT_EQ(shown(formatter, @"12.7"), "12 mm");
        EXPECT_EQ(shown(formatter, @12.7), "12 mm");
        EXPECT_EQ(shown(formatter, @"-3"), "-3 mm");
        EXPECT_EQ(shown(formatter, @"none"), "0 mm");
        EXPECT_EQ(shown(formatter, nil), "0 mm");
        EXPECT_EQ(shown(formatter, [NSArray array]), "0 mm"); // has no intValue
    }
}

TEST(DisplayText, KeepsAHugeWholeNumberAtTheLimit)
{
    PDEFormatter* formatter = [[allocated() initWithFormatString:@"%d" withStyle:2] autorelease];
    EXPECT_EQ(shown(formatter, @"4294967297"), "2147483647");
}

TEST(DisplayText, AppliesAFormatWithoutDirectivesAsItStands)
{
    PDEFormatter* formatter = [[allocated() initWithFormatString:@"mm" withStyle:4] autorelease];
    EXPECT_EQ(shown(formatter, @"12.5"), "mm");
    [formatter setTextStyle:0];
    EXPECT_EQ(shown(formatter, @"12.5"), "mm");
    [formatter setFormatString:@"100 %%"];
    EXPECT_EQ(shown(formatter, @"12.5"), "100 %");
    [formatter setFormatString:@""];
    EXPECT_EQ(shown(formatter, @"12.5"), "");
}

TEST(DisplayText, IsEmptyWithoutAnObject)
{
    EXPECT_EQ(shown(formatterWithStyle(4), nil), "");
    EXPECT_EQ(shown(formatterWithStyle(0), nil), "");
    NSTextField* field = [[[NSTextField alloc] initWithFrame:NSMakeRect(0, 0, 80, 22)] autorelease];
    [field setFormatter:formatterWithStyle(4)];
    [field setObjectValue:nil];
    EXPECT_EQ(textOf([field stringValue]), "");
}

TEST(DisplayText, ShowsTheBareValueWhereTheFormatAsksForMore)
{
    for (NSString* format in @[ @"%s", @"%n", @"%f", @"%@ %@", @"%@%n", @"%*d", @"%2$@", @"%" ]) {
        PDEFormatter* formatter = [[allocated() initWithFormatString:format] autorelease];
        EXPECT_EQ(shown(formatter, @"12.5"), "12.5") << textOf(format);
    }
    for (NSString* format in @[ @"%s", @"%n", @"%f", @"%d %d", @"%5@", @"%1000d" ]) {
        PDEFormatter* formatter = [[allocated() initWithFormatString:format
                                                           withStyle:2] autorelease];
        EXPECT_EQ(shown(formatter, @"12.5"), "12") << textOf(format);
    }
}

TEST(DisplayText, ShowsTheBareValueWithoutAFormat)
{
    PDEFormatter* formatter = [[allocated() initWithCalendarDate:nil locale:nil] autorelease];
    EXPECT_EQ(shown(formatter, @"12.5"), "12.5");
    EXPECT_EQ(shown(formatter, nil), "");
    [formatter setTextStyle:4];
    EXPECT_EQ(shown(formatter, @"12.5"), "12");
}

TEST(DisplayText, DescribesTheDateInItsFormatAndLocale)
{
    PDEFormatter* formatter = [[allocated() initWithFormatString:@"%d %B %Y %H:%M"
                                                       withStyle:5] autorelease];
    EXPECT_EQ(shown(formatter, @"no date yet"), "no date yet");
    [formatter setFormatString:@"%d %B %Y"];
    [formatter setCalendarDate:aDate()];
    NSDictionary* locale = @{
        @"NSMonthNameArray" : @[
            @"1er", @"2e", @"mars", @"4e", @"5e", @"6e", @"7e", @"8e", @"9e", @"10e", @"11e", @"12e"
        ]
    };
    [formatter setCalendarLocale:(NSLocale*)(id)locale];
    EXPECT_EQ(shown(formatter, @"ignored"), "07 mars 2009");
    EXPECT_EQ(shown(formatter, nil), "07 mars 2009");
    EXPECT_EQ(read(formatter, @"ignored"), "07 mars 2009");
    [formatter setTextStyle:0];
    [formatter setFormatString:@"%@"];
    EXPECT_EQ(shown(formatter, @"shown"), "shown");
}

TEST(DisplayText, DescribesTheDateWithANilFormat)
{
    NSDictionary* locale = @{@"NSTimeDateFormatString" : @"%Y/%m/%d"};
    PDEFormatter* formatter =
        [[allocated() initWithCalendarDate:aDate() locale:(NSLocale*)(id)locale] autorelease];
    EXPECT_EQ(shown(formatter, @"ignored"), "2009/03/07");
    [formatter setCalendarLocale:nil];
    EXPECT_EQ(shown(formatter, @"ignored"), textOf([aDate() descriptionWithCalendarFormat:nil
                                                                                   locale:nil]));
}

TEST(DisplayText, DescribesTheDateWithALocaleObject)
{
    NSLocale* locale = [[[NSLocale alloc] initWithLocaleIdentifier:@"en_US"] autorelease];
    PDEFormatter* formatter = [[allocated() initWithCalendarDate:aDate()
                                                          locale:locale] autorelease];
    [formatter setFormatString:@"%Y-%m-%d"];
    EXPECT_EQ(shown(formatter, nil), "2009-03-07");
}

// From text to object.

TEST(ObjectValue, IsTheTextMadeOfTheString)
{
    EXPECT_EQ(read(formatterWithStyle(4), @"12.5"), "12.5");
    EXPECT_EQ(read(formatterWithStyle(4), @""), "");
    PDEFormatter* whole = [[allocated() initWithFormatString:@"%d" withStyle:4] autorelease];
    EXPECT_EQ(read(whole, @"12.5"), "12");
    PDEFormatter* unit = [[allocated() initWithFormatString:@"%@ mm"] autorelease];
    EXPECT_EQ(read(unit, @"12"), "12 mm");
}

TEST(ObjectValue, NeverFailsAndWritesNoError)
{
    NSString* error = @"untouched";
    id object = @"untouched";
    PDEFormatter* formatter = formatterWithStyle(4);
    EXPECT_TRUE([formatter getObjectValue:NULL forString:@"1" errorDescription:&error]);
    EXPECT_TRUE([formatter getObjectValue:&object forString:nil errorDescription:&error]);
    EXPECT_EQ(object, @"untouched");
    EXPECT_TRUE([formatter getObjectValue:&object forString:@"x" errorDescription:&error]);
    EXPECT_EQ(error, @"untouched");
}

// Keystrokes.

TEST(Keystroke, ADeletionIsAcceptedEvenIfTheRestIsOutOfRange)
{
    PDEFormatter* formatter = formatterWithStyle(2);
    [formatter setMinValue:100];
    // Backspace at the end of 125: the caret goes back.
    expectAccepted(ask(formatter, @"12", NSMakeRange(2, 0), @"125", NSMakeRange(3, 0)));
    // A selection replaced by nothing: the caret stays.
    expectAccepted(ask(formatter, @"15", NSMakeRange(1, 0), @"125", NSMakeRange(1, 1)));
    expectAccepted(ask(formatter, @"", NSMakeRange(0, 0), @"125", NSMakeRange(0, 3)));
}

TEST(Keystroke, TheRangeIsCheckedOnceTheTextHasItsFullLength)
{
    PDEFormatter* formatter = formatterWithStyle(2);
    [formatter setMaxLength:3];
    [formatter setMaxValue:120];
    [formatter setMinValue:50];
    expectRefused(typeInto(formatter, @"12", @"5"), kFormat, formatter);
    expectAccepted(typeInto(formatter, @"11", @"5"));
    expectAccepted(typeInto(formatter, @"1", @"2")); // 12 is below 50, but not complete
    expectRefused(typeInto(formatter, @"119", @"5"), kInvalid, formatter);
}

TEST(Keystroke, AMaximumWithoutALengthLimitIsCheckedAtEveryKey)
{
    PDEFormatter* formatter = formatterWithStyle(4);
    [formatter setMaxValue:100];
    expectAccepted(typeInto(formatter, @"10", @"0"));
    expectRefused(typeInto(formatter, @"100", @"0"), kFormat, formatter);
    expectAccepted(typeInto(formatter, @"100", @".")); // 100. is 100
    expectAccepted(typeInto(formatter, @"100.", @"9"));
}

TEST(Keystroke, AMinimumAboveNineRefusesTheFirstDigit)
{
    PDEFormatter* formatter = formatterWithStyle(2);
    [formatter setMinValue:10];
    expectRefused(typeInto(formatter, @"", @"5"), kFormat, formatter);
    expectAccepted(typeInto(formatter, @"", @"10"));
}

TEST(Keystroke, ASecondDecimalPointIsRefusedButTwoMayBePastedAtOnce)
{
    PDEFormatter* formatter = formatterWithStyle(4);
    expectRefused(typeInto(formatter, @"12.5", @"."), kInvalid, formatter);
    expectAccepted(typeInto(formatter, @"", @"."));
    expectAccepted(typeInto(formatter, nil, @"."));
    expectAccepted(typeInto(formatter, @"", @"1..2"));
    // The point is looked for in the text as it was, its selected part included.
    expectRefused(typeInto(formatter, @"1.5", @".", NSMakeRange(0, 3)), kInvalid, formatter);
}

TEST(Keystroke, ALetterOutsideASCIIIsRefusedInStyleOneAndAcceptedInStyleZero)
{
    // Not in Mac OS Roman: the letter itself is posted.
    expectRefused(typeInto(formatterWithStyle(1), @"a", @"\u3042"), kInvalid, @"\u3042");
    expectAccepted(typeInto(formatterWithStyle(0), @"a", @"\u3042"));
    expectAccepted(typeInto(formatterWithStyle(0), @"a", @"\u00e9"));
    // In Mac OS Roman, but not in ASCII: no character is named.
    PDEFormatter* formatter = formatterWithStyle(1);
    expectRefused(typeInto(formatter, @"a", @"\u00e9"), kInvalid, formatter);
}

TEST(Keystroke, ASCIIEndsBeforeTheFirstOfTheOtherControlCharacters)
{
    expectAccepted(typeInto(formatterWithStyle(1), @"a", stringOf(u"\x7f")));
    NSString* const beyond = stringOf(std::u16string(1, char16_t{0x80}));
    expectRefused(typeInto(formatterWithStyle(1), @"a", beyond), kInvalid, beyond);
}

TEST(Keystroke, KeepsNothingOfARefusalAlive)
{
    const KeyAnswer answer = typeInto(formatterWithStyle(1), @"", @"\u3042");
    ASSERT_EQ(answer.posted.size(), 1u);
    id const letter = answer.posted[0].object;
    EXPECT_EQ([letter retainCount], 1u); // this test's
}

TEST(Keystroke, AListedTextIsRefusedAloneButNotAsPartOfAPaste)
{
    PDEFormatter* formatter = formatterWithStyle(1);
    [formatter addInvalidCharacter:@"x"];
    [formatter setNotificationObject:@"someone"];
    expectRefused(typeInto(formatter, @"a", @"x"), kInvalid, @"x");
    expectAccepted(typeInto(formatter, @"a", @"xy"));
    [formatter setTextStyle:0];
    expectAccepted(typeInto(formatter, @"a", @"x"));
}

TEST(Keystroke, ARefusalNamesTheNotificationObjectWhereNoCharacterIsKnown)
{
    PDEFormatter* formatter = formatterWithStyle(2);
    [formatter setMaxValue:1];
    id object = [[[NSObject alloc] init] autorelease];
    [formatter setNotificationObject:object];
    expectRefused(typeInto(formatter, @"", @"5"), kFormat, object);
    expectRefused(typeInto(formatter, @"", @"a"), kInvalid, object);
    [formatter setNotificationObject:nil];
    expectRefused(typeInto(formatter, @"", @"5"), kFormat, formatter);
}

TEST(Keystroke, APasteOutsideMacRomanNamesItsLastCharacter)
{
    expectRefused(typeInto(formatterWithStyle(2), @"", @"1\u30422"), kInvalid, @"2");
}

TEST(Keystroke, AHalfOfASurrogatePairIsRefusedAsACharacter)
{
    NSString* half = stringOf(std::u16string(1, char16_t{0xd83d}));
    expectRefused(typeInto(formatterWithStyle(2), @"1", half), kInvalid, half);
    expectAccepted(typeInto(formatterWithStyle(0), @"1", half));
}

TEST(Keystroke, MissingArgumentsAndImpossibleRangesPass)
{
    PDEFormatter* formatter = formatterWithStyle(2);
    NSString* text = @"x";
    NSString* none = nil;
    NSRange range = NSMakeRange(1, 0);
    EXPECT_TRUE([formatter isPartialStringValid:NULL proposedSelectedRange:&range originalString:@""
                          originalSelectedRange:NSMakeRange(0, 0)
                               errorDescription:NULL]);
    EXPECT_TRUE([formatter isPartialStringValid:&none proposedSelectedRange:&range
                                 originalString:@""
                          originalSelectedRange:NSMakeRange(0, 0)
                               errorDescription:NULL]);
    EXPECT_TRUE([formatter isPartialStringValid:&text proposedSelectedRange:NULL originalString:@""
                          originalSelectedRange:NSMakeRange(0, 0)
                               errorDescription:NULL]);
    EXPECT_FALSE([formatter isPartialStringValid:&text proposedSelectedRange:&range
                                  originalString:nil
                           originalSelectedRange:NSMakeRange(0, 0)
                                errorDescription:NULL]);
    expectAccepted(ask(formatter, @"", NSMakeRange(1, 0), @"", NSMakeRange(0, 0)));
    expectAccepted(ask(formatter, @"x", NSMakeRange(2, 0), @"", NSMakeRange(0, 0)));
    expectAccepted(ask(formatter, @"x", NSMakeRange(NSNotFound, 0), @"", NSMakeRange(0, 0)));
    expectAccepted(ask(formatter, @"x", NSMakeRange(1, 0), @"", NSMakeRange(NSNotFound, 0)));
}

TEST(Keystroke, ANumberBeyond32BitsIsAboveTheMaximum)
{
    PDEFormatter* formatter = formatterWithStyle(2);
    [formatter setMaxValue:100];
    expectRefused(typeInto(formatter, @"", @"4294967297"), kFormat, formatter);
}

TEST(Keystroke, ALongPasteIsCheckedToItsEnd)
{
    NSString* digits = [@"" stringByPaddingToLength:1000 withString:@"1" startingAtIndex:0];
    PDEFormatter* formatter = formatterWithStyle(4);
    expectAccepted(typeInto(formatter, @"", digits));
    expectRefused(typeInto(formatter, @"", [digits stringByAppendingString:@"x"]), kInvalid,
                  formatter);
    [formatter setMaxLength:1000];
    expectAccepted(typeInto(formatter, @"", digits));
    expectRefused(typeInto(formatter, digits, @"1"), kInvalid, formatter);
}
