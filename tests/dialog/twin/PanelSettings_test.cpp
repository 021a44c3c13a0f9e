#include "dialog/twin/PanelSettings.hpp"

#include "dialog/twin/Remarks.hpp"

#include <gtest/gtest.h>

namespace dialog {
namespace {

PPDFile sample(const std::string& name)
{
    Failure failure;
    PPDFile ppd = PPDFile::fromPath(SAMPLES_FOLDER "/sample-tape" + name + ".ppd", failure);
    EXPECT_FALSE(failure) << failure.text;
    return ppd;
}

struct Asked
{
    std::string length;
    std::string margin;
    WantedOptions wanted = {};
};

PanelSettings settings(const std::string& printer, const std::string& paper, const Asked& asked)
{
    PPDFile ppd = sample(printer);
    ppd.mark("PageSize", paper);
    const auto word = [](const std::string& text) {
        return text.empty() ? std::nullopt : parseLength(text);
    };
    return panelSettings(ppd, paper, {word(asked.length), word(asked.margin), asked.wanted});
}

std::string lines(const PanelSettings& settings)
{
    return optionLines(settings.options.all());
}

std::vector<std::string> remarks(const PanelSettings& settings)
{
    std::vector<std::string> sentences;
    for (const Adjustment& adjustment : settings.adjustments) {
        sentences.push_back(sentenceFor(adjustment));
    }
    return sentences;
}

using Sentences = std::vector<std::string>;

TEST(PanelSettings, AreTheDefaultsWhenNothingIsAskedFor)
{
    const PanelSettings found = settings("", "TC24", {});
    EXPECT_EQ(lines(found), "VnTapeLength=100.0\nVnMargin=3.0\nVnPriority=Quality\n"
                            "Resolution=300x300dpi\nVnCompress=On\nVnResolution=S300x300\n");
    EXPECT_EQ(found.length, "100.0 mm");
    EXPECT_EQ(found.margin, "3.0 mm");
    EXPECT_EQ(remarks(found), Sentences{});
}

TEST(PanelSettings, TakeLengthMarginAndChoices)
{
    const PanelSettings found = settings(
        "-resolution", "TC24",
        {"40.5", "2.5", {{"Resolution", "300x600dpi"}, {"VnCompress", "Off"}, {"fit", "yes"}}});
    // The second resolution has the first quality only; unknown options go along.
    EXPECT_EQ(lines(found), "VnTapeLength=40.5\nVnMargin=2.5\nVnPriority=Speed\n"
                            "Resolution=300x600dpi\nVnCompress=Off\nfit=yes\n");
    EXPECT_EQ(remarks(found), Sentences{});
}

TEST(PanelSettings, SayWhichLimitALengthOrMarginMet)
{
    EXPECT_EQ(remarks(settings("-resolution", "TC24", {"5000", "60"})),
              (Sentences{
                  "The length was changed from 5000 mm to 1000.0 mm, the longest this printer "
                  "takes.",
                  "The margin was changed from 60 mm to 50.0 mm, the widest this printer takes."}));
    EXPECT_EQ(remarks(settings("-resolution", "TC24", {"9.9", "0.5"})),
              (Sentences{
                  "The length was changed from 9.9 mm to 10.0 mm, the shortest this printer takes.",
                  "The margin was changed from 0.5 mm to 1.0 mm, the narrowest this printer "
                  "takes."}));
}

TEST(PanelSettings, SayRoundingAndConversion)
{
    EXPECT_EQ(remarks(settings("-resolution", "TC24", {"40.55", "2.51"})),
              (Sentences{"The length was changed from 40.55 mm to 40.6 mm, the next one that can "
                         "be set.",
                         "The margin was changed from 2.51 mm to 2.6 mm, the next one that can be "
                         "set."}));
    // 2 inches are 50.79997 mm by the panel's factor: up to 50.8.
    const PanelSettings converted = settings("-resolution", "TC24", {"2in", ""});
    EXPECT_EQ(converted.length, "50.8 mm");
    EXPECT_EQ(remarks(converted), Sentences{});
    // 40 mm are 1.574804 inches: up to 1.58, which are 40.1 mm in tenths.
    const PanelSettings inches = settings("-inches", "TC24", {"40mm", ""});
    EXPECT_EQ(remarks(inches), (Sentences{"The length was changed from 40 mm to 1.58 in, the next "
                                          "one that can be set."}));
    EXPECT_EQ(*inches.options.find("VnTapeLength"), "40.1");
}

TEST(PanelSettings, MakeALabelLongerThanItsMarginsByADot)
{
    // 2 * 20 mm and a dot of 25.4 / 300 mm, which counts as the least step of 0.1 mm.
    const PanelSettings found = settings("-resolution", "TC24", {"30", "20"});
    EXPECT_EQ(*found.options.find("VnTapeLength"), "40.1");
    EXPECT_EQ(remarks(found), (Sentences{"The length was changed from 30 mm to 40.1 mm, to be "
                                         "longer than its two margins."}));
    EXPECT_EQ(remarks(settings("-resolution", "TC24", {"40", "20"})), Sentences{});
}

TEST(PanelSettings, LeaveALabelItsOwnLengthAndMargin)
{
    const PanelSettings found = settings("-zr", "DC24x40", {"77", "9"});
    EXPECT_EQ(*found.options.find("VnTapeLength"), "40.0");
    EXPECT_EQ(*found.options.find("VnMargin"), "3.0");
    EXPECT_EQ(
        remarks(found),
        (Sentences{"The length was changed from 77 mm to 40.0 mm: this label has a length of its "
                   "own.",
                   "The margin was changed from 9 mm to 3.0 mm: this label has a margin of its "
                   "own."}));
    // A length among the options is no way around it.
    EXPECT_EQ(*settings("-zr", "DC24x40", {"", "", {{"VnTapeLength", "77"}}})
                   .options.find("VnTapeLength"),
              "40.0");
}

TEST(PanelSettings, SayThatAPrinterHasNoMargin)
{
    const PanelSettings found = settings("-none", "TC12", {"", "3"});
    EXPECT_EQ(found.options.find("VnMargin"), nullptr);
    EXPECT_EQ(remarks(found).back(),
              "The margin of 3 mm was left out: this printer has no margin to set.");
}

TEST(PanelSettings, TakeLengthsAmongTheOptionsAsThePaperAndTheDefault)
{
    const PanelSettings found =
        settings("-whole", "TC24", {"", "", {{"VnTapeLength", "63"}, {"VnMargin", "4.2"}}});
    EXPECT_EQ(*found.options.find("VnTapeLength"), "63");
    EXPECT_EQ(*found.options.find("VnMargin"), "5"); // whole numbers, up
}

TEST(WantedWithEntries, GiveTheWindowWhatTheTwinWouldPrint)
{
    for (const std::string printer : {"-resolution", "-inches", "-whole", "-none"}) {
        for (const std::string length : {"10", "14.2", "14.25", "2in", "63", "99.99", "5000"}) {
            for (const std::string margin : {"1", "2.5", "0.33in", "5.01", "70"}) {
                const PPDFile ppd = sample(printer);
                const PanelEntries entries{parseLength(length), parseLength(margin), {}};
                const WantedOptions wanted = wantedWithEntries(ppd.record(), entries);
                const std::string typed = lines(settings(printer, "TC24", {length, margin}));
                EXPECT_EQ(lines(settings(printer, "TC24", {"", "", wanted})), typed)
                    << printer << " " << length << " " << margin;
            }
        }
    }
}

} // namespace
} // namespace dialog
