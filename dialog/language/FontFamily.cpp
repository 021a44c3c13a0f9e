#include "dialog/language/FontFamily.hpp"

#include <fontconfig/fontconfig.h>

#include <memory>

namespace dialog {

namespace {

template <auto release>
struct Release
{
    void operator()(auto* thing) const { release(thing); }
};

using Pattern = std::unique_ptr<FcPattern, Release<&FcPatternDestroy>>;

const FcChar8* bytes(const std::string& text)
{
    return reinterpret_cast<const FcChar8*>(text.c_str());
}

// Whether the font has the letters; another territory's are better than none.
bool covers(FcPattern* font, const std::string& language)
{
    FcLangSet* known = nullptr;
    return FcPatternGetLangSet(font, FC_LANG, 0, &known) == FcResultMatch &&
           FcLangSetHasLang(known, bytes(language)) != FcLangDifferentLang;
}

} // namespace

std::string familyForLanguage(std::string_view language)
{
    const std::string wanted(language);
    const Pattern pattern(FcPatternCreate());
    FcPatternAddString(pattern.get(), FC_LANG, bytes(wanted));
    FcConfigSubstitute(nullptr, pattern.get(), FcMatchPattern);
    FcDefaultSubstitute(pattern.get());
    FcResult result = FcResultNoMatch;
    const Pattern font(FcFontMatch(nullptr, pattern.get(), &result));
    FcChar8* family = nullptr;
    if (font == nullptr || !covers(font.get(), wanted) ||
        FcPatternGetString(font.get(), FC_FAMILY, 0, &family) != FcResultMatch) {
        return {};
    }
    return reinterpret_cast<const char*>(family);
}

} // namespace dialog
