#include "pagesettings/Sweep.hpp"

#include <limits>

namespace {

using namespace sweep;

struct Entries
{
    std::string length, margin;
    double lengthSlider = 0, marginSlider = 0;
    bool alerts = false;
    bool lengthChecked = false;
};

// The height of a dot in millimetres; `row` is what the resolution group says.
double dotOf(const Printer& printer, int row)
{
    const double least = printer.inches ? 0.01 / 0.0393701 : printer.wholeMargins ? 1.0 : 0.1;
    if (row < 0 || row >= static_cast<int>(printer.resolutions.size()))
        return least;
    std::string keyword = printer.resolutions[static_cast<std::size_t>(row)];
    for (char& c : keyword)
        c = static_cast<char>(std::tolower(c));
    double dot = std::numeric_limits<double>::infinity();
    const std::size_t x = keyword.find('x');
    if (x != std::string::npos && keyword.find("dpi") != std::string::npos)
        dot = 25.4 / static_cast<double>(std::strtoul(keyword.c_str() + x + 1, nullptr, 10));
    if (printer.inches)
        return dot * 0.0393701 < 0.01 ? 0.01 / 0.0393701 : dot;
    return dot > least ? dot : least;
}

Entries expectedAfterCheck(const Printer& printer, const Entries& before, bool typed, int row)
{
    Entries after = before;
    const float length = floatOf(before.length);
    const float margin = floatOf(before.margin);
    const float least = printer.limit(printer.least());
    const float most = printer.limit(printer.most());
    if (typed && length <= most && margin <= printer.limit(printer.mostMargin()))
        return after;
    after.lengthChecked = true;

    if (printer.inches) {
        double value = doubleOf(before.length);
        if (least > length)
            value = doubleOf(printer.inchText(printer.least()));
        else if (length > most)
            value = doubleOf(printer.inchText(printer.most()));
        after.lengthSlider = std::ceil(std::floor(value * 100 * 1e6) / 1e6) / 100;
        after.length = decimals(2, after.lengthSlider);
    } else if (printer.wholeLengths) {
        const double value = least > length  ? least
                             : length > most ? most
                                             : doubleOf(before.length);
        after.lengthSlider = std::ceil(value);
        after.length = whole(after.lengthSlider);
    } else {
        const float value = least > length ? least : length > most ? most : length;
        after.lengthSlider = ceilf(value * 10.0f) / 10.0f;
        after.length = decimals(1, after.lengthSlider);
    }

    const float leastMargin = printer.limit(printer.leastMargin());
    const float mostMargin = printer.limit(printer.mostMargin());
    double m = 0;
    if (printer.inches) {
        double value = doubleOf(before.margin);
        if (leastMargin > margin)
            value = doubleOf(printer.inchText(printer.leastMargin()));
        else if (margin > mostMargin)
            value = doubleOf(printer.inchText(printer.mostMargin()));
        m = std::ceil(std::floor(value * 100 * 1e9) / 1e9) / 100;
        after.margin = decimals(2, m);
    } else {
        const float value = leastMargin > margin  ? leastMargin
                            : margin > mostMargin ? mostMargin
                                                  : margin;
        m = printer.wholeMargins ? ceilf(value) : ceilf(value * 10.0f) / 10.0f;
        after.margin = printer.wholeMargins ? whole(m) : decimals(1, m);
    }
    after.marginSlider = m;
    if (!(static_cast<float>(m) > floatOf(after.length) * 0.5f))
        return after;

    after.alerts = true;
    const double dot = dotOf(printer, row);
    if (printer.inches) {
        after.lengthSlider = m + m + dot * 0.0393701;
        after.length = decimals(2, after.lengthSlider);
        return after;
    }
    const double half = tenthsUp(static_cast<float>(m));
    const double sum = half + half + dot;
    if (printer.wholeMargins) {
        after.lengthSlider = std::ceil(sum);
        after.length = whole(after.lengthSlider);
    } else {
        after.lengthSlider = ceilf(static_cast<float>(sum) * 10.0f) / 10.0f;
        after.length = decimals(1, after.lengthSlider);
    }
    return after;
}

void expectSlider(NSSlider* slider, double value)
{
    // The slider holds itself to its range, which a printer may state the wrong way round.
    if ([slider minValue] >= [slider maxValue])
        return;
    const double held = std::fmin(std::fmax(value, [slider minValue]), [slider maxValue]);
    if (std::isinf(held))
        EXPECT_EQ([slider doubleValue], held);
    else
        EXPECT_NEAR([slider doubleValue], held, 1e-6 * std::fabs(held) + 1e-6);
}

TEST(ValidationSweep, AgreesWithASecondComputation)
{
    Dice dice(20'261);
    int cases = 0, alerts = 0, typedThrough = 0, labels = 0;
    for (int round = 0; round < 400; ++round) {
        const ScopedPool pool;
        const Printer printer = randomPrinter(dice);
        ShownPanel shown(usbDialog(labelPrinter(printer.offer())));
        for (int i = 0; i < 40; ++i, ++cases) {
            const ScopedPool inner;
            const double unit = printer.inches ? 0.0393701 : 1;
            Entries before;
            before.length = randomEntry(dice, printer.least() * unit, printer.most() * unit);
            before.margin =
                randomEntry(dice, printer.leastMargin() * unit, printer.mostMargin() * unit);
            shown.setLength(before.length);
            shown.setMargin(before.margin);
            const bool typed = dice.oneIn(3);
            const bool quiet = dice.oneIn(4);
            const bool label = dice.oneIn(12);
            const int rows = static_cast<int>(printer.resolutions.size());
            int row = rows > 0 ? dice.below(rows) : 0;
            if (rows > 0) {
                [shown.matrix("mResolutionRdBtn") setEnabled:!dice.oneIn(6)];
                [shown.matrix("mResolutionRdBtn") selectCellAtRow:row column:0];
                if (![shown.matrix("mResolutionRdBtn") isEnabled])
                    row = 0;
            }
            [shown.get() setTapeState:label ? 1 : 0];
            shown.ivar<std::uint8_t>("column_dec") = typed ? 1 : 0;
            const std::string context = printer.describe() + " entries '" + before.length + "' '" +
                                        before.margin + "'" + (typed ? " typed" : "") +
                                        (label ? " label" : "") + " row " + std::to_string(row);
            ASSERT_EQ(shown.length(), before.length);
            ASSERT_EQ(shown.margin(), before.margin);

            const Entries after = label ? before : expectedAfterCheck(printer, before, typed, row);
            EXPECT_TRUE([shown.get() checkValues:quiet]);
            ASSERT_EQ(shown.length(), after.length) << context;
            ASSERT_EQ(shown.margin(), after.margin) << context;
            ASSERT_EQ(takeAlerts().size(), after.alerts && !quiet ? 1u : 0u) << context;
            ASSERT_EQ(shown.ivar<std::uint8_t>("column_dec"), label && typed ? 1 : 0) << context;
            if (after.lengthChecked) {
                expectSlider(shown.slider("mLengthSlider"), after.lengthSlider);
                expectSlider(shown.slider("mMarginSlider"), after.marginSlider);
            }
            ASSERT_FALSE(testing::Test::HasFailure()) << context;
            alerts += after.alerts;
            labels += label;
            typedThrough += typed && !label && !after.lengthChecked;
        }
    }
    // The sweep must have been everywhere.
    EXPECT_GE(cases, 10'000);
    EXPECT_GT(alerts, 1'000);
    EXPECT_GT(labels, 500);
    EXPECT_GT(typedThrough, 500);
}

} // namespace
