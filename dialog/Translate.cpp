#include "dialog/Translate.hpp"

#include <libintl.h>

#include <clocale>
#include <cstdlib>

namespace dialog {

namespace {

constexpr const char* kDomain = "tape-print";

} // namespace

const char* tr(const char* english) noexcept
{
    // gettext answers an empty text with the catalogue's own header.
    return *english == '\0' ? english : dgettext(kDomain, english);
}

std::string filled(std::string_view pattern, std::initializer_list<std::string_view> parts)
{
    std::string text;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const bool place = pattern[i] == '{' && i + 2 < pattern.size() && pattern[i + 2] == '}' &&
                           pattern[i + 1] >= '1' && pattern[i + 1] <= '9';
        const std::size_t index = place ? static_cast<std::size_t>(pattern[i + 1] - '1') : 0;
        if (place && index < parts.size()) {
            text += parts.begin()[index];
            i += 2;
        } else {
            text += pattern[i];
        }
    }
    return text;
}

void openCatalogue(const std::string& folder, std::string_view name)
{
    // Any locale but "C" will do: gettext then reads LANGUAGE alone.  This one is always there.
    setenv("LANGUAGE", std::string(name).c_str(), 1);
    std::setlocale(LC_MESSAGES, "C.UTF-8");
    bindtextdomain(kDomain, folder.c_str());
    bind_textdomain_codeset(kDomain, "UTF-8");
}

} // namespace dialog
