#include "dialog/background/PrinterFinder.hpp"

#include <gtest/gtest.h>

#include <atomic>
#include <deque>
#include <memory>
#include <mutex>
#include <thread>

namespace dialog {
namespace {

using Clock = PrinterFinder::Clock;
using std::chrono_literals::operator""ms;

constexpr std::chrono::milliseconds kPatience{20000};
const Queue kOffice{"Office", "", "usb://A/B"};
const Queue kLab{"Lab", "", "usb://C/D"};

// A server that answers what it is given, in turn, and hangs when it has nothing left.
class Server
{
  public:
    ~Server() { EXPECT_TRUE(allWorkEnded(kPatience)); }

    void answer(std::vector<Queue> queues) { add({std::move(queues), "s", {}}); }
    void refuse() { add({{}, "s", serverSilent("s", "refused")}); }
    int asked() const { return shared_->asked; }

    PrinterFinder::LookUp lookUp()
    {
        return [shared = shared_](Cancellation& cancellation) {
            ++shared->asked;
            while (!cancellation.cancelled()) {
                const std::lock_guard lock(shared->mutex);
                if (!shared->answers.empty()) {
                    QueueList list = std::move(shared->answers.front());
                    shared->answers.pop_front();
                    return list;
                }
                std::this_thread::yield();
            }
            return QueueList{{{"Late", "", ""}}, "s", {}};
        };
    }

  private:
    struct Shared
    {
        std::mutex mutex;
        std::deque<QueueList> answers;
        std::atomic<int> asked = 0;
    };

    void add(QueueList list)
    {
        const std::lock_guard lock(shared_->mutex);
        shared_->answers.push_back(std::move(list));
    }

    std::shared_ptr<Shared> shared_ = std::make_shared<Shared>();
};

std::vector<std::string> names(const PrinterFinder& finder)
{
    std::vector<std::string> result;
    for (const PrinterEntry& printer : finder.printers()) {
        result.push_back(printer.name);
    }
    return result;
}

using Names = std::vector<std::string>;

CommandLine asking(const std::string& printer)
{
    CommandLine line;
    line.printer = printer;
    return line;
}

PrinterFinder::Shown shownNow(const PrinterFinder& finder, std::size_t index, bool touched,
                              bool open = true)
{
    return {finder.printers()[index], touched, open};
}

TEST(PrinterFinder, OffersWhatIsKnownFromTheLastTimeWhileItLooks)
{
    Server server;
    PrinterFinder finder({}, {kOffice}, "s", server.lookUp(), Clock::now());
    EXPECT_EQ(finder.state(), Search::LookingFor);
    EXPECT_TRUE(finder.busy());
    EXPECT_EQ(names(finder), (Names{"Office", "Sample Tape"}));
    EXPECT_FALSE(finder.poll(Clock::now()));
}

TEST(PrinterFinder, OffersWhatTheServerSaysOnceItAnswers)
{
    Server server;
    server.answer({kLab, kOffice});
    PrinterFinder finder({}, {kOffice}, "s", server.lookUp(), Clock::now());
    EXPECT_TRUE(finder.poll(Clock::now(), kPatience));
    EXPECT_EQ(finder.state(), Search::Known);
    EXPECT_FALSE(finder.busy());
    EXPECT_FALSE(finder.failure());
    EXPECT_EQ(names(finder), (Names{"Lab", "Office", "Sample Tape"}));
}

TEST(PrinterFinder, KeepsTheLastTimesPrintersWhenTheServerRefuses)
{
    Server server;
    server.refuse();
    PrinterFinder finder({}, {kOffice}, "s", server.lookUp(), Clock::now());
    EXPECT_TRUE(finder.poll(Clock::now(), kPatience));
    EXPECT_EQ(finder.state(), Search::Silent);
    EXPECT_TRUE(finder.hasQueues());
    EXPECT_EQ(finder.failure().text, "The print server \"s\" does not answer: refused.");
    EXPECT_EQ(names(finder), (Names{"Office", "Sample Tape"}));
}

TEST(PrinterFinder, CallsAServerSilentAtTheDeadlineAndNotBefore)
{
    Server server;
    const Clock::time_point start = Clock::now();
    PrinterFinder finder({}, {}, "host", server.lookUp(), start);
    EXPECT_FALSE(finder.poll(start + PrinterFinder::kDeadline - 1ms));
    EXPECT_EQ(finder.state(), Search::LookingFor);
    EXPECT_TRUE(finder.poll(start + PrinterFinder::kDeadline));
    EXPECT_EQ(finder.state(), Search::Silent);
    EXPECT_FALSE(finder.hasQueues());
    EXPECT_EQ(finder.failure().text, "The print server \"host\" does not answer.");
    EXPECT_EQ(finder.failure().status, ExitStatus::NoPrinter);
}

TEST(PrinterFinder, AsksASilentServerAgainAndTakesItsAnswer)
{
    Server server;
    server.refuse();
    Clock::time_point now = Clock::now();
    PrinterFinder finder({}, {}, "s", server.lookUp(), now);
    ASSERT_TRUE(finder.poll(now, kPatience));
    now += PrinterFinder::kBetweenLookUps - 1ms;
    EXPECT_FALSE(finder.poll(now));
    EXPECT_EQ(server.asked(), 1);
    server.refuse();
    now += 1ms;
    EXPECT_FALSE(finder.poll(now)); // asks
    EXPECT_FALSE(finder.poll(now, kPatience)) << "silent as before is no change";
    EXPECT_EQ(server.asked(), 2);
    server.answer({kLab});
    finder.lookAgain(now);
    EXPECT_TRUE(finder.poll(now, kPatience));
    EXPECT_EQ(finder.state(), Search::Known);
    EXPECT_EQ(names(finder), (Names{"Lab", "Sample Tape"}));
    EXPECT_EQ(server.asked(), 3);
}

TEST(PrinterFinder, ShowsTheFirstPrinterToWhoAskedForNone)
{
    Server server;
    server.answer({kLab, kOffice});
    PrinterFinder finder({}, {kOffice}, "s", server.lookUp(), Clock::now());
    auto choice = finder.choice({});
    EXPECT_EQ(choice.index, 0u);
    EXPECT_TRUE(choice.reopen);
    EXPECT_FALSE(choice.wait);
    const auto shown = shownNow(finder, 0, false);
    ASSERT_TRUE(finder.poll(Clock::now(), kPatience));
    choice = finder.choice(shown);
    EXPECT_EQ(finder.printers()[choice.index].name, "Lab");
    EXPECT_TRUE(choice.reopen);
}

TEST(PrinterFinder, DoesNotOpenAgainWhatIsOpenAndStaysTheSame)
{
    Server server;
    server.answer({kOffice, kLab});
    PrinterFinder finder({}, {kOffice}, "s", server.lookUp(), Clock::now());
    const auto shown = shownNow(finder, 0, false);
    ASSERT_TRUE(finder.poll(Clock::now(), kPatience));
    EXPECT_EQ(finder.choice(shown).index, 0u);
    EXPECT_FALSE(finder.choice(shown).reopen);
    auto elsewhere = shown;
    elsewhere.printer.deviceURI = "socket://elsewhere";
    EXPECT_TRUE(finder.choice(elsewhere).reopen) << "it hangs somewhere else now";
    auto closed = shown;
    closed.open = false;
    EXPECT_TRUE(finder.choice(closed).reopen) << "its PPD may come now";
}

TEST(PrinterFinder, NeverChangesWhatTheUserWorksWith)
{
    Server server;
    server.answer({kLab, kOffice});
    PrinterFinder finder({}, {kOffice}, "s", server.lookUp(), Clock::now());
    const auto shown = shownNow(finder, 1, true); // the sample
    ASSERT_TRUE(finder.poll(Clock::now(), kPatience));
    const auto choice = finder.choice(shown);
    EXPECT_EQ(choice.index, 2u);
    EXPECT_EQ(finder.printers()[choice.index].name, "Sample Tape");
    EXPECT_FALSE(choice.reopen);
}

TEST(PrinterFinder, KeepsAQueueThatIsGoneWhileTheUserWorksWithIt)
{
    Server server;
    server.answer({kLab});
    PrinterFinder finder({}, {kOffice}, "s", server.lookUp(), Clock::now());
    const auto shown = shownNow(finder, 0, true);
    ASSERT_TRUE(finder.poll(Clock::now(), kPatience));
    const auto choice = finder.choice(shown);
    EXPECT_EQ(names(finder), (Names{"Lab", "Office", "Sample Tape"}));
    EXPECT_EQ(choice.index, 1u);
    EXPECT_FALSE(choice.reopen);
}

TEST(PrinterFinder, WaitsForThePrinterThatWasAskedFor)
{
    Server server;
    PrinterFinder finder(asking("Lab"), {kOffice}, "s", server.lookUp(), Clock::now());
    auto choice = finder.choice({});
    EXPECT_EQ(finder.printers()[choice.index].name, "Lab");
    EXPECT_TRUE(choice.wait);
    EXPECT_FALSE(choice.missing);
    const auto shown = shownNow(finder, choice.index, false, false);
    server.answer({kOffice, kLab});
    ASSERT_TRUE(finder.poll(Clock::now(), kPatience));
    choice = finder.choice(shown);
    EXPECT_EQ(names(finder), (Names{"Office", "Lab", "Sample Tape"}));
    EXPECT_EQ(choice.index, 1u);
    EXPECT_FALSE(choice.wait);
    EXPECT_TRUE(choice.reopen);
}

TEST(PrinterFinder, FindsAPPDFileAndTheSampleWithoutTheServer)
{
    Server server;
    CommandLine line = asking("label");
    line.ppdFiles = {"/x/label.ppd"};
    line.printAtOnce = true;
    PrinterFinder finder(line, {kOffice}, "s", server.lookUp(), Clock::now());
    EXPECT_EQ(finder.choice({}).index, 0u);
    EXPECT_FALSE(finder.choice({}).wait);
    PrinterFinder second(asking("Sample Tape"), {}, "s", server.lookUp(), Clock::now());
    EXPECT_EQ(second.choice({}).index, 0u);
    EXPECT_FALSE(second.choice({}).wait);
}

TEST(PrinterFinder, SaysThatThePrinterIsMissingOnlyOnceThatIsSure)
{
    Server server;
    PrinterFinder finder(asking("Attic"), {}, "s", server.lookUp(), Clock::now());
    const auto shown = shownNow(finder, finder.choice({}).index, false, false);
    server.answer({kOffice});
    ASSERT_TRUE(finder.poll(Clock::now(), kPatience));
    const auto choice = finder.choice(shown);
    EXPECT_TRUE(choice.missing);
    EXPECT_EQ(choice.index, 0u);
    EXPECT_EQ(names(finder), (Names{"Office", "Sample Tape"}));
}

TEST(PrinterFinder, LetsAScriptWaitForTheServerBeforeItFallsBackOnTheSample)
{
    Server server;
    CommandLine line;
    line.printAtOnce = true;
    PrinterFinder finder(line, {}, "s", server.lookUp(), Clock::now());
    EXPECT_TRUE(finder.choice({}).wait);
    server.refuse();
    ASSERT_TRUE(finder.poll(Clock::now(), kPatience));
    EXPECT_FALSE(finder.choice({}).wait);
    EXPECT_EQ(finder.printers()[finder.choice({}).index].name, "Sample Tape");
}

TEST(PrinterFinder, ThrowsALateAnswerAway)
{
    Server server;
    const Clock::time_point start = Clock::now();
    PrinterFinder finder({}, {}, "s", server.lookUp(), start);
    ASSERT_TRUE(finder.poll(start + PrinterFinder::kDeadline)); // which cancels: "Late" comes now
    ASSERT_TRUE(allWorkEnded(kPatience));
    EXPECT_FALSE(finder.poll(start + PrinterFinder::kDeadline, 1ms));
    EXPECT_EQ(names(finder), (Names{"Sample Tape"}));
}

} // namespace
} // namespace dialog
