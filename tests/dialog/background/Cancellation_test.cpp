#include "dialog/background/Cancellation.hpp"

#include <gtest/gtest.h>

#include <thread>

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace dialog {
namespace {

class Sockets
{
  public:
    Sockets() { EXPECT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, ends_), 0); }
    ~Sockets()
    {
        close(ends_[0]);
        close(ends_[1]);
    }
    int ours() const { return ends_[0]; }
    int theirs() const { return ends_[1]; }

  private:
    int ends_[2] = {-1, -1};
};

// A socket that is shut down answers the end at once.
bool isShut(int descriptor)
{
    pollfd wait{descriptor, POLLIN, 0};
    char byte = 0;
    return poll(&wait, 1, 0) == 1 && recv(descriptor, &byte, 1, MSG_DONTWAIT) == 0;
}

TEST(Cancellation, StaysOnceItWasCalled)
{
    Cancellation cancellation;
    EXPECT_FALSE(cancellation.cancelled());
    EXPECT_EQ(*cancellation.flag(), 0);
    cancellation.cancel();
    cancellation.cancel();
    EXPECT_TRUE(cancellation.cancelled());
    EXPECT_EQ(*cancellation.flag(), 1);
}

TEST(Cancellation, EndsAWaitForBytesInAnotherThread)
{
    const Sockets sockets;
    Cancellation cancellation;
    cancellation.watch(sockets.ours());
    ssize_t got = -1;
    std::thread waiting([&] {
        char byte = 0;
        got = recv(sockets.ours(), &byte, 1, 0);
    });
    cancellation.cancel();
    waiting.join();
    EXPECT_EQ(got, 0);
}

TEST(Cancellation, ShutsASocketThatComesTooLate)
{
    const Sockets sockets;
    Cancellation cancellation;
    cancellation.cancel();
    EXPECT_FALSE(isShut(sockets.ours()));
    cancellation.watch(sockets.ours());
    EXPECT_TRUE(isShut(sockets.ours()));
}

TEST(Cancellation, LeavesASocketAloneThatIsWatchedNoMore)
{
    const Sockets sockets;
    Cancellation cancellation;
    cancellation.watch(sockets.ours());
    cancellation.unwatch();
    cancellation.cancel();
    EXPECT_FALSE(isShut(sockets.ours()));
}

TEST(Cancellation, NeverShutsAnotherSocketThatGotTheSameNumber)
{
    const Sockets first;
    const Sockets second;
    Cancellation cancellation;
    cancellation.watch(first.ours());
    const int number = dup(first.ours());
    ASSERT_GE(number, 0);
    cancellation.watch(number);
    ASSERT_EQ(dup2(second.ours(), number), number); // the number means another socket now
    cancellation.cancel();
    EXPECT_FALSE(isShut(second.ours()));
    EXPECT_TRUE(isShut(first.ours()));
    close(number);
}

} // namespace
} // namespace dialog
