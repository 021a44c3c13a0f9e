// PropertyListXML.hpp - an XML property list as a value, and back to text.
//
// The toolkit's own reader runs past the end of a list that was cut short, and its writer follows
// the process's decimal separator; a list here may come from anywhere.  Plain C++.
//
//     const ParsedPropertyList list = parsePropertyListXML(bytes);
//     if (!list.value)
//         complain(list.problem, list.line);
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace printing {

struct PropertyListValue
{
    enum class Type
    {
        String,
        Data,
        Integer,
        Real,
        Boolean,
        Date,
        Array,
        Dictionary
    };

    Type type = Type::String;
    std::string text;         // String: UTF-8 without characters that XML lacks.  Data: the bytes
    std::int64_t integer = 0; // Integer; Boolean: 0 or 1
    double real = 0;          // Real; Date: seconds since 2001-01-01 00:00:00 UTC
    std::vector<PropertyListValue> items; // Array, Dictionary
    std::vector<std::string> keys;        // Dictionary: of the items, in the same order
};

// Arrays and dictionaries inside each other.
inline constexpr int kDeepestPropertyList = 128;

struct ParsedPropertyList
{
    std::optional<PropertyListValue> value;
    const char* problem = ""; // one sentence, when there is no value
    int line = 0;             // where, counting from 1
};

// Reads UTF-8 (with or without a byte order mark).  Entities that a document declares itself are
// not known; nothing outside `document` is read.
ParsedPropertyList parsePropertyListXML(std::string_view document);

// `value` must not be deeper than kDeepestPropertyList.
std::string propertyListXML(const PropertyListValue& value);

// Whether a text is UTF-8 and holds only characters that XML has.
bool isXMLText(std::string_view text) noexcept;

} // namespace printing
