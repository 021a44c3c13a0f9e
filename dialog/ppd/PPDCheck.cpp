#include "dialog/ppd/PPDCheck.hpp"

#include "dialog/Translate.hpp"

namespace dialog {

namespace {

constexpr char lowered(char c) noexcept
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool equalIgnoringCase(std::string_view a, std::string_view b) noexcept
{
    if (a.size() != b.size()) {
        return false;
    }
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (lowered(a[i]) != lowered(b[i])) {
            return false;
        }
    }
    return true;
}

bool isBlank(char c) noexcept
{
    return c == ' ' || c == '\t' || c == '\v' || c == '\f';
}

std::string_view withoutLeadingBlanks(std::string_view text) noexcept
{
    while (!text.empty() && isBlank(text.front())) {
        text.remove_prefix(1);
    }
    return text;
}

// Takes the leading run of characters that are neither blank nor in `stops`.
std::string_view takeWord(std::string_view& text, std::string_view stops) noexcept
{
    std::size_t end = 0;
    while (end < text.size() && !isBlank(text[end]) && stops.find(text[end]) == stops.npos) {
        ++end;
    }
    const std::string_view word = text.substr(0, end);
    text.remove_prefix(end);
    return word;
}

// The type word of a custom parameter's value, "order type minimum maximum".
std::string_view parameterType(std::string_view value) noexcept
{
    value = withoutLeadingBlanks(value);
    takeWord(value, {});
    value = withoutLeadingBlanks(value);
    return takeWord(value, {});
}

struct Counts
{
    std::size_t options = 0;
    std::size_t sizes = 0;
    std::size_t measures = 0;
    std::size_t choices = 0;
    std::size_t groups = 0;
    std::size_t customParameters = 0;
};

bool beginsIgnoringCase(std::string_view text, std::string_view word) noexcept
{
    return equalIgnoringCase(text.substr(0, word.size()), word);
}

// libcups leaves out this byte wherever it stands, so that a line with one is another line to it.
constexpr char kEndMark = '\x1a';

bool endsBeforeItsEnd(std::string_view contents) noexcept
{
    const std::size_t mark = contents.find(kEndMark);
    return mark != contents.npos && contents.find_first_not_of("\x1a\r\n", mark) != contents.npos;
}

PPDFault checkLine(std::string_view line, Counts& counts) noexcept
{
    if (line.size() < 2 || line.front() != '*' || line[1] == '%') {
        return PPDFault::None;
    }
    line.remove_prefix(1);
    const std::string_view keyword = takeWord(line, ":");
    if (equalIgnoringCase(keyword, "OpenUI") || equalIgnoringCase(keyword, "JCLOpenUI")) {
        return ++counts.options > kMaxPPDOptions ? PPDFault::TooManyOptions : PPDFault::None;
    }
    if (equalIgnoringCase(keyword, "OpenGroup") || equalIgnoringCase(keyword, "OpenSubGroup")) {
        return ++counts.groups > kMaxPPDGroups ? PPDFault::TooManyGroups : PPDFault::None;
    }
    if (beginsIgnoringCase(keyword, "ParamCustom") &&
        ++counts.customParameters > kMaxPPDCustomParameters) {
        return PPDFault::TooManyCustomParameters;
    }
    line = withoutLeadingBlanks(line);
    const std::string_view option = takeWord(line, ":/");
    if (option.empty()) {
        return PPDFault::None;
    }
    if (equalIgnoringCase(keyword, "PageSize") && ++counts.sizes > kMaxPPDSizes) {
        return PPDFault::TooManySizes;
    }
    // A measure of a size that is not there adds the size.
    if ((equalIgnoringCase(keyword, "PaperDimension") ||
         equalIgnoringCase(keyword, "ImageableArea")) &&
        ++counts.measures > 2 * kMaxPPDSizes) {
        return PPDFault::TooManySizes;
    }
    // Counted without regard to the option it belongs to: a limit only has to be safe.
    if (++counts.choices > kMaxPPDChoices) {
        return PPDFault::TooManyChoices;
    }
    if (equalIgnoringCase(keyword, "ParamCustomPageSize") &&
        (equalIgnoringCase(option, "Width") || equalIgnoringCase(option, "Height"))) {
        const std::size_t colon = line.find(':');
        if (colon == line.npos || parameterType(line.substr(colon + 1)) != "points") {
            return PPDFault::CustomSizeNotALength;
        }
    }
    return PPDFault::None;
}

} // namespace

PPDCheckResult checkPPD(std::string_view contents) noexcept
{
    if (contents.size() > kMaxPPDBytes) {
        return {PPDFault::TooLarge, 0};
    }
    if (contents.starts_with("\x1f\x8b")) {
        return {PPDFault::Compressed, 0};
    }
    if (endsBeforeItsEnd(contents)) {
        return {PPDFault::EndMark, 0};
    }
    Counts counts;
    std::size_t number = 0;
    while (!contents.empty()) {
        ++number;
        const std::size_t end = contents.find_first_of("\r\n");
        const PPDFault fault = checkLine(contents.substr(0, end), counts);
        if (fault != PPDFault::None) {
            return {fault, number};
        }
        if (end == contents.npos) {
            break;
        }
        const bool pair = contents.substr(end, 2) == "\r\n";
        contents.remove_prefix(end + (pair ? 2 : 1));
    }
    return {};
}

std::string_view reasonText(PPDFault fault) noexcept
{
    switch (fault) {
    case PPDFault::None:
        return tr("nothing is wrong with it");
    case PPDFault::TooLarge:
        return tr("it is larger than 2 MiB");
    case PPDFault::Compressed:
        return tr("it is compressed");
    case PPDFault::TooManyOptions:
        return tr("it has more than 2000 options");
    case PPDFault::TooManySizes:
        return tr("it has more than 4000 page sizes");
    case PPDFault::TooManyChoices:
        return tr("it has more than 20000 choices");
    case PPDFault::TooManyGroups:
        return tr("it has more than 1000 groups");
    case PPDFault::TooManyCustomParameters:
        return tr("it has more than 1000 custom parameters");
    case PPDFault::EndMark:
        return tr("it goes on after an end-of-file mark");
    case PPDFault::CustomSizeNotALength:
        return tr("the width or height of its custom page size is not given in points");
    }
    return tr("it cannot be used");
}

} // namespace dialog
