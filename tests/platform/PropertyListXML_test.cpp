#include "platform/PropertyListXML.hpp"

#include <gtest/gtest.h>

#include <limits>

using namespace printing;

namespace {

using Type = PropertyListValue::Type;

std::string list(std::string_view content)
{
    return "<plist version=\"1.0\">" + std::string(content) + "</plist>";
}

PropertyListValue parsed(std::string_view content)
{
    auto result = parsePropertyListXML(list(content));
    EXPECT_TRUE(result.value) << content << ": " << result.problem;
    return result.value.value_or(PropertyListValue{});
}

bool isRefused(std::string_view document)
{
    const auto result = parsePropertyListXML(document);
    EXPECT_EQ(result.value.has_value(), *result.problem == '\0') << document;
    return !result.value;
}

std::string text(std::string_view element)
{
    return parsed(element).text;
}

} // namespace

TEST(PropertyListXML, ReadsADocumentAsWrittenElsewhere)
{
    const auto result =
        parsePropertyListXML("\xef\xbb\xbf<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                             "<!DOCTYPE plist PUBLIC \"-//Some > Owner//DTD PLIST 1.0//EN\" "
                             "\"http://localhost/p.dtd\" [\n"
                             "  <!ELEMENT plist ANY> ]>\n"
                             "<!-- a <dict> that is none -->\n"
                             "<plist version='1.0'>\r\n"
                             "<dict>\n"
                             "  <key>KmPaperName2</key> <!-- between --> <string>TC24</string>\n"
                             "  <key>Count</key><integer>2</integer>\n"
                             "</dict>\n"
                             "</plist>\n");
    ASSERT_TRUE(result.value) << result.problem;
    EXPECT_EQ(result.value->type, Type::Dictionary);
    ASSERT_EQ(result.value->keys.size(), 2u);
    ASSERT_EQ(result.value->items.size(), 2u);
    EXPECT_EQ(result.value->keys[0], "KmPaperName2");
    EXPECT_EQ(result.value->items[0].type, Type::String);
    EXPECT_EQ(result.value->items[0].text, "TC24");
    EXPECT_EQ(result.value->items[1].type, Type::Integer);
    EXPECT_EQ(result.value->items[1].integer, 2);
}

TEST(PropertyListXML, ReadsEmptyElements)
{
    EXPECT_EQ(parsed("<string/>").type, Type::String);
    EXPECT_EQ(text("<string/>"), "");
    EXPECT_EQ(text("<string></string>"), "");
    EXPECT_EQ(parsed("<data/>").type, Type::Data);
    EXPECT_EQ(parsed("<array />").type, Type::Array);
    EXPECT_TRUE(parsed("<dict/>").items.empty());
    EXPECT_EQ(parsed("<dict/>").type, Type::Dictionary);
}

TEST(PropertyListXML, ReadsCharactersBehindReferences)
{
    EXPECT_EQ(text("<string>&lt;&gt;&amp;&quot;&apos;</string>"), "<>&\"'");
    EXPECT_EQ(text("<string>&#65;&#x42;</string>"), "AB");
    EXPECT_EQ(text("<string>&#233;&#x20AC;&#x1F3F7;</string>"),
              "\xc3\xa9\xe2\x82\xac\xf0\x9f\x8f\xb7");
    EXPECT_EQ(text("<string>a<![CDATA[<&lt;>]]>b<!-- c -->d</string>"), "a<&lt;>bd");
}

TEST(PropertyListXML, KeepsSpacesInTextAndMakesOneLineEnd)
{
    EXPECT_EQ(text("<string> a\tb\r\nc\rd </string>"), " a\tb\nc\nd ");
    EXPECT_EQ(text("<string>a&#13;b</string>"), "a\rb");
}

TEST(PropertyListXML, RefusesReferencesToNothing)
{
    for (const char* content : {"&bogus;", "&", "&;", "&#;", "&#x;", "&#xD800;", "&#0;",
                                "&#1114112;", "&#99999999999;", "&#-1;", "& amp;", "&#65"})
        EXPECT_TRUE(isRefused(list("<string>" + std::string(content) + "</string>"))) << content;
}

TEST(PropertyListXML, ReadsIntegersUpToTheirLimits)
{
    EXPECT_EQ(parsed("<integer> -12 </integer>").integer, -12);
    EXPECT_EQ(parsed("<integer>+7</integer>").integer, 7);
    EXPECT_EQ(parsed("<integer>0x1F</integer>").integer, 31);
    EXPECT_EQ(parsed("<integer>9223372036854775807</integer>").integer, INT64_MAX);
    EXPECT_EQ(parsed("<integer>-9223372036854775808</integer>").integer, INT64_MIN);
    for (const char* bad : {"", " ", "x", "1.5", "1 2", "--1", "9223372036854775808",
                            "-9223372036854775809", "99999999999999999999", "0x"})
        EXPECT_TRUE(isRefused(list("<integer>" + std::string(bad) + "</integer>"))) << bad;
}

TEST(PropertyListXML, ReadsNumbersWithAPoint)
{
    EXPECT_EQ(parsed("<real>-1.5e3</real>").real, -1500.0);
    EXPECT_EQ(parsed("<real> +0.25 </real>").real, 0.25);
    for (const char* bad : {"", "1,5", "x", "1.5 x", "1e999", "+-1"})
        EXPECT_TRUE(isRefused(list("<real>" + std::string(bad) + "</real>"))) << bad;
}

TEST(PropertyListXML, ReadsTruthValues)
{
    EXPECT_EQ(parsed("<true/>").type, Type::Boolean);
    EXPECT_EQ(parsed("<true/>").integer, 1);
    EXPECT_EQ(parsed("<false></false>").integer, 0);
    EXPECT_TRUE(isRefused(list("<true>yes</true>")));
}

TEST(PropertyListXML, ReadsDataInBase64)
{
    EXPECT_EQ(text("<data>TWFu</data>"), "Man");
    EXPECT_EQ(text("<data>TWE=</data>"), "Ma");
    EXPECT_EQ(text("<data>\n\tTQ =\n=\n</data>"), "M");
    EXPECT_EQ(text("<data>//79</data>"), "\xff\xfe\xfd");
    for (const char* bad : {"!!!!", "TWFuT", "TQ", "TQ=", "TQ===", "=", "TQ==TQ=="})
        EXPECT_TRUE(isRefused(list("<data>" + std::string(bad) + "</data>"))) << bad;
}

TEST(PropertyListXML, ReadsDatesAsSecondsFromTheYear2001)
{
    EXPECT_EQ(parsed("<date>2001-01-01T00:00:00Z</date>").real, 0.0);
    EXPECT_EQ(parsed("<date>2001-01-02T01:01:01Z</date>").real, 86400.0 + 3661.0);
    // 1970 to 2001 are 978307200 seconds.
    EXPECT_EQ(parsed("<date>1970-01-01T00:00:00Z</date>").real, -978307200.0);
    // 2000 is a leap year: 29 February is its day 59 of 366, counting from 0.
    EXPECT_EQ(parsed("<date>2000-02-29T00:00:00Z</date>").real, -(366.0 - 59.0) * 86400.0);
    for (const char* bad : {"", "2001-01-01", "2001-13-01T00:00:00Z", "2001-00-01T00:00:00Z",
                            "2001-02-29T00:00:00Z", "1900-02-29T00:00:00Z", "2001-04-31T00:00:00Z",
                            "2001-01-00T00:00:00Z", "2001-01-01T24:00:00Z", "2001-01-01T00:60:00Z",
                            "2001-01-01T00:00:60Z", "2001-01-01T00:00:00", "2001-01-01 00:00:00Z"})
        EXPECT_TRUE(isRefused(list("<date>" + std::string(bad) + "</date>"))) << bad;
}

TEST(PropertyListXML, RefusesWhatIsNoPropertyList)
{
    for (const char* document :
         {"", " ", "hello", "<", "<>", "</plist>", "<plist/>", "<plist></plist>", "<plist>",
          "<xml/>", "<html><body/></html>", "<dict/>", "<?xml", "<!-- ", "<!DOCTYPE plist [",
          "bplist00", "{ a = b; }"})
        EXPECT_TRUE(isRefused(document)) << document;
}

TEST(PropertyListXML, RefusesADamagedStructure)
{
    for (const char* content :
         {"<dict><key>a</key></dict>", "<dict><string>a</string></dict>", "<dict><key>a</key>",
          "<dict>text</dict>", "<array><string>a</array>", "<array></dict>", "<foo>x</foo>",
          "<key>a</key>", "<string>a</string><string>b</string>", "text", "<string>a</string>b",
          "<string <b>a</string>", "<string a='>a</string>", "<Array/>", "<plist><true/></plist>"})
        EXPECT_TRUE(isRefused(list(content))) << content;
    EXPECT_TRUE(isRefused(list("<true/>") + "more"));
    EXPECT_TRUE(isRefused(list("<true/>") + list("<true/>")));
}

TEST(PropertyListXML, RefusesEveryListThatWasCutShort)
{
    const std::string whole = "<?xml version=\"1.0\"?><!DOCTYPE plist \"x\"><plist version=\"1.0\">"
                              "<dict><key>a</key><array><string>&lt;b</string><data>TQ==</data>"
                              "<true/></array><!-- c --></dict></plist>";
    ASSERT_FALSE(isRefused(whole));
    for (std::size_t length = 0; length < whole.size(); ++length) {
        // In memory of exactly its length, so that a sanitizer sees a step past the end.
        const std::vector<char> bytes(whole.begin(),
                                      whole.begin() + static_cast<std::ptrdiff_t>(length));
        EXPECT_TRUE(isRefused(std::string_view(bytes.data(), bytes.size()))) << length;
    }
}

TEST(PropertyListXML, RefusesBytesThatAreNoText)
{
    for (const char* bytes : {"\xff", "\xc3", "\xc0\x80", "\xed\xa0\x80", "\xf4\x90\x80\x80",
                              "\x01", "\xe0\x81\x81", "\xf0\x80\x81\x81", "\xef\xbf\xbf", "\x80"})
        EXPECT_TRUE(isRefused(list("<string>" + std::string(bytes) + "</string>")));
    EXPECT_TRUE(isRefused(list(std::string_view("<string>\0</string>", 18))));
}

TEST(PropertyListXML, NamesTheLineOfAProblem)
{
    const auto result = parsePropertyListXML("<plist>\n<dict>\n<key>a</key>\n</dict></plist>");
    EXPECT_FALSE(result.value);
    EXPECT_EQ(result.line, 4);
    EXPECT_STREQ(result.problem, "A dictionary has a key without a value.");
}

TEST(PropertyListXML, ReadsListsAsDeepAsTheLimitAndNoDeeper)
{
    const auto nested = [](int levels) {
        std::string content;
        for (int i = 0; i < levels; ++i)
            content += "<array>";
        for (int i = 0; i < levels; ++i)
            content += "</array>";
        return list(content);
    };
    EXPECT_FALSE(isRefused(nested(kDeepestPropertyList + 1))); // the outermost is level 0
    EXPECT_TRUE(isRefused(nested(kDeepestPropertyList + 2)));
    EXPECT_TRUE(isRefused(nested(200000)));

    const auto nestedByKeys = [](int levels) {
        std::string content = "<true/>";
        for (int i = 0; i < levels; ++i)
            content = "<dict><key>a</key>" + content + "</dict>";
        return list(content);
    };
    EXPECT_FALSE(isRefused(nestedByKeys(kDeepestPropertyList))); // what is innermost is a level too
    EXPECT_TRUE(isRefused(nestedByKeys(kDeepestPropertyList + 1)));
}

TEST(PropertyListXML, WritesEachKindOfValue)
{
    PropertyListValue dictionary;
    dictionary.type = Type::Dictionary;
    const auto add = [&dictionary](const char* key, Type type) -> PropertyListValue& {
        dictionary.keys.emplace_back(key);
        dictionary.items.emplace_back().type = type;
        return dictionary.items.back();
    };
    add("a<&>", Type::String).text = "b & <c>\r";
    add("d", Type::Data).text = "Ma";
    add("i", Type::Integer).integer = -5;
    add("r", Type::Real).real = 0.5;
    add("t", Type::Boolean).integer = 1;
    add("f", Type::Boolean).integer = 0;
    add("w", Type::Date).real = 86400;
    add("l", Type::Array).items.emplace_back().text = "x";

    EXPECT_EQ(propertyListXML(dictionary), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                           "<plist version=\"1.0\">\n"
                                           "<dict>\n"
                                           "\t<key>a&lt;&amp;&gt;</key>\n"
                                           "\t<string>b &amp; &lt;c&gt;&#13;</string>\n"
                                           "\t<key>d</key>\n"
                                           "\t<data>TWE=</data>\n"
                                           "\t<key>i</key>\n"
                                           "\t<integer>-5</integer>\n"
                                           "\t<key>r</key>\n"
                                           "\t<real>0.5</real>\n"
                                           "\t<key>t</key>\n"
                                           "\t<true/>\n"
                                           "\t<key>f</key>\n"
                                           "\t<false/>\n"
                                           "\t<key>w</key>\n"
                                           "\t<date>2001-01-02T00:00:00Z</date>\n"
                                           "\t<key>l</key>\n"
                                           "\t<array>\n"
                                           "\t\t<string>x</string>\n"
                                           "\t</array>\n"
                                           "</dict>\n"
                                           "</plist>\n");
}

TEST(PropertyListXML, ReadsBackTheDatesThatItWrites)
{
    PropertyListValue date;
    date.type = Type::Date;
    // Every day of four centuries and one, at its last second.
    for (double day = -146097; day <= 366; ++day) {
        date.real = day * 86400 + 86399;
        const auto again = parsePropertyListXML(propertyListXML(date));
        ASSERT_TRUE(again.value) << day;
        ASSERT_EQ(again.value->real, date.real) << day;
    }
}

TEST(PropertyListXML, WritesDatesBeyondTheFormAtItsLimits)
{
    PropertyListValue date;
    date.type = Type::Date;
    date.real = std::numeric_limits<double>::infinity();
    EXPECT_NE(propertyListXML(date).find("9999-12-31T23:59:59Z"), std::string::npos);
    date.real = -1e300;
    EXPECT_NE(propertyListXML(date).find("0000-01-01T00:00:00Z"), std::string::npos);
    date.real = std::numeric_limits<double>::quiet_NaN();
    EXPECT_NE(propertyListXML(date).find("2001-01-01T00:00:00Z"), std::string::npos);
}

TEST(PropertyListXML, ReadsBackDataOfEveryLength)
{
    PropertyListValue data;
    data.type = Type::Data;
    for (int length = 0; length < 70; ++length) {
        const auto again = parsePropertyListXML(propertyListXML(data));
        ASSERT_TRUE(again.value) << length;
        EXPECT_EQ(again.value->text, data.text);
        data.text += static_cast<char>(251 - 37 * length);
    }
}

TEST(PropertyListXML, ReadsBackNumbersToTheLastBit)
{
    PropertyListValue real;
    real.type = Type::Real;
    for (const double value : {0.1, 1.0 / 3, 5e-324, 1.7976931348623157e308, -0.0,
                               std::numeric_limits<double>::infinity()}) {
        real.real = value;
        const auto again = parsePropertyListXML(propertyListXML(real));
        ASSERT_TRUE(again.value) << value;
        EXPECT_EQ(again.value->real, value);
    }
}

TEST(PropertyListXML, RefusesACommentOrMarkedSectionWithoutAnEndWhereverItStands)
{
    for (const char* document :
         {"<!-- ", "<plist><!-- ", "<plist><true/><!-- ", "<plist><true/></plist><!-- ",
          "<plist><array><!-- ", "<plist><dict><!-- ", "<plist><dict><key>a</key><!-- ",
          "<plist><string>a<!-- ", "<plist><string>a<![CDATA[b", "<plist><? "})
        EXPECT_TRUE(isRefused(document)) << document;
}

TEST(PropertyListXML, RefusesAFaultThatTheEndOfTheListFollows)
{
    for (const char* content :
         {"<string>a&bogus;", "<array><string <", "<dict><key <", "<dict><key>a&bogus;",
          "<dict><key>a</key><string <", "<dict><key>a</key><string>b&bogus;", "<true <"})
        EXPECT_TRUE(isRefused(list(content))) << content;
}

TEST(PropertyListXML, SaysWhatIsWrong)
{
    EXPECT_STREQ(parsePropertyListXML("<plist><string>a<![CDATA[b").problem,
                 "The text ends in the middle of a tag or comment.");
    EXPECT_STREQ(parsePropertyListXML(list("<real>x</real>")).problem, "A number is not one.");
    EXPECT_STREQ(parsePropertyListXML(list("<date>x</date>")).problem, "A date is not one.");
}

TEST(PropertyListXML, RefusesAListThatBeginsByAnotherTag)
{
    for (const char* document :
         {"</plist><true/></plist>", "<plist/><true/></plist>", "<xml><true/></plist>"})
        EXPECT_TRUE(isRefused(document)) << document;
}

TEST(PropertyListXML, DoesNotEndACommentByTheDashesOfItsBeginning)
{
    EXPECT_EQ(text("<!-->--><string>a</string>"), "a");
    EXPECT_EQ(text("<string>a<!-->b--></string>"), "a");
    EXPECT_EQ(text("<string>a<!--->b--></string>"), "a");
}

TEST(PropertyListXML, RefusesEndTagsThatCloseSomethingElse)
{
    for (const char* content : {"<array></dict>", "<dict></array>", "<string>a</data>",
                                "<string>a<string>", "<true></false>"})
        EXPECT_TRUE(isRefused(list(content))) << content;
    EXPECT_TRUE(isRefused("<plist><true/></string>"));
    EXPECT_TRUE(isRefused("<plist><true/><plist>"));
}

TEST(PropertyListXML, ReadsADocumentTypeInEitherQuotes)
{
    const auto result =
        parsePropertyListXML("<!DOCTYPE plist SYSTEM 'a > \" b'><plist><true/></plist>");
    ASSERT_TRUE(result.value) << result.problem;
    EXPECT_EQ(result.value->integer, 1);
}

TEST(PropertyListXML, EndsATagsNameAtAnythingButASmallLetter)
{
    EXPECT_TRUE(isRefused(list("<stri{ng/>")));
    EXPECT_TRUE(isRefused(list("<stri`ng/>")));
    EXPECT_EQ(text("<string{>a</string>"), "a"); // what follows the name says nothing
}

TEST(PropertyListXML, TakesASlashInAnEndTagForNothing)
{
    EXPECT_EQ(text("<string>a</string/>"), "a");
}

TEST(PropertyListXML, ReadsLeadingZerosAsDecimalsAndEitherLetterAsHexadecimal)
{
    EXPECT_EQ(parsed("<integer>011</integer>").integer, 11);
    EXPECT_EQ(parsed("<integer>0X1F</integer>").integer, 31);
    EXPECT_EQ(parsed("<integer>0</integer>").integer, 0);
}

TEST(PropertyListXML, RefusesReferencesWithMoreThanANumber)
{
    EXPECT_TRUE(isRefused(list("<string>&#65z;</string>")));
    EXPECT_TRUE(isRefused(list("<string>&#x4Gz;</string>")));
}

TEST(PropertyListXML, RefusesDatesWithAnotherCharacterAnywhere)
{
    // "/" stands just before the digits, ":" just behind them.
    const std::string good = "2001-02-03T04:05:06Z";
    EXPECT_EQ(parsed("<date>" + good + "</date>").type, Type::Date);
    for (std::size_t i = 0; i < good.size(); ++i) {
        for (const char other : {'/', ':', 'x'}) {
            std::string changed = good;
            changed[i] = other;
            if (changed != good)
                EXPECT_TRUE(isRefused(list("<date>" + changed + "</date>"))) << changed;
        }
    }
}

TEST(PropertyListXML, ReadsReferencesToTheFirstAndLastCharacterOfEveryLength)
{
    EXPECT_EQ(text("<string>&#x7F;&#x80;</string>"), "\x7f\xc2\x80");
    EXPECT_EQ(text("<string>&#x7FF;&#x800;</string>"), "\xdf\xbf\xe0\xa0\x80");
    EXPECT_EQ(text("<string>&#xD7FF;&#xE000;</string>"), "\xed\x9f\xbf\xee\x80\x80");
    EXPECT_EQ(text("<string>&#xFFFD;&#x10000;</string>"), "\xef\xbf\xbd\xf0\x90\x80\x80");
    EXPECT_EQ(text("<string>&#x10FFFF;</string>"), "\xf4\x8f\xbf\xbf");
    EXPECT_TRUE(isRefused(list("<string>&#xFFFE;</string>")));
}

TEST(PropertyListXML, ReadsNothingInAnEmptyComment)
{
    EXPECT_EQ(text("<!----><string>a</string><!---->"), "a");
    EXPECT_EQ(text("<string>a<!---->b</string>"), "ab");
}

TEST(PropertyListXML, ReadsAHexadecimalNumberOfOneDigit)
{
    EXPECT_EQ(parsed("<integer>0x7</integer>").integer, 7);
}

TEST(PropertyListXML, KnowsTheLastDayOfEveryMonth)
{
    const int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    int before = 0;
    for (int month = 1; month <= 12; ++month) {
        const std::string year = month < 10 ? "2001-0" : "2001-";
        const auto date = [&](int day) {
            return "<date>" + year + std::to_string(month) + "-" + std::to_string(day) +
                   "T00:00:00Z</date>";
        };
        before += days[month - 1];
        EXPECT_EQ(parsed(date(days[month - 1])).real, (before - 1) * 86400.0) << month;
        EXPECT_TRUE(isRefused(list(date(days[month - 1] + 1)))) << month;
    }
}

TEST(IsXMLText, RefusesACharacterThatIsCutOffAtTheEnd)
{
    EXPECT_FALSE(isXMLText("a\xc3"));
    EXPECT_FALSE(isXMLText("a\xe2\x82"));
    EXPECT_FALSE(isXMLText("a\xf0\x9f\x8f"));
    EXPECT_TRUE(isXMLText("a\xf0\x9f\x8f\xb7"));
    // What lies behind the text is not looked at.
    EXPECT_FALSE(isXMLText(std::string_view("a\xc3\xa9", 2)));
}

TEST(IsXMLText, TakesEveryCapitalLetterForOne)
{
    EXPECT_TRUE(isXMLText("@ABCDEFGHIJKLMNOPQRSTUVWXYZ"));
}

TEST(IsXMLText, TakesTheFirstAndLastCharacterOfTwoBytes)
{
    EXPECT_TRUE(isXMLText("\xc2\x80x"));
    EXPECT_TRUE(isXMLText("\xdf\xbfx"));
}

TEST(IsXMLText, RefusesAByteThatBeginsNoCharacter)
{
    for (const char* bytes : {"\x84\x80\x80\x80", "\xc1\x90\x80\x80", "\xf8\x90\x80\x80"})
        EXPECT_FALSE(isXMLText(bytes));
}

TEST(IsXMLText, RefusesACharacterThatIsWrittenLongerThanItNeedsToBe)
{
    EXPECT_FALSE(isXMLText("\xc1\xbf"));         // U+007F in two bytes
    EXPECT_FALSE(isXMLText("\xe0\x9f\xbf"));     // U+07FF in three bytes
    EXPECT_TRUE(isXMLText("\xe0\xa0\x80"));      // U+0800
    EXPECT_FALSE(isXMLText("\xf0\x8f\xbf\xbd")); // U+FFFD in four bytes
    EXPECT_TRUE(isXMLText("\xf0\x90\x80\x80"));  // U+10000
}
