// Random keystrokes: the formatter's answer against a second computation.
//
// The second one works from the end: the refusal that stands is that of the last character that is
// refused at all.

#include "textentry/FormatterTest.hpp"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <random>

namespace {

constexpr int kCases = 30000;
constexpr unsigned kSeed = 20090307;

struct Setting
{
    int32_t style;
    int32_t maxLength;
    std::optional<int32_t> maximum;
    std::optional<int32_t> minimum;
    bool hasObject;
    std::vector<std::u16string> listed;
};

struct Edit
{
    std::u16string original;
    std::u16string proposed;
    NSRange before;
    NSRange after;
};

struct Expected
{
    std::string name; // empty: accepted
    std::u16string offender;
};

bool isAbove(char16_t character, char16_t last)
{
    return character > last;
}

// The texts hold, besides ASCII, only these: e acute is in Mac OS Roman and Latin-1; hiragana a
// and a lone surrogate are in neither.
constexpr char16_t kAcute = 0xe9;
constexpr char16_t kHiragana = 0x3042;
constexpr char16_t kHalf = 0xd83d;

bool isMacRoman(const std::u16string& text)
{
    return text.find(kHiragana) == text.npos && text.find(kHalf) == text.npos;
}

int64_t bytesOf(const std::u16string& text)
{
    int64_t bytes = 0;
    bool fits = true;
    switch ([NSString defaultCStringEncoding]) {
    case NSUTF8StringEncoding:
        for (const char16_t character : text) {
            fits &= character != kHalf;
            bytes += character == kHiragana ? 3 : character == kAcute ? 2 : 1;
        }
        break;
    case NSISOLatin1StringEncoding:
        fits = isMacRoman(text);
        bytes = static_cast<int64_t>(text.size());
        break;
    case NSASCIIStringEncoding:
    default:
        ADD_FAILURE() << "run with GNUSTEP_STRING_ENCODING naming UTF-8 or Latin-1";
        break;
    }
    return fits ? bytes : static_cast<int64_t>(text.size());
}

long valueOf(const std::u16string& text)
{
    std::string narrow;
    for (const char16_t character : text)
        narrow.push_back(character < 128 ? static_cast<char>(character) : '?');
    return std::clamp(std::strtol(narrow.c_str(), nullptr, 10), -2147483648L, 2147483647L);
}

bool isTaken(int32_t style, char16_t character, bool mayTakePoint)
{
    const bool digit = character >= '0' && character <= '9';
    const bool letter =
        (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z');
    const auto oneOf = [character](std::u16string_view set) {
        return std::find(set.begin(), set.end(), character) != set.end();
    };
    switch (style) {
    case 2:
        return digit;
    case 4:
        return digit || (character == '.' && mayTakePoint);
    case 6:
        return letter || digit || character == ' ';
    case 7:
        return letter || digit || oneOf(u" $%+-./");
    case 8:
        return digit || oneOf(u"$+-./:");
    case 9:
        return digit || oneOf(u"ABCDabcd$+-./:");
    case 10:
        return character > 31 && character < 127;
    case 11:
        return letter || digit || oneOf(u" !\"%'()*+,-./:;<=>?_");
    default:
        return character <= 127;
    }
}

Expected expect(const Setting& setting, const Edit& edit)
{
    const NSUInteger from = edit.before.location;
    const NSUInteger to = edit.after.location;
    if (edit.proposed.empty() || to <= from || to > edit.proposed.size())
        return {};
    const std::u16string typed = edit.proposed.substr(from, to - from);
    const std::string invalid = "InvalidCharacterNotification";

    if (setting.style != 0) {
        const bool listed = std::count(setting.listed.begin(), setting.listed.end(), typed) > 0;
        if (listed || !isMacRoman(typed))
            return {invalid, typed.substr(typed.size() - 1)};
    }
    if (setting.maxLength != 0 && bytesOf(edit.proposed) > setting.maxLength)
        return {invalid, {}};
    if (setting.style == 0)
        return {};
    if (std::any_of(typed.begin(), typed.end(), [](char16_t c) { return isAbove(c, 127); }))
        return {invalid, {}};

    std::string ofAccepted;
    if ((setting.style == 2 || setting.style == 4) &&
        (setting.maxLength == 0 || bytesOf(edit.proposed) == setting.maxLength)) {
        const long value = valueOf(edit.proposed);
        if (value > setting.maximum.value_or(2147483647) ||
            value < setting.minimum.value_or(-2147483647 - 1))
            ofAccepted = "FormatErrorNotification";
    }
    const bool mayTakePoint = edit.original.find(u'.') == edit.original.npos;
    for (auto character = typed.rbegin(); character != typed.rend(); ++character) {
        if (!isTaken(setting.style, *character, mayTakePoint))
            return {invalid, {}};
        if (!ofAccepted.empty())
            return {ofAccepted, {}};
    }
    return {};
}

// The toolkit cannot print half of a surrogate pair.
std::string shown(const std::u16string& text)
{
    std::string result = "\"";
    for (const char16_t character : text) {
        if (character > 31 && character < 127)
            result.push_back(static_cast<char>(character));
        else
            result += "<" + std::to_string(static_cast<unsigned>(character)) + ">";
    }
    return result + "\"";
}

class Generator
{
  public:
    int below(int end) { return std::uniform_int_distribution<int>(0, end - 1)(engine_); }
    bool oneIn(int times) { return below(times) == 0; }

    std::u16string text(int most)
    {
        static const std::u16string kDigits = u"0123456789";
        static const std::u16string kCommon =
            u"0123456789....  xyADad$%+-/:!\"'()*,;<=>?_@[~\t\n\x7f";
        static const std::u16string kRare = {kAcute, kHiragana, kHalf};
        const bool onlyDigits = oneIn(2);
        std::u16string result;
        for (int left = below(most + 1); left > 0; --left) {
            const std::u16string& from = onlyDigits ? kDigits : oneIn(12) ? kRare : kCommon;
            result.push_back(from[static_cast<std::size_t>(below(static_cast<int>(from.size())))]);
        }
        return result;
    }

    Setting setting()
    {
        Setting result;
        result.style = oneIn(2) ? (oneIn(2) ? 2 : 4) : below(17) - 2;
        result.maxLength = oneIn(2) ? 0 : below(8) - 1;
        if (oneIn(2))
            result.maximum = below(2000) - 20;
        if (oneIn(2))
            result.minimum = below(60) - 20;
        result.hasObject = oneIn(2);
        for (int left = oneIn(3) ? below(4) : 0; left > 0; --left)
            result.listed.push_back(text(2));
        return result;
    }

    Edit edit()
    {
        Edit result;
        result.original = oneIn(20) ? u"4294967290" : text(6);
        const int length = static_cast<int>(result.original.size());
        const int start = below(length + 1);
        const int selected = below(length - start + 1);
        const std::u16string typed = text(3);
        result.proposed = result.original;
        result.proposed.replace(static_cast<std::size_t>(start), static_cast<std::size_t>(selected),
                                typed);
        result.before =
            NSMakeRange(static_cast<NSUInteger>(start), static_cast<NSUInteger>(selected));
        result.after = NSMakeRange(static_cast<NSUInteger>(start) + typed.size(), 0);
        if (oneIn(10)) // what no editor would say
            result.after.location = static_cast<NSUInteger>(below(12));
        return result;
    }

  private:
    std::mt19937 engine_{kSeed};
};

int32_t nearTo(long value, Generator& generator)
{
    return static_cast<int32_t>(
        std::clamp(value + generator.below(3) - 1, -2147483648L, 2147483647L));
}

} // namespace

TEST(KeystrokeSweep, AgreesWithASecondComputationOnThirtyThousandKeystrokes)
{
    Generator generator;
    RefusalListener listener;
    id const object = [[[NSObject alloc] init] autorelease];
    std::map<std::string, int> seen;

    for (int i = 0; i < kCases && !testing::Test::HasFailure(); ++i) {
        const ScopedPool pool;
        Setting setting = generator.setting();
        const Edit edit = generator.edit();
        if (setting.maximum && generator.oneIn(2)) // exactly on the limit, or one beside it
            setting.maximum = nearTo(valueOf(edit.proposed), generator);
        if (setting.minimum && generator.oneIn(2))
            setting.minimum = nearTo(valueOf(edit.proposed), generator);
        const Expected expected = expect(setting, edit);

        PDEFormatter* formatter = formatterWithStyle(setting.style);
        [formatter setMaxLength:setting.maxLength];
        if (setting.maximum)
            [formatter setMaxValue:*setting.maximum];
        if (setting.minimum)
            [formatter setMinValue:*setting.minimum];
        if (setting.hasObject)
            [formatter setNotificationObject:object];
        for (const std::u16string& listed : setting.listed)
            [formatter addInvalidCharacter:stringOf(listed)];

        NSString* proposed = stringOf(edit.proposed);
        NSRange after = edit.after;
        listener.posted.clear();
        takeBeeps();
        const BOOL accepted = [formatter isPartialStringValid:&proposed proposedSelectedRange:&after
                                               originalString:stringOf(edit.original)
                                        originalSelectedRange:edit.before
                                             errorDescription:NULL];

        SCOPED_TRACE(testing::Message() << "case " << i << ", style " << setting.style << ", "
                                        << shown(edit.original) << " to " << shown(edit.proposed));
        EXPECT_EQ(accepted != NO, expected.name.empty());
        EXPECT_EQ(takeBeeps(), expected.name.empty() ? 0 : 1);
        ASSERT_EQ(listener.posted.size(), expected.name.empty() ? 0u : 1u);
        if (expected.name.empty()) {
            ++seen["accepted"];
            continue;
        }
        const Posted& posted = listener.posted[0];
        EXPECT_EQ(posted.name, expected.name);
        if (!expected.offender.empty()) {
            EXPECT_TRUE([static_cast<id>(posted.object) isEqual:stringOf(expected.offender)]);
            ++seen["offender"];
        } else {
            EXPECT_EQ(static_cast<id>(posted.object),
                      setting.hasObject ? object : static_cast<id>(formatter));
            ++seen[expected.name];
        }
    }
    // No kind of answer is so rare that it was hardly tried.
    EXPECT_GT(seen["accepted"], 3000);
    EXPECT_GT(seen["offender"], 1000);
    EXPECT_GT(seen["InvalidCharacterNotification"], 3000);
    EXPECT_GT(seen["FormatErrorNotification"], 1000);
}
