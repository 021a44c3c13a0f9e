#include "dialog/memory/MemorySentences.hpp"

#include <gtest/gtest.h>

namespace dialog {
namespace {

MemoryResult result(MemoryProblem problem, std::string detail = {}, std::string aside = {})
{
    return {problem, "/c/presets.json", std::move(detail), std::move(aside)};
}

TEST(SentenceOfAResult, NamesFileAndReason)
{
    EXPECT_EQ(sentenceOf(result(MemoryProblem::None)), "");
    EXPECT_EQ(sentenceOf(result(MemoryProblem::NotWritable, "No space left on device")),
              "Presets and last values cannot be kept in \"/c/presets.json\": No space left on "
              "device.");
    EXPECT_EQ(sentenceOf(result(MemoryProblem::NotReadable, "it is too large")),
              "The presets in \"/c/presets.json\" cannot be read and are left alone: it is too "
              "large.");
    EXPECT_EQ(sentenceOf(result(MemoryProblem::Newer)),
              "The presets in \"/c/presets.json\" are of a newer release and are left alone.");
    EXPECT_EQ(sentenceOf(result(MemoryProblem::LeftDamaged)),
              "The presets in \"/c/presets.json\" are damaged and are left alone.");
    EXPECT_EQ(sentenceOf(result(MemoryProblem::Busy)),
              "Presets and last values cannot be kept: another print dialog is holding them.");
    EXPECT_EQ(sentenceOf(result(MemoryProblem::NoFolder)),
              "Presets and last values cannot be kept: there is no home folder.");
}

TEST(SentenceOfAResult, SaysWhereADamagedFileWent)
{
    const std::string aside =
        "The presets in \"/c/presets.json\" were damaged; the file is now \"/c/d\".";
    EXPECT_EQ(sentenceOf(result(MemoryProblem::None, "", "/c/d")), aside);
    EXPECT_EQ(sentenceOf(result(MemoryProblem::NotWritable, "full", "/c/d")),
              "Presets and last values cannot be kept in \"/c/presets.json\": full. " + aside);
}

TEST(SentenceOfAName, SaysWhatIsWrongWithIt)
{
    EXPECT_EQ(sentenceOf(NameFault::None, "A"), "");
    EXPECT_EQ(sentenceOf(NameFault::Empty, ""), "Give the preset a name.");
    EXPECT_EQ(sentenceOf(NameFault::TooLong, "A"), "The name may have at most 60 letters.");
    EXPECT_EQ(sentenceOf(NameFault::Reserved, "Rename..."),
              "\"Rename...\" is the name of another entry of the list; choose another name.");
    EXPECT_EQ(presetNameTaken("%s {1}"), "There is already a preset named \"%s {1}\".");
    EXPECT_EQ(noSuchPreset("A\nB"), "There is no preset named \"A B\".");
}

TEST(FitSentence, ListsEveryMisfit)
{
    EXPECT_EQ(fitSentence("Cables", {}), "");
    EXPECT_EQ(fitSentence("Cables", {"Tape TC36 is left out"}),
              "Not everything in \"Cables\" fits this printer: Tape TC36 is left out.");
    EXPECT_EQ(fitSentence("Cables", {"a", "b"}),
              "Not everything in \"Cables\" fits this printer: a; b.");
}

} // namespace
} // namespace dialog
