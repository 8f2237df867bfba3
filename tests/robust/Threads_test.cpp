// Imports on several threads at once have nothing in common.
#include "entry/dxfFileOpen.h"
#include "support/RecordingHost.h"
#include "support/TempFile.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

namespace {

const char* const kDrawings[] = {"blocks", "dimensions", "geometry", "styles", "texts", "bad_entities"};

std::wstring PathOf(const char* name)
{
    return (std::filesystem::path(PLEXORN_TEST_DATA) / "trace" / (std::string(name) + ".dxf")).wstring();
}

// Imports every drawing a few times, beginning with a different one, and returns the traces by drawing.
std::vector<std::string> TracesUnder(QlmNode context, std::size_t first, int rounds)
{
    RecordingHost& host = RecordingHost::OfThread();
    std::vector<std::string> traces(std::size(kDrawings));
    for (int round = 0; round < rounds; ++round)
        for (std::size_t i = 0; i < std::size(kDrawings); ++i) {
            const std::size_t drawing = (i + first) % std::size(kDrawings);
            host.Reset();
            host.context = context;
            dxfFileOpen(PathOf(kDrawings[drawing]).c_str(), context);
            const std::string trace = host.Trace();
            if (!traces[drawing].empty() && trace != traces[drawing])
                return {};
            traces[drawing] = trace;
        }
    host.Reset();
    return traces;
}

class Threads : public testing::TestWithParam<int> {};

} // namespace

TEST_P(Threads, UnderDifferentContextsGiveTheSameTraces)
{
    const std::size_t count = static_cast<std::size_t>(GetParam());
    std::vector<std::vector<std::string>> traces(count);
    std::vector<char> contexts(count);
    std::atomic<std::size_t> ready = 0;
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < count; ++i)
        threads.emplace_back([&, i] {
            ++ready;
            while (ready < count) // all at once
                std::this_thread::yield();
            traces[i] = TracesUnder(&contexts[i], i, 20);
        });
    for (std::thread& thread : threads)
        thread.join();
    // Not before: what is done at the first import is left to the threads to do at once.
    const std::vector<std::string> expected = TracesUnder(RecordingHost::Context(), 0, 1);
    for (const std::string& trace : expected)
        EXPECT_NE(trace.find("(ctx, "), std::string::npos);
    for (const std::vector<std::string>& ofThread : traces)
        EXPECT_EQ(ofThread, expected);
}

INSTANTIATE_TEST_SUITE_P(Together, Threads, testing::Values(2, 8));
