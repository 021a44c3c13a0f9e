#include "dialog/Messages.hpp"

#include <gtest/gtest.h>

namespace dialog {
namespace {

TEST(Messages, NameTheThingTheReasonAndTheStatus)
{
    const Failure damaged = ppdDamaged("tape.ppd", 12, "Missing option keyword");
    EXPECT_EQ(damaged.text, "The PPD \"tape.ppd\" is damaged in line 12: Missing option keyword.");
    EXPECT_EQ(damaged.status, ExitStatus::BadPPD);
    EXPECT_EQ(ppdDamaged("tape.ppd", 0, "").text, "The PPD \"tape.ppd\" is damaged.");
    EXPECT_EQ(ppdRefused("x", {PPDFault::CustomSizeNotALength, 4}).text,
              "The PPD \"x\" is not used: the width or height of its custom page size is not "
              "given in points (line 4).");
    EXPECT_EQ(ppdRefused("x", {PPDFault::TooLarge, 0}).text,
              "The PPD \"x\" is not used: it is larger than 2 MiB.");
    EXPECT_EQ(jobRefused("Office", "Not accepting jobs.").text,
              "The print server did not take the job for \"Office\": Not accepting jobs.");
    EXPECT_EQ(jobSent("Office", 7), "Printed on \"Office\" as job 7.");
}

TEST(Messages, HaveTheStatusThatHelpPromises)
{
    EXPECT_EQ(static_cast<int>(noDisplay().status), 3);
    EXPECT_EQ(static_cast<int>(bundleNotFound("p").status), 4);
    EXPECT_EQ(static_cast<int>(bundleNotLoadable("p").status), 4);
    EXPECT_EQ(static_cast<int>(bundleNotAPlugin("p").status), 4);
    EXPECT_EQ(static_cast<int>(bundleRefusesSystem("p").status), 4);
    EXPECT_EQ(static_cast<int>(noPanelForType("p").status), 4);
    EXPECT_EQ(static_cast<int>(panelWithoutView("p").status), 4);
    EXPECT_EQ(static_cast<int>(serverSilent("s", "").status), 5);
    EXPECT_EQ(static_cast<int>(noSuchPrinter("p").status), 5);
    EXPECT_EQ(static_cast<int>(noSuchPaper("t", "p").status), 5);
    EXPECT_EQ(static_cast<int>(printerWithoutPPD("p", "").status), 6);
    EXPECT_EQ(static_cast<int>(ppdNotReadable("p", "").status), 6);
    EXPECT_EQ(static_cast<int>(documentNotReadable("d", "").status), 7);
    EXPECT_EQ(static_cast<int>(panelHoldsJob().status), 8);
    EXPECT_EQ(static_cast<int>(copiesNotUnderstood("x").status), 8);
    EXPECT_EQ(static_cast<int>(jobRefused("p", "").status), 8);
    EXPECT_EQ(static_cast<int>(outputNotWritten("f", "").status), 8);
    EXPECT_EQ(static_cast<int>(fileNotWritten("f").status), 9);
    EXPECT_FALSE(Failure{});
}

TEST(ShownText, HasNoControlCharactersAndIsCutBetweenCharacters)
{
    EXPECT_EQ(shown("a\nb\x1b[0m\x7f"), "a b [0m ");
    EXPECT_EQ(shown("%n%@%s"), "%n%@%s");
    EXPECT_EQ(shown("abc", 3), "abc");
    EXPECT_EQ(shown("abcd", 3), "abc...");
    // Two bytes of the first character do not fit into one.
    EXPECT_EQ(shown("a\xc3\xa9z", 2), "a...");
    EXPECT_EQ(shown("a\xc3\xa9z", 3), "a\xc3\xa9...");
}

} // namespace
} // namespace dialog
