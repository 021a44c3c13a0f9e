#include "dialog/BuiltIn.hpp"
#include "dialog/ppd/PPDFile.hpp"

#include <gtest/gtest.h>

#include <filesystem>

namespace dialog {
namespace {

std::string sample(std::string_view name)
{
    return std::string(SAMPLES_FOLDER) + "/sample-tape" + std::string(name) + ".ppd";
}

TEST(PPDFile, OfEverySampleOpensWithItsDefaultsMarked)
{
    std::size_t count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(SAMPLES_FOLDER)) {
        if (entry.path().extension() != ".ppd") {
            continue;
        }
        ++count;
        Failure failure;
        const PPDFile ppd = PPDFile::fromPath(entry.path().string(), failure);
        EXPECT_EQ(failure.text, "") << entry.path();
        ASSERT_NE(ppd.record(), nullptr);
        EXPECT_EQ(ppd.marked("PageSize"), "TC24") << entry.path();
        EXPECT_EQ(ppd.sizes().size(), 7u) << entry.path();
    }
    EXPECT_GE(count, 11u);
}

TEST(PPDFile, OfTheBuiltInPrinterHasEveryOptionOfThePanel)
{
    Failure failure;
    const PPDFile ppd = PPDFile::fromBytes("Sample", samplePPD(), failure);
    ASSERT_NE(ppd.record(), nullptr) << failure.text;
    for (const char* option : {"VnTapeLength", "VnMargin", "VnPriority", "Resolution", "VnCompress",
                               "VnResolution", "PageSize"}) {
        EXPECT_NE(ppdFindOption(ppd.record(), option), nullptr) << option;
    }
    for (const char* attribute :
         {"VnUnitType", "VnIsIntegerTapeLength", "VnIsIntegerMargin", "VnMinTapeLength",
          "VnMaxTapeLength", "VnMinMargin", "VnMaxMargin", "VnTapeType", "FileVersion"}) {
        EXPECT_NE(ppdFindAttr(ppd.record(), attribute, nullptr), nullptr) << attribute;
    }
}

TEST(PPDFile, ReopenedIsAsItWasBeforeAnythingWasSet)
{
    Failure failure;
    PPDFile ppd = PPDFile::fromBytes("Sample", samplePPD(), failure);
    ASSERT_TRUE(ppd.mark("PageSize", "TC12"));
    ASSERT_TRUE(ppd.setDefault("VnMargin", "10.0"));
    const PPDFile again = PPDFile(std::move(ppd)).reopened();
    EXPECT_EQ(again.marked("PageSize"), "TC24");
    EXPECT_EQ(again.marked("VnMargin"), "3.0");
    EXPECT_STREQ(ppdFindOption(again.record(), "VnMargin")->defchoice, "3.0");
    EXPECT_EQ(PPDFile().reopened().record(), nullptr);
}

TEST(PPDFile, MarksListedChoicesAndNoOthers)
{
    Failure failure;
    PPDFile ppd = PPDFile::fromPath(sample("-resolution"), failure);
    EXPECT_EQ(ppd.marked("Resolution"), "300x300dpi");
    EXPECT_TRUE(ppd.mark("Resolution", "300x600dpi"));
    EXPECT_EQ(ppd.marked("Resolution"), "300x600dpi");
    EXPECT_FALSE(ppd.mark("Resolution", "9x9dpi"));
    EXPECT_FALSE(ppd.mark("Nothing", "x"));
    EXPECT_FALSE(ppd.mark("PageSize", "Custom.10x10"));
    EXPECT_EQ(ppd.marked("Resolution"), "300x600dpi");
    EXPECT_EQ(ppd.marked("PageSize"), "TC24");
    EXPECT_EQ(ppd.marked("Nothing"), "");
}

TEST(PPDFile, MarksOneChoiceAlsoWhereThePrinterWouldTakeMany)
{
    Failure failure;
    PPDFile ppd = PPDFile::fromBytes("many",
                                     "*PPD-Adobe: \"4.3\"\n*OpenUI *A/a: PickMany\n*DefaultA: x\n"
                                     "*A x/X: \"\"\n*A y/Y: \"\"\n*CloseUI: *A\n",
                                     failure);
    EXPECT_EQ(ppd.marked("A"), "x") << failure.text;
    EXPECT_TRUE(ppd.mark("A", "y"));
    EXPECT_EQ(ppd.marked("A"), "y");
}

TEST(PPDFile, TakesAnotherDefaultThatFits)
{
    Failure failure;
    PPDFile ppd = PPDFile::fromPath(sample("-resolution"), failure);
    EXPECT_TRUE(ppd.setDefault("VnMargin", "5.5"));
    EXPECT_STREQ(ppdFindOption(ppd.record(), "VnMargin")->defchoice, "5.5");
    EXPECT_FALSE(ppd.setDefault("VnMargin", std::string(PPD_MAX_NAME, '1')));
    EXPECT_FALSE(ppd.setDefault("Nothing", "1"));
    EXPECT_STREQ(ppdFindOption(ppd.record(), "VnMargin")->defchoice, "5.5");
}

TEST(PPDFile, ThatIsDamagedIsSaidWithItsLine)
{
    Failure failure;
    const PPDFile ppd =
        PPDFile::fromBytes("bad", "*PPD-Adobe: \"4.3\"\n*OpenGroup: A\n*OpenGroup: B\n", failure);
    EXPECT_EQ(ppd.record(), nullptr);
    EXPECT_TRUE(failure.text.starts_with("The PPD \"bad\" is damaged in line 3: ")) << failure.text;
    EXPECT_EQ(failure.status, ExitStatus::BadPPD);
}

TEST(PPDFile, ThatIsMissingOrAFolderIsSaid)
{
    Failure failure;
    const std::string missing = sample("-missing");
    EXPECT_EQ(PPDFile::fromPath(missing, failure).record(), nullptr);
    EXPECT_EQ(failure.text,
              "The PPD \"" + missing + "\" cannot be read: No such file or directory.");
    EXPECT_EQ(PPDFile::fromPath("/", failure).record(), nullptr);
    EXPECT_EQ(failure.text, "The PPD \"/\" cannot be read: it is not a regular file.");
}

TEST(PPDFile, OfNothingAnswersNothing)
{
    PPDFile none;
    EXPECT_EQ(none.record(), nullptr);
    EXPECT_FALSE(none.mark("PageSize", "TC24"));
    EXPECT_FALSE(none.setDefault("PageSize", "TC24"));
    EXPECT_EQ(none.marked("PageSize"), "");
    EXPECT_TRUE(none.sizes().empty());
    EXPECT_EQ(none.modelName(), "");
}

TEST(SampleLabel, IsAPNG)
{
    EXPECT_EQ(sampleLabel().substr(1, 3), "PNG");
}

} // namespace
} // namespace dialog
