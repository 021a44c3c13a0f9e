#include "dialog/CommandLine.hpp"

#include <gtest/gtest.h>

#include <initializer_list>

namespace dialog {
namespace {

CommandLine parse(std::initializer_list<std::string_view> words)
{
    return parseCommandLine(std::vector<std::string_view>(words));
}

TEST(CommandLine, NothingGivenIsTheSampleLabelOnTheFirstPrinter)
{
    const CommandLine line = parse({});
    EXPECT_EQ(line.error, "");
    EXPECT_EQ(line.document, "");
    EXPECT_EQ(line.printer, "");
    EXPECT_EQ(line.deviceURI, "usb://Sample/Tape");
    EXPECT_EQ(line.output, "out");
    EXPECT_EQ(line.copies, 1);
    EXPECT_FALSE(line.printAtOnce);
}

TEST(CommandLine, TakesValuesAsTheNextWordOrAfterAnEqualsSign)
{
    const CommandLine line = parse({"--printer", "Office", "--paper=TC12", "--title", "=x=y",
                                    "--copies=7", "--output", "--odd", "label.png"});
    EXPECT_EQ(line.error, "");
    EXPECT_EQ(line.printer, "Office");
    EXPECT_EQ(line.paper, "TC12");
    EXPECT_EQ(line.title, "=x=y");
    EXPECT_EQ(line.copies, 7);
    EXPECT_EQ(line.output, "--odd");
    EXPECT_EQ(line.document, "label.png");
}

TEST(CommandLine, KeepsEveryPPDAndEveryWantedOptionInOrder)
{
    const CommandLine line =
        parse({"--ppd", "b.ppd", "--set", "B=1=2", "--ppd=a.ppd", "--set=A=x"});
    EXPECT_EQ(line.error, "");
    EXPECT_EQ(line.ppdFiles, (std::vector<std::string>{"b.ppd", "a.ppd"}));
    ASSERT_EQ(line.wanted.size(), 2u);
    EXPECT_EQ(line.wanted[0], (std::pair<std::string, std::string>{"B", "1=2"}));
    EXPECT_EQ(line.wanted[1], (std::pair<std::string, std::string>{"A", "x"}));
}

TEST(CommandLine, TakesADocumentThatLooksLikeAnOptionAfterTwoDashes)
{
    EXPECT_EQ(parse({"--", "--help"}).document, "--help");
    EXPECT_FALSE(parse({"--", "--help"}).help);
    EXPECT_EQ(parse({"-"}).document, "-");
}

TEST(CommandLine, SaysWhatItDidNotUnderstand)
{
    EXPECT_EQ(parse({"--frobnicate"}).error, "The option \"--frobnicate\" is not known.");
    EXPECT_EQ(parse({"-x"}).error, "The option \"-x\" is not known.");
    EXPECT_EQ(parse({"--printer"}).error, "--printer needs a value.");
    EXPECT_EQ(parse({"--printer="}).error, "--printer needs a value.");
    EXPECT_EQ(parse({"--print-at-once=yes"}).error, "--print-at-once takes no value.");
    EXPECT_EQ(parse({"--set", "Resolution"}).error,
              "--set takes KEYWORD=CHOICE, not \"Resolution\".");
    EXPECT_EQ(parse({"--set", "=x"}).error, "--set takes KEYWORD=CHOICE, not \"=x\".");
    EXPECT_EQ(parse({"--set", "x="}).error, "--set takes KEYWORD=CHOICE, not \"x=\".");
    EXPECT_EQ(parse({"a", "b"}).error,
              "Only one document can be printed at a time, and \"b\" would be the second.");
    EXPECT_EQ(parse({""}).error, "The document's name is empty.");
}

TEST(CommandLine, TakesTheLookByNameAndFollowsTheDesktopOtherwise)
{
    EXPECT_EQ(parse({}).appearance, WantedAppearance::Auto);
    EXPECT_EQ(parse({"--appearance", "dark"}).appearance, WantedAppearance::Dark);
    EXPECT_EQ(parse({"--appearance=light"}).appearance, WantedAppearance::Light);
    EXPECT_EQ(parse({"--appearance=dark", "--appearance=auto"}).appearance, WantedAppearance::Auto);
    EXPECT_EQ(parse({"--appearance", "grey"}).error,
              "--appearance takes auto, light or dark, not \"grey\".");
    EXPECT_EQ(parse({"--appearance"}).error, "--appearance needs a value.");
}

TEST(Copies, AreWholeNumbersFrom1To999)
{
    std::int32_t copies = 5;
    EXPECT_TRUE(parseCopies("1", copies));
    EXPECT_EQ(copies, 1);
    EXPECT_TRUE(parseCopies(" 999\t", copies));
    EXPECT_EQ(copies, 999);
    for (const char* text :
         {"", " ", "0", "-1", "1000", "2.5", "3x", "x", "+3", "1 2", "99999999999999999999"}) {
        EXPECT_FALSE(parseCopies(text, copies)) << text;
        EXPECT_EQ(copies, 999) << text;
    }
    EXPECT_EQ(parse({"--copies", "many"}).error,
              "--copies takes a whole number from 1 to 999, not \"many\".");
}

TEST(CommandLineMemory, IsAPresetsNameAndAFlag)
{
    const CommandLine line = parse({"--preset", "Cable flags", "--no-memory"});
    EXPECT_EQ(line.error, "");
    EXPECT_EQ(line.preset, "Cable flags");
    EXPECT_TRUE(line.noMemory);
    EXPECT_EQ(parse({"--preset="}).error, "--preset needs a value.");
    EXPECT_EQ(parse({"--no-memory=yes"}).error, "--no-memory takes no value.");
    EXPECT_FALSE(parse({}).noMemory);
}

TEST(Help, NamesEveryOptionThatIsUnderstood)
{
    for (const char* name :
         {"--printer", "--paper", "--copies", "--title", "--set", "--ppd", "--device-uri",
          "--output", "--plugin", "--appearance", "--print-at-once", "--show-summary",
          "--screenshot", "--list-controls", "--preset", "--no-memory", "--help", "--version"}) {
        EXPECT_NE(helpText().find(name), std::string_view::npos) << name;
        const CommandLine alone = parse({name});
        EXPECT_EQ(alone.error.find("not known"), std::string::npos) << name;
    }
}

} // namespace
} // namespace dialog
