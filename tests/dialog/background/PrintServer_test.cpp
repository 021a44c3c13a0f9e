// The calls to a print server that misbehaves.  One that behaves is tried by the tests of jobs.

#include "dialog/background/Errand.hpp"
#include "dialog/ppd/PPDSizes.hpp"
#include "dialog/printers/PrintServer.hpp"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <functional>
#include <string>
#include <thread>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace dialog {
namespace {

using std::chrono_literals::operator""ms;

constexpr std::chrono::milliseconds kPatience{20000};

// Listens on a port of its own, which the environment names as the print server, and gives every
// connection, once its first bytes are there, to a function that answers.
class Server
{
  public:
    using Answer = std::function<void(int connection, const Server& server)>;

    explicit Server(Answer answer)
        : answer_(std::move(answer)), listener_(socket(AF_INET, SOCK_STREAM, 0))
    {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        EXPECT_EQ(bind(listener_, reinterpret_cast<sockaddr*>(&address), size), 0);
        EXPECT_EQ(listen(listener_, 8), 0);
        EXPECT_EQ(getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &size), 0);
        setenv("CUPS_SERVER", ("127.0.0.1:" + std::to_string(ntohs(address.sin_port))).c_str(), 1);
        thread_ = std::thread([this] { run(); });
    }
    ~Server()
    {
        over_ = true;
        thread_.join();
        close(listener_);
    }
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    // Until the client goes away or the test is over.
    void hang(int connection) const
    {
        char buffer[4096];
        while (!over_) {
            if (readable(connection) && recv(connection, buffer, sizeof buffer, 0) <= 0) {
                return;
            }
        }
    }
    bool isOver() const { return over_; }
    bool wasAsked() const { return asked_; }

  private:
    static bool readable(int descriptor)
    {
        pollfd wait{descriptor, POLLIN, 0};
        return poll(&wait, 1, 10) == 1;
    }

    void run()
    {
        while (!over_) {
            if (!readable(listener_)) {
                continue;
            }
            const int connection = accept(listener_, nullptr, nullptr);
            while (!over_ && !readable(connection)) {
            }
            asked_ = true;
            answer_(connection, *this);
            close(connection);
        }
    }

    Answer answer_;
    int listener_;
    std::atomic<bool> over_ = false;
    std::atomic<bool> asked_ = false;
    std::thread thread_;
};

void say(int connection, const std::string& text)
{
    EXPECT_EQ(send(connection, text.data(), text.size(), MSG_NOSIGNAL),
              static_cast<ssize_t>(text.size()));
}

std::string fileOf(std::size_t length)
{
    return "HTTP/1.1 200 OK\r\nContent-Type: application/vnd.cups-ppd\r\nContent-Length: " +
           std::to_string(length) + "\r\n\r\n";
}

struct Fetched
{
    std::string bytes;
    Failure failure;
};

// On a thread of its own: libcups asks each thread's environment once.
Errand<Fetched> fetching()
{
    return Errand<Fetched>([](Cancellation& cancellation) {
        Fetched fetched;
        fetched.bytes = fetchPPD("tape", fetched.failure, &cancellation);
        return fetched;
    });
}

TEST(FetchedPPD, IsTheWholeFile)
{
    const Server server(
        [](int connection, const Server&) { say(connection, fileOf(9) + "*PPD-Adob"); });
    const auto fetched = fetching().take(kPatience);
    ASSERT_TRUE(fetched);
    EXPECT_FALSE(fetched->failure) << fetched->failure.text;
    EXPECT_EQ(fetched->bytes, "*PPD-Adob");
}

TEST(FetchedPPD, IsNothingWhenTheServerStopsInTheMiddle)
{
    const Server server([](int connection, const Server&) { say(connection, fileOf(9) + "*PPD"); });
    const auto fetched = fetching().take(kPatience);
    ASSERT_TRUE(fetched);
    EXPECT_EQ(fetched->bytes, "");
    EXPECT_EQ(fetched->failure.status, ExitStatus::NoPrinter);
    EXPECT_NE(fetched->failure.text.find("only a part of the PPD"), std::string::npos)
        << fetched->failure.text;
}

TEST(FetchedPPD, IsNothingWhenThereIsNone)
{
    const Server server([](int connection, const Server&) {
        say(connection, "HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\n\r\n");
    });
    const auto fetched = fetching().take(kPatience);
    ASSERT_TRUE(fetched);
    EXPECT_EQ(fetched->failure.text, "The printer \"tape\" offers no PPD: Not Found.");
    EXPECT_EQ(fetched->failure.status, ExitStatus::BadPPD);
}

TEST(FetchedPPD, IsReadNoFurtherThanItMayBeUsed)
{
    const Server server([](int connection, const Server& self) {
        const std::string much(std::size_t{1} << 20, '*');
        send(connection, fileOf(std::size_t{1} << 40).data(), fileOf(std::size_t{1} << 40).size(),
             MSG_NOSIGNAL);
        while (!self.isOver() && send(connection, much.data(), much.size(), MSG_NOSIGNAL) > 0) {
        }
    });
    const auto fetched = fetching().take(kPatience);
    ASSERT_TRUE(fetched);
    EXPECT_FALSE(fetched->failure) << fetched->failure.text;
    // One byte more would do: it is refused for that when it is opened.
    EXPECT_GT(fetched->bytes.size(), kMaxPPDBytesWithSizes);
    EXPECT_LE(fetched->bytes.size(), kMaxPPDBytesWithSizes + 65536);
}

TEST(AServerThatHangs, IsLeftAsSoonAsTheQuestionIsCancelled)
{
    const Server server([](int connection, const Server& self) {
        say(connection, fileOf(9) + "*PPD");
        self.hang(connection);
    });
    auto waiting = fetching();
    while (!server.wasAsked()) {
        std::this_thread::yield();
    }
    EXPECT_FALSE(waiting.take(50ms));
    waiting.cancel();
    const auto fetched = waiting.take(kPatience);
    ASSERT_TRUE(fetched);
    EXPECT_TRUE(fetched->failure);
}

TEST(AServerThatHangs, IsLeftWhileItTrickles)
{
    const Server server([](int connection, const Server& self) {
        say(connection, fileOf(1000000));
        while (!self.isOver() && send(connection, "*", 1, MSG_NOSIGNAL) == 1) {
            std::this_thread::sleep_for(5ms);
        }
    });
    auto waiting = fetching();
    while (!server.wasAsked()) {
        std::this_thread::yield();
    }
    EXPECT_FALSE(waiting.take(50ms));
    waiting.cancel();
    EXPECT_TRUE(waiting.take(kPatience));
}

TEST(AServerThatHangs, IsLeftWhenItsQueuesAreAskedFor)
{
    const Server server([](int connection, const Server& self) { self.hang(connection); });
    Errand<QueueList> waiting([](Cancellation& cancellation) { return listQueues(&cancellation); });
    while (!server.wasAsked()) {
        std::this_thread::yield();
    }
    EXPECT_FALSE(waiting.take(50ms));
    waiting.cancel();
    const auto list = waiting.take(kPatience);
    ASSERT_TRUE(list);
    EXPECT_TRUE(list->failure);
}

TEST(AServerThatHangs, DoesNotKeepAJobFromBeingCancelled)
{
    const Server server([](int connection, const Server& self) { self.hang(connection); });
    SendProgress progress;
    Errand<SentJob> waiting([&progress](Cancellation& cancellation) {
        return sendJob("tape", "title", {}, SAMPLES_FOLDER "/label.png", "label.png", &cancellation,
                       &progress);
    });
    while (!server.wasAsked()) {
        std::this_thread::yield();
    }
    waiting.cancel();
    const auto sent = waiting.take(kPatience);
    ASSERT_TRUE(sent);
    EXPECT_TRUE(sent->cancelled);
    EXPECT_EQ(sent->id, 0);
    EXPECT_EQ(progress.sent, 0u);
}

} // namespace
} // namespace dialog
