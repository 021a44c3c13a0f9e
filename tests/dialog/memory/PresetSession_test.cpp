#include "dialog/memory/PresetSession.hpp"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace dialog {
namespace {

namespace fs = std::filesystem;

class Presets : public testing::Test
{
  protected:
    void SetUp() override
    {
        std::string pattern = (fs::temp_directory_path() / "session.XXXXXX").string();
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        room = pattern;
        Failure failure;
        ppd = PPDFile::fromPath(SAMPLES_FOLDER "/sample-tape-resolution.ppd", failure);
        ASSERT_FALSE(failure);
    }
    void TearDown() override { fs::remove_all(room); }

    Memory memory() const { return Memory(room); }
    PresetSession session() const { return PresetSession(line, memory()); }

    static KeptValues kept(std::string tape, std::string length, std::string resolution)
    {
        return {std::move(tape),
                {{"VnTapeLength", std::move(length)}, {"Resolution", std::move(resolution)}}};
    }

    std::string room;
    PPDFile ppd;
    CommandLine line;
    const KeptValues last = kept("TC12", "62.5", "300x600dpi");
};

std::string chosen(const PresetSession& session)
{
    const std::vector<PresetEntry> menu = session.menu();
    return menu[selectedEntry(menu, session.state())].title;
}

PresetEntry entry(const PresetSession& session, std::string_view title)
{
    for (const PresetEntry& candidate : session.menu()) {
        if (candidate.title == title) {
            return candidate;
        }
    }
    ADD_FAILURE() << "no entry " << title;
    return {};
}

TEST_F(Presets, StartWithThePrintersDefaultsWhenNothingIsRemembered)
{
    PresetSession presets = session();
    const Start start = presets.openPrinter("tape", "", ppd);
    EXPECT_EQ(start.tape, "");
    EXPECT_TRUE(start.options.empty());
    EXPECT_EQ(chosen(presets), "Default Settings");
    EXPECT_FALSE(entry(presets, "Last Used").enabled);
    EXPECT_EQ(presets.takeNotice(), "");
}

TEST_F(Presets, BringBackTheLastValuesOfThePrinterOnItsLastTape)
{
    memory().keepLastUsed("tape", kept("TC24", "100.0", "300x300dpi"));
    memory().keepLastUsed("tape", last);
    memory().keepLastUsed("other", kept("TC9", "10.0", "300x300dpi"));
    PresetSession presets = session();
    const Start start = presets.openPrinter("tape", "", ppd);
    EXPECT_EQ(start.tape, "TC12");
    EXPECT_EQ(start.options, (Wanted{{"VnTapeLength", "62.5"}, {"Resolution", "300x600dpi"}}));
    EXPECT_EQ(chosen(presets), "Last Used");
    EXPECT_TRUE(entry(presets, "Last Used").enabled);
}

TEST_F(Presets, LetTheCommandLineWinOverTheLastValues)
{
    memory().keepLastUsed("tape", last);
    memory().keepLastUsed("tape", kept("TC24", "100.0", "300x300dpi"));
    line.wanted = {{"VnTapeLength", "48"}, {"job-priority", "70"}};
    PresetSession presets = session();
    const Start start = presets.openPrinter("tape", "TC12", ppd);
    EXPECT_EQ(start.tape, "TC12");
    EXPECT_EQ(
        start.options,
        (Wanted{{"VnTapeLength", "48"}, {"job-priority", "70"}, {"Resolution", "300x600dpi"}}));
    // 48 was asked for; that it is not 62.5 is no misfit.
    JobOptions now;
    now.set("VnTapeLength", "48.0");
    EXPECT_EQ(presets.openedWith(valuesOf("TC12", now, ppd), now, ppd), "");
}

TEST_F(Presets, NeitherBringBackNorKeepAnythingForAScript)
{
    memory().keepLastUsed("tape", last);
    for (bool CommandLine::*flag : {&CommandLine::printAtOnce, &CommandLine::noMemory}) {
        line = {};
        line.*flag = true;
        PresetSession presets = session();
        EXPECT_TRUE(presets.openPrinter("tape", "", ppd).options.empty());
        EXPECT_EQ(chosen(presets), "Default Settings");
        EXPECT_FALSE(entry(presets, "Last Used").enabled);
        EXPECT_FALSE(presets.chooseTape("TC12", {}, ppd));
        presets.jobBegins(kept("TC24", "1", "300x300dpi"));
        presets.keepLastUsed();
    }
    MemoryResult result;
    EXPECT_EQ(memory().read(result).lastUsed("tape", ""), last);
}

TEST_F(Presets, LeaveADamagedFileToTheWindowsOfPeople)
{
    fs::create_directory(room + "/page-settings");
    const std::string file = room + "/page-settings/presets.json";
    std::ofstream(file) << "{";
    line.printAtOnce = true;
    PresetSession script = session();
    script.openPrinter("tape", "", ppd);
    EXPECT_EQ(script.takeNotice(), "");
    EXPECT_TRUE(fs::exists(file));

    line.printAtOnce = false;
    PresetSession window = session();
    window.openPrinter("tape", "", ppd);
    EXPECT_EQ(window.takeNotice(), "The presets in \"" + file +
                                       "\" were damaged; the file is now \"" + file +
                                       ".damaged\".");
    EXPECT_EQ(window.takeNotice(), "");
}

TEST_F(Presets, BringBackTheLastValuesOfAChosenTapeOverThoseOfNow)
{
    memory().keepLastUsed("tape", last);
    line.wanted = {{"VnMargin", "5"}};
    PresetSession presets = session();
    presets.openPrinter("tape", "TC24", ppd);
    EXPECT_EQ(chosen(presets), "Default Settings");
    JobOptions now;
    now.set("VnTapeLength", "77.0");
    now.set("VnPriority", "Speed");
    EXPECT_FALSE(presets.chooseTape("TC18", now, ppd));
    const auto start = presets.chooseTape("TC12", now, ppd);
    ASSERT_TRUE(start);
    EXPECT_EQ(start->tape, "TC12");
    EXPECT_EQ(
        start->options,
        (Wanted{{"VnPriority", "Speed"}, {"VnTapeLength", "62.5"}, {"Resolution", "300x600dpi"}}));
    EXPECT_EQ(chosen(presets), "Last Used");
}

TEST_F(Presets, ApplyAPresetAndThePrintersDefaults)
{
    memory().savePreset({"Cables", last}, false);
    line.wanted = {{"VnMargin", "5"}, {"job-priority", "70"}};
    PresetSession presets = session();
    presets.openPrinter("tape", "", ppd);
    auto start = presets.choose(entry(presets, "Cables"), "TC24", ppd);
    ASSERT_TRUE(start);
    EXPECT_EQ(start->tape, "TC12");
    EXPECT_EQ(
        start->options,
        (Wanted{{"job-priority", "70"}, {"VnTapeLength", "62.5"}, {"Resolution", "300x600dpi"}}));
    EXPECT_EQ(chosen(presets), "Cables");

    start = presets.choose(entry(presets, "Default Settings"), "TC12", ppd);
    ASSERT_TRUE(start);
    EXPECT_EQ(start->tape, "");
    EXPECT_EQ(start->options, (Wanted{{"job-priority", "70"}}));
    EXPECT_EQ(chosen(presets), "Default Settings");
    EXPECT_FALSE(presets.choose(entry(presets, "Save As..."), "TC12", ppd));
}

TEST_F(Presets, SayWhatOfAPresetDoesNotFitAndKeepTheTapeOfNow)
{
    memory().savePreset({"Big", kept("TC36", "2000", "9x9dpi")}, false);
    PresetSession presets = session();
    presets.openPrinter("tape", "", ppd);
    const auto start = presets.choose(entry(presets, "Big"), "TC18", ppd);
    ASSERT_TRUE(start);
    EXPECT_EQ(start->tape, "TC18");
    EXPECT_EQ(start->options, (Wanted{{"VnTapeLength", "2000"}}));
    JobOptions now;
    now.set("VnTapeLength", "1000.0");
    const KeptValues values = valuesOf("TC18", now, ppd);
    EXPECT_EQ(presets.openedWith(values, now, ppd),
              "Not everything in \"Big\" fits this printer: Tape TC36 is left out; Resolution "
              "9x9dpi is left out; Tape Length 2000 mm became 1000.0 mm.");
    EXPECT_EQ(presets.openedWith(values, now, ppd), "");
}

TEST_F(Presets, StartWithThatOfTheCommandLineUntilItIsForgottenAndSayThatThereIsNone)
{
    memory().savePreset({"Cables", last}, false);
    line.preset = "Cables";
    line.printAtOnce = true;
    PresetSession presets = session();
    EXPECT_EQ(presets.openPrinter("tape", "", ppd).tape, "TC12");
    EXPECT_FALSE(presets.presetMissing());
    EXPECT_EQ(presets.openPrinter("other", "", ppd).tape, "TC12");
    presets.forgetPreset();
    EXPECT_EQ(presets.openPrinter("other", "", ppd).tape, "");
    EXPECT_FALSE(presets.presetMissing());

    line.preset = "Cable";
    PresetSession wrong = session();
    EXPECT_EQ(wrong.openPrinter("tape", "", ppd).tape, "");
    EXPECT_TRUE(wrong.presetMissing());
}

TEST_F(Presets, ShowThatTheValuesWereChangedAndChangedBack)
{
    PresetSession presets = session();
    presets.openPrinter("tape", "", ppd);
    presets.openedWith(last, {}, ppd);
    EXPECT_FALSE(presets.valuesAre(last));
    EXPECT_TRUE(presets.valuesAre(kept("TC12", "63.0", "300x600dpi")));
    EXPECT_EQ(chosen(presets), "Default Settings (changed)");
    EXPECT_FALSE(presets.valuesAre(kept("TC12", "64.0", "300x600dpi")));
    EXPECT_TRUE(presets.valuesAre(last));
    EXPECT_EQ(chosen(presets), "Default Settings");
    EXPECT_TRUE(presets.valuesAre(kept("TC18", "62.5", "300x600dpi")));
}

TEST_F(Presets, AreSavedRenamedAndDeleted)
{
    PresetSession presets = session();
    presets.openPrinter("tape", "", ppd);
    EXPECT_EQ(presets.saveAs("  Cables ", false, last).sentence, "");
    EXPECT_EQ(chosen(presets), "Cables");
    EXPECT_FALSE(presets.valuesAre(last));

    EXPECT_EQ(presets.saveAs("   ", false, last).sentence, "Give the preset a name.");
    EXPECT_EQ(presets.saveAs("Delete...", false, last).sentence,
              "\"Delete...\" is the name of another entry of the list; choose another name.");
    const KeptValues other = kept("TC24", "9", "300x300dpi");
    const NameAnswer taken = presets.saveAs("Cables", false, other);
    EXPECT_EQ(taken.sentence, "There is already a preset named \"Cables\".");
    EXPECT_TRUE(taken.mayReplace);
    EXPECT_EQ(presets.saveAs("Cables", true, other).sentence, "");
    EXPECT_EQ(presets.saveAs("Shelves", false, last).sentence, "");

    const NameAnswer renamed = presets.rename("Cables");
    EXPECT_EQ(renamed.sentence, "There is already a preset named \"Cables\".");
    EXPECT_FALSE(renamed.mayReplace);
    EXPECT_EQ(presets.rename("Boxes").sentence, "");
    EXPECT_EQ(chosen(presets), "Boxes");
    EXPECT_EQ(presets.remove().sentence, "");
    EXPECT_EQ(chosen(presets), "Default Settings (changed)");

    MemoryResult result;
    EXPECT_EQ(memory().read(result).presets(), (std::vector<Preset>{{"Cables", other}}));
}

TEST_F(Presets, TakeInWhatAnotherDialogSavedAndDeleted)
{
    PresetSession presets = session();
    presets.openPrinter("tape", "", ppd);
    presets.saveAs("Cables", false, last);
    memory().deletePreset("Cables");
    memory().savePreset({"Shelves", last}, false);
    EXPECT_EQ(presets.rename("Wires").sentence, "There is no preset named \"Cables\".");
    EXPECT_EQ(entry(presets, "Shelves").action, PresetAction::Named);
    EXPECT_EQ(presets.remove().sentence, ""); // as it was to be

    const PresetEntry gone{PresetAction::Named, "Cables", true, "Cables"};
    EXPECT_FALSE(presets.choose(gone, "TC12", ppd));
    EXPECT_EQ(presets.takeNotice(), "There is no preset named \"Cables\".");
}

TEST_F(Presets, SayOnceThatNothingCanBeKept)
{
    std::ofstream(room + "/page-settings") << "in the way";
    PresetSession presets = session();
    presets.openPrinter("tape", "", ppd);
    presets.takeNotice();
    presets.jobBegins(last);
    presets.keepLastUsed();
    EXPECT_EQ(presets.takeNotice(), "Presets and last values cannot be kept in \"" + room +
                                        "/page-settings/presets.json\": Not a directory.");
    presets.jobBegins(last);
    presets.keepLastUsed();
    EXPECT_EQ(presets.takeNotice(), "");
    EXPECT_FALSE(presets.saveAs("Cables", false, last).sentence.empty());
    EXPECT_FALSE(presets.saveAs("Cables", false, last).sentence.empty());
}

TEST_F(Presets, KeepWhatTheJobTookAlongWhateverIsChosenMeanwhile)
{
    PresetSession presets = session();
    presets.openPrinter("tape", "", ppd);
    presets.jobBegins(last);
    presets.openPrinter("other", "", ppd);
    presets.keepLastUsed();
    MemoryResult result;
    const MemoryText text = memory().read(result);
    EXPECT_EQ(text.lastUsed("tape", ""), last);
    EXPECT_FALSE(text.lastUsed("other", ""));
}

TEST_F(Presets, CannotBeSavedWithoutAPpd)
{
    memory().keepLastUsed("tape", last);
    PresetSession presets = session();
    const Start start = presets.openPrinter("tape", "", PPDFile());
    EXPECT_TRUE(start.options.empty());
    EXPECT_FALSE(entry(presets, "Save As...").enabled);
    presets.jobBegins({});
    presets.keepLastUsed(); // there is no tape to keep anything for
    MemoryResult result;
    EXPECT_EQ(memory().read(result).lastUsed("tape", ""), last);
}

TEST(MemoryKey, IsTheQueueOrTheAbsolutePathOfThePpd)
{
    EXPECT_EQ(memoryKey({PrinterKind::Queue, "tape", "Tape", "usb://x", {}}), "tape");
    EXPECT_EQ(memoryKey({PrinterKind::PPDFile, "t", "t", "usb://x", "/a/b/../t.ppd"}), "/a/t.ppd");
    EXPECT_EQ(memoryKey({PrinterKind::PPDFile, "t", "t", "usb://x", "t.ppd"}),
              (fs::current_path() / "t.ppd").string());
}

} // namespace
} // namespace dialog
