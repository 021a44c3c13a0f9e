#include "dialog/SummaryLines.hpp"

namespace dialog {

namespace {

void appendOnOneLine(std::string& text, const std::string& part)
{
    for (const char byte : part) {
        text += byte == '\n' || byte == '\r' ? ' ' : byte;
    }
}

} // namespace

std::string summaryText(const std::vector<SummaryLine>& lines)
{
    std::string text;
    for (const SummaryLine& line : lines) {
        appendOnOneLine(text, line.title);
        text += ": ";
        appendOnOneLine(text, line.value);
        text += '\n';
    }
    return text;
}

} // namespace dialog
