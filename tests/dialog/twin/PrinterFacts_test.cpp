#include "dialog/twin/PrinterFacts.hpp"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace dialog {
namespace {

using nlohmann::json;

PrinterFacts facts(const std::string& name)
{
    Failure failure;
    const PPDFile ppd = PPDFile::fromPath(SAMPLES_FOLDER "/sample-tape" + name + ".ppd", failure);
    EXPECT_FALSE(failure) << failure.text;
    return factsOf({PrinterKind::Queue, "tape", "Reception", "usb://Sample/Tape", {}}, ppd);
}

TEST(PrinterFacts, TellTapesLimitsAndOptions)
{
    const PrinterFacts found = facts("");
    ASSERT_EQ(found.papers.size(), 7u);
    EXPECT_EQ(found.papers[0].name, "TC6");
    EXPECT_NEAR(found.papers[0].widthMillimetres, 6, 0.001);
    EXPECT_NEAR(found.papers[0].lengthMillimetres, 100, 0.001);
    EXPECT_FALSE(found.papers[0].isFixed);
    EXPECT_EQ(found.papers[5].name, "DC24x40");
    EXPECT_TRUE(found.papers[5].isFixed);
    EXPECT_EQ(found.paper, "TC24");
    EXPECT_EQ(found.length.maximum, 1000);
    ASSERT_TRUE(found.margin);
    EXPECT_EQ(found.margin->standard, "3.0");
    std::vector<std::string> keywords;
    for (const OptionFacts& option : found.options) {
        keywords.push_back(option.keyword);
    }
    EXPECT_EQ(keywords,
              (std::vector<std::string>{"VnPriority", "Resolution", "VnCompress", "VnResolution"}));
}

TEST(PrinterFacts, TellLimitsAsThePPDHasThem)
{
    const PrinterFacts inches = facts("-inches");
    EXPECT_TRUE(inches.inInches);
    EXPECT_EQ(inches.length.minimum, 12.7);
    EXPECT_EQ(inches.length.maximum, 914.4);
    EXPECT_EQ(inches.margin->minimum, 2.54);
    EXPECT_FALSE(facts("-none").margin);
}

TEST(PrinterFacts, AreTextWithTheDefaultsMarked)
{
    PrinterFacts printer = facts("-few");
    printer.isFirst = true;
    const std::string text = factsAsText({printer});
    EXPECT_TRUE(text.starts_with("tape (default)\n")) << text;
    EXPECT_NE(text.find("        DC24x40: 24 x 40 mm label, 40 mm long\n"), text.npos) << text;
    EXPECT_NE(text.find("    Length: 10 - 1000 mm\n"), text.npos) << text;
    EXPECT_NE(text.find("        TC24: 24 mm tape (default)\n"), text.npos) << text;
    EXPECT_NE(text.find("        TC18: 18 mm tape\n"), text.npos) << text;
    EXPECT_NE(text.find("        Quality: Quality First (default)\n"), text.npos) << text;
    EXPECT_NE(text.find("    Unit: mm\n"), text.npos) << text;
    EXPECT_NE(factsAsText({facts("-inches")}).find("    Unit: in\n"), text.npos);
}

TEST(PrinterFacts, AreValidJSONWhateverIsInThem)
{
    PrinterFacts printer = facts("");
    printer.printer.title = "\"\\\n\x01\xff\xc3é</script>";
    printer.options[0].choices[0].title = std::string("a\0b", 3);
    PrinterFacts broken;
    broken.printer.name = "raw";
    broken.problem = "The printer \"raw\" offers no PPD: Not Found.";

    const json read = json::parse(factsAsJSON({printer, broken}));
    ASSERT_EQ(read["printers"].size(), 2u);
    const json& first = read["printers"][0];
    EXPECT_EQ(first["name"], "tape");
    EXPECT_EQ(first["title"], "\"\\\n\x01\xEF\xBF\xBD\xEF\xBF\xBDé</script>");
    EXPECT_EQ(first["length"]["maximum_mm"], 1000);
    EXPECT_EQ(first["papers"][5]["fixed"], true);
    EXPECT_EQ(first["options"][0]["choices"][0]["title"], std::string("a\0b", 3));
    EXPECT_EQ(read["printers"][1]["problem"], broken.problem);
    EXPECT_FALSE(read["printers"][1].contains("papers"));
}

} // namespace
} // namespace dialog
