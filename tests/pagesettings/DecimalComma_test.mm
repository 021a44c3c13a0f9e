#include "pagesettings/PageSettingsTest.hpp"

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace {

// A host that called setlocale(LC_ALL, "") where numbers have a decimal comma.
class InAHostWithADecimalComma : public testing::Test
{
  protected:
    void SetUp() override
    {
        char folder[] = "/tmp/decimal-comma.XXXXXX";
        ASSERT_NE(mkdtemp(folder), nullptr);
        folder_ = folder;
        const std::string command =
            "localedef -i de_DE -f UTF-8 " + folder_ + "/de_DE.UTF-8 >/dev/null 2>&1";
        ASSERT_EQ(std::system(command.c_str()), 0) << "localedef (package locales) made no locale";
        setenv("LOCPATH", folder_.c_str(), 1);
        ASSERT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr);
        char text[8];
        std::snprintf(text, sizeof text, "%.1f", 1.5);
        ASSERT_STREQ(text, "1,5") << "the locale is not in force";
    }

    void TearDown() override
    {
        std::setlocale(LC_ALL, "C");
        unsetenv("LOCPATH");
        if (!folder_.empty())
            std::filesystem::remove_all(folder_);
    }

  private:
    std::string folder_;
};

TEST_F(InAHostWithADecimalComma, LimitsAndTextsKeepTheirPoint)
{
    ShownPanel shown(usbDialog(
        labelPrinter({.minLength = "4.5", .minMargin = "2.2", .margin = "5.01"}), paperOf(30.94)));
    EXPECT_EQ([shown.get() minTapeLen], 4.5f);
    EXPECT_EQ(shown.length(), "30.9");
    EXPECT_EQ(shown.margin(), "5.1");
    EXPECT_EQ(shown.text("mLengthMinStr"), "4.5");
    EXPECT_EQ(shown.text("mLengthMaxStr"), "1000.0");
    EXPECT_EQ(shown.text("mMarginMinStr"), "2.2");
}

TEST_F(InAHostWithADecimalComma, InchesKeepTheirPoint)
{
    ShownPanel shown(usbDialog(labelPrinter({.unit = "inch"})));
    EXPECT_EQ(shown.length(), "3.94");
    EXPECT_EQ(shown.margin(), "0.20");
    EXPECT_EQ(shown.text("mLengthMaxStr"), "39.37");
    shown.setLength("1.234");
    [shown.get() checkValues:NO];
    EXPECT_EQ(shown.length(), "1.24");
    [shown.get() saveSetting_Length];
    EXPECT_EQ(shown.takeChanges(), (Texts{"VnTapeLength=31.5"})); // 31.49598
    [shown.slider("mLengthSlider") setFloatValue:2.345f];
    [shown.get() changeLength:nil];
    EXPECT_EQ(shown.length(), "2.35"); // a little above 2.345 in single precision
}

TEST_F(InAHostWithADecimalComma, ChecksSavesAndSummaryKeepTheirPoint)
{
    ShownPanel shown(usbDialog(labelPrinter(), paperOf(30)));
    shown.setMargin("20.01");
    [shown.get() checkValues:NO];
    EXPECT_EQ(shown.margin(), "20.1");
    EXPECT_EQ(shown.length(), "40.3");
    EXPECT_EQ(takeAlerts().size(), 1u);
    [shown.get() saveSetting_Length];
    [shown.get() saveSetting_Margin];
    EXPECT_EQ(shown.takeChanges(), (Texts{"VnTapeLength=40.3", "VnMargin=20.1"}));
    EXPECT_EQ(textOf([[shown.get() summaryInfo] objectForKey:@"Label length"]),
              "40.3" + localizedText("RS_mm"));
    [shown.slider("mMarginSlider") setFloatValue:4.01f];
    [shown.get() changeMargin:nil];
    EXPECT_EQ(shown.margin(), "4.1");
}

TEST_F(InAHostWithADecimalComma, ATypedCommaEndsTheNumber)
{
    ShownPanel shown(usbDialog(labelPrinter()));
    shown.setLength("30,9");
    [shown.get() checkValues:NO];
    EXPECT_EQ(shown.length(), "30.0");
}

} // namespace
