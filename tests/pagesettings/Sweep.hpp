// Sweep.hpp - random printers, papers and entries, and a second computation of what the panel makes
// of them, by the C library instead of the panel's own rules.
//
// The seed is fixed: a failure comes back.  PAGE_SETTINGS_SEED in the environment sets another.
#pragma once

#include "pagesettings/PageSettingsTest.hpp"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <regex>
#include <string>

namespace sweep {

class Dice
{
  public:
    explicit Dice(std::uint32_t seed) : engine_(seedOr(seed)) {}
    int below(int count) { return static_cast<int>(engine_() % static_cast<unsigned>(count)); }
    bool oneIn(int count) { return below(count) == 0; }
    double real(double from, double to)
    {
        return from + (to - from) * (static_cast<double>(engine_()) / 4294967295.0);
    }
    template <class T, std::size_t N>
    const T& of(const T (&list)[N])
    {
        return list[static_cast<std::size_t>(below(static_cast<int>(N)))];
    }

  private:
    static std::uint32_t seedOr(std::uint32_t seed)
    {
        const char* const other = std::getenv("PAGE_SETTINGS_SEED");
        return other ? static_cast<std::uint32_t>(std::atoll(other)) : seed;
    }
    std::mt19937 engine_;
};

// By the C library: the test runs in the "C" locale.
inline std::string decimals(int count, double value)
{
    char text[400];
    std::snprintf(text, sizeof text, "%.*f", count, value);
    return text;
}

inline std::string whole(double value)
{
    const double held =
        std::isnan(value) ? 0 : std::fmin(std::fmax(value, -2147483648.0), 2147483647.0);
    return std::to_string(static_cast<long long>(held));
}

// The decimal number at the beginning, by the C library, which would read more than that: words for
// infinity and no number, and hexadecimal ones.
inline double doubleOf(const std::string& text)
{
    static const std::regex decimal(
        "[ \\t-\\r]*([+-]?([0-9]+\\.?[0-9]*|\\.[0-9]+)([eE][+-]?[0-9]+)?)");
    std::smatch found;
    return std::regex_search(text, found, decimal, std::regex_constants::match_continuous)
               ? std::strtod(found[1].str().c_str(), nullptr)
               : 0;
}

inline float floatOf(const std::string& text)
{
    return static_cast<float>(doubleOf(text));
}

inline double tenthsUp(float value)
{
    return static_cast<double>(ceilf(value * 10.0f)) / 10.0;
}

// What a printer fixes.
struct Printer
{
    bool inches = false;
    bool wholeLengths = false;
    bool wholeMargins = false;
    std::string minLength, maxLength, minMargin, maxMargin; // as the PPD says
    std::vector<std::string> resolutions;
    std::string margin; // the default

    float least() const { return floatOf(minLength); }
    float most() const { return floatOf(maxLength); }
    float leastMargin() const { return floatOf(minMargin); }
    float mostMargin() const { return floatOf(maxMargin); }

    // A limit in the panel's unit, as a text that stands for it in inches.
    std::string inchText(double millimetres) const
    {
        return decimals(2, static_cast<float>(millimetres * 0.0393701));
    }
    float limit(float millimetres) const
    {
        return inches ? floatOf(inchText(millimetres)) : millimetres;
    }

    Offer offer() const
    {
        Offer offer;
        offer.unit = inches ? "inch" : "mm";
        offer.wholeLengths = wholeLengths;
        offer.wholeMargins = wholeMargins;
        offer.minLength = minLength;
        offer.maxLength = maxLength;
        offer.minMargin = minMargin;
        offer.maxMargin = maxMargin;
        offer.margin = margin;
        offer.resolution.clear();
        for (const std::string& keyword : resolutions)
            offer.resolution.push_back({keyword, "R " + keyword});
        offer.resolutionDefault = resolutions.empty() ? "" : resolutions.front();
        return offer;
    }

    std::string describe() const
    {
        return std::string(inches ? "inches" : "mm") + (wholeLengths ? " wholeLengths" : "") +
               (wholeMargins ? " wholeMargins" : "") + " length " + minLength + ".." + maxLength +
               " margin " + minMargin + ".." + maxMargin + " default " + margin;
    }
};

inline std::string randomLimit(Dice& dice, double least, double most)
{
    if (dice.oneIn(40))
        return dice.of({"0", "letters", "-5", "1e3", "1e12", "12.5abc", "1e39", " 7"});
    return decimals(dice.below(3), dice.real(least, most));
}

inline Printer randomPrinter(Dice& dice)
{
    Printer printer;
    printer.inches = dice.oneIn(3);
    printer.wholeLengths = dice.oneIn(2);
    printer.wholeMargins = dice.oneIn(2);
    printer.minLength = randomLimit(dice, 0, 60);
    printer.maxLength = randomLimit(dice, 40, 1000);
    printer.minMargin = randomLimit(dice, 0, 6);
    printer.maxMargin = randomLimit(dice, 5, 120);
    printer.margin = dice.oneIn(10) ? "None" : decimals(dice.below(3), dice.real(0, 60));
    static const char* const keywords[] = {"300x300dpi", "180x180dpi", "360x720dpi", "600X20DPI",
                                           "Draft",      "300dpi",     "100x90dpi",  "dpi7x7"};
    const int count = dice.below(4);
    for (int i = 0; i < count; ++i)
        printer.resolutions.push_back(keywords[(dice.below(8) + i) % 8]);
    // A keyword twice would be one choice.
    for (std::size_t i = 1; i < printer.resolutions.size(); ++i) {
        for (std::size_t k = 0; k < i; ++k) {
            if (printer.resolutions[k] == printer.resolutions[i]) {
                printer.resolutions.resize(i);
                break;
            }
        }
    }
    return printer;
}

// What a user, or a program, may put into a field for a number around `around`.
inline std::string randomEntry(Dice& dice, double least, double most)
{
    switch (dice.below(12)) {
    case 0:
        return dice.of({"",
                        "abc",
                        "-",
                        "+",
                        ".",
                        "e5",
                        "12abc",
                        "  7.5",
                        "7,5",
                        "0x10",
                        "inf",
                        "nan",
                        "1.2.3",
                        "--5",
                        "\xc3\xa9"
                        "5",
                        "5 mm",
                        "1e",
                        "1e+",
                        "%d",
                        "%@"});
    case 1:
        return dice.of({"99999999999", "4294967297", "2147483648", "1e39", "1e400", "-1e400",
                        "1e-400", "5e-324", "1e3", "12e-1", "3E1", "34e37"});
    case 2:
        return decimals(dice.below(3), -dice.real(0, most));
    case 3: {
        const double limit = dice.oneIn(2) ? least : most;
        return decimals(3,
                        limit + dice.of({-0.1, -0.05, -0.01, -0.001, 0.0, 0.001, 0.01, 0.05, 0.1}));
    }
    case 4:
        return decimals(9, dice.real(least, most));
    case 5:
        return decimals(2, dice.real(0, 1.3 * most)) + "0000000001";
    default:
        return decimals(dice.below(3), dice.real(0, 1.2 * most));
    }
}

inline printing::Paper randomPaper(Dice& dice)
{
    const std::string name = dice.of({"TC24", "TC24", "TC36", "DC62", "AV40", "DC99", "tc24", ""});
    if (dice.oneIn(20))
        return {name, 68, 0};
    if (dice.oneIn(40))
        return {name, 68, dice.real(0, 1e12)};
    if (dice.oneIn(2))
        return {name, 68, std::round(dice.real(10, 3000))};
    return {name, 68, dice.real(1, 1200) * 0.0393701 * 72};
}

// The labels of labelPrinter().  A paper without a height is read no further, so never a label.
inline bool isLabel(const printing::Paper& paper)
{
    return paper.heightPoints != 0 && (paper.ppdName == "DC62" || paper.ppdName == "AV40");
}

inline double millimetresOf(const printing::Paper& paper)
{
    return paper.heightPoints == 0 ? 100.0 : paper.heightPoints / 72.0 / 0.0393701;
}

inline std::string paperText(const Printer& printer, double millimetres)
{
    if (printer.inches)
        return printer.inchText(millimetres);
    return printer.wholeLengths ? whole(std::trunc(millimetres)) : decimals(1, millimetres);
}

} // namespace sweep
