#include "pagesettings/Sweep.hpp"

namespace {

using namespace sweep;

std::string savedLength(const Printer& printer, double length, bool label)
{
    if (!label) {
        const double least = printer.least(), most = printer.most();
        length = least > length ? least : length > most ? most : length;
    }
    return printer.wholeLengths ? whole(std::trunc(length)) : decimals(1, length);
}

std::string savedMargin(const Printer& printer, double margin, bool label)
{
    const float least = printer.leastMargin();
    // In whole hundred-thousandths of a millimetre, where a tenth is exact; entries that large are
    // beyond every tenth.
    const bool huge = !(std::abs(margin) < 1e9 && std::abs(least) < 1e9);
    if (huge ? least > static_cast<float>(margin)
             : std::llround(margin * 1e5) < std::llround(least * 1e5) + 10000)
        margin = least;
    if (!label)
        margin = least > margin                  ? least
                 : margin > printer.mostMargin() ? printer.mostMargin()
                                                 : margin;
    const float single = static_cast<float>(margin);
    return printer.wholeMargins ? whole(ceilf(single)) : decimals(1, tenthsUp(single));
}

double millimetres(const Printer& printer, double shown)
{
    return printer.inches ? shown / 0.0393701 : shown;
}

std::string marginText(const Printer& printer, float millimetres)
{
    if (printer.inches)
        return printer.inchText(millimetres);
    return printer.wholeMargins ? whole(ceilf(millimetres)) : decimals(1, tenthsUp(millimetres));
}

TEST(SavingSweep, AgreesWithASecondComputation)
{
    Dice dice(20'262);
    int cases = 0, replaced = 0, kept = 0, labels = 0, unseen = 0;
    for (int round = 0; round < 300; ++round) {
        const ScopedPool pool;
        const Printer printer = randomPrinter(dice);
        SCOPED_TRACE(printer.describe());
        Offer offer = printer.offer();
        offer.printMode = printModes();
        FakeDialog dialog(usbDialog(labelPrinter(offer), randomPaper(dice)));
        TestPanel panel(dialog);
        id<PageSettingsUnderTest> const page = (id<PageSettingsUnderTest>)panel.get();

        // Before there is a view: the paper and the default as they would be shown.
        for (int i = 0; i < 5; ++i, ++cases, ++unseen) {
            const printing::Paper paper = randomPaper(dice);
            dialog.format.setPaper(paper);
            dialog.calls.clear();
            [page saveSetting_Length];
            [page saveSetting_Margin];
            const double length = doubleOf(paperText(printer, millimetresOf(paper)));
            const double margin =
                doubleOf(marginText(printer, static_cast<float>(doubleOf(printer.margin))));
            ASSERT_EQ(dialog.changes(),
                      (Texts{"VnTapeLength=" +
                                 savedLength(printer, millimetres(printer, length), isLabel(paper)),
                             "VnMargin=" + savedMargin(printer, millimetres(printer, margin),
                                                       isLabel(paper))}))
                << paper.ppdName << " " << paper.heightPoints;
        }

        [page panelView];
        [page willShow];
        NSTextField* const lengthField = outlet<NSTextField*>(panel, "mLengthTxFld");
        NSTextField* const marginField = outlet<NSTextField*>(panel, "mMarginTxFld");
        float lastShown = ivarOf<float>(page, "choice_PaperSize");
        std::string lastText = textOf([lengthField stringValue]);
        ASSERT_EQ(lastShown, floatOf(paperText(printer, millimetresOf(*dialog.format.paper()))));
        for (int i = 0; i < 40; ++i, ++cases) {
            const ScopedPool inner;
            const double unit = printer.inches ? 0.0393701 : 1;
            if (dice.oneIn(2)) {
                const std::string entry =
                    randomEntry(dice, printer.least() * unit, printer.most() * unit);
                [lengthField setStringValue:[NSString stringWithUTF8String:entry.c_str()]];
            }
            if (dice.oneIn(3)) // what the last paper would have left there
                [lengthField setStringValue:[NSString stringWithUTF8String:lastText.c_str()]];
            if (dice.oneIn(2)) {
                const std::string entry =
                    randomEntry(dice, printer.leastMargin() * unit, printer.mostMargin() * unit);
                [marginField setStringValue:[NSString stringWithUTF8String:entry.c_str()]];
            }
            printing::Paper paper = *dialog.format.paper();
            if (dice.oneIn(2)) {
                paper = randomPaper(dice);
                dialog.format.setPaper(paper);
            }
            const bool label = isLabel(paper);
            const std::string before = textOf([lengthField stringValue]);
            const std::string marginEntry = textOf([marginField stringValue]);
            const std::string context = paper.ppdName + " " + std::to_string(paper.heightPoints) +
                                        " length '" + before + "' margin '" + marginEntry +
                                        "' last " + std::to_string(lastShown);

            std::string expectedField = before;
            const std::string shown = paperText(printer, millimetresOf(paper));
            if (lastShown != floatOf(shown) && floatOf(before) == lastShown) {
                expectedField = shown;
                ++replaced;
            } else {
                ++kept;
            }
            lastShown = floatOf(shown);
            lastText = shown;
            const double length = millimetres(printer, doubleOf(expectedField));
            const double margin = millimetres(printer, doubleOf(marginEntry));

            dialog.calls.clear();
            [page saveSetting_Length];
            [page saveSetting_Margin];
            ASSERT_EQ(dialog.changes(),
                      (Texts{"VnTapeLength=" + savedLength(printer, length, label),
                             "VnMargin=" + savedMargin(printer, margin, label)}))
                << context;
            ASSERT_EQ(textOf([lengthField stringValue]), expectedField) << context;
            ASSERT_EQ(textOf([marginField stringValue]), marginEntry) << context;
            ASSERT_EQ(ivarOf<float>(page, "choice_PaperSize"), lastShown) << context;
            ASSERT_EQ([page getTapeState], label ? 1 : 0) << context;
            ASSERT_EQ([lengthField isEnabled], !label) << context;
            ASSERT_EQ([marginField isEnabled], !label) << context;
            labels += label;
        }
    }
    EXPECT_GE(cases, 10'000);
    EXPECT_GT(replaced, 500);
    EXPECT_GT(kept, 500);
    EXPECT_GT(labels, 500);
    EXPECT_GT(unseen, 1'000);
}

TEST(SavingSweep, WritesTheChoicesThatTheControlsShow)
{
    Dice dice(20'263);
    int cases = 0;
    for (int round = 0; round < 150; ++round) {
        const ScopedPool pool;
        const auto group = [&](const char* prefix) {
            std::vector<PPDChoiceText> choices;
            const int count = dice.below(6);
            for (int i = 0; i < count; ++i)
                choices.push_back({prefix + std::to_string(i), "T"});
            return choices;
        };
        Offer offer;
        offer.quality = group("q");
        offer.resolution = group("r");
        offer.compress = group("c");
        offer.printMode = group("m");
        ShownPanel shown(usbDialog(labelPrinter(offer)));
        for (int i = 0; i < 70; ++i, ++cases) {
            const auto pick = [&](const char* control, const auto& choices) {
                const int row = choices.empty() ? 0 : dice.below(static_cast<int>(choices.size()));
                if (!choices.empty())
                    [shown.matrix(control) selectCellAtRow:row column:0];
                return row;
            };
            const int quality = pick("mPrintQualityRdBtn", offer.quality);
            const int resolution = pick("mResolutionRdBtn", offer.resolution);
            const int compress = pick("mCompressRdBtn", offer.compress);
            int mode = 0;
            if (!offer.printMode.empty()) {
                mode = dice.below(static_cast<int>(offer.printMode.size()));
                [shown.popUp() selectItemAtIndex:mode];
            }
            Texts expected;
            if (!offer.quality.empty())
                expected.push_back("VnPriority=q" + std::to_string(resolution == 0 ? quality : 0));
            if (!offer.resolution.empty())
                expected.push_back("Resolution=r" + std::to_string(resolution));
            if (!offer.compress.empty())
                expected.push_back("VnCompress=c" + std::to_string(compress));
            if (!offer.printMode.empty())
                expected.push_back("VnResolution=m" + std::to_string(mode));
            shown.dialog.calls.clear();
            [shown.get() saveSetting_Quality];
            [shown.get() saveSetting_Resolution];
            [shown.get() saveSetting_Compress];
            [shown.get() saveSetting_VnResolution];
            ASSERT_EQ(shown.takeChanges(), expected);
        }
    }
    EXPECT_GE(cases, 10'000);
}

} // namespace
