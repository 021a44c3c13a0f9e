// The panel of the bundle and its twin, asked for the same: the jobs must be the same.

#include "dialog/twin/PanelSettings.hpp"

#include "pagesettings/Sweep.hpp"

#include <map>

namespace {

using namespace sweep;

struct Asked
{
    std::string paper;
    std::string length; // empty: not typed
    std::string margin;
    dialog::WantedOptions wanted; // listed choices
};

void typeInto(const TestPanel& panel, const char* name, const std::string& text)
{
    NSTextField* const field = outlet<NSTextField*>(panel, name);
    if (text.empty() || ![field isEnabled]) {
        return;
    }
    [field setStringValue:[NSString stringWithUTF8String:text.c_str()]];
    setCurrentEvent(NSKeyDown);
    [panel.get() controlTextDidEndEditing:[NSNotification notificationWithName:@"Test"
                                                                        object:field]];
    setCurrentEvent(0);
}

// What a user's hands make of it at the panel: the choices are restored, the margin is typed, then
// the length, then Print is pressed.
std::vector<dialog::JobOption> byHand(const PPDText& text, const printing::Paper& paper,
                                      const Asked& asked)
{
    FakeDialog dialog(usbDialog(text, paper));
    TestPanel panel(dialog);
    setCurrentEvent(0);
    [panel.get() panelView];
    [panel.get() supportedPPDOptionKeys];
    [panel.get() willShow];
    for (const auto& [keyword, choice] : asked.wanted) {
        ppdMarkOption(dialog.ppd(), keyword.c_str(), choice.c_str());
    }
    NSError* error = nil;
    [panel.get() restoreValuesAndReturnError:&error];
    typeInto(panel, "mMarginTxFld", asked.margin);
    typeInto(panel, "mLengthTxFld", asked.length);
    [panel.get() saveValuesAndReturnError:&error];
    [panel.get() shouldPrint];
    takeAlerts();

    dialog::JobOptions options;
    for (const std::string& change : dialog.changes()) {
        const std::size_t equals = change.find('=');
        options.set(change.substr(0, equals), change.substr(equals + 1));
    }
    return options.all();
}

std::vector<dialog::JobOption> byTwin(const PPDText& text, const Asked& asked)
{
    dialog::Failure failure;
    dialog::PPDFile ppd = dialog::PPDFile::fromBytes("twin", text.text(), failure);
    EXPECT_FALSE(failure) << failure.text;
    ppd.mark("PageSize", asked.paper);
    const auto word = [](const std::string& typed) {
        const auto parsed = dialog::parseLength(typed);
        EXPECT_EQ(parsed.has_value(), !typed.empty()) << typed;
        return parsed;
    };
    return dialog::panelSettings(ppd, asked.paper,
                                 {word(asked.length), word(asked.margin), asked.wanted})
        .options.all();
}

std::string described(const std::vector<dialog::JobOption>& options)
{
    return dialog::optionLines(options);
}

// Digits with at most one dot, as a field takes them.
std::string typed(Dice& dice, double least, double most)
{
    switch (dice.below(8)) {
    case 0:
        return dice.of({"0", "0.0", "00012", ".5", "7.", "99999999", "0.04", "12.3456789"});
    case 1:
        return decimals(3, std::min(std::abs(dice.oneIn(2) ? least : most), 1e6));
    case 2:
        return decimals(2, std::abs(std::min(dice.oneIn(2) ? least : most, 1e6) +
                                    dice.of({-0.1, -0.05, -0.01, 0.01, 0.05, 0.1})));
    default:
        return decimals(dice.below(4), dice.real(0, 1.2 * std::min(std::abs(most), 1e6) + 1));
    }
}

std::vector<PPDChoiceText> some(Dice& dice, std::vector<PPDChoiceText> choices)
{
    choices.resize(static_cast<std::size_t>(dice.below(static_cast<int>(choices.size()) + 1)));
    return choices;
}

std::string anyOf(Dice& dice, const std::vector<PPDChoiceText>& choices)
{
    return choices.empty()
               ? std::string()
               : choices[static_cast<std::size_t>(dice.below(static_cast<int>(choices.size())))]
                     .keyword;
}

TEST(PanelTwin, MakesTheJobThatTheHandMakesAtThePanel)
{
    Dice dice(62'405);
    int cases = 0, labels = 0, withoutMargin = 0, lengthened = 0;
    for (int round = 0; round < 120; ++round) {
        const ScopedPool pool;
        const Printer printer = randomPrinter(dice);
        Offer offer = printer.offer();
        offer.quality = some(dice, {{"Speed", "Fast"}, {"Fine", "Fine"}, {"Best", "Best"}});
        offer.qualityDefault = anyOf(dice, offer.quality);
        offer.resolutionDefault = anyOf(dice, offer.resolution);
        offer.compress = some(dice, {{"Off", "Never"}, {"On", "Always"}});
        offer.compressDefault = anyOf(dice, offer.compress);
        offer.printMode = some(dice, printModes());
        offer.printModeDefault = anyOf(dice, offer.printMode);
        if (dice.oneIn(6)) {
            offer.margin.clear();
        }
        const PPDText text = labelPrinter(offer);
        SCOPED_TRACE(printer.describe());
        for (int i = 0; i < 4; ++i, ++cases) {
            const ScopedPool inner;
            const double unit = printer.inches ? 0.0393701 : 1;
            Asked asked;
            asked.paper = dice.of({"TC24", "TC24", "TC36", "DC62", "AV40"});
            if (!dice.oneIn(4)) {
                asked.length = typed(dice, printer.least() * unit, printer.most() * unit);
            }
            if (!dice.oneIn(3)) {
                asked.margin =
                    typed(dice, printer.leastMargin() * unit, printer.mostMargin() * unit);
            }
            for (const auto& [keyword, choices] : std::map<std::string, std::vector<PPDChoiceText>>{
                     {"VnPriority", offer.quality},
                     {"Resolution", offer.resolution},
                     {"VnCompress", offer.compress},
                     {"VnResolution", offer.printMode}}) {
                if (!choices.empty() && dice.oneIn(2)) {
                    asked.wanted.emplace_back(keyword, anyOf(dice, choices));
                }
            }
            const bool label = asked.paper == "DC62" || asked.paper == "AV40";
            const std::map<std::string, std::pair<double, double>> sizes = {{"TC24", {68, 283}},
                                                                            {"TC36", {102, 283}},
                                                                            {"DC62", {176, 57}},
                                                                            {"AV40", {113, 57}}};
            const auto [width, height] = sizes.at(asked.paper);
            const auto hand = byHand(text, {asked.paper, width, height}, asked);
            ASSERT_EQ(described(byTwin(text, asked)), described(hand))
                << asked.paper << " length '" << asked.length << "' margin '" << asked.margin
                << "'";
            labels += label;
            withoutMargin += offer.margin.empty();
            lengthened += !label && !asked.margin.empty() && !asked.length.empty() &&
                          floatOf(asked.margin) > floatOf(asked.length) / 2;
        }
    }
    EXPECT_EQ(cases, 480);
    EXPECT_GT(labels, 100);
    EXPECT_GT(withoutMargin, 40);
    EXPECT_GT(lengthened, 25);
}

} // namespace
