#include "input/CDxfFile.h"

#include "support/TempFile.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <pthread.h>
#include <string>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace {

std::atomic<int> signalsTaken;

// Returns when the thread waits for something, if the system shows it: the letter after its name is then S.
void WaitUntilAsleep(pid_t thread)
{
    const std::string path = "/proc/self/task/" + std::to_string(thread) + "/stat";
    for (;;) {
        std::ifstream file(path);
        const std::string text{std::istreambuf_iterator<char>(file), {}};
        const std::size_t end = text.rfind(')');
        if (end == std::string::npos || text.compare(end, 3, ") S") == 0)
            return;
        std::this_thread::yield();
    }
}

// A named pipe in place of a file, open for writing until it is destroyed.
class Pipe {
public:
    Pipe() : m_place("")
    {
        unlink(m_place.Path().c_str());
        EXPECT_EQ(mkfifo(m_place.Path().c_str(), 0600), 0);
        m_writer = open(m_place.Path().c_str(), O_RDWR);
        EXPECT_GE(m_writer, 0);
    }
    ~Pipe() { Close(); }

    const char* Path() const { return m_place.Path().c_str(); }
    void Write(std::string_view text) const
    {
        EXPECT_EQ(write(m_writer, text.data(), text.size()), static_cast<ssize_t>(text.size()));
    }
    void Close()
    {
        if (m_writer >= 0)
            close(m_writer);
        m_writer = -1;
    }

private:
    TempFile m_place;
    int m_writer = -1;
};

} // namespace

TEST(File, PipeIsReadToItsEnd)
{
    Pipe pipe;
    CDxfFile file(pipe.Path());
    ASSERT_TRUE(file.IsOpen());
    pipe.Write("0\nEOF\n");
    pipe.Close();
    char bytes[16];
    EXPECT_EQ(file.Read(bytes, sizeof(bytes)), 6);
    errno = EINTR; // of an earlier call: only a read that failed is done again
    EXPECT_EQ(file.Read(bytes, sizeof(bytes)), 0);
}

TEST(File, PipeThatNobodyWritesToIsEmptyAndKeepsNobodyWaiting)
{
    Pipe pipe;
    pipe.Close();
    CDxfFile file(pipe.Path());
    char bytes[16];
    EXPECT_EQ(file.Read(bytes, sizeof(bytes)), 0);
}

TEST(File, ReadThatASignalInterruptsGoesOn)
{
    struct sigaction former, action = {};
    action.sa_handler = [](int) { ++signalsTaken; }; // without SA_RESTART: the call is broken off
    ASSERT_EQ(sigaction(SIGUSR1, &action, &former), 0);
    signalsTaken = 0;
    Pipe pipe;
    CDxfFile file(pipe.Path());
    std::thread other([&pipe, reader = pthread_self(), id = getpid()] {
        for (int i = 1; i <= 5; ++i) {
            WaitUntilAsleep(id);
            pthread_kill(reader, SIGUSR1);
            while (signalsTaken < i)
                std::this_thread::yield();
        }
        pipe.Write("0");
    });
    char bytes[16];
    EXPECT_EQ(file.Read(bytes, sizeof(bytes)), 1);
    other.join();
    EXPECT_EQ(sigaction(SIGUSR1, &former, nullptr), 0);
    EXPECT_EQ(signalsTaken, 5);
}

TEST(File, FailureToReadIsReported)
{
    // The first page of a process is never there: reading it fails.
    CDxfFile file("/proc/self/mem");
    if (!file.IsOpen())
        GTEST_SKIP() << "no /proc here";
    char bytes[16];
    EXPECT_LT(file.Read(bytes, sizeof(bytes)), 0);
}

TEST(File, DirectoriesAndDevicesAreNotOpened)
{
    EXPECT_FALSE(CDxfFile("/").IsOpen());
    EXPECT_FALSE(CDxfFile("/dev/zero").IsOpen());
}

// The lowest free number is the next file's.
TEST(File, IsNotHandedToOtherPrograms)
{
    const TempFile drawing("0\nEOF\n");
    const int next = open("/", O_RDONLY);
    ASSERT_GE(next, 0);
    close(next);
    const CDxfFile file(drawing.Path().c_str());
    ASSERT_TRUE(file.IsOpen());
    EXPECT_EQ(fcntl(next, F_GETFD), FD_CLOEXEC);
    EXPECT_EQ(fcntl(next, F_GETFL) & O_ACCMODE, O_RDONLY);
}
