#include "bench/LabelPrinter.hpp"

#include <charconv>

namespace bench {

namespace {

constexpr double kTapeWidthPoints = 68;

std::vector<PPDChoiceText> choicesOf(const std::string& option, const std::string& title, int count)
{
    std::vector<PPDChoiceText> choices;
    for (int i = 0; i < count; ++i)
        choices.push_back({choiceKeyword(option, i), title + " " + std::to_string(i)});
    return choices;
}

std::string points(double value)
{
    char text[32];
    const auto written =
        std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, 2);
    return std::string(text, written.ptr);
}

// Each size in four places, as a printer's PPD has it.
void addSizes(PPDText& ppd, int sizes)
{
    const auto sizeOf = [](int index) {
        return points(kTapeWidthPoints) + " " + points(sizeHeightPoints(index));
    };
    for (const std::string option : {"PageSize", "PageRegion"}) {
        ppd.line("*OpenUI *" + option + "/Tape: PickOne")
            .line("*OrderDependency: 10 AnySetup *" + option)
            .line("*Default" + option + ": " + sizeKeyword(0));
        for (int i = 0; i < sizes; ++i)
            ppd.line("*" + option + " " + sizeKeyword(i) + "/Tape " + std::to_string(i) +
                     ": \"<</PageSize[" + sizeOf(i) + "]>>setpagedevice\"");
        ppd.line("*CloseUI: *" + option);
    }
    ppd.line("*DefaultImageableArea: " + sizeKeyword(0));
    for (int i = 0; i < sizes; ++i)
        ppd.line("*ImageableArea " + sizeKeyword(i) + ": \"0 0 " + sizeOf(i) + "\"");
    ppd.line("*DefaultPaperDimension: " + sizeKeyword(0));
    for (int i = 0; i < sizes; ++i)
        ppd.line("*PaperDimension " + sizeKeyword(i) + ": \"" + sizeOf(i) + "\"");
}

} // namespace

std::string sizeKeyword(int index)
{
    return "TC" + std::to_string(index);
}

std::string choiceKeyword(const std::string& option, int index)
{
    // A resolution's keyword tells the dots of both directions.
    return option == "Resolution" ? "300x" + std::to_string(300 + index) + "dpi"
                                  : "C" + std::to_string(index);
}

double sizeHeightPoints(int index)
{
    constexpr double kPointsPerMillimetre = 72 / 25.4;
    return (24 + index * 0.1) * kPointsPerMillimetre;
}

PPDText labelPrinter(int sizes, int choices)
{
    PPDText ppd;
    addSizes(ppd, sizes);
    ppd.attribute("VnUnitType", "mm")
        .attribute("VnIsIntegerTapeLength", "False")
        .attribute("VnIsIntegerMargin", "False")
        .attribute("VnMinTapeLength", "20.0")
        .attribute("VnMaxTapeLength", "1000.0")
        .attribute("VnMinMargin", "3.0")
        .attribute("VnMaxMargin", "50.0")
        .attribute("VnTapeType", "ZR")
        .option("VnTapeLength", "Tape length", {{"100.0", "100.0"}}, "100.0")
        .option("VnMargin", "Margin", {{"5.0", "5.0"}}, "5.0");
    for (const auto& [option, title] : {std::pair{"VnPriority", "Quality"},
                                        {"Resolution", "Resolution"},
                                        {"VnCompress", "Compression"},
                                        {"VnResolution", "Print mode"}})
        ppd.option(option, title, choicesOf(option, title, choices),
                   choiceKeyword(option, choices - 1));
    return ppd;
}

} // namespace bench
