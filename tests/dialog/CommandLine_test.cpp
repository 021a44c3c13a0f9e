#include "dialog/CommandLine.hpp"

#include "dialog/ExitStatus.hpp"
#include "dialog/OptionTable.hpp"

#include <gtest/gtest.h>

#include <initializer_list>
#include <set>

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

TEST(CommandLine, TakesLengthsWithTheirUnits)
{
    const CommandLine line = parse({"--length", "40.5mm", "--margin=3"});
    EXPECT_EQ(line.error, "");
    EXPECT_EQ(line.length, (LengthWord{"40.5", pagesettings::Unit::Millimetres}));
    EXPECT_EQ(line.margin, (LengthWord{"3", {}}));
    EXPECT_EQ(parse({"--length", "long"}).error,
              "--length takes a length such as 40, 40.5mm or 1.5in, not \"long\".");
    EXPECT_EQ(parse({"--margin=-1"}).error,
              "--margin takes a length such as 3, 2.5mm or 0.25in, not \"-1\".");
}

TEST(CommandLine, KnowsWhatToDoWithoutAWindow)
{
    EXPECT_EQ(taskOf(parse({"label.png", "--length=40"})), Task::Window);
    EXPECT_EQ(taskOf(parse({"--print-at-once"})), Task::Window);
    EXPECT_EQ(taskOf(parse({"--print", "label.png"})), Task::Print);
    EXPECT_EQ(parse({"--print", "label.png"}).document, "label.png");
    EXPECT_EQ(taskOf(parse({"--print", "--dry-run"})), Task::DryRun);
    EXPECT_EQ(taskOf(parse({"--show-command", "--print"})), Task::ShowCommand);
    EXPECT_EQ(taskOf(parse({"--list", "--json"})), Task::List);
    EXPECT_EQ(taskOf(parse({"--check"})), Task::Check);
}

TEST(CommandLine, RefusesWhatContradictsItself)
{
    EXPECT_EQ(parse({"--list", "--check"}).error, "--list and --check cannot go together.");
    EXPECT_EQ(parse({"--print", "--list"}).error, "--print and --list cannot go together.");
    EXPECT_EQ(parse({"--dry-run", "--show-command"}).error,
              "--dry-run and --show-command cannot go together.");
    EXPECT_EQ(parse({"--print", "--print-at-once"}).error,
              "--print and --print-at-once cannot go together.");
    EXPECT_EQ(parse({"--print", "--preset=x"}).error, "--print and --preset cannot go together.");
    EXPECT_EQ(parse({"--dry-run", "--preset=x"}).error,
              "--dry-run and --preset cannot go together.");
    EXPECT_EQ(parse({"--json"}).error, "--json goes with --list only.");
    EXPECT_EQ(parse({"--check", "--json"}).error, "--json goes with --list only.");
}

TEST(CommandLine, RefusesWhatIsOfTheWindowWithoutOne)
{
    EXPECT_EQ(parse({"--print", "--screenshot=x"}).error,
              "--print and --screenshot cannot go together.");
    EXPECT_EQ(parse({"--list-controls=x", "--list"}).error,
              "--list and --list-controls cannot go together.");
    EXPECT_EQ(parse({"--show-summary", "--dry-run"}).error,
              "--dry-run and --show-summary cannot go together.");
    EXPECT_EQ(parse({"--show-summary", "--screenshot=x", "--list-controls=x"}).error, "");
    EXPECT_EQ(parse({"--list", "label.png"}).error, "--list takes no document.");
    EXPECT_EQ(parse({"label.png", "--check"}).error, "--check takes no document.");
    EXPECT_EQ(parse({"label.png", "--print"}).error, "");
}

TEST(OptionTable, NamesEachOptionOnceAndSaysWhatBecomesOfIt)
{
    std::set<std::string_view> names;
    for (const OptionEntry& entry : optionTable()) {
        EXPECT_TRUE(names.insert(entry.name).second) << entry.name;
        EXPECT_TRUE(entry.name.starts_with("--")) << entry.name;
        EXPECT_NE(std::string_view(entry.help), "") << entry.name;
        const int ends =
            (entry.flag != nullptr) + (entry.text != nullptr) + (entry.take != nullptr);
        EXPECT_EQ(ends, 1) << entry.name;
        EXPECT_EQ(entry.placeholder.empty(), entry.flag != nullptr) << entry.name;
    }
    EXPECT_GE(names.size(), 24u);
}

TEST(Help, NamesEveryOptionAndEveryExitStatus)
{
    const std::string help = helpText();
    for (const OptionEntry& entry : optionTable()) {
        const std::string name = "  " + std::string(entry.name) + " ";
        EXPECT_NE(help.find(name), std::string::npos) << name;
        EXPECT_NE(help.find(entry.help), std::string::npos) << name;
    }
    for (const StatusEntry& entry : statusTable()) {
        EXPECT_NE(help.find(entry.meaning), std::string::npos) << entry.meaning;
    }
    EXPECT_EQ(statusTable().size(), 11u);
    for (std::size_t i = 0; i < statusTable().size(); ++i) {
        EXPECT_EQ(static_cast<std::size_t>(statusTable()[i].status), i);
    }
}

} // namespace
} // namespace dialog
