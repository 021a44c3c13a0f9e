#include "platform/PropertyListXML.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace printing {

namespace {

using Type = PropertyListValue::Type;

constexpr std::string_view kSpace = " \t\r\n";

bool isSpace(char c) noexcept
{
    return kSpace.find(c) != std::string_view::npos;
}

bool isXMLCharacter(std::uint32_t c) noexcept
{
    return c == '\t' || c == '\n' || c == '\r' || (c >= 0x20 && c <= 0xd7ff) ||
           (c >= 0xe000 && c <= 0xfffd) || (c >= 0x10000 && c <= 0x10ffff);
}

void appendUTF8(std::string& text, std::uint32_t c)
{
    if (c < 0x80) {
        text += static_cast<char>(c);
    } else if (c < 0x800) {
        text += static_cast<char>(0xc0 | c >> 6);
        text += static_cast<char>(0x80 | (c & 0x3f));
    } else if (c < 0x10000) {
        text += static_cast<char>(0xe0 | c >> 12);
        text += static_cast<char>(0x80 | (c >> 6 & 0x3f));
        text += static_cast<char>(0x80 | (c & 0x3f));
    } else {
        text += static_cast<char>(0xf0 | c >> 18);
        text += static_cast<char>(0x80 | (c >> 12 & 0x3f));
        text += static_cast<char>(0x80 | (c >> 6 & 0x3f));
        text += static_cast<char>(0x80 | (c & 0x3f));
    }
}

std::string_view trimmed(std::string_view text) noexcept
{
    const auto first = text.find_first_not_of(kSpace);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(kSpace) - first + 1);
}

constexpr std::string_view kBase64 =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

std::optional<std::string> fromBase64(std::string_view text)
{
    std::string bytes;
    std::uint32_t bits = 0;
    int digits = 0;
    int padding = 0;
    for (const char c : text) {
        if (isSpace(c))
            continue;
        if (c == '=') {
            ++padding;
            continue;
        }
        const auto digit = kBase64.find(c);
        if (digit == std::string_view::npos || padding > 0)
            return std::nullopt;
        bits = bits << 6 | static_cast<std::uint32_t>(digit);
        if (++digits % 4 == 0) {
            bytes += static_cast<char>(bits >> 16 & 0xff);
            bytes += static_cast<char>(bits >> 8 & 0xff);
            bytes += static_cast<char>(bits & 0xff);
            bits = 0;
        }
    }
    const int rest = digits % 4;
    if (rest == 1 || padding != (rest == 0 ? 0 : 4 - rest))
        return std::nullopt;
    if (rest >= 2)
        bytes += static_cast<char>(bits >> (rest == 2 ? 4 : 10) & 0xff);
    if (rest == 3)
        bytes += static_cast<char>(bits >> 2 & 0xff);
    return bytes;
}

std::string toBase64(std::string_view bytes)
{
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        const std::size_t count = std::min<std::size_t>(3, bytes.size() - i);
        std::uint32_t bits = 0;
        for (std::size_t k = 0; k < 3; ++k)
            bits = bits << 8 | (k < count ? static_cast<unsigned char>(bytes[i + k]) : 0U);
        for (std::size_t k = 0; k < 4; ++k)
            text += k <= count ? kBase64[bits >> (18 - 6 * k) & 0x3f] : '=';
    }
    return text;
}

std::optional<std::int64_t> integerFrom(std::string_view text) noexcept
{
    const bool isNegative = !text.empty() && text.front() == '-';
    if (isNegative || (!text.empty() && text.front() == '+'))
        text.remove_prefix(1);
    int base = 10;
    if (text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X')) {
        base = 16;
        text.remove_prefix(2);
    }
    std::uint64_t magnitude = 0;
    const auto [stop, problem] =
        std::from_chars(text.data(), text.data() + text.size(), magnitude, base);
    if (text.empty() || problem != std::errc{} || stop != text.data() + text.size())
        return std::nullopt;
    constexpr std::uint64_t limit = std::uint64_t{1} << 63;
    if (isNegative ? magnitude > limit : magnitude >= limit)
        return std::nullopt;
    return static_cast<std::int64_t>(isNegative ? 0 - magnitude : magnitude);
}

std::optional<double> realFrom(std::string_view text) noexcept
{
    if (text.size() > 1 && text.front() == '+' && text[1] != '-')
        text.remove_prefix(1);
    double value = 0;
    const auto [stop, problem] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || problem != std::errc{} || stop != text.data() + text.size())
        return std::nullopt;
    return value;
}

// Days from 2001-01-01, in the calendar that leaps over three of four centuries.
std::int64_t daysFromDate(std::int64_t year, int month, int day) noexcept
{
    // Years begin in March here, so that the leap day is the last of one.
    const std::int64_t y = year - (month <= 2 ? 1 : 0);
    const std::int64_t era = (y >= 0 ? y : y - 399) / 400;
    const std::int64_t yearOfEra = y - era * 400;
    const std::int64_t dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    const std::int64_t dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    return era * 146097 + dayOfEra - 730791;
}

bool isLeapYear(int year) noexcept
{
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

// YYYY-MM-DDTHH:MM:SSZ
std::optional<double> dateFrom(std::string_view text) noexcept
{
    constexpr std::string_view pattern = "0000-00-00T00:00:00Z";
    if (text.size() != pattern.size())
        return std::nullopt;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (pattern[i] == '0' ? text[i] < '0' || text[i] > '9' : text[i] != pattern[i])
            return std::nullopt;
    const auto number = [text](std::size_t at, std::size_t count) {
        int value = 0;
        for (const char c : text.substr(at, count))
            value = value * 10 + (c - '0');
        return value;
    };
    const int year = number(0, 4);
    const int month = number(5, 2);
    const int day = number(8, 2);
    const int hour = number(11, 2);
    const int minute = number(14, 2);
    const int second = number(17, 2);
    constexpr std::array<int, 12> days{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (month < 1 || month > 12 || hour > 23 || minute > 59 || second > 59)
        return std::nullopt;
    const int last =
        days[static_cast<std::size_t>(month - 1)] + (month == 2 && isLeapYear(year) ? 1 : 0);
    if (day < 1 || day > last)
        return std::nullopt;
    return static_cast<double>(daysFromDate(year, month, day) * 86400 + hour * 3600 + minute * 60 +
                               second);
}

void appendDigits(std::string& text, std::int64_t value, std::size_t width)
{
    std::string digits = std::to_string(value);
    text.append(width - std::min(width, digits.size()), '0');
    text += digits;
}

// Whole seconds, and years 0 to 9999, which is what the form can hold.
std::string dateText(double seconds)
{
    const double lowest = static_cast<double>(daysFromDate(0, 1, 1) * 86400);
    const double highest = static_cast<double>(daysFromDate(10000, 1, 1) * 86400 - 1);
    const auto whole = static_cast<std::int64_t>(
        std::floor(std::isnan(seconds) ? 0 : std::clamp(seconds, lowest, highest)));
    const std::int64_t day = (whole >= 0 ? whole : whole - 86399) / 86400;
    const std::int64_t secondOfDay = whole - day * 86400;
    std::int64_t year = 2001 + day / 366;
    while (daysFromDate(year, 1, 1) > day)
        --year;
    while (daysFromDate(year + 1, 1, 1) <= day)
        ++year;
    int month = 12;
    while (daysFromDate(year, month, 1) > day)
        --month;
    std::string text;
    appendDigits(text, year, 4);
    text += '-';
    appendDigits(text, month, 2);
    text += '-';
    appendDigits(text, day - daysFromDate(year, month, 1) + 1, 2);
    text += 'T';
    appendDigits(text, secondOfDay / 3600, 2);
    text += ':';
    appendDigits(text, secondOfDay / 60 % 60, 2);
    text += ':';
    appendDigits(text, secondOfDay % 60, 2);
    text += 'Z';
    return text;
}

class Parser
{
  public:
    explicit Parser(std::string_view document) : document_(document) {}

    ParsedPropertyList parse()
    {
        PropertyListValue value;
        if (!readDocument(value)) {
            const auto before = document_.substr(0, std::min(at_, document_.size()));
            const auto line = std::count(before.begin(), before.end(), '\n') + 1;
            return {std::nullopt, problem_, static_cast<int>(line)};
        }
        return {std::move(value), "", 0};
    }

  private:
    struct Tag
    {
        std::string_view name;
        bool isEnd = false;   // </name>
        bool isEmpty = false; // <name/>
    };

    bool fail(const char* problem)
    {
        problem_ = problem;
        return false;
    }

    bool require(bool holds, const char* problem) { return holds ? true : fail(problem); }

    bool startsWith(std::string_view text) const
    {
        return document_.substr(at_, text.size()) == text;
    }

    // Behind the next `end`.
    bool skipPast(std::string_view end)
    {
        const auto found = document_.find(end, at_);
        if (found == std::string_view::npos)
            return fail("The text ends in the middle of a tag or comment.");
        at_ = found + end.size();
        return true;
    }

    bool skipDocumentType()
    {
        int depth = 0;
        while (at_ < document_.size()) {
            const char c = document_[at_++];
            if (c == '"' || c == '\'') {
                if (!skipPast(std::string_view(&c, 1)))
                    return false;
            } else if (c == '[') {
                ++depth;
            } else if (c == ']') {
                --depth;
            } else if (c == '>' && depth <= 0) {
                return true;
            }
        }
        return fail("The text ends in the document type.");
    }

    // Spaces, comments, instructions and the document type, up to the next tag or the end.
    bool skipMisc()
    {
        while (at_ < document_.size()) {
            if (isSpace(document_[at_])) {
                ++at_;
            } else if (startsWith("<!--")) {
                at_ += 4;
                if (!skipPast("-->"))
                    return false;
            } else if (startsWith("<?")) {
                if (!skipPast("?>"))
                    return false;
            } else if (startsWith("<!DOCTYPE")) {
                if (!skipDocumentType())
                    return false;
            } else {
                return true;
            }
        }
        return true;
    }

    bool readTag(Tag& tag)
    {
        if (at_ >= document_.size())
            return fail("The text ends before the property list does.");
        if (document_[at_] != '<')
            return fail("There is text where a tag belongs.");
        ++at_;
        tag.isEnd = startsWith("/");
        if (tag.isEnd)
            ++at_;
        const std::size_t nameStart = at_;
        while (at_ < document_.size() && document_[at_] >= 'a' && document_[at_] <= 'z')
            ++at_;
        tag.name = document_.substr(nameStart, at_ - nameStart);
        return !tag.name.empty() ? readTagEnd(tag) : fail("A tag has no name.");
    }

    // Attributes say nothing here.
    bool readTagEnd(Tag& tag)
    {
        while (at_ < document_.size()) {
            const char c = document_[at_++];
            if (c == '>')
                return true;
            if (c == '/' && startsWith(">") && !tag.isEnd) {
                tag.isEmpty = true;
                ++at_;
                return true;
            }
            if (c == '"' || c == '\'') {
                if (!skipPast(std::string_view(&c, 1)))
                    return false;
            } else if (c == '<') {
                return fail("A tag begins inside another.");
            }
        }
        return fail("The text ends in a tag.");
    }

    bool readEnd(std::string_view name)
    {
        Tag tag;
        if (!readTag(tag))
            return false;
        return require(tag.isEnd && tag.name == name, "An end tag does not match.");
    }

    bool readReference(std::string& text)
    {
        const auto end = document_.find(';', at_);
        if (end == std::string_view::npos || end - at_ > 10)
            return fail("A character reference has no end.");
        std::string_view name = document_.substr(at_ + 1, end - at_ - 1);
        at_ = end + 1;
        constexpr std::array<std::pair<std::string_view, char>, 5> named{
            {{"lt", '<'}, {"gt", '>'}, {"amp", '&'}, {"quot", '"'}, {"apos", '\''}}};
        for (const auto& [known, character] : named)
            if (name == known) {
                text += character;
                return true;
            }
        if (name.empty() || name.front() != '#')
            return fail("A character reference is not known.");
        name.remove_prefix(1);
        int base = 10;
        if (!name.empty() && name.front() == 'x') {
            base = 16;
            name.remove_prefix(1);
        }
        std::uint32_t code = 0;
        const auto [stop, problem] =
            std::from_chars(name.data(), name.data() + name.size(), code, base);
        if (name.empty() || problem != std::errc{} || stop != name.data() + name.size() ||
            !isXMLCharacter(code))
            return fail("A character reference names no character.");
        appendUTF8(text, code);
        return true;
    }

    // The text of an element, and its end tag.
    bool readText(const Tag& tag, std::string& text)
    {
        if (tag.isEmpty)
            return true;
        while (at_ < document_.size()) {
            if (startsWith("<!--")) {
                at_ += 4;
                if (!skipPast("-->"))
                    return false;
            } else if (startsWith("<![CDATA[")) {
                at_ += 9;
                const std::size_t start = at_;
                if (!skipPast("]]>"))
                    return false;
                text += document_.substr(start, at_ - 3 - start);
            } else if (document_[at_] == '<') {
                return readEnd(tag.name);
            } else if (document_[at_] == '&') {
                if (!readReference(text))
                    return false;
            } else if (document_[at_] == '\r') {
                // XML knows one line end.
                text += '\n';
                at_ += startsWith("\r\n") ? 2 : 1;
            } else {
                text += document_[at_++];
            }
        }
        return fail("The text ends before the property list does.");
    }

    bool readArray(const Tag& tag, PropertyListValue& value, int depth)
    {
        value.type = Type::Array;
        while (!tag.isEmpty) {
            Tag next;
            if (!skipMisc() || !readTag(next))
                return false;
            if (next.isEnd)
                return require(next.name == tag.name, "An end tag does not match.");
            if (!readValue(next, value.items.emplace_back(), depth + 1))
                return false;
        }
        return true;
    }

    bool readDictionary(const Tag& tag, PropertyListValue& value, int depth)
    {
        value.type = Type::Dictionary;
        while (!tag.isEmpty) {
            Tag next;
            if (!skipMisc() || !readTag(next))
                return false;
            if (next.isEnd)
                return require(next.name == tag.name, "An end tag does not match.");
            if (next.name != "key")
                return fail("A dictionary has a value without a key.");
            if (!readText(next, value.keys.emplace_back()) || !skipMisc() || !readTag(next))
                return false;
            if (next.isEnd)
                return fail("A dictionary has a key without a value.");
            if (!readValue(next, value.items.emplace_back(), depth + 1))
                return false;
        }
        return true;
    }

    bool readValue(const Tag& tag, PropertyListValue& value, int depth)
    {
        if (depth > kDeepestPropertyList)
            return fail("Arrays and dictionaries lie too deep inside each other.");
        if (tag.isEnd)
            return fail("There is an end tag where a value belongs.");
        if (tag.name == "array")
            return readArray(tag, value, depth);
        if (tag.name == "dict")
            return readDictionary(tag, value, depth);

        std::string text;
        if (!readText(tag, text))
            return false;
        if (tag.name == "string") {
            value.type = Type::String;
            value.text = std::move(text);
            return true;
        }
        if (tag.name == "true" || tag.name == "false") {
            value.type = Type::Boolean;
            value.integer = tag.name == "true";
            return require(trimmed(text).empty(), "A truth value holds text.");
        }
        if (tag.name == "data") {
            auto bytes = fromBase64(text);
            if (!bytes)
                return fail("Data is not in Base 64.");
            value.type = Type::Data;
            value.text = std::move(*bytes);
            return true;
        }
        if (tag.name == "integer") {
            const auto integer = integerFrom(trimmed(text));
            value.type = Type::Integer;
            value.integer = integer.value_or(0);
            return require(integer.has_value(), "An integer is not one, or is too large.");
        }
        if (tag.name == "real" || tag.name == "date") {
            const bool isDate = tag.name == "date";
            const auto real = isDate ? dateFrom(trimmed(text)) : realFrom(trimmed(text));
            value.type = isDate ? Type::Date : Type::Real;
            value.real = real.value_or(0);
            return require(real.has_value(),
                           isDate ? "A date is not one." : "A number is not one.");
        }
        return fail("A tag is not one of a property list.");
    }

    bool readDocument(PropertyListValue& value)
    {
        if (!isXMLText(document_))
            return fail("The data is not UTF-8 text.");
        if (startsWith("\xef\xbb\xbf"))
            at_ += 3;
        Tag list;
        Tag root;
        if (!skipMisc() || !readTag(list))
            return false;
        if (list.isEnd || list.isEmpty || list.name != "plist")
            return fail("The document is not a property list.");
        if (!skipMisc() || !readTag(root) || !readValue(root, value, 0))
            return false;
        if (!skipMisc() || !readEnd("plist") || !skipMisc())
            return false;
        return require(at_ == document_.size(), "There is more after the property list.");
    }

    std::string_view document_;
    std::size_t at_ = 0;
    const char* problem_ = "";
};

void appendEscaped(std::string& xml, std::string_view text)
{
    for (const char c : text) {
        switch (c) {
        case '<':
            xml += "&lt;";
            break;
        case '>':
            xml += "&gt;";
            break;
        case '&':
            xml += "&amp;";
            break;
        case '\r':
            // Else read back as a line feed.
            xml += "&#13;";
            break;
        default:
            xml += c;
            break;
        }
    }
}

void appendElement(std::string& xml, std::string_view name, std::string_view content)
{
    xml += '<';
    xml += name;
    xml += '>';
    appendEscaped(xml, content);
    xml += "</";
    xml += name;
    xml += ">\n";
}

std::string realText(double value)
{
    std::array<char, 32> digits{};
    const auto [end, problem] = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    return std::string(digits.data(), end);
}

void appendValue(std::string& xml, const PropertyListValue& value, std::size_t depth)
{
    xml.append(depth, '\t');
    switch (value.type) {
    case Type::String:
        appendElement(xml, "string", value.text);
        break;
    case Type::Data:
        appendElement(xml, "data", toBase64(value.text));
        break;
    case Type::Integer:
        appendElement(xml, "integer", std::to_string(value.integer));
        break;
    case Type::Real:
        appendElement(xml, "real", realText(value.real));
        break;
    case Type::Boolean:
        xml += value.integer != 0 ? "<true/>\n" : "<false/>\n";
        break;
    case Type::Date:
        appendElement(xml, "date", dateText(value.real));
        break;
    case Type::Array:
    case Type::Dictionary: {
        const bool isArray = value.type == Type::Array;
        xml += isArray ? "<array>\n" : "<dict>\n";
        for (std::size_t i = 0; i < value.items.size(); ++i) {
            if (!isArray) {
                xml.append(depth + 1, '\t');
                appendElement(xml, "key", value.keys[i]);
            }
            appendValue(xml, value.items[i], depth + 1);
        }
        xml.append(depth, '\t');
        xml += isArray ? "</array>\n" : "</dict>\n";
        break;
    }
    }
}

} // namespace

bool isXMLText(std::string_view text) noexcept
{
    std::size_t at = 0;
    while (at < text.size()) {
        const auto lead = static_cast<unsigned char>(text[at]);
        const std::size_t length = lead < 0x80                   ? 1
                                   : lead >= 0xc2 && lead < 0xe0 ? 2
                                   : lead >= 0xe0 && lead < 0xf0 ? 3
                                   : lead >= 0xf0 && lead < 0xf5 ? 4
                                                                 : 0;
        if (length == 0 || length > text.size() - at)
            return false;
        std::uint32_t code = length == 1 ? lead : lead & (0xffU >> (length + 1));
        for (std::size_t i = 1; i < length; ++i) {
            const auto next = static_cast<unsigned char>(text[at + i]);
            if ((next & 0xc0) != 0x80)
                return false;
            code = code << 6 | (next & 0x3fU);
        }
        // Longer than need be, or a half of a surrogate pair.
        if ((length == 3 && code < 0x800) || (length == 4 && code < 0x10000) ||
            !isXMLCharacter(code))
            return false;
        at += length;
    }
    return true;
}

ParsedPropertyList parsePropertyListXML(std::string_view document)
{
    return Parser(document).parse();
}

std::string propertyListXML(const PropertyListValue& value)
{
    std::string xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">\n";
    appendValue(xml, value, 0);
    xml += "</plist>\n";
    return xml;
}

} // namespace printing
