#include "dialog/job/JobPageSize.hpp"

#include "dialog/ppd/PPDFile.hpp"

#include <cups/ppd.h>
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <string>

namespace dialog {
namespace {

constexpr double kPointsPerMillimetre = 72 / 25.4;

// A tape of 62 mm: 62 / 25.4 * 72 points.
const JobTape kTape{"TC62", 175.748, true};

TEST(PageSizeToSend, IsACustomSizeInMillimetresForATapeOfVariableLength)
{
    EXPECT_EQ(pageSizeToSend(kTape, "40.5"), "Custom.62x40.5mm");
    EXPECT_EQ(pageSizeToSend(kTape, "100.0"), "Custom.62x100mm");
    EXPECT_EQ(pageSizeToSend(kTape, "63"), "Custom.62x63mm");
    // Half an inch and a bit: 36.5 points are 12.876 mm.
    EXPECT_EQ(pageSizeToSend({"TC12", 36.5, true}, "12.7"), "Custom.12.88x12.7mm");
}

TEST(PageSizeToSend, IsTheNameOfALabelOfFixedLength)
{
    EXPECT_EQ(pageSizeToSend({"DC24x40", 68.032, true}, "40.0"), "DC24x40");
    EXPECT_EQ(pageSizeToSend({"AV12x60", 34.016, true}, "60.0"), "AV12x60");
    EXPECT_EQ(pageSizeToSend({"dc24", 68.032, true}, "40.0"), "Custom.24x40mm");
}

TEST(PageSizeToSend, IsTheNameWherePrinterOrNumbersAllowNoOtherSize)
{
    EXPECT_EQ(pageSizeToSend({"TC62", 175.748, false}, "40.5"), "TC62");
    EXPECT_EQ(pageSizeToSend({"TC62", 0, true}, "40.5"), "TC62");
    EXPECT_EQ(pageSizeToSend({"TC62", std::nan(""), true}, "40.5"), "TC62");
    for (const char* length : {"", "0", "0.0", "-1", "inf", "nan", "40.5mm", "40,5"}) {
        EXPECT_EQ(pageSizeToSend(kTape, length), "TC62") << length;
    }
}

TEST(PlainNumber, HasTwoDecimalsAtMostAndNoZerosAtTheEnd)
{
    EXPECT_EQ(plainNumber(40), "40");
    EXPECT_EQ(plainNumber(100), "100");
    EXPECT_EQ(plainNumber(40.5), "40.5");
    EXPECT_EQ(plainNumber(12.876), "12.88");
    EXPECT_EQ(plainNumber(24.0002), "24");
    EXPECT_EQ(plainNumber(0), "0");
}

PPDFile sample(const std::string& name)
{
    Failure failure;
    PPDFile ppd = PPDFile::fromPath(SAMPLES_FOLDER "/" + name, failure);
    EXPECT_FALSE(failure) << failure.text;
    return ppd;
}

JobOptions withLength(const std::string& millimetres)
{
    JobOptions options;
    options.set("VnTapeLength", millimetres);
    return options;
}

TEST(PageSizeToSend, KnowsFromThePPDWhetherThePrinterTakesCustomSizes)
{
    const PPDFile variable = sample("sample-tape.ppd");
    EXPECT_EQ(pageSizeToSend(variable, "TC18", withLength("40.5")), "Custom.18x40.5mm");
    EXPECT_EQ(pageSizeToSend(variable, "DC24x40", withLength("40.0")), "DC24x40");
    EXPECT_EQ(pageSizeToSend(variable, "TC99", withLength("40.5")), "TC99");
    EXPECT_EQ(pageSizeToSend(variable, "TC18", JobOptions()), "TC18");
    EXPECT_EQ(pageSizeToSend(sample("sample-tape-none.ppd"), "TC12", withLength("40.5")), "TC12");
    EXPECT_EQ(pageSizeToSend(PPDFile(), "TC12", withLength("40.5")), "TC12");
}

// The width that the name of a sample's tape tells, TC9 to TC24.
double widthInName(const std::string& name)
{
    return std::stod(name.substr(2));
}

std::string tenthsText(int tenths)
{
    return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10);
}

TEST(PageSizeToSend, IsReadBackByThePrintLibraryAsTheSameLength)
{
    int read = 0;
    for (const auto& entry : std::filesystem::directory_iterator(SAMPLES_FOLDER)) {
        if (entry.path().extension() != ".ppd" || entry.path().stem() == "sample-tape-none") {
            continue;
        }
        const PPDFile ppd = sample(entry.path().filename());
        for (const std::string tape : {"TC9", "TC24"}) {
            for (int tenths = 40; tenths <= 10000; tenths += 7) {
                const std::string choice =
                    pageSizeToSend(ppd, tape, withLength(tenthsText(tenths)));
                ASSERT_TRUE(choice.starts_with("Custom.")) << choice;
                ppdMarkOption(ppd.record(), "PageSize", choice.c_str());
                // A dot of 600 dpi is 0.12 points.
                ASSERT_NEAR(ppdPageLength(ppd.record(), nullptr),
                            tenths / 10.0 * kPointsPerMillimetre, 0.01)
                    << entry.path() << choice;
                ASSERT_NEAR(ppdPageWidth(ppd.record(), nullptr),
                            widthInName(tape) * kPointsPerMillimetre, 0.02)
                    << entry.path() << choice;
                ++read;
            }
        }
    }
    EXPECT_GT(read, 10000);
}

} // namespace
} // namespace dialog
