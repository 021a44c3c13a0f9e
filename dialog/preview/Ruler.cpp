#include "dialog/preview/Ruler.hpp"

#include "tape/Units.hpp"

#include <array>
#include <charconv>
#include <cmath>
#include <span>

namespace dialog {

namespace {

constexpr double kBetweenNumbers = 30;
constexpr double kBetweenTicks = 3;

struct Step
{
    double major; // in the ruler's unit
    int parts;    // minor ticks to a major one
};

constexpr std::array kMillimetreSteps{Step{5, 5},   Step{10, 10},  Step{10, 2},  Step{20, 4},
                                      Step{50, 5},  Step{100, 10}, Step{100, 5}, Step{200, 4},
                                      Step{500, 5}, Step{1000, 10}};
constexpr std::array kInchSteps{Step{0.5, 4}, Step{1, 8},  Step{1, 4},  Step{2, 4},  Step{5, 5},
                                Step{10, 10}, Step{10, 5}, Step{20, 4}, Step{50, 5}, Step{100, 10}};

Step stepFor(std::span<const Step> steps, double pointsPerUnit) noexcept
{
    for (const Step& step : steps) {
        const double points = step.major * pointsPerUnit;
        if (points >= kBetweenNumbers && points / step.parts >= kBetweenTicks) {
            return step;
        }
    }
    Step last = steps.back();
    last.major *= std::ceil(kBetweenNumbers / (last.major * pointsPerUnit));
    return last;
}

std::string numberText(double number)
{
    std::array<char, 32> text{};
    const auto written = std::to_chars(text.data(), text.data() + text.size(), number);
    return {text.data(), written.ptr};
}

} // namespace

std::vector<Tick> rulerTicks(double length, double scale, pagesettings::Unit unit)
{
    const bool inches = unit == pagesettings::Unit::Inches;
    const double pointsPerUnit = inches ? scale * tape::millimetresFromInches(1) : scale;
    const double units = inches ? tape::inchesFromMillimetres(length) : length;
    const Step step =
        inches ? stepFor(kInchSteps, pointsPerUnit) : stepFor(kMillimetreSteps, pointsPerUnit);
    std::vector<Tick> ticks;
    // A label that ends on a tick shows it, whatever the conversion has lost.
    const double end = units + 1e-6;
    for (int i = 0;; ++i) {
        const double at = step.major * i / step.parts;
        if (at > end) {
            return ticks;
        }
        const bool major = i % step.parts == 0;
        ticks.push_back({at * pointsPerUnit, major ? TickKind::Major : TickKind::Minor,
                         major ? numberText(at) : std::string()});
    }
}

} // namespace dialog
