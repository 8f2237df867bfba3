// What several drawings say at the same time.
#include "cli/report/Printer.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstddef>
#include <string>
#include <thread>

namespace plexorn {
namespace {

TEST(Printer, MoreThanIsKeptWaitsForItsTurnAndIsNotLost)
{
    const std::string kept(kMostWaitingBytes, 'b');
    testing::internal::CaptureStderr();
    {
        Printer printer(2, false);
        printer.Print(1, kept);
        std::atomic<bool> hasPrinted = false;
        std::thread second([&] {
            printer.Print(1, "c");
            hasPrinted = true;
            printer.End(1, false);
        });
        // The second thread may run at once, and must not print too early.
        for (int i = 0; i < 100'000 && !hasPrinted; ++i)
            std::this_thread::yield();
        EXPECT_FALSE(hasPrinted);
        printer.Print(0, "a");
        printer.End(0, false);
        second.join();
    }
    EXPECT_TRUE(testing::internal::GetCapturedStderr() == "a" + kept + "c");
}

} // namespace
} // namespace plexorn
