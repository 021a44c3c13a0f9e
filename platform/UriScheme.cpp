#include "platform/UriScheme.hpp"

namespace printing {

namespace {

bool isLetter(char c) noexcept
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

bool isSchemeCharacter(char c) noexcept
{
    return isLetter(c) || (c >= '0' && c <= '9') || c == '+' || c == '-' || c == '.';
}

} // namespace

std::string_view schemeOf(std::string_view uri) noexcept
{
    if (uri.empty() || !isLetter(uri.front()))
        return {};
    for (std::size_t i = 1; i < uri.size(); ++i) {
        if (uri[i] == ':')
            return uri.substr(0, i);
        if (!isSchemeCharacter(uri[i]))
            return {};
    }
    return {};
}

} // namespace printing
