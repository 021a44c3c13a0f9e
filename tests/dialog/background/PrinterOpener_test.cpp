#include "dialog/background/PrinterOpener.hpp"

#include <gtest/gtest.h>

#include <future>

namespace dialog {
namespace {

using Clock = PrinterOpener::Clock;
using std::chrono_literals::operator""ms;

constexpr std::chrono::milliseconds kPatience{20000};

PrinterEntry queue(const std::string& name)
{
    return {PrinterKind::Queue, name, name, {}, {}};
}

// Hangs for the queue "slow" until it is let go, and fails at once for any other.
PrinterOpener::Open hangingFor(std::shared_future<void> gate)
{
    return [gate](const PrinterEntry& printer, Cancellation*) {
        if (printer.name == "slow") {
            gate.wait();
        }
        OpenedPPD opened;
        opened.failure = noSuchPrinter(printer.name);
        return opened;
    };
}

TEST(PrinterOpener, OpensTheSampleAndAPPDFile)
{
    PrinterOpener opener;
    opener.begin({PrinterKind::Sample, "Sample Tape", {}, {}, {}}, Clock::now());
    auto opened = opener.poll(Clock::now(), kPatience);
    ASSERT_TRUE(opened);
    EXPECT_FALSE(opened->failure) << opened->failure.text;
    EXPECT_EQ(opened->ppd.marked("PageSize"), "TC24");

    opener.begin({PrinterKind::PPDFile, "whole", {}, {}, SAMPLES_FOLDER "/sample-tape-whole.ppd"},
                 Clock::now());
    opened = opener.poll(Clock::now(), kPatience);
    ASSERT_TRUE(opened);
    EXPECT_NE(opened->ppd.record(), nullptr);
    EXPECT_FALSE(opener.underWay());
    EXPECT_FALSE(opener.poll(Clock::now()));
}

TEST(PrinterOpener, SaysWhyAPPDCannotBeOpened)
{
    PrinterOpener opener;
    opener.begin({PrinterKind::PPDFile, "gone", {}, {}, SAMPLES_FOLDER "/missing.ppd"},
                 Clock::now());
    const auto opened = opener.poll(Clock::now(), kPatience);
    ASSERT_TRUE(opened);
    EXPECT_EQ(opened->ppd.record(), nullptr);
    EXPECT_EQ(opened->failure.status, ExitStatus::BadPPD);
}

TEST(PrinterOpener, GivesTheLastChoiceWhileAnEarlierOneHangs)
{
    std::promise<void> gate;
    PrinterOpener opener(hangingFor(gate.get_future().share()));
    opener.begin(queue("slow"), Clock::now());
    EXPECT_FALSE(opener.poll(Clock::now()));
    opener.begin(queue("quick"), Clock::now());
    const auto opened = opener.poll(Clock::now(), kPatience);
    gate.set_value();
    ASSERT_TRUE(opened);
    EXPECT_EQ(opened->failure.text, "There is no printer named \"quick\".");
    EXPECT_FALSE(opener.underWay());
}

TEST(PrinterOpener, GivesUpAtTheDeadlineAndNotBefore)
{
    std::promise<void> gate;
    PrinterOpener opener(hangingFor(gate.get_future().share()));
    const Clock::time_point start = Clock::now();
    opener.begin(queue("slow"), start);
    EXPECT_FALSE(opener.poll(start + PrinterOpener::kDeadline - 1ms));
    const auto opened = opener.poll(start + PrinterOpener::kDeadline);
    gate.set_value();
    ASSERT_TRUE(opened);
    EXPECT_EQ(opened->failure.text,
              "The print server does not send the PPD of the printer \"slow\".");
    EXPECT_EQ(opened->failure.status, ExitStatus::NoPrinter);
    EXPECT_FALSE(opener.underWay());
}

TEST(PrinterOpener, BlamesNoServerForAFileThatTakesTooLong)
{
    std::promise<void> gate;
    PrinterOpener opener(hangingFor(gate.get_future().share()));
    PrinterEntry file = queue("slow");
    file.kind = PrinterKind::PPDFile;
    file.ppdPath = "/far/away.ppd";
    const Clock::time_point start = Clock::now();
    opener.begin(file, start);
    const auto opened = opener.poll(start + PrinterOpener::kDeadline);
    gate.set_value();
    ASSERT_TRUE(opened);
    EXPECT_EQ(opened->failure.text, "The PPD \"/far/away.ppd\" cannot be read: it takes too long.");
    EXPECT_EQ(opened->failure.status, ExitStatus::BadPPD);
}

} // namespace
} // namespace dialog
