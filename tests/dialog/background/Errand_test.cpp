#include "dialog/background/Errand.hpp"

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <string>
#include <thread>

namespace dialog {
namespace {

using std::chrono_literals::operator""ms;
using std::chrono_literals::operator""s;

constexpr std::chrono::milliseconds kPatience{20000};

TEST(Errand, GivesItsResultOnce)
{
    Errand<std::string> errand([](Cancellation&) { return std::string("done"); });
    EXPECT_TRUE(errand.underWay());
    EXPECT_EQ(errand.take(kPatience), "done");
    EXPECT_FALSE(errand.underWay());
    EXPECT_FALSE(errand.take());
}

TEST(Errand, IsNotWaitedForUnlessAsked)
{
    std::promise<void> go;
    Errand<int> errand([gate = go.get_future().share()](Cancellation&) {
        gate.wait();
        return 7;
    });
    EXPECT_FALSE(errand.take());
    EXPECT_TRUE(errand.underWay());
    go.set_value();
    EXPECT_EQ(errand.take(kPatience), 7);
}

TEST(Errand, RunsBesideItsOwner)
{
    Errand<std::thread::id> errand([](Cancellation&) { return std::this_thread::get_id(); });
    EXPECT_NE(errand.take(kPatience), std::this_thread::get_id());
}

TEST(Errand, IsCancelledWhenItsOwnerLetsGo)
{
    auto seen = std::make_shared<std::promise<void>>();
    std::future<void> cancelled = seen->get_future();
    {
        const Errand<int> errand([seen](Cancellation& cancellation) {
            while (!cancellation.cancelled()) {
                std::this_thread::yield();
            }
            seen->set_value();
            return 1;
        });
    }
    EXPECT_EQ(cancelled.wait_for(kPatience), std::future_status::ready);
    EXPECT_TRUE(allWorkEnded(kPatience));
}

TEST(Errand, GivesTheResultOfTheLaterOneAfterAnAssignment)
{
    std::promise<void> never;
    Errand<int> errand([gate = never.get_future().share()](Cancellation&) {
        gate.wait();
        return 1;
    });
    errand = Errand<int>([](Cancellation&) { return 2; });
    EXPECT_EQ(errand.take(kPatience), 2);
    EXPECT_FALSE(allWorkEnded(20ms)) << "the first one hangs still";
    never.set_value();
    EXPECT_TRUE(allWorkEnded(kPatience));
}

TEST(Errand, KeepsNothingOfTheWorkOnceAllHasEnded)
{
    auto held = std::make_shared<int>(3);
    Errand<int> errand([held](Cancellation&) { return *held; });
    EXPECT_EQ(errand.take(kPatience), 3);
    EXPECT_TRUE(allWorkEnded(kPatience));
    EXPECT_EQ(held.use_count(), 1);
}

} // namespace
} // namespace dialog
