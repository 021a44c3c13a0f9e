#include "pagesettings/Sweep.hpp"

#include <map>

namespace {

using namespace sweep;

struct Line
{
    const char* option;
    const char* selection;
    const char* fallbackTitle;
    std::vector<const char*> keys;
};

const Line kPrintMode = {"VnResolution",
                         "mVnResolution_Selection",
                         "RS_STitle_Quality",
                         {"RS_VnResolS300300", "RS_VnResolQ300300", "RS_VnResolQ300600"}};
const Line kQuality = {"VnPriority",
                       "mQuality_Selection",
                       "RS_STitle_Quality",
                       {"RS_QualitySpeed", "RS_QualityQuality"}};
const Line kResolution = {"Resolution",
                          "mResolution_Selection",
                          "RS_STitle_Resolution",
                          {"RS_Resol180360", "RS_Resol360360", "RS_Resol360720"}};
const Line kZRResolution = {"Resolution",
                            "mResolution_Selection",
                            "RS_STitle_Resolution",
                            {"RS_Resol300300", "RS_Resol300600"}};
const Line kCompress = {
    "VnCompress", "mCompress_Selection", "RS_STitle_Compress", {"RS_CompressOFF", "RS_CompressON"}};

std::string titleOf(const char* text, const char* fallback)
{
    const bool isUTF8 = std::strchr(text, '\xff') == nullptr;
    return *text != '\0' && isUTF8 ? text : localizedText(fallback);
}

// -1 when nothing is marked.
int markedIndex(const FakeDialog& dialog, const char* keyword)
{
    const ppd_option_t* const option = dialog.option(keyword);
    for (int i = 0; option && i < option->num_choices; ++i) {
        if (option->choices[i].choice == dialog.marked(keyword))
            return i;
    }
    return -1;
}

TEST(SummarySweep, AgreesWithASecondComputation)
{
    Dice dice(20'264);
    const std::map<std::string, std::string> widths = {{"TC24", "24 mm tape"},
                                                       {"TC36", "36 mm tape"},
                                                       {"DC62", "62 mm label"},
                                                       {"AV40", "40 mm label"}};
    int cases = 0, withModes = 0, withQuality = 0, unfilled = 0;
    for (int round = 0; round < 350; ++round) {
        const ScopedPool pool;
        Printer printer = randomPrinter(dice);
        Offer offer = printer.offer();
        const auto group = [&](const char* prefix) {
            std::vector<PPDChoiceText> choices;
            const int count = dice.below(6);
            for (int i = 0; i < count; ++i)
                choices.push_back(
                    {prefix + std::to_string(i), prefix + (" title " + std::to_string(i))});
            return choices;
        };
        offer.quality = group("q");
        offer.resolution = group("r");
        offer.compress = group("c");
        if (dice.oneIn(2))
            offer.printMode = group("m");
        const bool isZR = dice.oneIn(2);
        offer.tapeType = isZR ? "ZR" : dice.of({"", "zr", "TZ"});
        offer.tapeLength = !dice.oneIn(4);
        if (dice.oneIn(4))
            offer.margin = "";
        DialogSetup setup = usbDialog(labelPrinter(offer), randomPaper(dice));
        const bool isUSB = !dice.oneIn(3);
        setup.deviceURI = isUSB ? "VNKMUSB://x/y" : "ipp://x/y";
        FakeDialog dialog(setup);

        const char* const options[] = {"VnTapeLength", "VnMargin",   "VnPriority",
                                       "Resolution",   "VnCompress", "VnResolution"};
        for (const char* keyword : options) {
            ppd_option_t* const option = dialog.option(keyword);
            if (!option)
                continue;
            if (dice.oneIn(4))
                std::strcpy(option->text, dice.of({"", "\xff"}));
            for (int i = 0; i < option->num_choices; ++i) {
                if (dice.oneIn(4))
                    std::strcpy(option->choices[i].text, dice.of({"", "\xff"}));
            }
        }
        TestPanel panel(dialog);
        id<PageSettingsUnderTest> const page = (id<PageSettingsUnderTest>)panel.get();
        const bool filled = !dice.oneIn(3);
        if (filled) {
            [page panelView];
            [page willShow];
        }
        SCOPED_TRACE(printer.describe() + (filled ? " filled" : ""));

        for (int i = 0; i < 30; ++i, ++cases) {
            const ScopedPool inner;
            const printing::Paper paper = randomPaper(dice);
            dialog.format.setPaper(paper);
            for (const char* keyword : options) {
                ppd_option_t* const option = dialog.option(keyword);
                if (!option || option->num_choices == 0)
                    continue;
                if (dice.oneIn(5))
                    dialog.unmark(keyword);
                else
                    ppdMarkOption(dialog.ppd(), keyword,
                                  option->choices[dice.below(option->num_choices)].choice);
            }
            for (const Line* line : {&kPrintMode, &kQuality, &kResolution, &kCompress}) {
                if (!dialog.option(line->option))
                    continue;
                if (dice.oneIn(3))
                    ivarOf<id>(page, line->selection) = nil;
                else
                    [page PPDOptionKeyValueDidChange:[NSString stringWithUTF8String:line->option]
                                           ppdChoice:[NSString
                                                         stringWithUTF8String:
                                                             dialog.option(line->option)
                                                                 ->choices[dice.below(
                                                                     dialog.option(line->option)
                                                                         ->num_choices)]
                                                                 .choice]];
            }
            std::string length = paperText(printer, millimetresOf(paper));
            std::string margin;
            if (filled) {
                const double unit = printer.inches ? 0.0393701 : 1;
                length = randomEntry(dice, printer.least() * unit, printer.most() * unit);
                margin = randomEntry(dice, 0, printer.mostMargin() * unit);
                [outlet<NSTextField*>(panel, "mLengthTxFld")
                    setStringValue:[NSString stringWithUTF8String:length.c_str()]];
                [outlet<NSTextField*>(panel, "mMarginTxFld")
                    setStringValue:[NSString stringWithUTF8String:margin.c_str()]];
            } else {
                const float standard = floatOf(printer.margin);
                margin = printer.inches         ? printer.inchText(standard)
                         : printer.wholeMargins ? whole(ceilf(standard))
                                                : decimals(1, tenthsUp(standard));
            }
            if (!isLabel(paper)) {
                const float v = floatOf(length);
                const float least = printer.limit(printer.least());
                const float most = printer.limit(printer.most());
                const float held = least > v ? least : v > most ? most : v;
                length = printer.inches         ? decimals(2, held)
                         : printer.wholeLengths ? whole(ceilf(held))
                                                : decimals(1, tenthsUp(held));
            }
            const std::string unitText = localizedText(printer.inches ? "RS_Inch" : "RS_mm");

            // Titles may come twice; the later value stands.
            Texts order;
            std::map<std::string, std::string> values;
            const auto add = [&](const std::string& title, const std::string& value) {
                order.push_back(title);
                values[title] = value;
            };
            const auto found = widths.find(paper.ppdName);
            add(localizedText("RS_STitle_TapeWidth"),
                found == widths.end() ? localizedText("RS_TapeWidthNot") : found->second);
            const ppd_option_t* const lengthOption = dialog.option("VnTapeLength");
            add(titleOf(lengthOption ? lengthOption->text : "", "RS_STitle_TapeLength"),
                length + unitText);
            if (dialog.option("VnMargin"))
                add(titleOf(dialog.option("VnMargin")->text, "RS_STitle_Margin"),
                    margin + unitText);
            const auto addChoice = [&](const Line& line) {
                const ppd_option_t* const option = dialog.option(line.option);
                const int marked = markedIndex(dialog, line.option);
                std::string value;
                if (marked >= 0 && marked < static_cast<int>(line.keys.size())) {
                    value = titleOf(option->choices[marked].text,
                                    line.keys[static_cast<std::size_t>(marked)]);
                } else {
                    value = textOf([ivarOf<id>(page, line.selection) userTitle]);
                    if (value == "(nil)")
                        value = "";
                }
                add(titleOf(option->text, line.fallbackTitle), value);
            };
            const bool hasMode = ivarOf<id>(page, kPrintMode.selection) != nil;
            if (hasMode)
                addChoice(kPrintMode);
            const bool hasQuality = ivarOf<id>(page, kQuality.selection) != nil &&
                                    markedIndex(dialog, "Resolution") != 1;
            if (hasQuality)
                addChoice(kQuality);
            if (ivarOf<id>(page, kResolution.selection) != nil && !hasMode)
                addChoice(isZR ? kZRResolution : kResolution);
            if (ivarOf<id>(page, kCompress.selection) != nil && isUSB)
                addChoice(kCompress);

            NSDictionary* const summary = [page summaryInfo];
            ASSERT_EQ(textsOf([summary objectForKey:@"Summary Display Order"]), order);
            ASSERT_EQ([summary count], values.size() + 1);
            for (const auto& [title, value] : values)
                ASSERT_EQ(
                    textOf([summary objectForKey:[NSString stringWithUTF8String:title.c_str()]]),
                    value)
                    << title << " of " << paper.ppdName << " " << paper.heightPoints;
            withModes += hasMode;
            withQuality += hasQuality;
            unfilled += !filled;
        }
    }
    EXPECT_GE(cases, 10'000);
    EXPECT_GT(withModes, 1'000);
    EXPECT_GT(withQuality, 1'000);
    EXPECT_GT(unfilled, 1'000);
}

} // namespace
